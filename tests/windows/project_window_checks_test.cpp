// What Next says when fields are empty or paths lead nowhere, box by box.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QMessageBox>
#include <filesystem>

#include "tests/support/project_desk.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::BoxText;
using testing_support::ProjectDesk;
using testing_support::Robot;

constexpr const char* kCurrentFolderWord = "شاخه جاري";

class ProjectWindowChecks : public testing::Test {
 protected:
  ProjectWindowChecks() { desk.Start(); }

  std::vector<std::string> BoxesAtNext() {
    desk.PressNext();
    return desk.BoxTexts();
  }
  // Next with one field changed; the only box is of this number and the workbench stays shut.
  void ExpectBox(int number, const QString& field, const QString& text) {
    desk.Fill(field, text);
    EXPECT_THAT(BoxesAtNext(), ElementsAre(BoxText(number)));
    EXPECT_EQ(desk.LogLines().back(), "Payam number " + std::to_string(number) + " displayed.");
    EXPECT_FALSE(desk.form3.IsLoaded());
    EXPECT_EQ(desk.LoggedTimes("Directories making..."), 0);
  }

  ProjectDesk desk;
};

TEST_F(ProjectWindowChecks, AllFieldsEmptyYieldTenBoxesInOrderAndNothingElse) {
  for (const char* field :
       {"Text1", "title", "matn", "shenas", "Mus1", "Mus2", "index", "idir", "Back"}) {
    desk.Fill(field, "");
  }
  desk.NewLines();
  EXPECT_THAT(BoxesAtNext(),
              ElementsAre(BoxText(15), BoxText(16), BoxText(17), BoxText(18), BoxText(19),
                          BoxText(20), BoxText(21), BoxText(22), BoxText(23), BoxText(24)));
  EXPECT_THAT(desk.NewLines(),
              ElementsAre("Saving settings...", "Settings saved.", "Payam number 15 displayed.",
                          "Payam number 16 displayed.", "Payam number 17 displayed.",
                          "Payam number 18 displayed.", "Payam number 19 displayed.",
                          "Payam number 20 displayed.", "Payam number 21 displayed.",
                          "Payam number 22 displayed.", "Payam number 23 displayed.",
                          "Payam number 24 displayed."));
  EXPECT_EQ(desk.Field("index"), "");
  EXPECT_FALSE(desk.form3.IsLoaded());
}

TEST_F(ProjectWindowChecks, EachBoxIsAnOkBoxWithTheTitleZorvand) {
  desk.Fill("index", "");
  desk.Fill("Back", "");
  desk.PressNext();
  const std::vector<Robot::Box> boxes = desk.robot.TakeBoxes();
  EXPECT_THAT(boxes, SizeIs(2));
  for (const Robot::Box& box : boxes) {
    EXPECT_EQ(box.title, "Zorvand");
    EXPECT_EQ(box.buttons, QMessageBox::Ok);
  }
}

TEST_F(ProjectWindowChecks, Message15WithNothingLeftToBuild) {
  for (const char* count : {"title", "matn"}) desk.Fill(count, "0");
  ExpectBox(15, "shenas", "0");
}
TEST_F(ProjectWindowChecks, Message16WithoutAnInputFolder) { ExpectBox(16, "Text1", ""); }
TEST_F(ProjectWindowChecks, Message18WithoutACountInRow2) { ExpectBox(18, "matn", ""); }
TEST_F(ProjectWindowChecks, Message19WithoutACountInRow3) { ExpectBox(19, "shenas", ""); }
TEST_F(ProjectWindowChecks, Message20WithoutAFirstTrack) { ExpectBox(20, "Mus1", ""); }
TEST_F(ProjectWindowChecks, Message21WithoutASecondTrack) { ExpectBox(21, "Mus2", ""); }
TEST_F(ProjectWindowChecks, Message22WithoutAPictureOfTheCollection) { ExpectBox(22, "index", ""); }
TEST_F(ProjectWindowChecks, Message23WithoutAProjectFolder) { ExpectBox(23, "idir", ""); }
TEST_F(ProjectWindowChecks, Message24WithoutABackground) { ExpectBox(24, "Back", ""); }

TEST_F(ProjectWindowChecks, Messages15And17WithoutACountInRow1SinceTheListIsEmptyThen) {
  desk.Fill("title", "");
  EXPECT_THAT(BoxesAtNext(), ElementsAre(BoxText(15), BoxText(17)));
}

TEST_F(ProjectWindowChecks, Message9AnInputFolderThatIsNotThere) { ExpectBox(9, "Text1", "Away"); }
TEST_F(ProjectWindowChecks, Message10AProjectFolderThatIsNotThere) {
  ExpectBox(10, "idir", "Book");
  EXPECT_FALSE(desk.Has("Book"));
  EXPECT_EQ(desk.Field("idir"), desk.ToolPath(u"Book"));
}
TEST_F(ProjectWindowChecks, Message11APictureThatIsNotThere) { ExpectBox(11, "index", "a.jpg"); }
TEST_F(ProjectWindowChecks, Message12AFirstTrackThatIsNotThere) { ExpectBox(12, "Mus1", "a.mp3"); }
TEST_F(ProjectWindowChecks, Message13ASecondTrackThatIsNotThere) { ExpectBox(13, "Mus2", "a.mp3"); }
TEST_F(ProjectWindowChecks, Message14ABackgroundThatIsNotThere) { ExpectBox(14, "Back", "a.jpg"); }

