#include "book/shown_name.h"

#include <gtest/gtest.h>

namespace viewer {
namespace {

const QString kSign = QChar(0xFFFD);

// Of them the marks that turn a text around: with them "fdp.exe" reads as "exe.pdf".
TEST(ShownName, OfAFileHasASignForEachFormat) {
  for (const char32_t format :
       {0x202AU, 0x202BU, 0x202CU, 0x202DU, 0x202EU, 0x2066U, 0x2067U, 0x2068U, 0x2069U, 0x200EU,
        0x200FU, 0x061CU, 0x00ADU, 0xFEFFU, 0x2060U, 0x200BU, 0xE0001U, 0xE0065U, 0x1D173U}) {
    const QString name = u'a' + QStringView(QChar::fromUcs4(format)).toString();
    EXPECT_EQ(book::NameWithSigns(name + QStringLiteral("fdp.exe")),
              QStringLiteral("a") + kSign + QStringLiteral("fdp.exe"))
        << static_cast<unsigned>(format);
  }
  EXPECT_EQ(book::NameWithSigns(QStringLiteral("a\n.exe")), QStringLiteral("a\uFFFD.exe"));
}

TEST(ShownName, OfAFileKeepsWhatPersianNeedsBetweenLetters) {
  for (const char* whole : {"كتاب.pdf", "می\u200Cشود.pdf", "ه\u200Dا.pdf"}) {
    EXPECT_EQ(book::NameWithSigns(QString::fromUtf8(whole)), QString::fromUtf8(whole));
  }
  EXPECT_EQ(book::NameWithSigns(QStringLiteral("\u200Cمی\u200C\u200Cشود\u200D.pdf")),
            QStringLiteral("\uFFFDمی\uFFFD\uFFFDشود\uFFFD.pdf"));
}

TEST(ShownName, HasASignForWhatHasNoLook) {
  for (const char16_t control : {u'\0', u'\a', u'\t', u'\n', u'\v', u'\f', u'\r', u'\u001B',
                                 u'\u007F', u'\u0085', u'\u2028', u'\u2029'}) {
    const QString name = QStringLiteral("a") + QChar(control) + QStringLiteral("b.exe");
    EXPECT_EQ(book::WithSigns(name), QStringLiteral("a") + kSign + QStringLiteral("b.exe"))
        << static_cast<int>(control);
  }
}

TEST(ShownName, HasASignForHalfACharacter) {
  const QString whole = QString::fromUcs4(U"\U0001F600");
  EXPECT_EQ(book::WithSigns(whole), whole);
  EXPECT_EQ(book::WithSigns(whole.first(1)), kSign);
  EXPECT_EQ(book::WithSigns(whole.last(1) + whole), kSign + whole);
}

TEST(ShownName, KeepsWordsAsTheyAre) {
  const QString name = QStringLiteral("می\u200Cشود \u200F! a&b");
  EXPECT_EQ(book::WithSigns(name), name);
  EXPECT_EQ(book::WithSigns(QString()), QString());
}

}  // namespace
}  // namespace viewer
