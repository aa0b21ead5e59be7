// What the export script makes on the disk, and what each of its failures leaves there.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/export_desk.h"

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing_support::BoxText;
using testing_support::ExportDesk;
using testing_support::PageBytes;
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

// Failures.

TEST_F(ExportScriptOnDisk, AnEmptyScriptLeavesNothing) { EXPECT_EQ(FailBy(""), noRoot); }

TEST_F(ExportScriptOnDisk, AMissingHeaderLeavesNothing) {
  EXPECT_EQ(FailBy("[ Make Folder ]\r\nData\r\n\r\n[ Copy File ]\r\n\r\n["), noRoot);
}

TEST_F(ExportScriptOnDisk, ALastSectionWithoutABracketBehindItLeavesNothing) {
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
  desk.MakeFolders("Resources/In/Data");
  EXPECT_EQ(FailBy(ScriptOf({{"Data", "img.bin"}, {}, {"main.exe=>root", "img.bin=>root"}})),
            (Tree{{"Data", "/"}, {"img.bin", "/"}, {"main.exe", "the viewer"}}));
}

// Print pages.

class ExportedPages : public ExportScriptOnDisk {
 protected:
  static constexpr platform::TextView kTemplate = u"<t>%Title%</t>%Title%<b>%Matn%</b>";

  void Tick(const std::string& script = ScriptOf({{"Data"}, {"TXT => Data\\TXT"}, {}})) {
    desk.OpenProject(script);
    desk.Write("Resources/Default.html", PageBytes(kTemplate));
    Robot::Click("Form1", "Pcheck");
  }
  std::string Exported(const std::string& name) {
    return desk.Read("Export/Export 1/Data/TXT/" + name);
  }
};

TEST_F(ExportedPages, EachPageGetsAPrintPageBesideIt) {
  Tick();
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_THAT(desk.Names("Export/Export 1/Data/TXT"),
              ElementsAre("A.htm", "A.html", "CDProperty.xml"));
  EXPECT_EQ(Exported("A.html"),
            PageBytes(u"<t>الف</t>الف<b>\r\n\r\n<p align=\"right\">متن</p></b>"));
  EXPECT_EQ(Exported("A.htm"), desk.Read("Data/TXT/A.htm"));
  EXPECT_FALSE(desk.Has("Data/TXT/A.html"));
}

TEST_F(ExportedPages, WithoutTheTickTheTemplateIsNotOpened) {
  desk.OpenProject(ScriptOf({{"Data"}, {"TXT => Data\\TXT"}, {}}));
  std::filesystem::remove(desk.HostPath("Resources/Default.html"));
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_FALSE(desk.Has("Export/Export 1/Data/TXT/A.html"));
}

TEST_F(ExportedPages, AMissingTemplateFailsAfterTheWholeScript) {
  Tick();
  std::filesystem::remove(desk.HostPath("Resources/Default.html"));
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(28)));
  EXPECT_TRUE(desk.Has("Export/Export 1/Data/TXT/A.htm"));
  EXPECT_FALSE(desk.Has("Export/Export 1/Data/TXT/A.html"));
}

TEST_F(ExportedPages, TheTickMakesThePageFolderARequirement) {
  Tick(ScriptOf({{"Data"}, {}, {}}));
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(28)));
}

TEST_F(ExportedPages, WithoutPagesNoPrintPageIsWritten) {
  Tick();
  std::filesystem::remove(desk.HostPath("Data/TXT/A.htm"));
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_THAT(desk.Names("Export/Export 1/Data/TXT"), ElementsAre("CDProperty.xml"));
}

