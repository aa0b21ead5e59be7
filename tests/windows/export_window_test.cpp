// The export button: what it makes absolute and asks for, the messages and their order, the number
// of the folder, and the start of the viewer.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/export_desk.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::BoxText;
using testing_support::ExportDesk;
using testing_support::RecordedLauncher;
using testing_support::Robot;
using testing_support::ScriptOf;

const std::string kScript = ScriptOf({{"Data"}, {R"(TXT => Data\TXT)"}, {"main.exe => root"}});
const std::string kNoViewer = ScriptOf({{"Data"}, {R"(TXT => Data\TXT)"}, {}});

class ExportWindow : public testing::Test {
 protected:
  RecordedLauncher::Opened OpenedIn(platform::TextView root) const {
    return {desk.Path(platform::Text(root) + u"\\main.exe"), desk.Path(root)};
  }

  ExportDesk desk;
};

TEST_F(ExportWindow, TheFirstExportMakesTheDefaultTargetAndExportOne) {
  desk.OpenProject(kScript);
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_THAT(desk.Names("Export"), ElementsAre("Export 1"));
  EXPECT_THAT(desk.Names("Export/Export 1"), ElementsAre("Data", "main.exe"));
  EXPECT_EQ(desk.Field("ExBox"), desk.ToolPath(u"Export"));
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_THAT(desk.Names("Export"), ElementsAre("Export 1", "Export 2"));
}

TEST_F(ExportWindow, AnAbsoluteDefaultTargetThatIsGoneIsNotMadeAgain) {
  desk.OpenProject(kScript);
  desk.Export();
  std::filesystem::remove_all(desk.HostPath("Export"));
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(26)));
  EXPECT_FALSE(desk.Has("Export"));
}

TEST_F(ExportWindow, AnotherTargetThatIsMissingIsNotMade) {
  desk.OpenProject(kScript);
  desk.Fill("ExBox", "Out");
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(26)));
  EXPECT_EQ(desk.Field("ExBox"), desk.ToolPath(u"Out"));
  EXPECT_FALSE(desk.Has("Out"));
}

TEST_F(ExportWindow, TheDefaultTargetIsKnownByItsExactLetters) {
  desk.OpenProject(kScript);
  desk.Fill("ExBox", "export");
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(26)));
  EXPECT_FALSE(desk.Has("export"));
}

TEST_F(ExportWindow, AnEmptyTargetIsTheProgramFolder) {
  desk.OpenProject(kScript);
  desk.Fill("ExBox", "");
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_TRUE(desk.Has("Export 1/main.exe"));
}

TEST_F(ExportWindow, ATargetThatStartsWithTwoBackslashesIsRelative) {
  desk.OpenProject(kScript);
  desk.Fill("ExBox", R"(\\server\books)");
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(26)));
  EXPECT_EQ(desk.Field("ExBox"), desk.ToolPath(u"\\\\server\\books"));
  desk.MakeFolders("server/books");
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_EQ(desk.Field("ExBox"), desk.ToolPath(u"\\\\server\\books"));
  EXPECT_TRUE(desk.Has("server/books/Export 1/main.exe"));
}

TEST_F(ExportWindow, ATargetIsAbsoluteByItsSecondCharacterAlone) {
  desk.OpenProject(kScript);
  desk.Fill("ExBox", "1:\\books");
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(26)));
  EXPECT_EQ(desk.Field("ExBox"), "1:\\books");
}

TEST_F(ExportWindow, ATargetWithItsBackslashGetsNoSecondOne) {
  desk.OpenProject(kScript);
  desk.MakeFolders("Out");
  desk.Fill("ExBox", "Out\\");
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_THAT(desk.launcher.opened, ElementsAre(OpenedIn(u"Out\\Export 1")));
}

