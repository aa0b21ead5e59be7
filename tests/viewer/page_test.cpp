#include "book/page.h"

#include <gtest/gtest.h>

#include "tests/viewer/book_maker.h"

namespace viewer {
namespace {

using viewer_tests::BookMaker;
using viewer_tests::PageText;

// The parts, pictures in brackets.
QStringList Parts(const book::Page& page) {
  QStringList parts;
  for (const book::PagePart& part : page.parts) {
    parts += part.kind == book::PagePart::Kind::kPicture ? u'[' + part.text + u']' : part.text;
  }
  return parts;
}

QStringList PartsOf(const char* text) { return Parts(book::ParsePage(QString::fromUtf8(text))); }

QStringList Texts(std::initializer_list<const char*> texts) {
  QStringList list;
  for (const char* text : texts) list += QString::fromUtf8(text);
  return list;
}

TEST(Page, AsTheToolWritesIt) {
  const BookMaker maker;
  maker.Write(
      QStringLiteral("Data/TXT/S.htm"),
      PageText(QStringLiteral("باغ"), {QStringLiteral("يك"), QString(), QStringLiteral("دو")}));
  const std::optional<book::Page> page =
      book::ReadPage(maker.Book(), QStringLiteral("DATA/TXT/S.htm"));
  ASSERT_TRUE(page);
  EXPECT_EQ(page->title, QStringLiteral("باغ"));
  EXPECT_EQ(Parts(*page), Texts({"يك", "", "دو"}));
}

TEST(Page, AnIdentityPage) {
  EXPECT_EQ(PartsOf("<pgTitle>شناسنامه</pgTitle>\r\n<pgMain></pgMain>\r\n<pgMain></pgMain>\r\n"
                    "<pgMain>a</pgMain>\r\n<pgMain>&nbsp;</pgMain>\r\n"),
            Texts({"a"}));
}

TEST(Page, APictureBetweenParagraphs) {
  EXPECT_EQ(PartsOf("<pgTitle>t</pgTitle>\r\n\r\n<pgMain>&nbsp;</pgMain>\r\n<pgMain>a</pgMain>\r\n"
                    "<IMG src=\"Data/IMG/my flower.gif\">\r\n<pgMain>b</pgMain>\r\n"
                    "<pgMain>&nbsp;</pgMain>\r\n"),
            Texts({"a", "[Data/IMG/my flower.gif]", "b"}));
}

TEST(Page, AnEmptyText) {
  EXPECT_TRUE(Parts(book::ParsePage(PageText(QStringLiteral("t"), {QString()}))).isEmpty());
}

TEST(Page, TagsInTheTextAreText) {
  for (const char* each : {"a < b & c", "<b>bold</b>", "x </pgMain> y", "x <pgMain> y", "{0}",
                           "<IMG src=\"Data/IMG/x.jpg\"> y", "</pgTitle>", "&amp;"}) {
    const QString text = QString::fromLatin1(each);
    EXPECT_EQ(Parts(book::ParsePage(PageText(QStringLiteral("t"), {text, QStringLiteral("next")}))),
              (QStringList{text, QStringLiteral("next")}));
  }
}

TEST(Page, ATitleMayHoldAnything) {
  for (const char* each : {"a < b", "say \"so\"", "<pgMain>", "&", "two\r\nlines"}) {
    const QString title = QString::fromLatin1(each);
    const book::Page page = book::ParsePage(PageText(title, {QStringLiteral("a")}));
    EXPECT_EQ(page.title, title);
    EXPECT_EQ(Parts(page), Texts({"a"}));
  }
}

TEST(Page, BlanksInTheTextStay) {
  EXPECT_EQ(PartsOf("<pgMain>  a  b </pgMain>\r\n"), Texts({"  a  b "}));
  EXPECT_EQ(PartsOf("<pgMain>a&nbsp;b</pgMain>\r\n"), Texts({"a\u00A0b"}));
}

TEST(Page, TextOutsideAllElementsIsNotLost) {
  EXPECT_EQ(
      PartsOf("<pgTitle>t</pgTitle>\r\nstray\r\n<pgMain>a</pgMain>\r\nmore<pgMain>b</pgMain>"),
      Texts({"stray", "a", "more", "b"}));
  EXPECT_EQ(PartsOf("no tags at all"), Texts({"no tags at all"}));
  EXPECT_EQ(PartsOf("<IMG src=\"never closed\r\n<pgMain>a</pgMain>\r\n"),
            Texts({"<IMG src=\"never closed", "a"}));
  EXPECT_EQ(PartsOf("<IMG src=\"\">\r\n"), Texts({"<IMG src=\"\">"}));
}

TEST(Page, ElementsOnOneLine) {
  EXPECT_EQ(PartsOf("<pgMain>a</pgMain><pgMain>b</pgMain> <IMG src=\"c\"><pgMain>d</pgMain>"),
            Texts({"a", "b", "[c]", "d"}));
}

TEST(Page, ACutPageKeepsWhatIsThere) {
  EXPECT_EQ(PartsOf("<pgTitle>t</pgTitle>\r\n\r\n<pgMain>a</pgMain>\r\n<pgMain>ha"),
            Texts({"a", "ha"}));
  EXPECT_EQ(PartsOf("<pgMain>never closed\r\n<pgMain>b</pgMain>\r\n").size(), 2);
  const book::Page page = book::ParsePage(QStringLiteral("<pgTitle>ha"));
  EXPECT_EQ(Parts(page), Texts({"<pgTitle>ha"}));
}

TEST(Page, WithoutItsMarkOrWithAnOddByte) {
  const BookMaker maker;
  QByteArray bytes = viewer_tests::BookBytes(PageText(QStringLiteral("t"), {QStringLiteral("a")}));
  maker.WriteBytes(QStringLiteral("Data/TXT/S.htm"), bytes.sliced(2));
  maker.WriteBytes(QStringLiteral("Data/TXT/R.htm"), bytes + 'x');
  for (const char* source : {"DATA/TXT/S.htm", "DATA/TXT/R.htm"}) {
    const std::optional<book::Page> page =
        book::ReadPage(maker.Book(), QString::fromLatin1(source));
    ASSERT_TRUE(page);
    EXPECT_EQ(page->title, QStringLiteral("t"));
    EXPECT_EQ(Parts(*page), Texts({"a"}));
  }
}

TEST(Page, WithoutTheFileThereIsNone) {
  EXPECT_FALSE(book::ReadPage(BookMaker().Book(), QStringLiteral("DATA/TXT/S.htm")));
  EXPECT_FALSE(book::ReadPage(BookMaker().Book(), QStringLiteral("DATA/TXT")));
}

// A part of its own for each would take gigabytes.
TEST(Page, StrayLinesWithoutEndComeTogether) {
  const book::Page page =
      book::ParsePage(QStringLiteral("x\n").repeated(2'000'000) + QStringLiteral("z"));
  EXPECT_LT(page.parts.size(), 20'000);
  qsizetype found = 0;
  for (const book::PagePart& part : page.parts) found += part.text.count(u'x');
  EXPECT_EQ(found, 2'000'000);
  EXPECT_TRUE(page.parts.back().text.endsWith(u'z'));
}

TEST(Page, ParagraphsAndPicturesAfterStrayLinesAreRead) {
  const book::Page page =
      book::ParsePage(QStringLiteral("x\n").repeated(100'000) +
                      QStringLiteral("<pgMain>a</pgMain>\r\n<IMG src=\"b.jpg\">\r\n"));
  ASSERT_GT(page.parts.size(), 2U);
  EXPECT_EQ(page.parts[page.parts.size() - 2].text, QStringLiteral("a"));
  EXPECT_EQ(page.parts.back().kind, book::PagePart::Kind::kPicture);
}

// Each would take minutes if the reader went through the rest of the page for each of them.
TEST(Page, DamagedPagesOfMegabytes) {
  constexpr int kTimes = 500'000;
  for (const char* piece :
       {"<IMG src=\"\r\n", "<IMG src=\"", "<pgMain>", "</pgMain>", "x<pgMain>y</pgMain>",
        "<pgMain>a</pgMain><IMG src=\"a\">", "<", "<pgMain></pgMain>    x"}) {
    const QString text = QString::fromLatin1(piece).repeated(kTimes);
    EXPECT_FALSE(book::ParsePage(text).parts.empty()) << piece;
  }
}

}  // namespace
}  // namespace viewer
