#include "book/text_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QFile>

#include "tests/viewer/book_maker.h"

namespace viewer {
namespace {

using viewer_tests::BookBytes;
using viewer_tests::BookMaker;

TEST(TextFile, LittleEndianWithItsMark) {
  EXPECT_EQ(book::DecodeText(QByteArray::fromHex("FFFE3C002C06")), QStringLiteral("<\u062C"));
}

TEST(TextFile, WithoutAMarkItIsLittleEndian) {
  EXPECT_EQ(book::DecodeText(QByteArray::fromHex("3C002C06")), QStringLiteral("<\u062C"));
}

TEST(TextFile, BigEndianByItsMark) {
  EXPECT_EQ(book::DecodeText(QByteArray::fromHex("FEFF003C062C")), QStringLiteral("<\u062C"));
}

TEST(TextFile, Utf8ByItsMark) {
  EXPECT_EQ(book::DecodeText(QByteArray::fromHex("EFBBBF3CD8AC")), QStringLiteral("<\u062C"));
}

TEST(TextFile, AnOddByteAtTheEndIsDropped) {
  EXPECT_EQ(book::DecodeText(QByteArray::fromHex("FFFE3C0041")), QStringLiteral("<"));
  EXPECT_EQ(book::DecodeText(QByteArray::fromHex("3C")), QString());
}

TEST(TextFile, NoBytesAndAMarkAloneAreEmpty) {
  EXPECT_TRUE(book::DecodeText({}).isEmpty());
  EXPECT_TRUE(book::DecodeText(QByteArray::fromHex("FFFE")).isEmpty());
}

TEST(TextFile, ReadsAFile) {
  const BookMaker maker;
  maker.Write(QStringLiteral("Data/TXT/x.htm"), QStringLiteral("متن"));
  EXPECT_EQ(book::ReadText(maker.PathOf(QStringLiteral("Data/TXT/x.htm"))), QStringLiteral("متن"));
}

TEST(TextFile, ReadsAFileOfABookWhateverItsLetterCase) {
  const BookMaker maker;
  maker.Write(QStringLiteral("Data/TXT/x.htm"), QStringLiteral("متن"));
  EXPECT_EQ(book::ReadText(maker.Book(), QStringLiteral("DATA/txt/X.htm")), QStringLiteral("متن"));
}

TEST(TextFile, AFolderOrNothingIsNoText) {
  const BookMaker maker;
  EXPECT_FALSE(book::ReadText(maker.PathOf(QStringLiteral("Data/TXT"))));
  EXPECT_FALSE(book::ReadText(maker.PathOf(QStringLiteral("Data/TXT/x.htm"))));
  EXPECT_FALSE(book::ReadText(QString()));
}

// What is written to the log while it runs.
class Log {
 public:
  Log() : before_(qInstallMessageHandler(Take)) { Lines().clear(); }
  Log(const Log&) = delete;
  Log& operator=(const Log&) = delete;
  ~Log() { qInstallMessageHandler(before_); }

  static QStringList& Lines() {
    static QStringList lines;
    return lines;
  }

 private:
  static void Take(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& line) {
    Lines() += line;
  }
  QtMessageHandler before_;
};

TEST(TextFile, TheLogNamesAFileThatIsNotThere) {
  const BookMaker maker;
  const Log log;
  EXPECT_FALSE(book::ReadText(maker.Book(), QStringLiteral("DATA/TXT/x.htm")));
  EXPECT_EQ(Log::Lines(), QStringList{QStringLiteral("Can't be read: ") +
                                      maker.PathOf(QStringLiteral("DATA/TXT/x.htm"))});
}

TEST(TextFile, TheLogNamesAPathThatLeadsOutOfTheBook) {
  const BookMaker maker;
  const Log log;
  EXPECT_FALSE(book::ReadText(maker.Book(), QStringLiteral("../x.htm")));
  ASSERT_EQ(Log::Lines().size(), 1);
  EXPECT_TRUE(Log::Lines().front().endsWith(QLatin1String("/../x.htm")));
}

TEST(TextFile, TheLogNamesAFolderInPlaceOfAFile) {
  const BookMaker maker;
  const Log log;
  const QString path = maker.PathOf(QStringLiteral("Data/TXT"));
  EXPECT_FALSE(book::ReadText(path));
  EXPECT_EQ(Log::Lines(), QStringList{QStringLiteral("Can't be read: ") + path});
}

// A terminal would obey them.
TEST(TextFile, TheLogHasSignsForTheControlsInAName) {
  const BookMaker maker;
  const Log log;
  EXPECT_FALSE(book::ReadText(maker.Book(), QStringLiteral("DATA/TXT/a\u001B[2J\n.htm")));
  EXPECT_FALSE(book::ReadText(maker.PathOf(QStringLiteral("\u001B.htm"))));
  ASSERT_EQ(Log::Lines().size(), 2);
  EXPECT_TRUE(Log::Lines()[0].endsWith(QStringLiteral("/a\uFFFD[2J\uFFFD.htm")));
  EXPECT_TRUE(Log::Lines()[1].endsWith(QStringLiteral("/\uFFFD.htm")));
}

TEST(TextFile, APipeIsNoText) {
  const BookMaker maker;
  const QString path = maker.PathOf(QStringLiteral("Data/TXT/x.htm"));
  ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
  EXPECT_FALSE(book::ReadText(path));
}

TEST(TextFile, WhatIsBeyondTheBoundIsLeftOut) {
  const BookMaker maker;
  const QString path = maker.PathOf(QStringLiteral("Data/TXT/x.htm"));
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  ASSERT_TRUE(file.resize(book::kLongestText + 1000));
  file.close();
  const std::optional<QString> text = book::ReadText(path);
  ASSERT_TRUE(text);
  EXPECT_EQ(text->size(), book::kLongestText / 2);
}

}  // namespace
}  // namespace viewer
