#include "viewer/book/shown_name.h"

#include <gtest/gtest.h>

namespace viewer {
namespace {

const QString kSign = QChar(0xFFFD);

TEST(ShownName, IsAsItRuns) {
  EXPECT_EQ(WithoutTurns(QStringLiteral("a\u202Efdp.\u200Fexe\u2069")), QStringLiteral("afdp.exe"));
  EXPECT_EQ(WithoutTurns(QStringLiteral("كتاب.pdf")), QStringLiteral("كتاب.pdf"));
}

TEST(ShownName, HasASignForWhatHasNoLook) {
  for (const char16_t control : {u'\0', u'\a', u'\t', u'\n', u'\v', u'\f', u'\r', u'\u001B',
                                 u'\u007F', u'\u0085', u'\u2028', u'\u2029'}) {
    const QString name = QStringLiteral("a") + QChar(control) + QStringLiteral("b.exe");
    EXPECT_EQ(WithSigns(name), QStringLiteral("a") + kSign + QStringLiteral("b.exe"))
        << static_cast<int>(control);
  }
}

TEST(ShownName, HasASignForHalfACharacter) {
  const QString whole = QString::fromUcs4(U"\U0001F600");
  EXPECT_EQ(WithSigns(whole), whole);
  EXPECT_EQ(WithSigns(whole.first(1)), kSign);
  EXPECT_EQ(WithSigns(whole.last(1) + whole), kSign + whole);
}

TEST(ShownName, KeepsWordsAsTheyAre) {
  const QString name = QStringLiteral("می\u200Cشود \u200F! a&b");
  EXPECT_EQ(WithSigns(name), name);
  EXPECT_EQ(WithSigns(QString()), QString());
}

}  // namespace
}  // namespace viewer
