#include "book/query.h"

#include <gtest/gtest.h>

#include <QStringList>

#include "book/marks.h"

namespace book {
namespace {

QString Marked(const Wish& wish, const char* text) {
  const QString whole = QString::fromUtf8(text);
  QStringList found;
  for (const Mark& mark : MarksIn(whole, Query(wish))) {
    found += whole.sliced(mark.start, mark.length);
  }
  return found.join(u'|');
}
QString Marked(const char* words, const char* text) {
  return Marked({.words = QString::fromUtf8(words)}, text);
}
void ExpectFinds(const char* words, const char* text) {
  EXPECT_EQ(Marked(words, text), QString::fromUtf8(text)) << words << " " << text;
}
void ExpectFindsNot(const char* words, const char* text) {
  EXPECT_EQ(Marked(words, text), QString()) << words << " " << text;
}

TEST(Query, AHamzaIsFoundOnWhicheverCarrierItIsSpelt) {
  for (const char* words : {"مسئله", "مساله", "مسأله"}) {
    for (const char* text : {"مسئله", "مساله", "مسأله", "مسئلة"}) ExpectFinds(words, text);
  }
  ExpectFinds("رییس", "رئیس");
  ExpectFinds("رئيس", "رييس");
  ExpectFinds("مسئول", "مسؤول");
  ExpectFinds("مسوول", "مسئول");
  ExpectFinds("\uFE8B", "ی");
  ExpectFindsNot("باد", "بید");
  ExpectFindsNot("باد", "بود");
  ExpectFindsNot("مسئله", "مسله");
}

TEST(Query, AWordOfCarriersAlone) {
  EXPECT_EQ(Marked("او", "و او را"), QStringLiteral("او"));
  EXPECT_EQ(Marked("ای", "ا ای"), QStringLiteral("ای"));
}

TEST(Query, HehFindsTehMarbuta) { ExpectFinds("دایره", "دايرة"); }

TEST(Query, DigitsAndTheirPoints) {
  for (const char* words : {"۲۳٫۵", "23.5", "٢٣.٥"}) {
    for (const char* text : {"۲۳٫۵", "23.5", "۲۳.\u200F۵"}) ExpectFinds(words, text);
  }
}

TEST(Query, AllWordsTheLongestFirst) {
  const Query query({.words = QStringLiteral("  با \tكتابِ\u3000من ")});
  QStringList terms;
  for (const Term& term : query.Terms()) terms += term.Folded();
  EXPECT_EQ(terms,
            (QStringList{QStringLiteral("\u06A9تاب"), QStringLiteral("با"), QStringLiteral("من")}));
  EXPECT_TRUE(Query({.words = QStringLiteral(" \u200C \u0640 ")}).IsEmpty());
  EXPECT_TRUE(Query({.words = QStringLiteral("\"\" « »")}).IsEmpty());
}

TEST(Query, APhraseStandsBetweenQuotesOfAnyKind) {
  for (const char* words : {"\"باغ سیب\"", "«باغ سیب»", "“باغ  سیب”", "\"باغ سیب"}) {
    EXPECT_EQ(Marked(words, "سیب و باغ سیب و باغ"), QStringLiteral("باغ سیب")) << words;
    EXPECT_EQ(Marked(words, "باغ  \n سيب"), QStringLiteral("باغ  \n سيب")) << words;
  }
  EXPECT_EQ(Marked("گل «باغ سیب»", "باغ گل باغ سیب"), QStringLiteral("گل|باغ سیب"));
  EXPECT_EQ(Marked("«ا و ا»", "ا ا و ا"), QStringLiteral("ا و ا"));
}

TEST(Query, WholeWordsByChoice) {
  const Wish whole{.words = QStringLiteral("باغ"), .wholeWords = true};
  EXPECT_EQ(Marked(whole, "باغبان، باغ. باغ\u200Cها (باغ)"), QStringLiteral("باغ|باغ"));
  EXPECT_EQ(Marked("باغ", "باغبان، باغ."), QStringLiteral("باغ|باغ"));
  const Wish phrase{.words = QStringLiteral("«در باغ»"), .wholeWords = true};
  EXPECT_EQ(Marked(phrase, "در باغچه در باغ"), QStringLiteral("در باغ"));
}

TEST(Query, VowelSignsByChoice) {
  const Wish exact{.words = QStringLiteral("مَلِک"), .vowelSigns = VowelSigns::kCount};
  EXPECT_EQ(Marked(exact, "مُلک مَلِک ملک"), QStringLiteral("مَلِک"));
  EXPECT_EQ(Marked("ملک", "مُلک مَلِک ملک"), QStringLiteral("مُلک|مَلِک|ملک"));
}

TEST(Query, MarksDontOverlap) {
  EXPECT_EQ(Marked("باغ باغبان", "باغبان باغ"), QStringLiteral("باغبان|باغ"));
  EXPECT_EQ(Marked("abab", "ababab"), QStringLiteral("abab"));
}

TEST(Query, LongTextsAreNoMatter) {
  const QString text =
      QStringLiteral("ا").repeated(500'000) + QStringLiteral("ب").repeated(500'000);
  EXPECT_EQ(MarksIn(text, Query({.words = QStringLiteral("بگ «ا پ» ئب")})).size(), 1U);
}

}  // namespace
}  // namespace book