TEST_F(ExportedPages, NamesAreTakenByTheirLastExtensionInAnyLetterCase) {
  Tick();
  for (const char* name : {"PAGE.HTM", "a.b.htm", "htm", "x.html", "y.txt", "z.htm.bak"}) {
    desk.Write(std::string("Data/TXT/") + name, PageBytes(u"<pgTitle>t</pgTitle>body"));
  }
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  for (const char* name : {"PAGE.HTMl", "a.b.html", "html"}) {
    EXPECT_EQ(Exported(name), PageBytes(u"<t>t</t>t<b>body</b>")) << name;
  }
  EXPECT_EQ(Exported("x.html"), PageBytes(u"<pgTitle>t</pgTitle>body"));
  EXPECT_FALSE(desk.Has("Export/Export 1/Data/TXT/y.txtl"));
  EXPECT_FALSE(desk.Has("Export/Export 1/Data/TXT/z.htm.bakl"));
}

TEST_F(ExportedPages, ATemplateWithoutABodyGivesPagesWithoutOne) {
  Tick();
  desk.Write("Resources/Default.html", PageBytes(u"<t>%Title%</t>"));
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_EQ(Exported("A.html"), PageBytes(u"<t>الف</t>"));
}

TEST_F(ExportedPages, ATitlesMarksGoInUnchanged) {
  Tick();
  desk.Write("Data/TXT/A.htm", PageBytes(u"ahead<pgTitle>a & b < c</pgTitle>body"));
  desk.Export();
  EXPECT_EQ(Exported("A.html"), PageBytes(u"<t>a & b < c</t>a & b < c<b>body</b>"));
}

TEST_F(ExportedPages, ATitleThatHoldsTheBodysPlaceIsFilledToo) {
  Tick();
  desk.Write("Data/TXT/A.htm", PageBytes(u"<pgTitle>%Matn%</pgTitle>x"));
  desk.Export();
  EXPECT_EQ(Exported("A.html"), PageBytes(u"<t>x</t>x<b>x</b>"));
}

TEST_F(ExportedPages, PicturesAreFoundFromThePagesFolder) {
  Tick();
  desk.Write("Data/TXT/A.htm",
             PageBytes(u"<pgTitle>t</pgTitle><IMG src=\"Data/IMG/a.jpg\">DATA/IMG/b.jpg"));
  desk.Export();
  EXPECT_EQ(Exported("A.html"),
            PageBytes(u"<t>t</t>t<b><IMG src=\"../IMG/a.jpg\">DATA/IMG/b.jpg</b>"));
}

TEST_F(ExportedPages, ATitleThatNeverEndsIsLoggedAndThePassGoesOn) {
  Tick();
  desk.Write("Data/TXT/A.htm", PageBytes(u"<pgTitle>title"));
  desk.Write("Data/TXT/B.htm", PageBytes(u"<pgTitle>t</pgTitle>x"));
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_EQ(desk.LoggedFailures(41), 1);
  EXPECT_EQ(Exported("A.html"), PageBytes(u"<t></t><b>title</b>"));
  EXPECT_EQ(Exported("B.html"), PageBytes(u"<t>t</t>t<b>x</b>"));
}

TEST_F(ExportedPages, APageWithoutATitleBeginsAtItsTenthCharacter) {
  Tick();
  desk.Write("Data/TXT/A.htm", PageBytes(u"123456789abc"));
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_EQ(Exported("A.html"), PageBytes(u"<t></t><b>abc</b>"));
  EXPECT_EQ(desk.LoggedFailures(41), 0);
}

TEST_F(ExportedPages, AnEmptyPageEndsThePassAndKeepsThePagesBefore) {
  Tick();
  desk.Write("Data/TXT/B.htm", "");
  desk.Write("Data/TXT/C.htm", PageBytes(u"<pgTitle>t</pgTitle>x"));
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(28)));
  EXPECT_TRUE(desk.Has("Export/Export 1/Data/TXT/A.html"));
  EXPECT_FALSE(desk.Has("Export/Export 1/Data/TXT/B.html"));
  EXPECT_FALSE(desk.Has("Export/Export 1/Data/TXT/C.html"));
}

}  // namespace
