// What the export script makes on the disk, and what each of its failures leaves there.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/text/encoding.h"
#include "tests/support/export_desk.h"

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing_support::BoxText;
using testing_support::ExportDesk;
using testing_support::Robot;
using testing_support::ScriptOf;

using Tree = std::map<std::string, std::string>;

class ExportScriptOnDisk : public testing::Test {
 protected:
  Tree ExportBy(const std::string& script) {
    desk.OpenProject(script);
    boxes = desk.Export();
    return desk.Has("Export/Export 1") ? desk.Tree("Export/Export 1") : Tree{{"no root", ""}};
  }
  Tree FailBy(const std::string& script) {
    Tree left = ExportBy(script);
    EXPECT_THAT(boxes, ElementsAre(BoxText(28)));
    return left;
  }

  ExportDesk desk;
  std::vector<std::string> boxes;
  const Tree noRoot{{"no root", ""}};
};

TEST_F(ExportScriptOnDisk, TheExportIsByteForByteWhatTheScriptSays) {
  desk.MakeFolders("Data/IMG/Below");
  desk.Write("Data/IMG/Below/deep.jpg", "not entered");
  const Tree tree = ExportBy(ScriptOf({{"Data", "Data\\Empty"},
                                       {"IMG => Data\\IMG", "_xml=>Data\\_xml"},
                                       {"main.exe => root", "img.bin=>root\\Data\\Empty"}}));
  EXPECT_THAT(boxes, ElementsAre(BoxText(29)));
  EXPECT_EQ(tree, (Tree{{"Data", "/"},
                        {"Data/Empty", "/"},
                        {"Data/Empty/img.bin", desk.Read("Resources/img.bin")},
                        {"Data/IMG", "/"},
                        {"Data/IMG/picture.jpg", "a picture"},
                        {"Data/_xml", "/"},
                        {"Data/_xml/Index.xml", "an index"},
                        {"main.exe", "the viewer"}}));
}

TEST_F(ExportScriptOnDisk, SectionsInAnotherOrderAreCarriedOutInTheFixedOne) {
  const Tree tree = ExportBy(
      "[ Copy File ]\r\nmain.exe => root\\Data\\IMG\r\n\r\n[ Make Folder ]\r\nData\r\n\r\n"
      "[ Copy Folder ]\r\nIMG => Data\\IMG\r\n\r\n[ End ]");
  EXPECT_THAT(boxes, ElementsAre(BoxText(29)));
  EXPECT_EQ(tree.at("Data/IMG/main.exe"), "the viewer");
}

TEST_F(ExportScriptOnDisk, LineFeedsAloneMakeNothingButTheRoot) {
  EXPECT_THAT(ExportBy("[ Make Folder ]\nData\n\n[ Copy Folder ]\nIMG => x\n\n[ Copy File ]\n"
                       "main.exe => root\n\n[ End ]\n"),
              IsEmpty());
  EXPECT_THAT(boxes, ElementsAre(BoxText(29)));
  Robot::Click("Form1", "Pcheck");
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(28)));
  EXPECT_THAT(desk.Tree("Export/Export 2"), IsEmpty());
}

TEST_F(ExportScriptOnDisk, EmptySectionsCarryOutNothing) {
  EXPECT_THAT(ExportBy(ScriptOf({{}, {}, {}})), IsEmpty());
  EXPECT_THAT(boxes, ElementsAre(BoxText(29)));
  desk.Write("Resources/Export.inf",
             "[ Make Folder ]\r\n[ Copy Folder ]\r\n[ Copy File ]\r\n[ End ]");
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_THAT(desk.Tree("Export/Export 2"), IsEmpty());
}

TEST_F(ExportScriptOnDisk, OnlyTheFirstOfTwoSectionsCounts) {
  const Tree tree = ExportBy(ScriptOf({{"First"}, {}, {}}) + "[ Make Folder ]\r\nSecond\r\n\r\n[");
  EXPECT_EQ(tree, (Tree{{"First", "/"}}));
}

TEST_F(ExportScriptOnDisk, TheLastLineRightBeforeTheNextBracketIsSilentlyLeftOut) {
  const Tree tree =
      ExportBy("[ Make Folder ]\r\nOne\r\nTwo\r\n[ Copy Folder ]\r\n\r\n[ Copy File ]\r\n\r\n[");
  EXPECT_THAT(boxes, ElementsAre(BoxText(29)));
  EXPECT_EQ(tree, (Tree{{"One", "/"}}));
}

