#include "viewer/page_sections.h"

#include <gtest/gtest.h>

namespace viewer {
namespace {

book::Page PageOf(const QStringList& paragraphs) {
  book::Page page;
  for (const QString& text : paragraphs) {
    page.parts.push_back({book::PagePart::Kind::kParagraph, text});
  }
  return page;
}

qsizetype WeightBetween(const book::Page& page, book::PagePlace from, book::PagePlace until) {
  qsizetype weight = 0;
  while (from < until) {
    const PagePiece piece = PieceAt(page, from);
    weight += piece.weight;
    from = piece.next;
  }
  EXPECT_EQ(from, until) << "a section starts where a piece does";
  return weight;
}

void ExpectSectionsOfMuchTheSameWeight(const book::Page& page, std::size_t atLeast) {
  const std::vector<book::PagePlace> places = CutIntoSections(page);
  ASSERT_GT(places.size(), atLeast);
  EXPECT_EQ(places.front(), book::PagePlace());
  EXPECT_EQ(places.back(), (book::PagePlace{page.parts.size(), 0}));
  for (std::size_t i = 0; i + 1 < places.size(); ++i) {
    ASSERT_LT(places[i], places[i + 1]);
    const qsizetype weight = WeightBetween(page, places[i], places[i + 1]);
    EXPECT_LT(weight, kWeightOfSection * 4 / 3);
    EXPECT_GT(weight, kWeightOfSection / 4);
  }
}

TEST(PageSections, AnEmptyPageIsOne) {
  EXPECT_EQ(CutIntoSections({}), (std::vector<book::PagePlace>{{}, {}}));
}

TEST(PageSections, AnOrdinaryPageIsOne) {
  const book::Page page = PageOf({QStringLiteral("a"), QString(), QString(100'000, u'b')});
  EXPECT_EQ(CutIntoSections(page), (std::vector<book::PagePlace>{{}, {3, 0}}));
}

TEST(PageSections, ParagraphsOfAnyLength) {
  QStringList paragraphs;
  for (int i = 0; i < 3000; ++i) paragraphs += QString(i % 7 * i, u'x');
  ExpectSectionsOfMuchTheSameWeight(PageOf(paragraphs), 10);
}

TEST(PageSections, OneParagraphWithoutABlank) {
  ExpectSectionsOfMuchTheSameWeight(PageOf({QString(2'000'000, u'x')}), 6);
}

TEST(PageSections, EmptyParagraphsAndLinesHaveTheirWeight) {
  ExpectSectionsOfMuchTheSameWeight(PageOf(QStringList(100'000, QString())), 6);
  ExpectSectionsOfMuchTheSameWeight(PageOf({QString(1'000'000, u'\n')}), 6);
}

TEST(PageSections, PicturesHaveTheirWeight) {
  book::Page page;
  page.parts.resize(500, {book::PagePart::Kind::kPicture, QStringLiteral("x.jpg")});
  ExpectSectionsOfMuchTheSameWeight(page, 8);
}

TEST(PageSections, ALongParagraphIsCutAfterABlankAndNeverInACharacter) {
  const book::Page words = PageOf({QStringLiteral("abcd ").repeated(4000)});
  EXPECT_EQ(PieceAt(words, {}).length % 5, 0);
  const book::Page pairs =
      PageOf({QString(1, u'x') + QStringLiteral("\U0001F339").repeated(20'000)});
  for (book::PagePlace place; place.part == 0; place = PieceAt(pairs, place).next) {
    EXPECT_FALSE(pairs.parts[0].text[place.offset].isLowSurrogate());
  }
}

}  // namespace
}  // namespace viewer
