#include "export/print_page.h"

#include <gtest/gtest.h>

namespace {

using exporting::FilledTemplate;
using exporting::IsPageFile;
using exporting::PrintBody;

TEST(PrintPage, PageFilesAreToldByTheirLastExtensionInAnyLetterCase) {
  EXPECT_TRUE(IsPageFile(u"a.htm"));
  EXPECT_TRUE(IsPageFile(u"PAGE.HTM"));
  EXPECT_TRUE(IsPageFile(u"a.b.htm"));
  EXPECT_TRUE(IsPageFile(u"htm"));
  EXPECT_FALSE(IsPageFile(u"a.html"));
  EXPECT_FALSE(IsPageFile(u"a.htm.xml"));
  EXPECT_FALSE(IsPageFile(u""));
}

TEST(PrintPage, TheBodyIsWhatStandsBehindTheTitle) {
  EXPECT_EQ(PrintBody(u"before<pgTitle>T</pgTitle>\r\n<pgMain>a</pgMain>\r\n"),
            u"\r\n<p align=\"right\">a</p>\r\n");
}

TEST(PrintPage, PicturesAreFoundBesideTheFolderOfThePages) {
  EXPECT_EQ(PrintBody(u"</pgTitle><IMG src=\"Data/IMG/a.jpg\">"), u"<IMG src=\"../IMG/a.jpg\">");
}

TEST(PrintPage, LetterCaseCountsInTags) {
  EXPECT_EQ(PrintBody(u"</pgTitle><PGMAIN>data/IMG"), u"<PGMAIN>data/IMG");
}

TEST(PrintPage, WithoutATitlesEndTheBodyStartsAtTheTenthCharacter) {
  EXPECT_EQ(PrintBody(u"123456789X<pgMain>"), u"X<p align=\"right\">");
  EXPECT_EQ(PrintBody(u"short"), u"");
}

TEST(PrintPage, BothPlacesAreFilledWhereverTheyStand) {
  EXPECT_EQ(FilledTemplate(u"%Title%|%Matn%|%Title%", u"T & <t>", u"B"), u"T & <t>|B|T & <t>");
}

TEST(PrintPage, ATitleThatHoldsTheBodysPlaceIsFilledToo) {
  EXPECT_EQ(FilledTemplate(u"%Title%", u"x%Matn%y", u"B"), u"xBy");
}

TEST(PrintPage, ATemplateWithoutABodyGivesPagesWithoutOne) {
  EXPECT_EQ(FilledTemplate(u"only %Title%", u"T", u"B"), u"only T");
}

}  // namespace