TEST_F(ExportScriptOnDisk, TwoEmptyLinesAreALineTooMany) {
  EXPECT_EQ(
      FailBy("[ Make Folder ]\r\nOne\r\n\r\n\r\n[ Copy Folder ]\r\n\r\n[ Copy File ]\r\n\r\n["),
      (Tree{{"One", "/"}}));
}

TEST_F(ExportScriptOnDisk, ABracketInAPathEndsItsSectionThere) {
  const Tree tree = ExportBy(
      "[ Make Folder ]\r\nOne\r\nTwo\r\nIn [brackets]\r\n\r\n[ Copy Folder ]\r\n\r\n"
      "[ Copy File ]\r\n\r\n[");
  EXPECT_EQ(tree, (Tree{{"One", "/"}, {"Two", "/"}}));
}

TEST_F(ExportScriptOnDisk, BlanksAroundAMadeFolderArePartOfItsName) {
  EXPECT_EQ(ExportBy(ScriptOf({{" Data "}, {}, {}})), (Tree{{" Data ", "/"}}));
}

TEST_F(ExportScriptOnDisk, PersianNamesAreReadInTheMachinesCodePage) {
  desk.MakeFolders("Data/عكس‌ها");
  desk.Write("Data/عكس‌ها/گل.jpg", "a rose");
  const std::string script = ScriptOf(
      {{"كتاب"}, {"عكس‌ها => كتاب\\عكس‌ها"}, {"main.exe => root\\كتاب"}});
  EXPECT_EQ(ExportBy(platform::EncodeMachineCodePage(platform::FromUtf8(script))),
            (Tree{{"كتاب", "/"},
                  {"كتاب/main.exe", "the viewer"},
                  {"كتاب/عكس‌ها", "/"},
                  {"كتاب/عكس‌ها/گل.jpg", "a rose"}}));
  EXPECT_THAT(boxes, ElementsAre(BoxText(29)));
}

TEST_F(ExportScriptOnDisk, RootIsAWordOnTheRightOfACopiedFileAlone) {
  const Tree tree = ExportBy(ScriptOf({{"root", "folder"},
                                       {"IMG => root\\IMG"},
                                       {"main.exe => root\\rootfolder", "img.bin=>\\folder"}}));
  EXPECT_THAT(boxes, ElementsAre(BoxText(29)));
  EXPECT_THAT(tree, AllOf(Contains(Pair("root/IMG/picture.jpg", "a picture")),
                          Contains(Pair("folder/main.exe", "the viewer")),
                          Contains(Pair("folder/img.bin", desk.Read("Resources/img.bin")))));
}

TEST_F(ExportScriptOnDisk, RootInCapitalsIsNoWord) {
  EXPECT_EQ(FailBy(ScriptOf({{"Data"}, {}, {"main.exe => ROOT"}})), (Tree{{"Data", "/"}}));
}

TEST_F(ExportScriptOnDisk, ATargetWithoutTheWordRunsIntoTheRootsName) {
  EXPECT_EQ(FailBy(ScriptOf({{"Data"}, {}, {"main.exe => Data"}})), (Tree{{"Data", "/"}}));
  EXPECT_THAT(desk.Names("Export"), ElementsAre("Export 1"));
}

TEST_F(ExportScriptOnDisk, ASourceInASubfolderNeedsTheSameBelowItsTarget) {
  desk.MakeFolders("Resources/Extra");
  desk.Write("Resources/Extra/note.txt", "a note");
  EXPECT_EQ(ExportBy(ScriptOf({{"Extra"}, {}, {"Extra\\note.txt => root"}})).at("Extra/note.txt"),
            "a note");
}

TEST_F(ExportScriptOnDisk, AFolderWithoutFilesGivesItsTargetAlone) {
  std::filesystem::remove(desk.HostPath("Data/FlashIMG/Back.jpg"));
  desk.MakeFolders("Data/Nothing/Below");
  EXPECT_EQ(ExportBy(ScriptOf({{}, {"Nothing => Out"}, {}})), (Tree{{"Out", "/"}}));
}