TEST_F(ProjectWindowChecks, AllPathsLeadingNowhereYieldSixBoxesInOrderAndStayAbsolute) {
  for (const char* field : {"Text1", "idir", "index", "Mus1", "Mus2", "Back"}) {
    desk.Fill(field, "Away");
  }
  EXPECT_THAT(BoxesAtNext(), ElementsAre(BoxText(10), BoxText(9), BoxText(11), BoxText(12),
                                         BoxText(13), BoxText(14)));
  for (const char* field : {"Text1", "idir", "index", "Mus1", "Mus2", "Back"}) {
    EXPECT_EQ(desk.Field(field), desk.ToolPath(u"Away")) << field;
  }
  EXPECT_EQ(desk.Field("ExBox"), "Export");
}

TEST_F(ProjectWindowChecks, AFolderIsNoPictureAndAFileNoFolder) {
  desk.Fill("index", "Resources");
  desk.Fill("Text1", "Resources\\MyBook.jpg");
  EXPECT_THAT(BoxesAtNext(), ElementsAre(BoxText(9), BoxText(11)));
}

TEST_F(ProjectWindowChecks, WithMusicOffTheTracksAreNeitherTestedNorRewritten) {
  Robot::Click("Form1", "bMus(0)");
  desk.Fill("Mus1", "");
  desk.Fill("Mus2", "Away\\a.mp3");
  Robot::Click("Form1", "bMus(1)");
  EXPECT_THAT(BoxesAtNext(), IsEmpty());
  EXPECT_TRUE(desk.form3.IsVisible());
  EXPECT_EQ(desk.Field("Mus1"), "");
  EXPECT_EQ(desk.Field("Mus2"), "Away\\a.mp3");
}

TEST_F(ProjectWindowChecks, TheCurrentFolderWordBecomesTheProgramFolderWithoutAFinalBackslash) {
  desk.Fill("Text1", kCurrentFolderWord);
  EXPECT_THAT(BoxesAtNext(), IsEmpty());
  EXPECT_EQ(desk.Field("Text1"), desk.ToolPath());
}

TEST_F(ProjectWindowChecks, TheWordCountsWhereverItStandsInARelativePath) {
  desk.Fill("Text1", QStringLiteral("(%1)").arg(kCurrentFolderWord));
  EXPECT_THAT(BoxesAtNext(), IsEmpty());
  EXPECT_EQ(desk.Field("Text1"), desk.ToolPath());
}

TEST_F(ProjectWindowChecks, TheWordInAnAbsolutePathIsAName) {
  desk.FillWithPath("Text1", u"شاخه جاري");
  EXPECT_THAT(BoxesAtNext(), ElementsAre(BoxText(9)));
  EXPECT_EQ(desk.Field("Text1"), desk.ToolPath(u"شاخه جاري"));
}

TEST_F(ProjectWindowChecks, ANetworkPathIsTakenAsRelativeAndIsNotFound) {
  desk.Fill("idir", "\\\\server\\share");
  desk.Fill("Back", "\\\\server\\share\\a.jpg");
  EXPECT_THAT(BoxesAtNext(), ElementsAre(BoxText(10), BoxText(14)));
  EXPECT_EQ(desk.Field("idir"), desk.ToolPath(u"\\\\server\\share"));
  EXPECT_EQ(desk.Field("Back"), desk.ToolPath(u"\\\\server\\share\\a.jpg"));
}

TEST_F(ProjectWindowChecks, APathOnADriveThatIsNotThereIsAbsoluteAndNotFound) {
  ExpectBox(10, "idir", "Q:\\Book");
  EXPECT_EQ(desk.Field("idir"), "Q:\\Book");
}

TEST_F(ProjectWindowChecks, APathOfOneCharacterIsRelative) {
  ExpectBox(10, "idir", "B");
  EXPECT_EQ(desk.Field("idir"), desk.ToolPath(u"B"));
}

TEST_F(ProjectWindowChecks, ARelativeProjectFolderThatIsThereIsTaken) {
  desk.MakeFolders("Book");
  desk.Fill("idir", "Book");
  EXPECT_THAT(BoxesAtNext(), IsEmpty());
  EXPECT_EQ(desk.Field("idir"), desk.ToolPath(u"Book"));
  EXPECT_THAT(desk.Names("Book"), ElementsAre("FlashIMG", "IMG", "TXT", "_xml"));
}

TEST_F(ProjectWindowChecks, TheDefaultProjectFolderIsMadeEvenIfACheckFailsThen) {
  desk.Fill("Back", "");
  EXPECT_THAT(BoxesAtNext(), ElementsAre(BoxText(24)));
  EXPECT_TRUE(desk.Has("Data"));
  EXPECT_EQ(desk.Field("idir"), "Data");
}

TEST_F(ProjectWindowChecks, OnlyTheExactDefaultIsMade) {
  ExpectBox(10, "idir", "data");
  EXPECT_FALSE(desk.Has("data"));
}

TEST_F(ProjectWindowChecks, AProjectFolderThatVanishedAfterAPressIsMissedByTheNext) {
  EXPECT_THAT(BoxesAtNext(), IsEmpty());
  std::filesystem::remove_all(desk.HostPath("Data"));
  EXPECT_THAT(BoxesAtNext(), ElementsAre(BoxText(10)));
  EXPECT_FALSE(desk.Has("Data"));
}

TEST_F(ProjectWindowChecks, Message1AnInputFolderWithoutTexts) {
  desk.MakeFolders("Empty");
  desk.Fill("Text1", "Empty");
  EXPECT_THAT(BoxesAtNext(), ElementsAre(BoxText(1)));
  EXPECT_TRUE(desk.form3.IsVisible());
}

}  // namespace
