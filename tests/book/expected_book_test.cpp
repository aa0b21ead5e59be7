// The comparison itself: what it takes for the same, and how it shows a difference.
#include "tests/book/expected_book.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <stdexcept>

#include "platform/text/encoding.h"
#include "tests/book/line_difference.h"

namespace {

using book::BookFiles;
using book::Difference;
using testing::HasSubstr;

std::string TextBytes(platform::TextView text) {
  return std::string(platform::kUtf16Mark) + platform::EncodeUtf16(text);
}

BookFiles Parsed(const std::map<std::string, std::string>& files) {
  return book::ReadExpected("main",
                            {.expected = [&](const std::string& name) { return files.at(name); },
                             .copied = [](const std::string& path) { return "copy of " + path; }});
}

BookFiles Parsed(const std::string& file) { return Parsed({{"main", file}}); }

TEST(ExpectedBook, ReadsFoldersCopiesAndTexts) {
  const BookFiles files =
      Parsed("# why\n= IMG/\n= IMG/a.jpg <- media/b.jpg\n= TXT/a.htm\n→س§¶\n¶\nend\n");
  EXPECT_EQ(files, (BookFiles{{"IMG/", ""},
                              {"IMG/a.jpg", "copy of media/b.jpg"},
                              {"TXT/a.htm", TextBytes(u"\tس\u200F\r\n\r\nend")}}));
}

TEST(ExpectedBook, TakesOverAnotherBookAndReplacesItsEntries) {
  EXPECT_EQ(Parsed({{"main", "= like other\n= a.xml\nnew¶\n"},
                    {"other", "= a.xml\nold¶\n= b.xml\nstays¶\n"}}),
            (BookFiles{{"a.xml", TextBytes(u"new\r\n")}, {"b.xml", TextBytes(u"stays\r\n")}}));
}

TEST(ExpectedBook, TakesAnEntryOfAnotherBookOut) {
  EXPECT_EQ(Parsed({{"main", "= like other\n= no a.xml\n"}, {"other", "= a.xml\nold¶\n= IMG/\n"}}),
            (BookFiles{{"IMG/", ""}}));
}

TEST(ExpectedBook, ATextWithoutLinesIsItsMarkAlone) {
  EXPECT_EQ(Parsed("= a.xml\n"), (BookFiles{{"a.xml", "\xFF\xFE"}}));
}

TEST(ExpectedBook, ALineAfterTheLastOneHasNoMeaning) {
  EXPECT_THROW(Parsed("= a.xml\nlast\nmore\n"), std::runtime_error);
  EXPECT_THROW(Parsed("stray\n"), std::runtime_error);
}

TEST(BookDifference, IsEmptyForTheSame) {
  const BookFiles files = Parsed("= IMG/\n= a.xml\ntext¶\n");
  EXPECT_EQ(Difference(files, files), "");
}

TEST(BookDifference, ShowsALineOfATextThatDiffers) {
  EXPECT_EQ(Difference({{"a.xml", TextBytes(u"<Tree>\r\n\told\r\n</Tree>\r\n")}},
                       {{"a.xml", TextBytes(u"<Tree>\r\n\tnew\r\n</Tree>\r\n")}}),
            "a.xml\n  <Tree>¶\n- →old¶\n+ →new¶\n  </Tree>¶\n");
}

TEST(BookDifference, ShowsAMissingMarkALoneLineFeedAndAMissingLineEnd) {
  const BookFiles expected{{"a.xml", TextBytes(u"a\r\n")}};
  EXPECT_THAT(Difference(expected, {{"a.xml", platform::EncodeUtf16(u"a\r\n")}}),
              HasSubstr("no text"));
  EXPECT_THAT(Difference(expected, {{"a.xml", TextBytes(u"a\n")}}), HasSubstr("+ a(LF)\n"));
  EXPECT_THAT(Difference(expected, {{"a.xml", TextBytes(u"a")}}), HasSubstr("- a¶\n+ a\n"));
  EXPECT_THAT(Difference(expected, {{"a.xml", ""}}), HasSubstr("+ (no byte"));
}

TEST(BookDifference, TellsFilesThatAreMissingOrTooManyAndWhereAMediumDiffers) {
  EXPECT_EQ(Difference({{"IMG/", ""}, {"a.jpg", "12345"}}, {{"a.jpg", "1234"}, {"b.mp3", "x"}}),
            "IMG/: isn't there\na.jpg: 4 bytes, expected 5 bytes; they differ from byte 4 on\n"
            "b.mp3: is one too many\n");
}

TEST(BookRandomNames, AreNumberedInTheOrderOfTheCollectionThenOfItsGalleries) {
  const BookFiles files{{"_xml/aTitle1.xml", TextBytes(u"BBBBBBBBBBBBBB.xml CCCCCCCCCCCCC1")},
                        {"_xml/BBBBBBBBBBBBBB.xml", TextBytes(u"AAAAAAAAAAAAAA.jpg")},
                        {"IMG/AAAAAAAAAAAAAA.jpg", "picture"},
                        {"IMG/ZZAAAAAAAAAAAA.jpg", "nobody's"}};
  book::RandomNames names;
  names.Learn(files, "_xml/aTitle1.xml");
  EXPECT_EQ(names.Renamed(files), (BookFiles{{"_xml/aTitle1.xml", TextBytes(u"NAME1.xml NAME2")},
                                             {"_xml/NAME1.xml", TextBytes(u"NAME3.jpg")},
                                             {"IMG/NAME3.jpg", "picture"},
                                             {"IMG/ZZAAAAAAAAAAAA.jpg", "nobody's"}}));
}

TEST(LineDifference, KeepsWhatBothHave) {
  EXPECT_EQ(book::LineDifference("a\nb\nc\nd\n", "b\nc\nx\nd\ne\n"),
            "- a\n  b\n  c\n+ x\n  d\n+ e\n");
}

TEST(LineDifference, LeavesOutWhatIsFarFromAChange) {
  EXPECT_EQ(book::LineDifference("1\n2\n3\n4\n5\n6\nold\n", "1\n2\n3\n4\n5\n6\nnew\n"),
            "...\n  4\n  5\n  6\n- old\n+ new\n");
  EXPECT_EQ(book::LineDifference("same\n", "same\n"), "");
}

}  // namespace