TEST_F(ExportScriptOnDisk, ALoneCarriageReturnStaysInsideItsLine) {
  desk.MakeFolders("Data/In\rside");
  desk.Write("Data/In\rside/file", "a file");
  desk.Write("Resources/a\rb", "a resource");
  EXPECT_EQ(ExportBy(ScriptOf({{"One\rTwo"}, {"In\rside => Out\r"}, {"a\rb => root\\One\rTwo"}})),
            (Tree{{"One\rTwo", "/"},
                  {"One\rTwo/a\rb", "a resource"},
                  {"Out\r", "/"},
                  {"Out\r/file", "a file"}}));
  EXPECT_THAT(boxes, ElementsAre(BoxText(29)));
}

TEST_F(ExportScriptOnDisk, ALoneLineFeedStaysInsideItsLine) {
  EXPECT_EQ(ExportBy(ScriptOf({{"One\nTwo"}, {}, {}})), (Tree{{"One\nTwo", "/"}}));
}

TEST_F(ExportScriptOnDisk, AnEmptyLeftSideIsTheProjectFolderItself) {
  desk.MakeFolders("Data");
  desk.Write("Data/beside.txt", "beside the folders");
  EXPECT_EQ(ExportBy(ScriptOf({{}, {"=> Out"}, {}})),
            (Tree{{"Out", "/"}, {"Out/beside.txt", "beside the folders"}}));
  EXPECT_THAT(boxes, ElementsAre(BoxText(29)));
}

TEST_F(ExportScriptOnDisk, AnEmptyRightSideOfACopiedFileIsTheRoot) {
  EXPECT_EQ(ExportBy(ScriptOf({{}, {}, {"main.exe =>"}})), (Tree{{"main.exe", "the viewer"}}));
  EXPECT_THAT(boxes, ElementsAre(BoxText(29)));
}

TEST_F(ExportScriptOnDisk, ACopiedFileReplacesTheFileOfItsName) {
  desk.Write("Resources/picture.jpg", "another picture, which is longer");
  desk.MakeFolders("Data/IMG");
  desk.Write("Data/IMG/long.jpg", "a long picture");
  desk.Write("Resources/long.jpg", "short");
  EXPECT_EQ(ExportBy(ScriptOf(
                {{}, {"IMG => IMG"}, {"picture.jpg => root\\IMG", "long.jpg => root\\IMG"}})),
            (Tree{{"IMG", "/"},
                  {"IMG/long.jpg", "short"},
                  {"IMG/picture.jpg", "another picture, which is longer"}}));
  EXPECT_EQ(desk.Read("Data/IMG/picture.jpg"), "a picture");
}

TEST_F(ExportScriptOnDisk, ALineThatStandsTwiceReplacesItsFileInTheRoot) {
  desk.files.onOperation = [&](const std::string& name) {
    if (name.ends_with("img.bin")) desk.Write("Resources/main.exe", "a new one");
  };
  EXPECT_EQ(ExportBy(ScriptOf({{}, {}, {"main.exe=>root", "img.bin=>root", "main.exe=>root"}})),
            (Tree{{"img.bin", desk.Read("Resources/img.bin")}, {"main.exe", "a new one"}}));
  EXPECT_THAT(boxes, ElementsAre(BoxText(29)));
}

// Failures.

TEST_F(ExportScriptOnDisk, AnEmptyScriptLeavesNothing) { EXPECT_EQ(FailBy(""), noRoot); }

TEST_F(ExportScriptOnDisk, AMissingHeaderLeavesNothing) {
  EXPECT_EQ(FailBy("[ Make Folder ]\r\nData\r\n\r\n[ Copy File ]\r\n\r\n["), noRoot);
}

TEST_F(ExportScriptOnDisk, ALastSectionWithoutABracketAfterItLeavesNothing) {
  EXPECT_EQ(FailBy("[ Make Folder ]\r\nData\r\n\r\n[ Copy Folder ]\r\n\r\n[ Copy File ]\r\n\r\n"),
            noRoot);
}

TEST_F(ExportScriptOnDisk, AFolderThatIsThereAlreadyStopsAtItsLine) {
  EXPECT_EQ(FailBy(ScriptOf({{"One", "One", "Two"}, {}, {}})), (Tree{{"One", "/"}}));
}

TEST_F(ExportScriptOnDisk, AFolderUnderAMissingParentStopsAtItsLine) {
  EXPECT_EQ(FailBy(ScriptOf({{"One", "Missing\\Two", "Three"}, {}, {}})), (Tree{{"One", "/"}}));
}

