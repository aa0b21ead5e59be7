#include "book/reading_text.h"

#include <gtest/gtest.h>

#include <QStringList>
#include <random>

namespace book {
namespace {

QString Read(const char* text, Digits digits = Digits::kAsTheyAre) {
  return ReadingText(QString::fromUtf8(text), digits);
}
void ExpectReads(const char* text, const char* read) {
  EXPECT_EQ(Read(text), QString::fromUtf8(read)) << text;
}

TEST(ReadingText, NumbersTimesVersionsAndAddressesLoseTheirMarks) {
  ExpectReads("23.\u200F5", "23.5");
  ExpectReads("۲۳.\u200F۵ و ۱۲:\u200F۳۰", "۲۳.۵ و ۱۲:۳۰");
  ExpectReads("Qt 6.\u200F4.\u200F2", "Qt 6.4.2");
  ExpectReads("www.\u200Fketab.\u200Fir", "www.ketab.ir");
  ExpectReads("http:\u200F//ketab.\u200Fir/a.\u200Fb", "http://ketab.ir/a.b");
  ExpectReads("C:\u200F\\books", "C:\\books");
  ExpectReads("a!\u200Fb", "a!b");
  ExpectReads("a\u200F.b \u0661.\u200F\u0662", "a.b \u0661.\u0662");
  ExpectReads("192.\u200F168.\u200F1.\u200F1:\u200F80", "192.168.1.1:80");
}

TEST(ReadingText, AMarkAtTheEndOfASentenceStays) {
  ExpectReads("رفت.\u200F آمد!\u200F", "رفت.\u200F آمد!\u200F");
  ExpectReads("سال 1385.\u200F سپس", "سال 1385.\u200F سپس");
  ExpectReads("در 12.\u200Fباغ", "در 12.\u200Fباغ");
  ExpectReads("باغ.\u200F12", "باغ.\u200F12");
  ExpectReads("Qt.\u200F", "Qt.\u200F");
  ExpectReads("a\u200Fb", "a\u200Fb");
  ExpectReads("a/\u200Fb", "a/\u200Fb");
}

TEST(ReadingText, AMarkBetweenLettersIsAHalfSpace) {
  ExpectReads("می\u200Fشود", "می\u200Cشود");
  ExpectReads("كار\u200Fها", "کار\u200Cها");
  ExpectReads("کتابِ\u200Fها", "کتابِ\u200Cها");
  ExpectReads("می\u200F\u200Fشود", "می\u200Cشود");
  ExpectReads("می \u200Fشود", "می \u200Fشود");
  ExpectReads("«می\u200F»", "«می\u200F»");
}

TEST(ReadingText, YehAndKafArePersians) {
  ExpectReads("كتابي", "کتابی");
  ExpectReads("هدی موسى", "هدی موسى");
}

TEST(ReadingText, DigitsArePersianByChoice) {
  EXPECT_EQ(Read("سال 1385 و \u0661\u0662"), QString::fromUtf8("سال 1385 و \u0661\u0662"));
  EXPECT_EQ(Read("سال 1385 (12) و \u0661\u0662", Digits::kPersian),
            QString::fromUtf8("سال ۱۳۸۵ (۱۲) و ۱۲"));
  EXPECT_EQ(Read("23.\u200F5", Digits::kPersian), QString::fromUtf8("۲۳.۵"));
}

TEST(ReadingText, WordsAndAddressesKeepTheirDigits) {
  EXPECT_EQ(Read("MP3 و http:\u200F//a1.\u200Fir:\u200F80", Digits::kPersian),
            QString::fromUtf8("MP3 و http://a1.ir:80"));
}

TEST(ReadingText, NothingComesOfNothing) { EXPECT_EQ(Read(""), QString()); }

QString RandomText(std::mt19937& random) {
  static const QStringList kPieces = {
      QStringLiteral("a"),      QStringLiteral("1"),      QStringLiteral("۲"),
      QStringLiteral("."),      QStringLiteral(":"),      QStringLiteral("!"),
      QStringLiteral("/"),      QStringLiteral("\u200F"), QStringLiteral("\u200F"),
      QStringLiteral("\u200C"), QStringLiteral("ي"),      QStringLiteral("ر"),
      QStringLiteral(" "),      QStringLiteral("\u064E"), QStringLiteral("\U0001F600"),
      QStringLiteral("\n")};
  QString text;
  const auto length = random() % 24;
  for (unsigned i = 0; i < length; ++i) {
    text += kPieces[static_cast<qsizetype>(random() % static_cast<unsigned>(kPieces.size()))];
  }
  return text;
}

TEST(ReadingText, TwiceIsOnce) {
  std::mt19937 random(7);
  for (int i = 0; i < 20'000; ++i) {
    const QString text = RandomText(random);
    for (const Digits digits : {Digits::kAsTheyAre, Digits::kPersian}) {
      const QString once = ReadingText(text, digits);
      EXPECT_EQ(ReadingText(once, digits), once) << text.toStdString();
    }
  }
}

// But for marks and half-spaces, the choice of digits and two letters, the text is the same.
TEST(ReadingText, NothingElseChanges) {
  std::mt19937 random(11);
  for (int i = 0; i < 20'000; ++i) {
    const QString text = RandomText(random);
    QString read = ReadingText(text);
    QString plain = text;
    for (QString* each : {&read, &plain}) {
      each->remove(QChar(0x200F)).remove(QChar(0x200C)).replace(QChar(0x064A), QChar(0x06CC));
    }
    EXPECT_EQ(read, plain) << text.toStdString();
  }
}

// A text that is twice as long takes twice as long: what each part becomes is settled by a part's
// own neighbourhood, so that two halves give the whole.
TEST(ReadingText, AMillionMarksAreNoMatter) {
  const qsizetype many = 1'000'000;
  for (const QString& text :
       {QString(many, QChar(0x200F)), u'a' + QString(many, QChar(0x200F)) + u'b',
        u'a' + QStringLiteral(".\u200F").repeated(many / 2),
        QStringLiteral("ی\u200F").repeated(many / 2)}) {
    EXPECT_LE(ReadingText(text, Digits::kPersian).size(), text.size());
  }
}

}  // namespace
}  // namespace book
