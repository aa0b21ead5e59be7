// The road that Next takes: its log, the folders, the picture, the open workbench, and the steps at
// which it fails.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/project_desk.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::BoxText;
using testing_support::ProjectDesk;
using testing_support::Robot;

class ProjectWindowNext : public testing::Test {
 protected:
  // Removes the project folder at the moment at which this is about to be asked of the disk.
  void VanishAt(const std::string& operation, const std::string& pathEnd) {
    desk.files.onOperation = [this, operation, pathEnd](const std::string& name) {
      if (name.starts_with(operation + " ") && name.ends_with(pathEnd)) {
        std::filesystem::remove_all(desk.HostPath("Data"));
      }
    };
  }

  ProjectDesk desk;
};

TEST_F(ProjectWindowNext, BothPressesAreLoggedStepByStep) {
  desk.Start();
  desk.NewLines();
  Robot::PressKey("Form1", "Text1", Qt::Key_Return);
  EXPECT_THAT(desk.NewLines(),
              ElementsAre("Saving settings...", "Settings saved.", "Reading settings...",
                          "Found in " + desk.ToolPath(u"Resources."), "Making combo...",
                          "Combo made by 2, 2, 2.", "Settings read.", "Making combo...",
                          "Combo made by 2, 2, 2.", "Directories making...", "Directories made.",
                          "TopName Making...", "TopName made.", "Title image copying...",
                          "Title image copied.", "Going to Do...", "It's inside Do.",
                          "Format started.", "Geting files in the directory..."));
  Robot::PressKey("Form1", "Text1", Qt::Key_Return);
  EXPECT_THAT(desk.NewLines(),
              ElementsAre("Saving settings...", "Settings saved.", "Directories making...",
                          "Directories made.", "TopName Making...", "TopName made.",
                          "Title image copying...", "Title image copied.", "Going to Do...",
                          "It's inside Do."));
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

TEST_F(ProjectWindowNext, BothLogsHoldTheSame) {
  desk.OpenWorkbench();
  desk.PressNext();
  EXPECT_EQ(desk.Log(), desk.SecondLog());
}

TEST_F(ProjectWindowNext, MakesTheProjectsFoldersAndOpensTheWorkbench) {
  desk.OpenWorkbench();
  EXPECT_THAT(desk.Names("Data"), ElementsAre("FlashIMG", "IMG", "TXT", "_xml"));
  EXPECT_TRUE(desk.form3.IsVisible());
  EXPECT_TRUE(desk.form1.IsVisible());
  EXPECT_TRUE(Robot::FindWindow("Form1")->isEnabled());
}

TEST_F(ProjectWindowNext, MakesAllPathsAbsolute) {
  desk.OpenWorkbench();
  EXPECT_EQ(desk.Field("idir"), desk.ToolPath(u"Data"));
  EXPECT_EQ(desk.Field("Text1"), desk.ToolPath(u"Resources"));
  EXPECT_EQ(desk.Field("index"), desk.ToolPath(u"Resources\\MyBook.jpg"));
  EXPECT_EQ(desk.Field("Mus1"), desk.ToolPath(u"Resources\\MySound1.mp3"));
  EXPECT_EQ(desk.Field("Mus2"), desk.ToolPath(u"Resources\\MySound2.mp3"));
  EXPECT_EQ(desk.Field("Back"), desk.ToolPath(u"Resources\\MyBack.jpg"));
  EXPECT_EQ(desk.Field("ExBox"), "Export");
}

TEST_F(ProjectWindowNext, TakesPathsAsTheyAreTypedOnThisHost) {
  desk.Start();
  desk.MakeFolders("Book/_xml");
  desk.Write("Book/_xml/aTitle1.xml", "");
  Robot::Type("Form1", "Text1", QString::fromStdString(desk.HostPath("Resources")));
  Robot::Type("Form1", "index",
              "file://" + QString::fromStdString(desk.HostPath("Resources/MyBook.jpg")));
  Robot::Type("Form1", "idir", QString::fromStdString(desk.HostPath("Book")));
  Robot::PressKey("Form1", "idir", Qt::Key_Return);
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  EXPECT_EQ(desk.Field("Text1"), desk.ToolPath(u"Resources"));
  EXPECT_EQ(desk.Field("index"), desk.ToolPath(u"Resources\\MyBook.jpg"));
  EXPECT_EQ(desk.Field("idir"), desk.ToolPath(u"Book"));
  EXPECT_EQ(desk.WaitingKeys(), "a2 b1 b2 c1 c2");
  EXPECT_TRUE(desk.form3.IsVisible());
  EXPECT_TRUE(desk.Has("Book/IMG/aTitle2.jpg"));
}

TEST_F(ProjectWindowNext, CopiesThePictureUnderTheSelectedKeyOverWhatStandsThere) {
  desk.MakeFolders("Data/IMG");
  desk.Write("Data/IMG/bTitle2.jpg", "an older picture");
  desk.Start();
  Robot::Choose("Form1", "dataName", 3);
  desk.PressNext();
  EXPECT_THAT(desk.Names("Data/IMG"), ElementsAre("bTitle2.jpg"));
  EXPECT_EQ(desk.Read("Data/IMG/bTitle2.jpg"), desk.Read("Resources/MyBook.jpg"));
}

TEST_F(ProjectWindowNext, TheSelectionSurvivesInSpiteOfTheRebuilds) {
  desk.Start();
  Robot::Choose("Form1", "dataName", 4);
  desk.NewLines();
  desk.PressNext();
  EXPECT_EQ(desk.SelectedWaiting(), 4);
  EXPECT_TRUE(desk.Has("Data/IMG/cTitle1.jpg"));
  EXPECT_EQ(desk.form3.rowLetter, u"c");
  EXPECT_EQ(desk.form3.rowDigit, u"1");
}

TEST_F(ProjectWindowNext, WithNoEntrySelectedThePictureGoesToTitleJpg) {
  desk.Start();
  desk.Fill("shenas", "abc");
  ASSERT_EQ(desk.WaitingKeys(), "a1 a2 b1 b2");
  desk.PressNext();
  EXPECT_THAT(desk.Names("Data/IMG"), ElementsAre("Title.jpg"));
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  EXPECT_TRUE(desk.form3.IsVisible());
}

TEST_F(ProjectWindowNext, ASecondPressFindsTheWorkbenchAsItStands) {
  desk.OpenWorkbench();
  Robot::Type("Form3", "bname", "being typed");
  desk.PressNext();
  EXPECT_EQ(desk.form3.bname.Text(), u"being typed");
  EXPECT_EQ(desk.LoggedTimes("Format started."), 1);
}

TEST_F(ProjectWindowNext, ItCanBePressedAsOftenAsTheEditorLikes) {
  desk.OpenWorkbench();
  for (int press = 0; press < 5; ++press) desk.PressNext();
  EXPECT_EQ(desk.LoggedTimes("It's inside Do."), 6);
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

TEST_F(ProjectWindowNext, AWorkbenchThatWasClosedIsOpenedAnew) {
  desk.OpenWorkbench();
  Robot::CloseWindow("Form3");
  EXPECT_FALSE(desk.form3.IsLoaded());
  desk.PressNext();
  EXPECT_TRUE(desk.form3.IsVisible());
  EXPECT_EQ(desk.LoggedTimes("Format started."), 2);
}

TEST_F(ProjectWindowNext, WithNoWorkbenchWiredItEndsQuietly) {
  desk.form1.Wire({});
  desk.OpenWorkbench();
  EXPECT_EQ(desk.LogLines().back(), "It's inside Do.");
  EXPECT_FALSE(desk.form3.IsLoaded());
}

// Failures.

TEST_F(ProjectWindowNext, Failure101ADefaultFolderThatCannotBeMade) {
  desk.Write("Data", "a file in its place");
  desk.Start();
  desk.PressNext();
  EXPECT_THAT(desk.BoxTexts(), ElementsAre(BoxText(101)));
  const std::vector<std::string> lines = desk.LogLines();
  ASSERT_GE(lines.size(), 3U);
  EXPECT_EQ(*(lines.end() - 3), "Settings saved.");
  EXPECT_TRUE((lines.end() - 2)->starts_with("Error occurred => Error number is 101 ("));
  EXPECT_EQ(lines.back(), "Payam number 101 displayed.");
  EXPECT_FALSE(desk.form3.IsLoaded());
}

TEST_F(ProjectWindowNext, Failure101APictureThatIsRefused) {
  desk.MakeFolders("Data/IMG/aTitle1.jpg");
  desk.OpenWorkbench();
  EXPECT_THAT(desk.BoxTexts(), ElementsAre(BoxText(101)));
  EXPECT_EQ(desk.LoggedTimes("Title image copied."), 0);
  EXPECT_TRUE(desk.Has("Data/TXT"));
  EXPECT_FALSE(desk.form3.IsLoaded());
}

TEST_F(ProjectWindowNext, Failure50AFolderThatCannotBeMadeAndTheChainGoesOn) {
  desk.MakeFolders("Data");
  desk.Write("Data/FlashIMG", "a file in its place");
  desk.OpenWorkbench();
  EXPECT_EQ(desk.LoggedFailures(50), 1);
  EXPECT_EQ(desk.LoggedTimes("Directories made."), 0);
  EXPECT_TRUE(desk.Has("Data/IMG/aTitle1.jpg"));
  EXPECT_TRUE(desk.form3.IsVisible());
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

TEST_F(ProjectWindowNext, Failure50TheFoldersAfterTheFailureAreNotMade) {
  desk.MakeFolders("Data");
  desk.Write("Data/_xml", "a file in its place");
  desk.OpenWorkbench();
  EXPECT_THAT(desk.Names("Data"), ElementsAre("TXT", "_xml"));
  EXPECT_EQ(desk.LoggedFailures(50), 1);
  EXPECT_EQ(desk.LoggedFailures(101), 1);
  EXPECT_THAT(desk.BoxTexts(), ElementsAre(BoxText(101)));
}

TEST_F(ProjectWindowNext, Failure48TheChainGoesOnWithThePathsCheckedSoFar) {
  desk.OpenProject();
  desk.files.FailWhere("FolderExists", "program\\Data");
  desk.PressNext();
  EXPECT_EQ(desk.LoggedFailures(48), 1);
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  EXPECT_EQ(desk.Field("Text1"), "Resources");
  EXPECT_EQ(desk.Field("Back"), "Resources\\MyBack.jpg");
  EXPECT_TRUE(desk.Has("Data/FlashIMG"));
  EXPECT_THAT(desk.Names("Data/IMG"), IsEmpty());  // the picture is looked for by its relative path
  EXPECT_TRUE(desk.form3.IsVisible());
}

TEST_F(ProjectWindowNext, Failure48ASelectionThatTheRebuiltListNoLongerHas) {
  desk.MarkBuilt("a1");
  desk.MarkBuilt("a2");
  desk.Start();
  Robot::Choose("Form1", "dataName", 5);
  desk.PressNext();
  EXPECT_EQ(desk.WaitingKeys(), "b1 b2 c1 c2");
  EXPECT_EQ(desk.LoggedFailures(48), 1);
  EXPECT_EQ(desk.LoggedTimes("Title image copied."), 1);
  EXPECT_EQ(desk.LoggedFailures(101), 1);  // putting the selection back fails a second time
  EXPECT_THAT(desk.BoxTexts(), ElementsAre(BoxText(101)));
  EXPECT_FALSE(desk.form3.IsLoaded());
}

TEST_F(ProjectWindowNext, AProjectFolderThatVanishesBeforeItIsLookedForIsNotFound) {
  desk.OpenProject();
  VanishAt("FolderExists", "program\\Data");
  desk.PressNext();
  EXPECT_THAT(desk.BoxTexts(), ElementsAre(BoxText(10)));
  EXPECT_FALSE(desk.form3.IsLoaded());
}

TEST_F(ProjectWindowNext, AProjectFolderThatVanishesWhileItsFoldersAreMadeRefusesThePicture) {
  desk.OpenProject();
  VanishAt("MakeFolder", "\\Data\\_xml");
  desk.PressNext();
  EXPECT_EQ(desk.LoggedFailures(50), 1);
  EXPECT_EQ(desk.LoggedFailures(101), 1);
  EXPECT_THAT(desk.BoxTexts(), ElementsAre(BoxText(101)));
  EXPECT_FALSE(desk.Has("Data"));
}

TEST_F(ProjectWindowNext, AProjectFolderThatVanishesBeforeThePictureIsCopiedRefusesIt) {
  desk.OpenProject();
  VanishAt("CopyFile", "aTitle1.jpg");
  desk.PressNext();
  EXPECT_EQ(desk.LoggedFailures(50), 0);
  EXPECT_THAT(desk.BoxTexts(), ElementsAre(BoxText(101)));
  EXPECT_FALSE(desk.form3.IsLoaded());
}

TEST_F(ProjectWindowNext, AProjectFolderThatVanishesWhileSettingsAreSavedIsNotFound) {
  desk.OpenWorkbench();
  VanishAt("Open", "CDProperty.xml");
  desk.PressNext();
  EXPECT_EQ(desk.LoggedTimes("Settings saved."), 2);
  EXPECT_THAT(desk.BoxTexts(), ElementsAre(BoxText(10)));
}

TEST_F(ProjectWindowNext, APictureThatVanishesAfterTheChecksIsNotCopiedAndNoFailure) {
  desk.OpenProject();
  desk.files.onOperation = [this](const std::string& name) {
    if (name.starts_with("MakeFolder")) {
      std::filesystem::remove(desk.HostPath("Resources/MyBook.jpg"));
    }
  };
  desk.PressNext();
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  EXPECT_EQ(desk.LoggedTimes("Title image copied."), 1);
  EXPECT_THAT(desk.Names("Data/IMG"), IsEmpty());
  EXPECT_TRUE(desk.form3.IsVisible());
}

}  // namespace
