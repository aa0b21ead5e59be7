#include "book/folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>

#include "tests/viewer/book_maker.h"

namespace viewer {
namespace {

using viewer_tests::BookMaker;

class Folder : public testing::Test {
 protected:
  // The file's name in the book, or "" if it wasn't found.
  QString Found(const QString& pathInBook) const {
    const QString path = maker_.Book().Resolve(pathInBook);
    return path.isEmpty() ? path : QDir(maker_.Root()).relativeFilePath(path);
  }
  void Touch(const QString& pathInBook) const { maker_.WriteBytes(pathInBook, "x"); }

  const BookMaker maker_;
};

TEST_F(Folder, LetterCaseOfFoldersIsNoMatter) {
  Touch(QStringLiteral("Data/TXT/AB.htm"));
  EXPECT_EQ(Found(QStringLiteral("DATA/TXT/AB.htm")), QStringLiteral("Data/TXT/AB.htm"));
  EXPECT_EQ(Found(QStringLiteral("data/txt/AB.htm")), QStringLiteral("Data/TXT/AB.htm"));
}

TEST_F(Folder, LetterCaseOfNamesIsNoMatter) {
  Touch(QStringLiteral("Data/TXT/AB.HTM"));
  EXPECT_EQ(Found(QStringLiteral("DATA/TXT/ab.htm")), QStringLiteral("Data/TXT/AB.HTM"));
}

TEST_F(Folder, OfTwoNamesTheOneOfTheSameCaseCounts) {
  Touch(QStringLiteral("Data/TXT/AB.htm"));
  Touch(QStringLiteral("Data/TXT/ab.htm"));
  EXPECT_EQ(Found(QStringLiteral("Data/TXT/ab.htm")), QStringLiteral("Data/TXT/ab.htm"));
  EXPECT_EQ(Found(QStringLiteral("Data/TXT/AB.htm")), QStringLiteral("Data/TXT/AB.htm"));
}

TEST_F(Folder, BackslashesSeparateToo) {
  Touch(QStringLiteral("Data/TXT/x.htm"));
  EXPECT_EQ(Found(QStringLiteral("DATA\\TXT\\x.htm")), QStringLiteral("Data/TXT/x.htm"));
}

TEST_F(Folder, WhatIsNotThereIsEmpty) {
  EXPECT_EQ(Found(QStringLiteral("Data/TXT/none.htm")), QString());
  EXPECT_EQ(Found(QStringLiteral("Data/none/x.htm")), QString());
  EXPECT_EQ(Found(QString()), QString());
}

TEST_F(Folder, AFolderIsNoFile) {
  maker_.MakeFolder(QStringLiteral("Data/TXT/x.htm"));
  EXPECT_EQ(Found(QStringLiteral("Data/TXT/x.htm")), QString());
  EXPECT_EQ(Found(QStringLiteral("Data/TXT/X.htm")), QString());
}

TEST_F(Folder, APipeIsNoFile) {
  const QString path = maker_.PathOf(QStringLiteral("Data/TXT/x.htm"));
  ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
  EXPECT_EQ(Found(QStringLiteral("Data/TXT/x.htm")), QString());
}

class WayOut : public Folder, public testing::WithParamInterface<const char*> {};

TEST_P(WayOut, LeadsNowhere) {
  Touch(QStringLiteral("Data/TXT/x.htm"));
  const book::Folder inner(maker_.PathOf(QStringLiteral("Data")));
  Touch(QStringLiteral("Data/_xml/secret"));
  Touch(QStringLiteral("secret"));
  const QString path = QString::fromLatin1(GetParam());
  EXPECT_EQ(inner.Resolve(path), QString());
  EXPECT_EQ(inner.Expected(path), QString());
  EXPECT_EQ(inner.WithStem(path, {QStringLiteral(".htm")}), QString());
}

INSTANTIATE_TEST_SUITE_P(Paths, WayOut,
                         testing::Values("../secret", "TXT/../../secret", "TXT/../_xml/secret",
                                         "/etc/passwd", "..\\secret", "C:\\secret", "C:/secret",
                                         "./secret", "TXT//x.htm", "..", "."));

TEST_F(Folder, ALinkOutOfTheBookIsNotFollowed) {
  const BookMaker other;
  other.WriteBytes(QStringLiteral("Data/TXT/secret.htm"), "x");
  ASSERT_TRUE(QFile::link(other.PathOf(QStringLiteral("Data/TXT/secret.htm")),
                          maker_.PathOf(QStringLiteral("Data/TXT/x.htm"))));
  ASSERT_TRUE(QFile::link(other.PathOf(QStringLiteral("Data/TXT")),
                          maker_.PathOf(QStringLiteral("Data/out"))));
  EXPECT_EQ(Found(QStringLiteral("Data/TXT/x.htm")), QString());
  EXPECT_EQ(Found(QStringLiteral("Data/out/secret.htm")), QString());
}

TEST_F(Folder, ALinkInsideTheBookIsFollowed) {
  Touch(QStringLiteral("Data/TXT/x.htm"));
  ASSERT_TRUE(QFile::link(maker_.PathOf(QStringLiteral("Data/TXT/x.htm")),
                          maker_.PathOf(QStringLiteral("Data/TXT/y.htm"))));
  EXPECT_EQ(Found(QStringLiteral("Data/TXT/y.htm")), QStringLiteral("Data/TXT/y.htm"));
}

TEST_F(Folder, StemsInTheOrderOfTheExtensions) {
  Touch(QStringLiteral("Data/TXT/AB.avi"));
  Touch(QStringLiteral("Data/TXT/AB.MP3"));
  Touch(QStringLiteral("Data/TXT/ABC.mpg"));
  const book::Folder book = maker_.Book();
  EXPECT_TRUE(book.WithStem(QStringLiteral("DATA/TXT/AB"), {QStringLiteral(".mp3")})
                  .endsWith(QLatin1String("/Data/TXT/AB.MP3")));
  EXPECT_TRUE(
      book.WithStem(QStringLiteral("DATA/TXT/AB"),
                    {QStringLiteral(".mpg"), QStringLiteral(".avi"), QStringLiteral(".mp3")})
          .endsWith(QLatin1String("AB.avi")));
  EXPECT_EQ(book.WithStem(QStringLiteral("DATA/TXT/AB"), {QStringLiteral(".ogg")}), QString());
  EXPECT_EQ(book.AllWithStem(QStringLiteral("DATA/TXT/AB")).size(), 2);
  EXPECT_TRUE(book.AllWithStem(QStringLiteral("DATA/TXT/")).isEmpty());
}

TEST_F(Folder, FindsTheFirstBook) {
  const BookMaker other;
  other.Write(QStringLiteral("Data/_xml/Index.xml"), QStringLiteral("<strings>\r\n"));
  EXPECT_EQ(book::Folder::Find({QStringLiteral("/nowhere"), maker_.Root(), other.Root()}),
            other.Root());
  EXPECT_EQ(book::Folder::Find({maker_.Root()}), std::nullopt);
  EXPECT_EQ(book::Folder::Find({}), std::nullopt);
}

TEST_F(Folder, FindsTheBookOfADataFolder) {
  Touch(QStringLiteral("Data/_xml/INDEX.XML"));
  EXPECT_EQ(book::Folder::Find({maker_.PathOf(QStringLiteral("Data/"))}), maker_.Root());
}

TEST_F(Folder, ReadOnlyFoldersAreRead) {
  Touch(QStringLiteral("Data/TXT/x.htm"));
  for (const char* name : {"Data/TXT", "Data"}) {
    const QString path = maker_.PathOf(QString::fromLatin1(name));
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner));
  }
  EXPECT_EQ(Found(QStringLiteral("DATA/TXT/X.htm")), QStringLiteral("Data/TXT/x.htm"));
  for (const char* name : {"Data", "Data/TXT"}) {
    const QString path = maker_.PathOf(QString::fromLatin1(name));
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }
}

}  // namespace
}  // namespace viewer
