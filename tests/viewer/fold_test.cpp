#include "book/fold.h"

#include <gtest/gtest.h>

namespace viewer {
namespace {

void ExpectSame(const char* a, const char* b) {
  EXPECT_EQ(book::Folded(QString::fromUtf8(a)), book::Folded(QString::fromUtf8(b)))
      << a << " " << b;
}

TEST(Fold, YehOfEveryKeyboard) {
  ExpectSame("\u064A", "\u06CC");
  ExpectSame("\u0649", "\u06CC");
  ExpectSame("علي", "علی");
}

TEST(Fold, KafOfEveryKeyboard) { ExpectSame("كتاب", "کتاب"); }

TEST(Fold, VowelSignsArePassedOver) {
  ExpectSame("كِتابِ مُقَدَّسً", "كتاب مقدس");
  ExpectSame("رحم\u0670ن", "رحمن");
}

TEST(Fold, TatweelIsPassedOver) { ExpectSame("كتـــاب", "كتاب"); }

TEST(Fold, HalfSpacesAndMarksOfDirectionArePassedOver) {
  ExpectSame("مي\u200Cشود", "ميشود");
  ExpectSame("مي\u200Fشود.\u200F", "ميشود.");
  ExpectSame("\uFEFFمي\u200E\u200D\u202Bشود\u202C", "ميشود");
}

TEST(Fold, AlefAndHehWithTheirMarks) {
  ExpectSame("آب", "اب");
  ExpectSame("أحمد", "احمد");
  ExpectSame("خانۀ", "خانه");
  ExpectSame("آب", "ا\u0653ب");
}

TEST(Fold, DigitsOfEveryKeyboard) {
  ExpectSame("۱۳۸۵", "1385");
  ExpectSame("١٣٨٥", "1385");
}

TEST(Fold, LatinLettersWithoutTheirCase) { ExpectSame("Windows ÄÖ", "windows äö"); }

TEST(Fold, BlanksOfEveryKind) { ExpectSame("a\u00A0b\tc\r\nd", "a b c  d"); }

TEST(Fold, OtherLettersStayApart) {
  EXPECT_NE(book::Folded(QStringLiteral("ب")), book::Folded(QStringLiteral("پ")));
  EXPECT_NE(book::Folded(QStringLiteral("ک")), book::Folded(QStringLiteral("گ")));
  EXPECT_EQ(book::Folded(QStringLiteral("<b>.")), QStringLiteral("<b>."));
}

TEST(Fold, FoldingTwiceIsFoldingOnce) {
  for (int c = 1; c < 0x10000; ++c) {
    const QString once = book::Folded(QString(QChar(c)));
    EXPECT_EQ(book::Folded(once), once) << c;
  }
}

TEST(Fold, TheShapesOfALetterAreTheLetter) {
  ExpectSame("\uFB56\uFB57\uFB58\uFB59", "پپپپ");
  ExpectSame("\uFEE3\uFEEC\uFEAE\uFE8E\uFEE5", "مهران");
  ExpectSame("\uFB8E\uFB90 \uFED9\uFEDA", "کک كك");
  ExpectSame("\uFBFC \uFBFD \uFEF1 \uFEEF", "ی ی ي ى");
  ExpectSame("\uFE81 \uFE83 \uFE8B", "آ أ ئ");
}

TEST(Fold, LigaturesAreTheirLetters) {
  ExpectSame("س\uFEFCم", "سلام");
  ExpectSame("\uFEFB \uFEF5 \uFEF7 \uFEF9", "لا لآ لأ لإ");
  ExpectSame("\uFDF2", "الله");
  ExpectSame("\uFDFC", "ریال");
  ExpectSame("\uFC21", "صم");
}

TEST(Fold, VowelSignsOfTheirOwnShapeArePassedOver) {
  for (const char* sign : {"\uFE70", "\uFE77", "\uFC60", "\uFCF2", "\uFE7F"}) {
    ExpectSame(QByteArray("كتا").append(sign).append("ب").constData(), "کتاب");
  }
}

TEST(Fold, WhatIsNoCharacterIsPassedOver) {
  EXPECT_EQ(book::Folded(QString(QChar(0xFFFF))), QString());
}

TEST(Fold, EachFoldedCharacterKnowsWhereItCameFrom) {
  const QString text = QStringLiteral("س\u064E\uFEFCم");
  std::vector<qsizetype> origins;
  EXPECT_EQ(book::Folded(text, origins), QStringLiteral("سلام"));
  EXPECT_EQ(origins, (std::vector<qsizetype>{0, 2, 2, 3}));
}

TEST(Fold, TheDecimalPointAndThatOfThousands) { ExpectSame("۲۳٫۵ ۱٬۰۰۰", "23.5 1,000"); }

TEST(Fold, VowelSignsCountByChoice) {
  const auto folded = [](const char* text) {
    return book::Folded(QString::fromUtf8(text), book::VowelSigns::kCount);
  };
  EXPECT_NE(folded("كِتاب"), folded("کتاب"));
  EXPECT_EQ(folded("كِتــاب"), folded("کِت\u200Cاب"));
  EXPECT_EQ(folded("آب"), folded("ا\u0653ب"));
  EXPECT_EQ(folded("س\uFEFCم"), folded("سلام"));
}

}  // namespace
}  // namespace viewer
