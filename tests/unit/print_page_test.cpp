#include "export/print_page.h"

#include <gtest/gtest.h>

namespace {

using exporting::IsPageFile;
using exporting::PageTemplate;
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

TEST(PrintPage, TheBodyIsWhatStandsAfterTheTitle) {
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
  EXPECT_EQ(PageTemplate(u"%Title%|%Matn%|%Title%").Filled(u"T & <t>", u"B"), u"T & <t>|B|T & <t>");
}

TEST(PrintPage, ATitleThatHoldsTheBodysPlaceIsFilledToo) {
  EXPECT_EQ(PageTemplate(u"%Title%").Filled(u"x%Matn%y", u"B"), u"xBy");
}

TEST(PrintPage, ATemplateWithoutABodyGivesPagesWithoutOne) {
  EXPECT_EQ(PageTemplate(u"only %Title%").Filled(u"T", u"B"), u"only T");
}

TEST(PrintPage, PlacesThatCutIntoEachOtherAreFilledOneAfterTheOther) {
  EXPECT_EQ(PageTemplate(u"%Matn%Title%").Filled(u"T", u"B"), u"%MatnT");
  EXPECT_EQ(PageTemplate(u"%Title%Matn%").Filled(u"T", u"B"), u"TMatn%");
  EXPECT_EQ(PageTemplate(u"%Ma%Title%%").Filled(u"tn", u"B"), u"B");
  EXPECT_EQ(PageTemplate(u"%Mat%Title%n%").Filled(u"", u"B"), u"B");
  EXPECT_EQ(PageTemplate(u"%Title%").Filled(u"%Matn", u"B"), u"%Matn");
  EXPECT_EQ(PageTemplate(u"%Title%atn%").Filled(u"%M", u"B"), u"B");
}

}  // namespace
