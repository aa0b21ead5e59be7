#include "viewer/book/fold.h"

#include <gtest/gtest.h>

namespace viewer {
namespace {

void ExpectSame(const char* a, const char* b) {
  EXPECT_EQ(Folded(QString::fromUtf8(a)), Folded(QString::fromUtf8(b))) << a << " " << b;
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
  EXPECT_NE(Folded(QStringLiteral("ب")), Folded(QStringLiteral("پ")));
  EXPECT_NE(Folded(QStringLiteral("ک")), Folded(QStringLiteral("گ")));
  EXPECT_EQ(Folded(QStringLiteral("<b>.")), QStringLiteral("<b>."));
}

TEST(Fold, FoldingTwiceIsFoldingOnce) {
  for (int c = 1; c < 0x10000; ++c) {
    const char16_t once = FoldedCharacter(static_cast<char16_t>(c));
    EXPECT_EQ(FoldedCharacter(once), once) << c;
  }
}

TEST(Fold, TheWordsOfASearchAreFoldedTheLongestFirst) {
  EXPECT_EQ(WordsOf(QStringLiteral("  با \tكتابِ\u3000من ")),
            (QStringList{QStringLiteral("\u06A9تاب"), QStringLiteral("با"), QStringLiteral("من")}));
  EXPECT_TRUE(WordsOf(QStringLiteral(" \u200C \u0640 ")).isEmpty());
}

}  // namespace
}  // namespace viewer