TEST_F(ExportScriptOnDisk, ACopyLineWithoutItsSignStopsThere) {
  EXPECT_EQ(FailBy(ScriptOf({{"Data"}, {"IMG => Data\\IMG", "TXT Data\\TXT"}, {}})),
            (Tree{{"Data", "/"}, {"Data/IMG", "/"}, {"Data/IMG/picture.jpg", "a picture"}}));
  EXPECT_EQ(desk.Names("Export"), std::vector<std::string>{"Export 1"});
}

TEST_F(ExportScriptOnDisk, AFileLineWithoutItsSignStopsThere) {
  EXPECT_EQ(FailBy(ScriptOf({{}, {}, {"main.exe => root", "img.bin root"}})),
            (Tree{{"main.exe", "the viewer"}}));
}

TEST_F(ExportScriptOnDisk, AnEmptyLineInACopySectionStopsThere) {
  EXPECT_EQ(FailBy("[ Make Folder ]\r\nData\r\n\r\n[ Copy Folder ]\r\nIMG=>Data\\IMG\r\n\r\n\r\n"
                   "[ Copy File ]\r\nmain.exe=>root\r\n\r\n["),
            (Tree{{"Data", "/"}, {"Data/IMG", "/"}, {"Data/IMG/picture.jpg", "a picture"}}));
}

TEST_F(ExportScriptOnDisk, AnEmptyLineAmongTheCopiedFilesStopsThere) {
  EXPECT_EQ(FailBy("[ Make Folder ]\r\nData\r\n\r\n[ Copy Folder ]\r\n\r\n[ Copy File ]\r\n"
                   "main.exe => root\r\n\r\nimg.bin => root\r\n\r\n[ End ]"),
            (Tree{{"Data", "/"}, {"main.exe", "the viewer"}}));
}

TEST_F(ExportScriptOnDisk, AnEmptyRightSideOfACopiedFolderStopsAtTheRootThatIsThere) {
  EXPECT_EQ(FailBy(ScriptOf({{"Data"}, {"IMG =>", "TXT => Data\\TXT"}, {}})),
            (Tree{{"Data", "/"}}));
  EXPECT_EQ(desk.Names("Export"), std::vector<std::string>{"Export 1"});
}

TEST_F(ExportScriptOnDisk, TheSignAloneStopsACopySection) {
  EXPECT_EQ(FailBy(ScriptOf({{"Data"}, {"=>"}, {}})), (Tree{{"Data", "/"}}));
}

TEST_F(ExportScriptOnDisk, AnEmptyLeftSideOfACopiedFileStopsThere) {
  EXPECT_EQ(FailBy(ScriptOf({{}, {}, {"main.exe => root", "=> root", "img.bin => root"}})),
            (Tree{{"main.exe", "the viewer"}}));
}

TEST_F(ExportScriptOnDisk, ACopiedFoldersTargetThatIsThereStopsAtItsLine) {
  EXPECT_EQ(FailBy(ScriptOf({{"Data"}, {"IMG => Data"}, {}})), (Tree{{"Data", "/"}}));
}

TEST_F(ExportScriptOnDisk, ACopiedFoldersTargetWithoutAParentStopsAtItsLine) {
  EXPECT_EQ(FailBy(ScriptOf({{}, {"IMG => Data\\IMG"}, {}})), Tree{});
}

TEST_F(ExportScriptOnDisk, AMissingSourceFolderLeavesTheTargetJustMade) {
  EXPECT_EQ(FailBy(ScriptOf({{"Data"}, {"Missing => Data\\M", "IMG => Data\\IMG"}, {}})),
            (Tree{{"Data", "/"}, {"Data/M", "/"}}));
}

TEST_F(ExportScriptOnDisk, AMissingResourceLeavesTheFilesCopiedBefore) {
  EXPECT_EQ(
      FailBy(ScriptOf({{}, {}, {"main.exe => root", "missing.exe => root", "img.bin=>root"}})),
      (Tree{{"main.exe", "the viewer"}}));
}

TEST_F(ExportScriptOnDisk, AFileThatCanNotBeReplacedStopsTheCopy) {
  EXPECT_EQ(FailBy(ScriptOf({{"Data", "img.bin"}, {}, {"main.exe=>root", "img.bin=>root"}})),
            (Tree{{"Data", "/"}, {"img.bin", "/"}, {"main.exe", "the viewer"}}));
}

}  // namespace
