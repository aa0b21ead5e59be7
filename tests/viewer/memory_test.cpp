#include "viewer/memory.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "tests/viewer/book_maker.h"

namespace viewer {
namespace {

using viewer_tests::BookMaker;

class Remembering : public testing::Test {
 protected:
  Remembering() { maker_.Write(QStringLiteral("Data/_xml/Index.xml"), QStringLiteral("index")); }

  Memory TheMemory() const { return {Folder(), maker_.Book()}; }
  QString Folder() const { return home_.path() + QStringLiteral("/settings/viewer"); }
  QStringList Files() const { return QDir(Folder()).entryList(QDir::Files | QDir::Hidden); }
  void Spoil(const QByteArray& bytes) const {
    QFile file(Folder() + u'/' + Files().front());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }

  const BookMaker maker_;
  QTemporaryDir home_;
};

Remembered Something() {
  Remembered something;
  something.last = BookPlace{QStringLiteral("a1"), QStringLiteral("DATA/TXT/x.htm"), {3, 120}};
  something.style = {.pixels = 21,
                     .letters = QStringLiteral("Vazir"),
                     .lineHeight = 200,
                     .justified = true,
                     .light = Light::kNight,
                     .digits = book::Digits::kPersian};
  something.music = false;
  something.bookmarks = {{QStringLiteral("باغ"), {QStringLiteral("b2"), QString(), {}}}};
  return something;
}

TEST_F(Remembering, WhatWasWrittenIsRead) {
  TheMemory().Write(Something());
  const Remembered read = TheMemory().Read();
  ASSERT_TRUE(read.last);
  EXPECT_EQ(read.last->collection, QStringLiteral("a1"));
  EXPECT_EQ(read.last->source, QStringLiteral("DATA/TXT/x.htm"));
  EXPECT_EQ(read.last->place, (book::PagePlace{3, 120}));
  EXPECT_EQ(read.style, Something().style);
  EXPECT_FALSE(read.music);
  ASSERT_EQ(read.bookmarks.size(), 1U);
  EXPECT_EQ(read.bookmarks[0].name, QStringLiteral("باغ"));
  EXPECT_EQ(read.bookmarks[0].place.collection, QStringLiteral("b2"));
}

TEST_F(Remembering, FromTheStartNothingIsRemembered) {
  const Remembered read = TheMemory().Read();
  EXPECT_FALSE(read.last);
  EXPECT_EQ(read.style, ReadingStyle());
  EXPECT_TRUE(read.music && read.bookmarks.empty());
}

TEST_F(Remembering, ABookIsKnownByItsIndexWhereverItLies) {
  TheMemory().Write(Something());
  const BookMaker elsewhere;
  elsewhere.Write(QStringLiteral("Data/_xml/Index.xml"), QStringLiteral("index"));
  EXPECT_TRUE(Memory(Folder(), elsewhere.Book()).Read().last);
  elsewhere.Write(QStringLiteral("Data/_xml/Index.xml"), QStringLiteral("other"));
  EXPECT_FALSE(Memory(Folder(), elsewhere.Book()).Read().last);
}

TEST_F(Remembering, TheLastOneWrittenCountsAndNothingIsLeftBeside) {
  TheMemory().Write(Something());
  TheMemory().Write({});
  EXPECT_FALSE(TheMemory().Read().last);
  EXPECT_EQ(Files().size(), 1);
}

TEST_F(Remembering, WhatCantBeReadIsForgotten) {
  TheMemory().Write(Something());
  for (const char* bytes : {"", "{", "[1]", "\xff\xfe{}"}) {
    Spoil(bytes);
    EXPECT_FALSE(TheMemory().Read().last) << bytes;
  }
}

TEST_F(Remembering, ValuesOutOfBoundsAreBounded) {
  TheMemory().Write(Something());
  Spoil(R"({"last": {"part": -1, "offset": -7}, "style": {"pixels": 100000, "lineHeight": -1,
            "light": 77}, "bookmarks": 3})");
  const Remembered read = TheMemory().Read();
  EXPECT_EQ(read.last->place, book::PagePlace());
  EXPECT_EQ(read.style.pixels, ReadingStyle::kLargest);
  EXPECT_GE(read.style.lineHeight, 100);
  EXPECT_FALSE(read.style.light);
  EXPECT_TRUE(read.bookmarks.empty());
}

TEST_F(Remembering, WhereNothingCanBeWrittenNothingIsRemembered) {
  QFile file(home_.path() + QStringLiteral("/settings"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));  // a file in place of the folder
  TheMemory().Write(Something());
  EXPECT_FALSE(TheMemory().Read().last);
}

TEST_F(Remembering, WithoutAFolderOrABookNothingIsRemembered) {
  Memory(QString(), maker_.Book()).Write(Something());
  EXPECT_FALSE(Memory(QString(), maker_.Book()).Read().last);
  const BookMaker empty;
  Memory(Folder(), empty.Book()).Write(Something());
  EXPECT_TRUE(Files().isEmpty());
}

}  // namespace
}  // namespace viewer
