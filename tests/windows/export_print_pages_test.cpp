// The print pages that an export makes beside the book's pages.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/export_desk.h"

namespace {

using testing::ElementsAre;
using testing_support::BoxText;
using testing_support::ExportDesk;
using testing_support::PageBytes;
using testing_support::Robot;
using testing_support::ScriptOf;

class ExportedPages : public testing::Test {
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

  ExportDesk desk;
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

TEST_F(ExportedPages, TheTemplateIsReadOnceAndEachPageIsReadAndWrittenOnce) {
  Tick();
  desk.Write("Data/TXT/B.htm", PageBytes(u"<pgTitle>t</pgTitle>x"));
  desk.files.FailAt(testing_support::FaultyFileSystem::kNever);
  desk.Export();
  std::vector<std::string> operations;
  for (const std::string& name : desk.files.Names()) {
    const bool isOfFile = name.starts_with("Read") || name.starts_with("Write");
    if (!isOfFile || name.find(".htm") == std::string::npos) continue;
    operations.push_back(name.substr(0, name.find(' ') + 1) + name.substr(name.rfind('\\') + 1));
  }
  EXPECT_THAT(operations, ElementsAre("ReadAll Default.html", "ReadAll A.htm", "Write A.html",
                                      "ReadAll B.htm", "Write B.html"));
}

TEST_F(ExportedPages, SubfoldersAreNotEntered) {
  Tick(ScriptOf({{"Data", "Data\\TXT"}, {"TXT => Data\\TXT\\Below"}, {}}));
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_THAT(desk.Names("Export/Export 1/Data/TXT"), ElementsAre("Below"));
  EXPECT_THAT(desk.Names("Export/Export 1/Data/TXT/Below"), ElementsAre("A.htm", "CDProperty.xml"));
}

TEST_F(ExportedPages, EveryPlaceInThePageIsReplaced) {
  Tick();
  desk.Write(
      "Data/TXT/A.htm",
      PageBytes(u"<pgTitle>t</pgTitle><pgMain>Data/IMG/a</pgMain><pgMain>Data/IMG/b</pgMain>"));
  desk.Export();
  EXPECT_EQ(Exported("A.html"), PageBytes(u"<t>t</t>t<b><p align=\"right\">../IMG/a</p>"
                                          u"<p align=\"right\">../IMG/b</p></b>"));
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

TEST_F(ExportedPages, ATitleThatEndsBeforeItBeginsIsLoggedAndAllAfterItsEndIsTheBody) {
  Tick();
  desk.Write("Data/TXT/A.htm",
             PageBytes(u"ahead</pgTitle>x<pgTitle>t</pgTitle><pgMain>y</pgMain>"));
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_EQ(desk.LoggedFailures(41), 1);
  EXPECT_EQ(Exported("A.html"),
            PageBytes(u"<t></t><b>x<pgTitle>t</pgTitle><p align=\"right\">y</p></b>"));
}

TEST_F(ExportedPages, AnOlderLongerPrintPageIsEmptiedFirst) {
  Tick();
  desk.Write("Data/TXT/A.html", PageBytes(platform::Text(5000, u'x')));
  EXPECT_THAT(desk.Export(), ElementsAre(BoxText(29)));
  EXPECT_EQ(Exported("A.html"),
            PageBytes(u"<t>الف</t>الف<b>\r\n\r\n<p align=\"right\">متن</p></b>"));
  EXPECT_EQ(desk.Read("Data/TXT/A.html"), PageBytes(platform::Text(5000, u'x')));
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
