#include "book/gallery.h"

#include <gtest/gtest.h>

#include "tests/viewer/book_maker.h"

namespace viewer {
namespace {

using viewer_tests::BookMaker;

const QString kHead = QStringLiteral("<?xml version=\"1.0\"?>\r\n<gallery>\r\n");
const QString kEnd = QStringLiteral("</gallery>\r\n");

QString PictureLine(const QString& title, const char* stem) {
  return QStringLiteral("\t<img dtl=\"") + title +
         QStringLiteral("\">Data/IMG/%1.jpg</img>\r\n").arg(QString::fromLatin1(stem));
}

QStringList Read(const QString& text) {
  QStringList list;
  for (const book::Picture& picture : book::ParseGallery(text))
    list += picture.title + u'=' + picture.path;
  return list;
}

TEST(Gallery, AsTheToolWritesIt) {
  const BookMaker maker;
  maker.Write(QStringLiteral("Data/_xml/S.xml"),
              kHead + PictureLine(QStringLiteral("گل"), "A") + PictureLine(QString(), "B") + kEnd);
  const std::vector<book::Picture> pictures =
      book::ReadGallery(maker.Book(), QStringLiteral("DATA/_xml/S.xml"));
  ASSERT_EQ(pictures.size(), 2U);
  EXPECT_EQ(pictures[0].title, QStringLiteral("گل"));
  EXPECT_EQ(pictures[0].path, QStringLiteral("Data/IMG/A.jpg"));
  EXPECT_EQ(pictures[1].title, QString());
  EXPECT_EQ(pictures[1].path, QStringLiteral("Data/IMG/B.jpg"));
}

TEST(Gallery, WithoutPictures) { EXPECT_TRUE(Read(kHead + kEnd).isEmpty()); }

TEST(Gallery, ATitleMayHoldAnything) {
  for (const char* each : {"say \"so\"", "a < b", "x>y", "\">", "a\">b", "&", "two\r\nlines",
                           "<img dtl=\"x", "</img> x", "</gallery>", "</img>", "x</img>\r\ny",
                           "</img>\r\n</img>\r\nx", "a\">b</img>\r\nx"}) {
    const QString title = QString::fromLatin1(each);
    EXPECT_EQ(
        Read(kHead + PictureLine(title, "A") + PictureLine(QStringLiteral("next"), "B") + kEnd),
        (QStringList{title + QStringLiteral("=Data/IMG/A.jpg"),
                     QStringLiteral("next=Data/IMG/B.jpg")}));
  }
}

TEST(Gallery, LinesOfMainTitlesAreNoPictures) {
  const QString text = kHead + QStringLiteral("\t<node label=\"t\">\r\n\t") +
                       PictureLine(QStringLiteral("p"), "A") + QStringLiteral("\t</node>\r\n") +
                       PictureLine(QStringLiteral("q"), "B") + kEnd;
  EXPECT_EQ(Read(text),
            (QStringList{QStringLiteral("p=Data/IMG/A.jpg"), QStringLiteral("q=Data/IMG/B.jpg")}));
}

TEST(Gallery, ACutFileKeepsWhatIsThere) {
  const QString whole = kHead + PictureLine(QStringLiteral("p"), "A");
  EXPECT_EQ(Read(whole + QStringLiteral("\t<img dtl=\"q")).size(), 1);
  EXPECT_EQ(Read(whole + QStringLiteral("\t<img dtl=\"q\">Data/IMG/B.jpg")).size(), 2);
  EXPECT_EQ(
      Read(whole + QStringLiteral("\t<img dtl=\"q\r\n") + PictureLine(QStringLiteral("r"), "C"))
          .last(),
      QStringLiteral("r=Data/IMG/C.jpg"));
}

TEST(Gallery, WithoutTheFileItIsEmpty) {
  EXPECT_TRUE(book::ReadGallery(BookMaker().Book(), QStringLiteral("DATA/_xml/S.xml")).empty());
}

}  // namespace
}  // namespace viewer
