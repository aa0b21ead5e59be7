#include "book/search.h"

#include <gtest/gtest.h>

#include <QFile>
#include <vector>

#include "book/marks.h"
#include "book/query.h"
#include "tests/viewer/book_maker.h"

namespace viewer {
namespace {

using viewer_tests::BookBytes;
using viewer_tests::BookMaker;
using viewer_tests::PageText;

class BookSearch : public testing::Test {
 protected:
  // The pages of a collection, p0.htm on for a1; their titles are t0 on.
  void AddCollection(QChar row, const QStringList& texts) {
    const QString key = row + QStringLiteral("Title1");
    index_ += QStringLiteral("\t<%1 vol=\"txt\">t</%1>\r\n").arg(key);
    maker_.Write(QStringLiteral("Data/_xml/Index.xml"), index_);
    QString tree = QStringLiteral("<?xml version=\"1.0\"?>\r\n<Tree>\r\n\t<node label=\"m\">\r\n");
    for (const QString& text : texts) {
      const QString name = QStringLiteral("P%1.htm").arg(count_);
      const QString title = QStringLiteral("t%1").arg(count_++);
      tree += QStringLiteral(
                  "\t<node label=\"%1\" src=\"DATA/TXT/%2\" mediaStatus=\"000\" "
                  "pic=\"0\" />\r\n")
                  .arg(title, name);
      maker_.Write(QStringLiteral("Data/TXT/") + name, PageText(title, text.split(u'|')));
    }
    maker_.Write(QStringLiteral("Data/_xml/%1.xml").arg(key),
                 tree + QStringLiteral("\t</node>\r\n</Tree>\r\n"));
  }

  std::vector<book::Hit> Hits(const char* words) const {
    std::vector<book::Hit> hits;
    book::SearchBook(maker_.Book(), {.words = QString::fromUtf8(words)}, [&](book::Hit&& hit) {
      hits.push_back(std::move(hit));
      return true;
    });
    return hits;
  }
  QString Titles(const char* words) const {
    QStringList titles;
    for (const book::Hit& hit : Hits(words)) titles += hit.title;
    return titles.join(u' ');
  }

