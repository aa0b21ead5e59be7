#include "book/settings.h"

#include <gtest/gtest.h>

#include "tests/viewer/book_maker.h"

namespace viewer {
namespace {

using viewer_tests::BookMaker;

QString Written(const QString& a, const QString& layout, const QString& music) {
  return QStringLiteral(
             "<strings>\r\n\t<aNumber>%1</aNumber>\r\n\t<bNumber>3</bNumber>\r\n"
             "\t<cNumber>2</cNumber>\r\n\t<Olgoo>%2</Olgoo>\r\n\t<Music>%3</Music>\r\n"
             "\t<Print>1</Print>\r\n</strings>")
      .arg(a, layout, music);
}

TEST(Settings, AsTheToolWritesThem) {
  const BookMaker maker;
  maker.Write(QStringLiteral("Data/TXT/CDProperty.xml"),
              Written(QStringLiteral("10"), QStringLiteral("2"), QStringLiteral("0")));
  const book::Settings settings = book::ReadSettings(maker.Book());
  EXPECT_EQ(settings.counts, (std::array<int, 3>{10, 3, 2}));
  EXPECT_EQ(settings.layout, 2);
  EXPECT_FALSE(settings.music);
  EXPECT_TRUE(settings.print);
}

TEST(Settings, ACountThatIsNoNumberIsNone) {
  const auto count = [](const char* typed) {
    return book::ParseSettings(
               Written(QString::fromLatin1(typed), QStringLiteral("1"), QStringLiteral("1")))
        .counts[0];
  };
  EXPECT_EQ(count("abc"), 0);
  EXPECT_EQ(count("-2"), 0);
  EXPECT_EQ(count("99999999999"), 0);
  EXPECT_EQ(count("<"), 0);
  EXPECT_EQ(count(" 4 "), 4);
}

TEST(Settings, AnUnknownLayoutIsTheFirst) {
  EXPECT_EQ(book::ParseSettings(Written({}, QStringLiteral("7"), {})).layout, 1);
}

TEST(Settings, WithoutTheFileEverythingIsOff) {
  const book::Settings settings = book::ReadSettings(BookMaker().Book());
  EXPECT_EQ(settings.counts, (std::array<int, 3>{0, 0, 0}));
  EXPECT_EQ(settings.layout, 1);
  EXPECT_FALSE(settings.music);
  EXPECT_FALSE(settings.print);
}

TEST(Settings, AHalfFileGivesItsHalf) {
  const QString text = Written(QStringLiteral("2"), QStringLiteral("2"), QStringLiteral("1"));
  const book::Settings settings =
      book::ParseSettings(text.left(text.indexOf(QLatin1String("</Music>"))));
  EXPECT_EQ(settings.layout, 2);
  EXPECT_FALSE(settings.music);
}

}  // namespace
}  // namespace viewer
