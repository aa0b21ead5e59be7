#include "book/index.h"

#include <gtest/gtest.h>

#include "book/index_reader.h"
#include "tests/support/peak_memory.h"
#include "tests/viewer/book_maker.h"

namespace viewer {
namespace {

using viewer_tests::BookMaker;

const QString kHead = QStringLiteral("<strings>\r\n\t<aTitle0>Designed by: us</aTitle0>\r\n");

QString LineOf(const char* key, const char* kind, const QString& title) {
  const QString name = QString::fromLatin1(key);
  return QStringLiteral("\t<%1 vol=\"%2\">").arg(name, QString::fromLatin1(kind)) + title +
         QStringLiteral("</%1>\r\n").arg(name);
}

QStringList Keys(const book::Index& index) {
  QStringList keys;
  for (const book::Collection& each : index.collections) {
    keys += each.row + QString::number(each.number);
  }
  return keys;
}

QString TitleRead(const QString& title) {
  const book::Index index = book::ParseIndex(kHead + LineOf("aTitle1", "txt", title) +
                                             LineOf("bTitle1", "txt", QStringLiteral("next")));
  return index.collections.size() == 2 ? index.collections[0].title : QStringLiteral("(lost)");
}

TEST(Index, AsTheToolWritesIt) {
  const BookMaker maker;
  maker.Write(QStringLiteral("Data/_xml/Index.xml"),
              kHead + LineOf("aTitle1", "txt", QStringLiteral("باغ")) +
                  LineOf("bTitle2", "pic1", QStringLiteral("تصوير")));
  const book::Index index = book::ReadIndex(maker.Book());
  EXPECT_EQ(index.credit, QStringLiteral("Designed by: us"));
  ASSERT_EQ(index.collections.size(), 2U);
  EXPECT_EQ(index.collections[0].row, u'a');
  EXPECT_EQ(index.collections[0].number, 1);
  EXPECT_FALSE(index.collections[0].isGallery);
  EXPECT_EQ(index.collections[0].title, QStringLiteral("باغ"));
  EXPECT_EQ(index.collections[1].row, u'b');
  EXPECT_TRUE(index.collections[1].isGallery);
}

// They stand where a power cut took a line, and a build of before may have added others after them.
TEST(Index, NulsAreLeftOut) {
  const QString nuls(40, QChar::Null);
  const BookMaker maker;
  maker.Write(QStringLiteral("Data/_xml/Index.xml"),
              kHead + nuls + LineOf("aTitle1", "txt", QStringLiteral("one")) +
                  LineOf("bTitle2", "txt", QStringLiteral("two") + nuls) + nuls);
  const book::Index index = book::ReadIndex(maker.Book());
  ASSERT_EQ(index.collections.size(), 2U);
  EXPECT_EQ(index.collections[0].title, QStringLiteral("one"));
  EXPECT_EQ(index.collections[1].title, QStringLiteral("two"));
}

TEST(Index, TheCreditAlone) {
  const book::Index index = book::ParseIndex(kHead);
  EXPECT_EQ(index.credit, QStringLiteral("Designed by: us"));
  EXPECT_TRUE(index.collections.empty());
}

TEST(Index, AnEmptyLineWhereARebuiltCollectionStood) {
  const book::Index index = book::ParseIndex(kHead + QStringLiteral("\r\n") +
                                             LineOf("aTitle2", "txt", QStringLiteral("two")) +
                                             LineOf("aTitle1", "txt", QStringLiteral("one")));
  EXPECT_EQ(Keys(index), (QStringList{QStringLiteral("a1"), QStringLiteral("a2")}));
}

TEST(Index, ByRowThenByNumber) {
  const QString title = QStringLiteral("t");
  const book::Index index =
      book::ParseIndex(kHead + LineOf("cTitle1", "txt", title) + LineOf("aTitle10", "txt", title) +
                       LineOf("aTitle2", "txt", title) + LineOf("bTitle1", "txt", title));
  EXPECT_EQ(Keys(index).join(u' '), QStringLiteral("a2 a10 b1 c1"));
}

TEST(Index, OfTwoLinesOfACollectionTheLaterCounts) {
  const book::Index index =
      book::ParseIndex(kHead + LineOf("aTitle1", "txt", QStringLiteral("old")) +
                       LineOf("aTitle1", "pic1", QStringLiteral("new")));
  ASSERT_EQ(index.collections.size(), 1U);
  EXPECT_EQ(index.collections[0].title, QStringLiteral("new"));
  EXPECT_TRUE(index.collections[0].isGallery);
}

TEST(Index, ATitleMayHoldAnything) {
  for (const char* title :
       {"a < b", "a & b", "say \"so\"", "x>y", "</strings>", "<aTitle2 vol=\"txt\">",
        "one </aTitle1> two", "one </bTitle1> two", "&amp;", "<b>bold</b>"}) {
    EXPECT_EQ(TitleRead(QString::fromLatin1(title)), QString::fromLatin1(title));
  }
}

QString Told(const book::Index& index) {
  QString told = index.credit;
  for (const book::Collection& each : index.collections) {
    told += u'|' + QString(each.row) + QString::number(each.number) + each.title +
            (each.isGallery ? u'*' : u' ');
  }
  return told;
}

TEST(Index, IsTheSameHoweverItIsCutAsItComes) {
  const QString text = kHead + LineOf("bTitle1", "pic1", QStringLiteral("two\nlines </bTitle1> ")) +
                       QStringLiteral("<aTitle7 \r\n") + QString(3, QChar::Null) +
                       LineOf("aTitle2", "txt", QStringLiteral("one")) +
                       LineOf("aTitle2", "txt", QStringLiteral("later")) +
                       QStringLiteral("</strings>\r\n\t<cTitle3>no end");
  const QString whole = Told(book::ParseIndex(text));
  EXPECT_EQ(whole, QStringLiteral("Designed by: us|a2later |b1two\nlines </bTitle1>*|c3no end "));
  for (qsizetype first = 0; first <= text.size(); ++first) {
    for (const qsizetype next : {1, 2, 30, 1000}) {
      book::IndexReader reader;
      reader.Feed(QStringView(text).first(first));
      for (qsizetype at = first; at < text.size(); at += next) {
        reader.Feed(QStringView(text).sliced(at, std::min(next, text.size() - at)));
      }
      ASSERT_EQ(Told(reader.Finish()), whole) << first << ' ' << next;
    }
  }
}

TEST(Index, OfManyPiecesHasAllInOrder) {
  const BookMaker maker;
  QString lines;
  for (int i = 20'000; i > 0; --i) lines += LineOf("bTitle%1", "txt", QStringLiteral("t%1")).arg(i);
  maker.Write(QStringLiteral("Data/_xml/Index.xml"), kHead + lines);
  const book::Index index = book::ReadIndex(maker.Book());
  ASSERT_EQ(index.collections.size(), 20'000U);
  for (int i = 1; i <= 20'000; ++i) {
    const book::Collection& each = index.collections[static_cast<std::size_t>(i - 1)];
    ASSERT_EQ(each.number, i);
    ASSERT_EQ(each.title, QStringLiteral("t%1").arg(i));
  }
}

// Its text has 16 MB; what is kept of it is less than that again.
TEST(Index, OfAHundredThousandTakesLittleMoreThanItsTitles) {
  const BookMaker maker;
  QString lines;
  for (int i = 1; i <= 100'000; ++i) {
    lines += LineOf("aTitle%1", "txt", QString(50, u't')).arg(i);
  }
  maker.Write(QStringLiteral("Data/_xml/Index.xml"), kHead + lines);
  lines = QString();
  const book::Folder book = maker.Book();
  const testing_support::PeakMemory memory;
  EXPECT_EQ(book::ReadIndex(book).collections.size(), 100'000U);
  EXPECT_LT(memory.Megabytes(), 32);
}

TEST(Index, ATitleMayBeEmptyOrOfTwoLines) {
  EXPECT_EQ(TitleRead(QString()), QString());
  EXPECT_EQ(TitleRead(QStringLiteral("one\ntwo")), QStringLiteral("one\ntwo"));
}

TEST(Index, ACutFileKeepsWhatIsThere) {
  const QString text = kHead + LineOf("aTitle1", "txt", QStringLiteral("whole")) +
                       QStringLiteral("\t<bTitle1 vol=\"txt\">ha");
  const book::Index index = book::ParseIndex(text);
  ASSERT_EQ(index.collections.size(), 2U);
  EXPECT_EQ(index.collections[1].title, QStringLiteral("ha"));
  EXPECT_EQ(book::ParseIndex(kHead + QStringLiteral("\t<aTitle1 vol=\"t")).collections.size(), 0U);
}

TEST(Index, AClosedFileIsReadToo) {
  const book::Index index =
      book::ParseIndex(kHead + LineOf("aTitle1", "txt", QStringLiteral("one")) +
                       QStringLiteral("</strings>\r\nmore"));
  ASSERT_EQ(index.collections.size(), 1U);
  EXPECT_EQ(index.collections[0].title, QStringLiteral("one"));
}

TEST(Index, ATagThatDoesntEndInItsLineIsNone) {
  const book::Index index = book::ParseIndex(QStringLiteral("<aTitle1 \r\n") +
                                             LineOf("aTitle2", "txt", QStringLiteral("two")));
  EXPECT_EQ(Keys(index), QStringList{QStringLiteral("a2")});
}

TEST(Index, StrangeKeysAreNoCollections) {
  const QString title = QStringLiteral("t");
  for (const char* key :
       {"dTitle1", "aTitle", "aTitle-1", "aTitlex", "aTitle99999999999", "ATitle1"}) {
    EXPECT_TRUE(book::ParseIndex(kHead + LineOf(key, "txt", title)).collections.empty()) << key;
  }
}

// With these collection files beside it.
QStringList KeysBeside(const QString& lines, std::initializer_list<const char*> files) {
  const BookMaker maker;
  maker.Write(QStringLiteral("Data/_xml/Index.xml"), kHead + lines);
  for (const char* file : files) {
    maker.Write(QStringLiteral("Data/_xml/") + QString::fromLatin1(file),
                QStringLiteral("<?xml version=\"1.0\"?>\r\n<Tree>\r\n</Tree>\r\n"));
  }
  return Keys(book::ReadIndex(maker.Book()));
}

TEST(Index, ACollectionWithoutALineIsTheLastOfItsRow) {
  const QString lines = LineOf("aTitle9", "txt", QStringLiteral("nine")) +
                        LineOf("bTitle1", "txt", QStringLiteral("b")) +
                        LineOf("cTitle4", "txt", QStringLiteral("c"));
  EXPECT_EQ(KeysBeside(lines, {"aTitle9.xml", "aTitle10.xml", "aTitle2.xml", "BTITLE7.XML"}),
            (QStringList{QStringLiteral("a9"), QStringLiteral("a2"), QStringLiteral("a10"),
                         QStringLiteral("b1"), QStringLiteral("b7"), QStringLiteral("c4")}));
}

TEST(Index, OfCollectionsWithoutALineAThousandAreShown) {
  const BookMaker maker;
  QString lines;
  for (int i = 1; i <= 20'000; ++i) {
    lines += LineOf("cTitle%1", "txt", QStringLiteral("c")).arg(i);
  }
  maker.Write(QStringLiteral("Data/_xml/Index.xml"), kHead + lines);
  for (int i = 1; i <= 1010; ++i) {
    maker.Write(QStringLiteral("Data/_xml/bTitle%1.xml").arg(i), QStringLiteral("<Tree>\r\n"));
  }
  const QStringList keys = Keys(book::ReadIndex(maker.Book()));
  ASSERT_EQ(keys.size(), 21'000);
  EXPECT_EQ(keys.front(), QStringLiteral("b1"));
  EXPECT_EQ(keys[999], QStringLiteral("b1000"));
  EXPECT_EQ(keys[1000], QStringLiteral("c1"));
  EXPECT_EQ(keys.back(), QStringLiteral("c20000"));
}

TEST(Index, OtherFilesAreNoCollections) {
  EXPECT_TRUE(KeysBeside({}, {"GAL.xml", "dTitle1.xml", "aTitle0.xml", "aTitle01.xml", "aTitle.xml",
                              "aTitle1.xml.bak", "xaTitle1.xml", "aTitle9999999999.xml"})
                  .isEmpty());
}

TEST(Index, AFolderOrAFileOfSomethingElseIsNoCollection) {
  const BookMaker maker;
  maker.Write(QStringLiteral("Data/_xml/Index.xml"), kHead);
  maker.MakeFolder(QStringLiteral("Data/_xml/aTitle1.xml"));
  maker.WriteBytes(QStringLiteral("Data/_xml/aTitle2.xml"), "nothing of the kind");
  maker.WriteBytes(QStringLiteral("Data/_xml/aTitle3.xml"), {});
  EXPECT_TRUE(book::ReadIndex(maker.Book()).collections.empty());
}

TEST(Index, ACollectionWithoutALineHasTheKindOfItsFile) {
  const BookMaker maker;
  maker.Write(QStringLiteral("Data/_xml/Index.xml"), kHead);
  maker.Write(QStringLiteral("Data/_xml/aTitle1.xml"), QStringLiteral("<gallery>\r\n"));
  maker.Write(QStringLiteral("Data/_xml/aTitle2.xml"), QStringLiteral("<Tree>\r\n"));
  const book::Index index = book::ReadIndex(maker.Book());
  ASSERT_EQ(index.collections.size(), 2U);
  EXPECT_TRUE(index.collections[0].isGallery);
  EXPECT_FALSE(index.collections[1].isGallery);
  EXPECT_FALSE(index.collections[0].title.isEmpty());
}

TEST(Index, TheFileOfACollectionTellsItsKindWhateverTheIndexSays) {
  const BookMaker maker;
  maker.Write(QStringLiteral("Data/_xml/aTitle1.xml"),
              QStringLiteral("<?xml version=\"1.0\"?>\r\n<gallery>\r\n<img dtl=\"<Tree>\">"));
  maker.Write(QStringLiteral("Data/_xml/aTitle2.xml"),
              QStringLiteral("<Tree>\r\n<node label=\"<gallery>\">"));
  maker.WriteBytes(QStringLiteral("Data/_xml/aTitle3.xml"), "x");
  const auto holds = [&](int number, bool said) {
    return book::HoldsGallery(maker.Book(), {u'a', number, said, {}});
  };
  EXPECT_TRUE(holds(1, false));
  EXPECT_FALSE(holds(2, true));
  for (const int untold : {3, 4}) {
    EXPECT_TRUE(holds(untold, true));
    EXPECT_FALSE(holds(untold, false));
  }
}

TEST(Index, WithoutTheFileItIsEmpty) {
  EXPECT_TRUE(book::ReadIndex(BookMaker().Book()).collections.empty());
}

TEST(Index, FilesOfACollection) {
  const BookMaker maker;
  const book::Collection collection{u'b', 12, false, {}};
  EXPECT_EQ(book::FileOf(collection), QStringLiteral("Data/_xml/bTitle12.xml"));
  EXPECT_EQ(book::PictureOf(maker.Book(), collection), QString());
  maker.WriteBytes(QStringLiteral("Data/IMG/BTITLE12.JPG"), "x");
  EXPECT_TRUE(book::PictureOf(maker.Book(), collection).endsWith(QLatin1String("/BTITLE12.JPG")));
}

}  // namespace
}  // namespace viewer
