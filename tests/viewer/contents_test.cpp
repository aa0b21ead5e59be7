#include "book/contents.h"

#include <gtest/gtest.h>

#include "tests/viewer/book_maker.h"

namespace viewer {
namespace {

using viewer_tests::BookMaker;

const QString kHead = QStringLiteral("<?xml version=\"1.0\"?>\r\n<Tree>\r\n");
const QString kEnd = QStringLiteral("</Tree>\r\n");
const QString kClose = QStringLiteral("\t</node>\r\n");

QString TitleLine(const QString& label) {
  return QStringLiteral("\t<node label=\"") + label + QStringLiteral("\">\r\n");
}

QString EntryLine(const QString& label) {
  return QStringLiteral("\t<node label=\"") + label +
         QStringLiteral("\" src=\"DATA/TXT/S.htm\" mediaStatus=\"000\" pic=\"0\" />\r\n");
}

// One line a node: depth, parent, T or E, label.
QStringList Outline(const QString& body) {
  QStringList outline;
  for (const book::Node& node : book::ParseContents(body).nodes) {
    outline += QStringLiteral("%1 %2 %3 ")
                   .arg(node.depth)
                   .arg(node.parent)
                   .arg(node.isTitle ? QChar(u'T') : QChar(u'E')) +
               node.label;
  }
  return outline;
}

TEST(Contents, AFullNode) {
  const BookMaker maker;
  maker.Write(
      QStringLiteral("Data/_xml/aTitle1.xml"),
      kHead +
          QStringLiteral("\t<node label=\"T\" src=\"DATA/TXT/S.htm\" mediaStatus=\"111\" snd=\"0\" "
                         "pas=\".pdf\" bgBackground=\"Data/TXT/S.jpg\" pic=\"0\" />\r\n") +
          kEnd);
  const book::Contents contents = book::ReadContents(maker.Book(), {u'a', 1, false, {}});
  ASSERT_EQ(contents.nodes.size(), 1U);
  const book::Node& node = contents.nodes[0];
  EXPECT_EQ(node.label, QStringLiteral("T"));
  EXPECT_EQ(node.source, QStringLiteral("DATA/TXT/S.htm"));
  EXPECT_TRUE(node.hasAttachment && node.hasSound && node.hasFilm);
  EXPECT_FALSE(node.attachmentIsProgram);
  EXPECT_EQ(node.attachmentExtension, QStringLiteral(".pdf"));
  EXPECT_EQ(node.background, QStringLiteral("Data/TXT/S.jpg"));
  EXPECT_FALSE(node.isGallery);
  EXPECT_FALSE(node.isTitle);
}

TEST(Contents, APlainNode) {
  const book::Node node =
      book::ParseContents(kHead + EntryLine(QStringLiteral("T")) + kEnd).nodes.at(0);
  EXPECT_FALSE(node.hasAttachment || node.hasSound || node.hasFilm || node.attachmentIsProgram);
  EXPECT_TRUE(node.attachmentExtension.isEmpty() && node.background.isEmpty());
}

TEST(Contents, AProgramAsAttachmentAndAGallery) {
  const book::Contents contents = book::ParseContents(QStringLiteral(
      "\t<node label=\"P\" src=\"DATA/TXT/S.htm\" mediaStatus=\"100\" snd=\"1\" pas=\".EXE\" "
      "pic=\"0\" />\r\n"
      "\t<node label=\"G\" src=\"DATA/_xml/S.xml\" mediaStatus=\"010\" pic=\"1\" />\r\n"));
  ASSERT_EQ(contents.nodes.size(), 2U);
  EXPECT_TRUE(contents.nodes[0].attachmentIsProgram);
  EXPECT_EQ(contents.nodes[0].attachmentExtension, QStringLiteral(".EXE"));
  EXPECT_TRUE(contents.nodes[1].isGallery);
  EXPECT_EQ(contents.nodes[1].source, QStringLiteral("DATA/_xml/S.xml"));
  EXPECT_TRUE(contents.nodes[1].hasSound);
  EXPECT_FALSE(contents.nodes[1].hasAttachment);
}

TEST(Contents, MainTitlesNest) {
  const QString body = kHead + TitleLine(QStringLiteral("a")) + EntryLine(QStringLiteral("b")) +
                       TitleLine(QStringLiteral("c")) + EntryLine(QStringLiteral("d")) + kClose +
                       EntryLine(QStringLiteral("e")) + kClose + EntryLine(QStringLiteral("f")) +
                       kEnd;
  EXPECT_EQ(Outline(body).join(u'|'),
            QStringLiteral("0 -1 T a|1 0 E b|1 0 T c|2 2 E d|1 0 E e|0 -1 E f"));
}

TEST(Contents, NoRows) {
  EXPECT_TRUE(book::ParseContents(kHead + kEnd).nodes.empty());
  EXPECT_TRUE(book::ParseContents(QString()).nodes.empty());
}

TEST(Contents, MainTitlesLeftOpen) {
  const QString body =
      kHead + TitleLine(QStringLiteral("a")) + EntryLine(QStringLiteral("b")) + kEnd;
  EXPECT_EQ(Outline(body).join(u'|'), QStringLiteral("0 -1 T a|1 0 E b"));
}

TEST(Contents, MainTitlesClosedOnceTooOften) {
  const QString body = kHead + kClose + EntryLine(QStringLiteral("a")) + kClose + kClose +
                       TitleLine(QStringLiteral("b")) + EntryLine(QStringLiteral("c")) + kEnd;
  EXPECT_EQ(Outline(body).join(u'|'), QStringLiteral("0 -1 E a|0 -1 T b|1 1 E c"));
}

TEST(Contents, ALabelMayHoldAnything) {
  for (const char* each : {"say \"so\"", "a < b", "x>y", "a & b", "\">", "<b>", "</node>", "\" />",
                           "\" src=\"DATA/TXT/other.htm", "two\nlines", "", "\"", "&quot;"}) {
    const QString label = QString::fromLatin1(each);
    const book::Contents contents =
        book::ParseContents(kHead + TitleLine(label) + EntryLine(label) + kClose + kEnd);
    ASSERT_EQ(contents.nodes.size(), 2U) << each;
    EXPECT_EQ(contents.nodes[1].label, label);
    EXPECT_EQ(contents.nodes[1].source, QStringLiteral("DATA/TXT/S.htm"));
    EXPECT_EQ(contents.nodes[0].label, label);
    EXPECT_TRUE(contents.nodes[0].isTitle);
  }
}

TEST(Contents, ACutFileKeepsWhatIsThere) {
  const QString whole = EntryLine(QStringLiteral("a"));
  EXPECT_EQ(Outline(kHead + whole + QStringLiteral("\t<node label=\"ha")).join(u'|'),
            QStringLiteral("0 -1 E a|0 -1 T ha"));
  const book::Contents contents =
      book::ParseContents(QStringLiteral("\t<node label=\"a\" src=\"DATA/TXT/S.ht"));
  ASSERT_EQ(contents.nodes.size(), 1U);
  EXPECT_EQ(contents.nodes[0].label, QStringLiteral("a"));
  EXPECT_EQ(contents.nodes[0].source, QString());
}

TEST(Contents, WithoutTheFileItIsEmpty) {
  EXPECT_TRUE(book::ReadContents(BookMaker().Book(), {u'a', 1, false, {}}).nodes.empty());
}

TEST(Contents, TwentyThousandEntries) {
  const book::Contents contents =
      book::ParseContents(kHead + EntryLine(QStringLiteral("e")).repeated(20000));
  ASSERT_EQ(contents.nodes.size(), 20000U);
  EXPECT_EQ(contents.nodes.back().depth, 0);
}

TEST(Contents, TwentyThousandMainTitlesInEachOther) {
  const book::Contents contents =
      book::ParseContents(kHead + TitleLine(QStringLiteral("t")).repeated(20000) +
                          kClose.repeated(20000) + EntryLine(QStringLiteral("e")));
  ASSERT_EQ(contents.nodes.size(), 20001U);
  EXPECT_EQ(contents.nodes[19999].depth, 19999);
  EXPECT_EQ(contents.nodes[19999].parent, 19998);
  EXPECT_EQ(contents.nodes[20000].depth, 0);
}

}  // namespace
}  // namespace viewer