TEST_F(ExportWindow, AnEmptyProjectFolderIsTheProgramFolder) {
  desk.OpenProject(kScript);
  desk.Fill("idir", "");
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(28)));
  EXPECT_EQ(desk.Field("idir"), desk.ToolPath() + "\\");
  desk.MakeFolders("TXT");
  desk.Write("TXT/page.htm", "a page beside the program");
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_THAT(desk.Names("Export/Export 2/Data/TXT"), ElementsAre("CDProperty.xml", "page.htm"));
  EXPECT_EQ(desk.Read("Export/Export 2/Data/TXT/page.htm"), "a page beside the program");
  EXPECT_FALSE(desk.Has("Data/TXT/CDProperty.xml"));
}

TEST_F(ExportWindow, TheTargetIsTestedBeforeTheProject) {
  desk.OpenProject(kScript);
  desk.Fill("ExBox", "Out");
  desk.Fill("idir", "Nowhere");
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(26)));
  desk.MakeFolders("Out");
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(10)));
  EXPECT_THAT(desk.Names("Out"), IsEmpty());
}

TEST_F(ExportWindow, ARelativeProjectFolderIsRewrittenAndStaysSo) {
  desk.OpenProject(kScript);
  ASSERT_EQ(desk.Field("idir"), "Data");
  desk.Export();
  EXPECT_EQ(desk.Field("idir"), desk.ToolPath(u"Data"));
}

TEST_F(ExportWindow, SavesTheSettingsIntoTheBookFirst) {
  desk.OpenProject(kScript);
  desk.Fill("title", "7");
  desk.FillWithPath("Back", u"Resources\\MyBack.jpg");
  desk.Export();
  EXPECT_EQ(desk.Read("Data/TXT/CDProperty.xml"),
            desk.Read("Export/Export 1/Data/TXT/CDProperty.xml"));
  EXPECT_EQ(desk.Read("Data/FlashIMG/Back.jpg"), desk.Read("Resources/MyBack.jpg"));
}

// Only the two folders are made absolute; Next does it for the rest.
TEST_F(ExportWindow, RelativeMediaAreTakenFromTheCurrentFolder) {
  desk.OpenProject(kScript);
  ASSERT_EQ(desk.Field("Back"), "Resources\\MyBack.jpg");
  desk.WriteCurrent("Resources/MyBack.jpg", "the current folder's picture");
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_EQ(desk.Read("Data/FlashIMG/Back.jpg"), "the current folder's picture");
  EXPECT_FALSE(desk.Has("Data/FlashIMG/Sound1.mp3"));
}

TEST_F(ExportWindow, TakesTheFirstFreeNumber) {
  desk.OpenProject(kScript);
  desk.MakeFolders("Export/Export 1");
  desk.MakeFolders("Export/Export 3");
  desk.Export();
  EXPECT_THAT(desk.Names("Export/Export 2"), ElementsAre("Data", "main.exe"));
  EXPECT_THAT(desk.Names("Export/Export 1"), IsEmpty());
  EXPECT_THAT(desk.Names("Export/Export 3"), IsEmpty());
}

TEST_F(ExportWindow, AFileWithTheNameOfTheNextFolderIsNoFolderAndStandsInItsWay) {
  desk.OpenProject(kScript);
  desk.MakeFolders("Export");
  desk.Write("Export/Export 1", "a file");
  desk.MakeFolders("Export/Export 2");
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(28)));
  EXPECT_EQ(desk.Read("Export/Export 1"), "a file");
  EXPECT_THAT(desk.Names("Export"), ElementsAre("Export 1", "Export 2"));
  EXPECT_THAT(desk.Names("Export/Export 2"), IsEmpty());
}

TEST_F(ExportWindow, AHalfMadeRootCountsAsTaken) {
  desk.OpenProject(ScriptOf({{"Data"}, {"Missing => Data\\TXT"}, {}}));
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(28)));
  desk.Write("Resources/Export.inf", kScript);
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_THAT(desk.Names("Export"), ElementsAre("Export 1", "Export 2"));
}

