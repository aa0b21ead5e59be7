#include "workbench/book_formats.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "tests/unit/only_media.h"

namespace workbench {
namespace {

using core::Medium;
using core::Only;
using platform::Failure;
using platform::Text;

TEST(SplitVocabulary, StoresTheEightFieldsInTheirOrder) {
  const Vocabulary words = SplitVocabulary(u"a|b|c|d|e|f|<g>h</g>|i");
  EXPECT_EQ(words.txtFolder, u"a");
  EXPECT_EQ(words.xmlFolder, u"b");
  EXPECT_EQ(words.indexFile, u"c");
  EXPECT_EQ(words.pageTag, u"d");
  EXPECT_EQ(words.mainTag, u"e");
  EXPECT_EQ(words.identTag, u"f");
  EXPECT_EQ(words.creditLine, u"<g>h</g>");
  EXPECT_EQ(words.pageExt, u"i");
}

TEST(SplitVocabulary, ShortRecordFails) { EXPECT_THROW(SplitVocabulary(u"a|b"), Failure); }

TEST(AddEntr, LineBreakThenBlankParagraphs) {
  EXPECT_EQ(AddEntr(2, u"pgMain"), u"\r\n<pgMain>&nbsp;</pgMain>\r\n<pgMain>&nbsp;</pgMain>\r\n");
}

TEST(AddEntr, NoneOrFewerIsALineBreak) {
  EXPECT_EQ(AddEntr(0, u"pgMain"), u"\r\n");
  EXPECT_EQ(AddEntr(-3, u"pgMain"), u"\r\n");
}

TEST(SetMatn, BlankParagraphThenOneParagraphALine) {
  EXPECT_EQ(SetMatn(u"one\r\ntwo", u"p"), u"\r\n<p>&nbsp;</p>\r\n<p>one</p>\r\n<p>two</p>");
}

TEST(SetMatn, EmptyTextGivesOneParagraph) {
  EXPECT_EQ(SetMatn(u"", u"pgMain"), u"\r\n<pgMain>&nbsp;</pgMain>\r\n<pgMain></pgMain>");
}

TEST(SetMatn, TextThatEndsInALineBreakGivesALastEmptyParagraph) {
  EXPECT_EQ(SetMatn(u"one\r\n", u"p"), u"\r\n<p>&nbsp;</p>\r\n<p>one</p>\r\n<p></p>");
}

TEST(SetMatn, LoneCarriageReturnIsNoLineBreak) {
  EXPECT_EQ(SetMatn(u"a\rb\nc", u"p"), u"\r\n<p>&nbsp;</p>\r\n<p>a\rb\nc</p>");
}

TEST(SetMatn, NothingIsEscaped) {
  EXPECT_EQ(SetMatn(u"<a & \"b\">", u"p"), u"\r\n<p>&nbsp;</p>\r\n<p><a & \"b\"></p>");
}

TEST(SetShenas, TwoEmptyParagraphsThenTheText) {
  EXPECT_EQ(SetShenas(u"one\r\ntwo", u"i"), u"<i></i>\r\n<i></i>\r\n<i>one</i>\r\n<i>two</i>");
}

TEST(PageTitleLine, TitleIsRaw) {
  EXPECT_EQ(PageTitleLine(u" a\r\n<b ", u"pgTitle"), u"<pgTitle> a\r\n<b </pgTitle>\r\n");
}

TEST(Index, HeadIsTwoLines) {
  EXPECT_EQ(IndexHead(u"<aTitle0>x</aTitle0>"), u"<strings>\r\n\t<aTitle0>x</aTitle0>\r\n");
}

TEST(Index, LineOfATextCollection) {
  EXPECT_EQ(IndexLine(OpenTag(u"aTitle1", false), u"T", CloseTag(u"aTitle1")),
            u"\t<aTitle1 vol=\"txt\">T</aTitle1>\r\n");
}

TEST(Index, LineOfAGallery) {
  EXPECT_EQ(IndexLine(OpenTag(u"bTitle2", true), u"T", CloseTag(u"bTitle2")),
            u"\t<bTitle2 vol=\"pic1\">T</bTitle2>\r\n");
}

Text Old(const Text& index, const Text& name) {
  return WithoutOldLine(index, OpenTag(name, false), CloseTag(name));
}

TEST(WithoutOldLine, LineBreakOfTheOldLineStays) {
  EXPECT_EQ(Old(u"<strings>\r\n\t<aTitle1 vol=\"txt\">old</aTitle1>\r\n"
                u"\t<aTitle1 vol=\"txt\">new</aTitle1>\r\n",
                u"aTitle1"),
            u"<strings>\r\n\r\n\t<aTitle1 vol=\"txt\">new</aTitle1>\r\n");
}

TEST(WithoutOldLine, EitherKindOfCollectionIsFound) {
  EXPECT_EQ(Old(u"s\r\n\t<aTitle1 vol=\"pic1\">old</aTitle1>\r\n", u"aTitle1"), u"s\r\n\r\n");
}

TEST(WithoutOldLine, Collection10IsNotCollection1) {
  const Text index = u"s\r\n\t<aTitle10 vol=\"txt\">ten</aTitle10>\r\n";
  EXPECT_EQ(Old(index, u"aTitle1"), index);
  EXPECT_EQ(Old(index + u"\t<aTitle1 vol=\"txt\">one</aTitle1>\r\n", u"aTitle1"), index + u"\r\n");
}

TEST(WithoutOldLine, MissingTagLeavesTheTextAsItIs) {
  EXPECT_EQ(Old(u"a\t<aTitle1 vol=", u"aTitle1"), u"a\t<aTitle1 vol=");
  EXPECT_EQ(Old(u"a</aTitle1>", u"aTitle1"), u"a</aTitle1>");
}

TEST(WithoutOldLine, LineAtTheVeryStartFails) {
  EXPECT_THROW(Old(u"<aTitle1 vol=\"txt\">x</aTitle1>", u"aTitle1"), Failure);
}

TEST(WithoutOldLine, TabAtTheVeryStartGoes) {
  EXPECT_EQ(Old(u"\t<aTitle1 vol=\"txt\">x</aTitle1>\r\n", u"aTitle1"), u"\r\n");
}

TEST(CollectionFile, HeadAndEnd) {
  EXPECT_EQ(HeadLines(false), u"<?xml version=\"1.0\"?>\r\n<Tree>\r\n");
  EXPECT_EQ(HeadLines(true), u"<?xml version=\"1.0\"?>\r\n<gallery>\r\n");
  EXPECT_EQ(EndLine(false), u"</Tree>\r\n");
  EXPECT_EQ(EndLine(true), u"</gallery>\r\n");
}

TEST(CollectionFile, LinesAreIndentedByTheirDepth) {
  EXPECT_EQ(MainTitleLine(1, u"M"), u"\t<node label=\"M\">\r\n");
  EXPECT_EQ(MainEndLine(2), u"\t\t</node>\r\n");
  EXPECT_EQ(MainEndLine(0), u"</node>\r\n");
  EXPECT_EQ(PictureLine(1, u"a \"b\"", u"STEM"),
            u"\t<img dtl=\"a \"b\"\">Data/IMG/STEM.jpg</img>\r\n");
}

TEST(CollectionFile, DepthBelowZeroFails) {
  EXPECT_THROW(MainEndLine(-1), Failure);
  EXPECT_THROW(MainTitleLine(-1, u""), Failure);
  EXPECT_THROW(PictureLine(-1, u"", u""), Failure);
  EXPECT_THROW(NodeLine(-1, {}), Failure);
}

TEST(NodeLine, FullNode) {
  const Text attachment = sndBin(u"C:\\x\\a.pdf");
  const Text background = PasBin(u"C:\\b.jpg", u"S");
  EXPECT_EQ(NodeLine(0, {.title = u"T",
                         .file = u"S.htm",
                         .gallery = false,
                         .has = Only({Medium::kAttachment, Medium::kSound, Medium::kFilm}),
                         .attachment = attachment,
                         .background = background}),
            u"<node label=\"T\" src=\"DATA/TXT/S.htm\" mediaStatus=\"111\" snd=\"0\" "
            u"pas=\".pdf\" bgBackground=\"Data/TXT/S.jpg\" pic=\"0\" />\r\n");
}

TEST(NodeLine, BareNodeOfAGallery) {
  EXPECT_EQ(
      NodeLine(1,
               {.title = u"T", .file = u"S.xml", .gallery = true, .has = Only({Medium::kSound})}),
      u"\t<node label=\"T\" src=\"DATA/_xml/S.xml\" mediaStatus=\"010\" pic=\"1\" />\r\n");
}

TEST(NodeLine, QuoteInTheTitleIsWrittenAllTheSame) {
  EXPECT_EQ(NodeLine(0, {.title = u"a\"b", .file = u"S.htm"}),
            u"<node label=\"a\"b\" src=\"DATA/TXT/S.htm\" mediaStatus=\"000\" pic=\"0\" />\r\n");
}

TEST(SndBin, ProgramInAnyLetterCase) {
  EXPECT_EQ(sndBin(u"a.exe"), u" snd=\"1\" pas=\".exe\"");
  EXPECT_EQ(sndBin(u"a.Exe"), u" snd=\"1\" pas=\".Exe\"");
  EXPECT_EQ(sndBin(u"a.EXE"), u" snd=\"1\" pas=\".EXE\"");
}

TEST(SndBin, TwoPartExtensionGivesItsLastPart) {
  EXPECT_EQ(sndBin(u"C:\\a.tar.gz"), u" snd=\"0\" pas=\".gz\"");
}

TEST(SndBin, EmptyPathGivesNothing) { EXPECT_EQ(sndBin(u""), u""); }

TEST(SndBin, PathWithoutADotFails) { EXPECT_THROW(sndBin(u"C:\\readme"), Failure); }

TEST(PasBin, NamesTheBackgroundsCopy) {
  EXPECT_EQ(PasBin(u"C:\\b.JPG", u"STEM"), u" bgBackground=\"Data/TXT/STEM.JPG\"");
  EXPECT_EQ(PasBin(u"", u"STEM"), u"");
}

TEST(PasBin, PathWithoutADotFails) { EXPECT_THROW(PasBin(u"C:\\picture", u"STEM"), Failure); }

}  // namespace
}  // namespace workbench