  const BookMaker maker_;
  QString index_ = QStringLiteral("<strings>\r\n\t<aTitle0>x</aTitle0>\r\n");
  int count_ = 0;
};

TEST_F(BookSearch, FindsAWordAndItsPlace) {
  AddCollection(u'a', {QStringLiteral("هيچ"), QStringLiteral("اول|و كتاب خوب")});
  const std::vector<book::Hit> hits = Hits("کتاب");
  ASSERT_EQ(hits.size(), 1U);
  const book::Hit& hit = hits[0];
  EXPECT_EQ(hit.collection.row, u'a');
  EXPECT_EQ(hit.node, 2);
  EXPECT_EQ(hit.source, QStringLiteral("DATA/TXT/P1.htm"));
  EXPECT_EQ(hit.title, QStringLiteral("t1"));
  EXPECT_EQ(hit.part, 1);
  EXPECT_EQ(hit.offset, 2);
  EXPECT_EQ(hit.snippet, QStringLiteral("و کتاب خوب"));
  EXPECT_EQ(hit.snippet.sliced(hit.matchStart, hit.matchLength), QStringLiteral("کتاب"));
}

TEST_F(BookSearch, AllWordsMustOccur) {
  AddCollection(
      u'a', {QStringLiteral("باغ سيب"), QStringLiteral("باغ|گل سيب"), QStringLiteral("باغ گل")});
  EXPECT_EQ(Titles("سيب باغ"), QStringLiteral("t0 t1"));
  EXPECT_EQ(Titles("t1 گل"), QStringLiteral("t1"));
}

TEST_F(BookSearch, WhateverKeyboardAndMarks) {
  AddCollection(u'a', {QStringLiteral("مي\u200Fشود كِتابي")});
  for (const char* words : {"میشود", "مي‌شود", "می شود", "کتابی", "كتـابى"}) {
    EXPECT_EQ(Titles(words), QStringLiteral("t0")) << words;
  }
}

TEST_F(BookSearch, ShapesAndLigaturesOfOldFontsAreFoundAtTheirPlace) {
  AddCollection(u'a', {QStringLiteral("گفت س\uFEFCم و رفت"), QStringLiteral("\uFEB3\uFEFC\uFEE1")});
  const std::vector<book::Hit> hits = Hits("سلام");
  ASSERT_EQ(hits.size(), 2U);
  EXPECT_EQ(hits[0].offset, 4);
  EXPECT_EQ(hits[0].snippet.sliced(hits[0].matchStart, hits[0].matchLength),
            QStringLiteral("س\uFEFCم"));
  EXPECT_EQ(hits[1].snippet.sliced(hits[1].matchStart, hits[1].matchLength).size(), 3);
  EXPECT_EQ(Hits("لام").size(), 2U);
  EXPECT_EQ(Hits("رفت")[0].offset, 10);
  EXPECT_EQ(Hits("\uFEB3\uFEFC\uFEE1").size(), 2U);
}

TEST_F(BookSearch, MarksStandAtTheirPlaceAfterLigatures) {
  const QString text = QStringLiteral("\uFDF2 س\uFEFCم رفت \uFEFB");
  const auto marked = [&](const char* words) {
    QStringList found;
    for (const book::Mark& mark :
         book::MarksIn(text, book::Query({.words = QString::fromUtf8(words)}))) {
      found += text.sliced(mark.start, mark.length);
    }
    return found.join(u'|');
  };
  EXPECT_EQ(marked("رفت"), QStringLiteral("رفت"));
  EXPECT_EQ(marked("الله سلام"), QStringLiteral("\uFDF2|س\uFEFCم"));
  EXPECT_EQ(marked("ل ا"), QStringLiteral("\uFDF2|\uFEFC|\uFEFB"));  // each once
}

TEST_F(BookSearch, AGalleryThatTheIndexTakesForTextHoldsNoPages) {
  AddCollection(u'a', {QStringLiteral("سيب")});
  AddCollection(u'b', {QStringLiteral("سيب")});
  maker_.Write(QStringLiteral("Data/_xml/bTitle1.xml"), QStringLiteral("<gallery>\r\n"));
  EXPECT_EQ(Titles("سيب"), QStringLiteral("t0"));
}

TEST_F(BookSearch, TagsAreNoText) {
  AddCollection(u'a', {QStringLiteral("متن")});
  for (const char* words : {"pgMain", "pgTitle", "nbsp", "<", "متن</pgMain>"}) {
    EXPECT_EQ(Titles(words), QString()) << words;
  }
}

TEST_F(BookSearch, PicturesPathsAreNoText) {
  AddCollection(u'a',
                {QStringLiteral("متن</pgMain>\r\n<IMG src=\"Data/IMG/flower.jpg\">\r\n<pgMain>")});
  EXPECT_EQ(Titles("flower"), QString());
  EXPECT_EQ(Titles("متن"), QStringLiteral("t0"));
}

TEST_F(BookSearch, TagsTypedIntoTheTextAreText) {
  AddCollection(u'a', {QStringLiteral("a <b> c")});
  EXPECT_EQ(Titles("<B>"), QStringLiteral("t0"));
}

TEST_F(BookSearch, InTheTitle) {
  AddCollection(u'a', {QStringLiteral("متن")});
  const std::vector<book::Hit> hits = Hits("T0");
  ASSERT_EQ(hits.size(), 1U);
  EXPECT_EQ(hits[0].part, -1);
  EXPECT_EQ(hits[0].snippet, QStringLiteral("t0"));
}

TEST_F(BookSearch, HitsComeInTheBooksOrder) {
  AddCollection(u'b', {QStringLiteral("سيب"), QStringLiteral("سيب")});
  AddCollection(u'a', {QStringLiteral("سيب"), QStringLiteral("سيب")});
  EXPECT_EQ(Titles("سيب"), QStringLiteral("t2 t3 t0 t1"));
}

TEST_F(BookSearch, NoWordsNoHits) {
  AddCollection(u'a', {QStringLiteral("سيب")});
  EXPECT_EQ(Titles(""), QString());
  EXPECT_EQ(Titles("  \u200F "), QString());
}

TEST_F(BookSearch, ALongParagraphIsShownInPart) {
  const QString filler = QStringLiteral("واژه ").repeated(2000);
  AddCollection(u'a', {filler + QStringLiteral("سيب ") + filler});
  const std::vector<book::Hit> hits = Hits("سيب");
  ASSERT_EQ(hits.size(), 1U);
  EXPECT_LT(hits[0].snippet.size(), 250);
  EXPECT_EQ(hits[0].offset, filler.size());
  EXPECT_TRUE(hits[0].snippet.startsWith(QLatin1String("واژه")) ||
              hits[0].snippet.startsWith(QStringLiteral("واژه")));
  EXPECT_EQ(hits[0].snippet.sliced(hits[0].matchStart, hits[0].matchLength), QStringLiteral("سیب"));
}

TEST_F(BookSearch, EndsWhenToldSo) {
  AddCollection(u'a', {QStringLiteral("سيب"), QStringLiteral("سيب"), QStringLiteral("سيب")});
  int hits = 0;
  book::SearchBook(maker_.Book(), {.words = QStringLiteral("سيب")},
                   [&](book::Hit&&) { return ++hits < 2; });
  EXPECT_EQ(hits, 2);
}

TEST_F(BookSearch, IsCancelledBetweenPages) {
  AddCollection(u'a', {QStringLiteral("سيب"), QStringLiteral("سيب"), QStringLiteral("سيب")});
  int hits = 0;
  book::SearchBook(
      maker_.Book(), {.words = QStringLiteral("سيب")},
      [&](book::Hit&&) {
        ++hits;
        return true;
      },
      [&] { return hits == 0; });
  EXPECT_EQ(hits, 1);
}

TEST_F(BookSearch, PagesOfOtherLetterCaseAndOtherEncodings) {
  AddCollection(u'a', {QString(), QString(), QString(), QString()});
  const QString text = PageText(QStringLiteral("t"), {QStringLiteral("سيب")});
  QFile::remove(maker_.PathOf(QStringLiteral("Data/TXT/P0.htm")));
  maker_.Write(QStringLiteral("Data/TXT/p0.HTM"), text);
  maker_.WriteBytes(QStringLiteral("Data/TXT/P1.htm"), BookBytes(text).sliced(2) + 'x');
  maker_.WriteBytes(QStringLiteral("Data/TXT/P2.htm"), "\xEF\xBB\xBF" + text.toUtf8());
  QByteArray bigEndian = BookBytes(text);
  for (qsizetype i = 0; i + 1 < bigEndian.size(); i += 2) std::swap(bigEndian[i], bigEndian[i + 1]);
  maker_.WriteBytes(QStringLiteral("Data/TXT/P3.htm"), bigEndian);
  EXPECT_EQ(Hits("سيب").size(), 4U);
}

TEST_F(BookSearch, PagesThatCantBeReadArePassedOver) {
  AddCollection(u'a', {QStringLiteral("سيب"), QStringLiteral("سيب"), QStringLiteral("سيب")});
  QFile::remove(maker_.PathOf(QStringLiteral("Data/TXT/P0.htm")));
  QFile::remove(maker_.PathOf(QStringLiteral("Data/TXT/P1.htm")));
  maker_.MakeFolder(QStringLiteral("Data/TXT/P1.htm"));
  EXPECT_EQ(Titles("سيب"), QStringLiteral("t2"));
}

// Many pages are searched by several threads at once.
TEST_F(BookSearch, ManyPagesComeInTheirOrder) {
  QStringList texts;
  QStringList wanted;
  for (int i = 0; i < 1'500; ++i) {
    const bool has = i % 7 == 3;
    texts += has ? QStringLiteral("باغ سيب") : QStringLiteral("باغ");
    if (has) wanted += QStringLiteral("t%1").arg(i);
  }
  AddCollection(u'a', texts);
  QFile::remove(maker_.PathOf(QStringLiteral("Data/TXT/P10.htm")));
  wanted.removeOne(QStringLiteral("t10"));
  EXPECT_EQ(Titles("سيب"), wanted.join(u' '));
}

TEST_F(BookSearch, ItEndsAmidManyPages) {
  AddCollection(u'a', QStringList(1'500, QStringLiteral("سيب")));
  int hits = 0;
  book::SearchBook(maker_.Book(), {.words = QStringLiteral("سيب")},
                   [&](book::Hit&&) { return ++hits < 700; });
  EXPECT_EQ(hits, 700);
}

TEST_F(BookSearch, APhraseIsFoundAcrossHardBlanksAndNotAcrossParagraphs) {
  AddCollection(u'a', {QStringLiteral("باغ&nbsp;سيب"), QStringLiteral("باغ|سيب"),
                       QStringLiteral("باغ  \tسيب"), QStringLiteral("باغ خوب سيب")});
  EXPECT_EQ(Titles("«باغ سیب»"), QStringLiteral("t0 t2"));
}

TEST_F(BookSearch, NumbersFindEachOtherWhateverTheirPoint) {
  AddCollection(u'a',
                {QStringLiteral("23.\u200F5"), QStringLiteral("۲۳٫۵"), QStringLiteral("235")});
  EXPECT_EQ(Titles("۲۳٫۵"), QStringLiteral("t0 t1"));
  EXPECT_EQ(Titles("23.5"), QStringLiteral("t0 t1"));
}

TEST_F(BookSearch, WithoutABookThereAreNoHits) { EXPECT_EQ(Titles("سيب"), QString()); }

}  // namespace
}  // namespace viewer