TEST_F(ExportWindow, IsLoggedStepByStep) {
  desk.OpenProject(kScript);
  desk.Export();
  const std::vector<std::string> lines = desk.NewLines();
  ASSERT_GE(lines.size(), 4U);
  EXPECT_THAT(std::vector(lines.end() - 4, lines.end()),
              ElementsAre("Exporting files...", "Payam number 29 displayed.", "Files exported.",
                          "Exported Main.exe played."));
}

TEST_F(ExportWindow, TheViewerStartsFromItsOwnFolderOnceTheMessageIsRead) {
  desk.OpenProject(kScript);
  desk.robot.onBox = [&](QWidget&) { EXPECT_THAT(desk.launcher.opened, IsEmpty()); };
  desk.Export();
  EXPECT_THAT(desk.launcher.opened, ElementsAre(OpenedIn(u"Export\\Export 1")));
}

TEST_F(ExportWindow, WithoutAViewerInTheScriptNoneStartsAndTheLogIsTheSame) {
  desk.OpenProject(kNoViewer);
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_THAT(desk.launcher.opened, IsEmpty());
  EXPECT_EQ(desk.NewLines().back(), "Exported Main.exe played.");
}

TEST_F(ExportWindow, AMissingScriptIsToldAndThePassRunsOnToItsEnd) {
  desk.OpenProject(kScript);
  std::filesystem::remove(desk.HostPath("Resources/Export.inf"));
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(27), BoxText(29)));
  EXPECT_THAT(desk.Names("Export"), IsEmpty());
  const std::vector<std::string> lines = desk.NewLines();
  ASSERT_GE(lines.size(), 5U);
  EXPECT_THAT(
      std::vector(lines.end() - 5, lines.end()),
      ElementsAre("Exporting files...", "Payam number 27 displayed.", "Payam number 29 displayed.",
                  "Files exported.", "Exported Main.exe played."));
}

TEST_F(ExportWindow, WithoutAScriptTheViewerIsLookedForAtTheRootOfTheDrive) {
  desk.OpenProject(kScript);
  std::filesystem::remove(desk.HostPath("Resources/Export.inf"));
  bool asked = false;
  desk.files.onOperation = [&](const std::string& name) { asked |= name.ends_with(" \\main.exe"); };
  desk.Export();
  EXPECT_TRUE(asked);
}

TEST_F(ExportWindow, AFailureShowsItsMessageAloneAndStartsNothing) {
  desk.OpenProject(ScriptOf({{"Data", "Data"}, {}, {"main.exe => root"}}));
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(28)));
  EXPECT_THAT(desk.launcher.opened, IsEmpty());
  EXPECT_EQ(desk.NewLines().back(), "Payam number 28 displayed.");
}

TEST_F(ExportWindow, ADefaultTargetThatCanNotBeMadeIsToldWithItsDescription) {
  desk.OpenProject(kScript);
  desk.Write("Export", "a file stands in its way");
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(102)));
  EXPECT_NE(desk.form1.lastErrorText, u"");
  EXPECT_THAT(desk.launcher.opened, IsEmpty());
}

TEST_F(ExportWindow, TheWindowStaysUsableAfterAnExport) {
  desk.OpenProject(kScript);
  desk.Export();
  EXPECT_TRUE(desk.form1.IsVisible());
  Robot::Type("Form1", "title", "3");
  EXPECT_EQ(desk.Field("title"), "3");
}

TEST_F(ExportWindow, NothingOutsideTheNewFolderIsTouched) {
  desk.OpenProject(kScript);
  desk.Export();  // the settings are saved by then
  const auto before = desk.TreeAround("Export/Export 2");
  desk.Export();
  EXPECT_TRUE(desk.Has("Export/Export 2/main.exe"));
  EXPECT_EQ(desk.TreeAround("Export/Export 2"), before);
}

}  // namespace
