// Galleries, search, music; books that are broken.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTextEdit>

#include "tests/viewer/window_bench.h"
#include "viewer/look.h"
#include "viewer/window.h"

using namespace Qt::StringLiterals;

namespace viewer_tests {
namespace {

class Viewing : public testing::Test {
 protected:
  void Show() {
    window_ = std::make_unique<viewer::Window>(maker_.Root(), MachineOf(asked_));
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
  }
  void Open(const BookPlan& plan = {}) {
    MakeBook(maker_, plan);
    Show();
  }
  void Search(const QString& words) {
    auto& field = *qobject_cast<QLineEdit*>(&Find(*window_, u"words"_s));
    field.setFocus();
    field.selectAll();
    field.insert(words);
    QTest::keyClick(&field, Qt::Key_Return);
  }
  bool AwaitHits(int count) {
    return Await([&] { return HitRows().size() == count; });
  }
  // Those of the hits, without those of their collections.
  QList<int> HitRows() {
    const auto& model = *ListOf(*window_, u"hits"_s).model();
    QList<int> rows;
    for (int row = 0; row < model.rowCount(); ++row) {
      if (model.flags(model.index(row, 0)).testFlag(Qt::ItemIsSelectable)) rows << row;
    }
    return rows;
  }
  QString Status() { return qobject_cast<QLabel*>(&Find(*window_, u"searchStatus"_s))->text(); }

  BookMaker maker_;
  std::shared_ptr<Asked> asked_ = std::make_shared<Asked>();
  std::unique_ptr<viewer::Window> window_;
};

TEST_F(Viewing, AGalleryCollectionShowsThumbnailsWithTitles) {
  Open();
  Click(*window_, u"b1"_s);
  EXPECT_EQ(RowsOf(ListOf(*window_, u"galleryPage"_s)),
            (QStringList{u"نخست"_s, u"دوم"_s, u"گم"_s}));
}

TEST_F(Viewing, TheArrowsRunThroughThePicturesAndEscCloses) {
  Open();
  Click(*window_, u"b1"_s);
  ClickRow(ListOf(*window_, u"galleryPage"_s), 0);
  QWidget* const show = TopLevel(u"pictureShow"_s);
  ASSERT_NE(show, nullptr);
  EXPECT_TRUE(show->isFullScreen());
  EXPECT_EQ(show->accessibleName(), u"نخست"_s);
  QTest::keyClick(show, Qt::Key_Left);
  EXPECT_EQ(show->accessibleName(), u"دوم"_s);
  QTest::keyClick(show, Qt::Key_Left);
  QTest::keyClick(show, Qt::Key_Left);  // the last one stays
  EXPECT_EQ(show->accessibleName(), u"گم"_s);
  QTest::keyClick(show, Qt::Key_Right);
  EXPECT_EQ(show->accessibleName(), u"دوم"_s);
  QTest::keyClick(show, Qt::Key_Escape);
  EXPECT_EQ(TopLevel(u"pictureShow"_s), nullptr);
  EXPECT_EQ(ListOf(*window_, u"galleryPage"_s).currentIndex().row(), 1);
}

TEST_F(Viewing, SearchFindsWhicheverKeyboardTheLettersCameFrom) {
  Open();
  Search(u"متن کتاب دیگر"_s);  // the pages have the other ye and kaf
  ASSERT_TRUE(AwaitHits(2));
  ASSERT_TRUE(Await([&] { return Status().contains(u"۲ نوشته"_s); }));
}

TEST_F(Viewing, AHitOpensItsPageWithTheWordMarked) {
  Open();
  Search(u"روباهی"_s);
  ASSERT_TRUE(AwaitHits(1));
  QTest::keyClick(&Find(*window_, u"hits"_s), Qt::Key_Return);
  EXPECT_TRUE(PageText(*window_).contains(u"متن نخست"_s));
  const auto& page = *qobject_cast<QTextEdit*>(&Find(*window_, u"page"_s));
  ASSERT_EQ(page.extraSelections().size(), 1);
  EXPECT_EQ(page.extraSelections().front().cursor.selectedText(), u"روباهی"_s);
  Click(*window_, u"back"_s);
  EXPECT_TRUE(IsSeen(*window_, u"hits"_s));
}

TEST_F(Viewing, HitsStandByCollectionAndAreCounted) {
  Open();
  Search(u"متن"_s);
  ASSERT_TRUE(AwaitHits(5));
  EXPECT_EQ(RowsOf(ListOf(*window_, u"hits"_s)),
            (QStringList{u"باغ‌ها & گل‌ها — ۳ نوشته"_s, u"یکم"_s, u"دوم"_s,
                         u"برنامه"_s, u"قصه‌ها — ۱ نوشته"_s, u"aTitle2"_s,
                         u"شعر — ۱ نوشته"_s, u"cTitle1"_s}));
  auto& hits = ListOf(*window_, u"hits"_s);
  EXPECT_EQ(hits.currentIndex().row(), 1);
  for (int i = 0; i < 3; ++i) QTest::keyClick(&hits, Qt::Key_Down);
  EXPECT_EQ(hits.currentIndex().row(), 5);  // not at the title between
  ClickRow(hits, 4);
  EXPECT_TRUE(IsSeen(*window_, u"hits"_s));
}

TEST_F(Viewing, WholeWordsAndVowelSignsAreTicksThatSearchAnew) {
  Open();
  Search(u"روباه"_s);
  ASSERT_TRUE(AwaitHits(1));
  Click(*window_, u"wholeWords"_s);
  EXPECT_TRUE(Await([&] { return Status().contains(u"پیدا نشد"_s); }));
  Click(*window_, u"wholeWords"_s);
  ASSERT_TRUE(AwaitHits(1));
  Search(u"روباهِ"_s);
  ASSERT_TRUE(AwaitHits(1));
  Click(*window_, u"vowelSigns"_s);
  EXPECT_TRUE(Await([&] { return Status().contains(u"پیدا نشد"_s); }));
}

// Pixels of the colour with which words that were sought are marked.
int MarkedColumns(const QImage& card) {
  int columns = 0;
  for (int x = 0; x < card.width(); ++x) {
    bool isMarked = false;
    for (int y = 0; y < card.height(); ++y) {
      isMarked = isMarked ||
                 card.pixelColor(x, y) == viewer::FoundWord(viewer::LookOf(1)).background().color();
    }
    columns += isMarked ? 1 : 0;
  }
  return columns;
}

TEST_F(Viewing, EveryWordIsMarkedInACard) {
  Open();
  const auto marked = [&](const QString& words) {
    Search(words);
    EXPECT_TRUE(AwaitHits(1));
    auto& hits = ListOf(*window_, u"hits"_s);
    const QRect place = hits.visualRect(hits.model()->index(1, 0));
    return MarkedColumns(hits.viewport()->grab(place).toImage());
  };
  const int one = marked(u"روباهی"_s);
  const int other = marked(u"است"_s);
  EXPECT_GT(one, 5);
  EXPECT_GT(other, 5);
  EXPECT_NEAR(marked(u"روباهی است"_s), one + other, 2);
}

TEST_F(Viewing, ASearchWithoutHitsSaysSo) {
  Open();
  Search(u"هیچ‌جا"_s);
  EXPECT_TRUE(Await([&] { return Status().contains(u"پیدا نشد"_s); }));
}

TEST_F(Viewing, TheNextSearchEndsTheOneBefore) {
  Open();
  Search(u"متن"_s);
  Search(u"روباهي"_s);
  ASSERT_TRUE(Await([&] { return Status().contains(u"۱ نوشته با «روباهی»"_s); }));
  EXPECT_EQ(HitRows().size(), 1);
}

TEST_F(Viewing, MusicRunsInTurnAndCanBeSwitchedOff) {
  Open({.music = true});
  ASSERT_TRUE(Await([&] { return !asked_->sounds.isEmpty(); }));
  asked_->endOfLastSound(true);
  asked_->endOfLastSound(true);
  EXPECT_EQ(asked_->sounds,
            (QStringList{u"play Sound1.mp3"_s, u"play Sound2.mp3"_s, u"play Sound1.mp3"_s}));
  Click(*window_, u"music"_s);
  EXPECT_EQ(asked_->sounds.last(), u"pause"_s);
  Click(*window_, u"music"_s);
  EXPECT_EQ(asked_->sounds.last(), u"resume"_s);
}

TEST_F(Viewing, TracksThatCantBePlayedAreGivenUp) {
  Open({.music = true});
  ASSERT_TRUE(Await([&] { return !asked_->sounds.isEmpty(); }));
  asked_->endOfLastSound(false);
  asked_->endOfLastSound(false);
  EXPECT_EQ(asked_->sounds.size(), 2);
  EXPECT_EQ(Find(*window_, u"music"_s).accessibleName(), u"پخش موسیقی"_s);
}

// A track that is a list of other files is never given to a player, and the reader hears of it
// where he asks for music.
TEST_F(Viewing, TracksThatAreNoSoundsAreGivenUpUnplayed) {
  MakeBook(maker_, {.music = true});
  for (const char* track : {"Data/FlashIMG/Sound1.mp3", "Data/FlashIMG/Sound2.mp3"}) {
    maker_.WriteBytes(QString::fromLatin1(track), kPlaylist);
  }
  Show();
  const QWidget& music = Find(*window_, u"music"_s);
  ASSERT_TRUE(Await([&] { return music.accessibleName() == u"پخش موسیقی"_s; }));
  EXPECT_TRUE(music.toolTip().contains(u"نمی\u200Cتوان پخش کرد"_s));
  EXPECT_EQ(music.accessibleDescription(), music.toolTip());
  const auto text = AnswerNextBox({});
  Click(*window_, u"music"_s);
  EXPECT_EQ(*text, music.toolTip());
  EXPECT_TRUE(asked_->sounds.isEmpty());
}

TEST_F(Viewing, ATrackThatIsNoSoundIsPassedOver) {
  MakeBook(maker_, {.music = true});
  maker_.WriteBytes(u"Data/FlashIMG/Sound1.mp3"_s, kPlaylist);
  Show();
  ASSERT_TRUE(Await([&] { return !asked_->sounds.isEmpty(); }));
  asked_->endOfLastSound(true);
  EXPECT_EQ(asked_->sounds, (QStringList{u"play Sound2.mp3"_s, u"play Sound2.mp3"_s}));
  EXPECT_EQ(Find(*window_, u"music"_s).accessibleName(), u"خاموشی موسیقی"_s);
}

TEST_F(Viewing, ABookWithoutMusicHasNoSwitch) {
  Open();
  EXPECT_FALSE(IsSeen(*window_, u"music"_s));
}

TEST_F(Viewing, MusicIsSilentWhileAnEntrySounds) {
  Open({.music = true});
  ASSERT_TRUE(Await([&] { return !asked_->sounds.isEmpty(); }));
  Click(*window_, u"a1"_s);
  ClickRow(ListOf(*window_), 2);
  asked_->sounds.clear();
  Click(*window_, u"sound"_s);
  EXPECT_EQ(asked_->sounds, (QStringList{u"pause"_s, u"play TWO.mp3"_s}));
  asked_->endOfLastSound(true);
  EXPECT_EQ(asked_->sounds.last(), u"resume"_s);
}

TEST_F(Viewing, MusicIsSilentUntilTheFilmIsClosed) {
  Open({.music = true});
  ASSERT_TRUE(Await([&] { return !asked_->sounds.isEmpty(); }));
  Click(*window_, u"a1"_s);
  ClickRow(ListOf(*window_), 2);
  asked_->sounds.clear();
  Click(*window_, u"film"_s);
  EXPECT_EQ(asked_->sounds, QStringList{u"pause"_s});
  asked_->closeLastFilm();
  EXPECT_EQ(asked_->sounds, (QStringList{u"pause"_s, u"resume"_s}));
}

TEST_F(Viewing, MusicStaysSilentWhereAFilmTakesOverFromASound) {
  Open({.music = true});
  ASSERT_TRUE(Await([&] { return !asked_->sounds.isEmpty(); }));
  Click(*window_, u"a1"_s);
  ClickRow(ListOf(*window_), 2);
  Click(*window_, u"sound"_s);
  asked_->sounds.clear();
  Click(*window_, u"film"_s);
  EXPECT_EQ(asked_->sounds, QStringList{u"stop"_s});
  Click(*window_, u"sound"_s);  // while the film runs
  Click(*window_, u"sound"_s);
  EXPECT_FALSE(asked_->sounds.contains(u"resume"_s));
  asked_->closeLastFilm();
  EXPECT_EQ(asked_->sounds.last(), u"resume"_s);
}

TEST_F(Viewing, MusicThatIsOffStaysOffBehindAFilm) {
  Open({.music = true});
  ASSERT_TRUE(Await([&] { return !asked_->sounds.isEmpty(); }));
  Click(*window_, u"music"_s);
  Click(*window_, u"a1"_s);
  ClickRow(ListOf(*window_), 2);
  asked_->sounds.clear();
  Click(*window_, u"film"_s);
  asked_->closeLastFilm();
  EXPECT_TRUE(asked_->sounds.isEmpty());
}

TEST_F(Viewing, WithoutABookTheWindowSaysSo) {
  Show();
  EXPECT_FALSE(window_->HasBook());
  EXPECT_EQ(window_->accessibleDescription().left(13), u"کتابی در این "_s);
  EXPECT_FALSE(IsSeen(*window_, u"words"_s));
  QTest::keyClick(window_.get(), Qt::Key_Escape);
}

TEST_F(Viewing, WithoutABookTheReaderCanNameAFolder) {
  Show();
  QStringList chosen;
  window_->onFolderChosen = [&chosen](const QString& folder) { chosen << folder; };
  Click(*window_, u"open"_s);
  EXPECT_TRUE(chosen.isEmpty());  // the chooser was left
  asked_->chosenFolder = u"/a book"_s;
  Click(*window_, u"open"_s);
  EXPECT_EQ(chosen, QStringList{u"/a book"_s});
  const QWidget& button = Find(*window_, u"open"_s);
  EXPECT_TRUE(window_->rect().contains(button.geometry()));
}

TEST_F(Viewing, WithABookNobodyIsAskedForAFolder) {
  Open();
  EXPECT_EQ(window_->findChild<QWidget*>(u"open"_s), nullptr);
}

TEST_F(Viewing, AHalfCopiedBookShowsWhatIsThere) {
  maker_.Write(u"Data/_xml/Index.xml"_s,
               u"<strings>\r\n\t<aTitle1 vol=\"txt\">تنها</aTitle1>\r\n"
               "\t<bTitle1 vol=\"pic1\">عکس</bTitle1>\r\n"_s);
  Show();
  Click(*window_, u"a1"_s);
  EXPECT_TRUE(PageText(*window_).contains(u"پیدا نشد"_s));
  Click(*window_, u"back"_s);
  Click(*window_, u"b1"_s);
  EXPECT_TRUE(RowsOf(ListOf(*window_, u"galleryPage"_s)).isEmpty());
}

TEST_F(Viewing, ACollectionOpensAsWhatItsFileIs) {
  MakeBook(maker_);
  maker_.Write(u"Data/_xml/aTitle2.xml"_s,
               u"<?xml version=\"1.0\"?>\r\n<gallery>\r\n"
               "\t<img dtl=\"نخست\">Data/IMG/P1.jpg</img>\r\n</gallery>\r\n"_s);
  Show();
  Click(*window_, u"a2"_s);
  EXPECT_EQ(RowsOf(ListOf(*window_, u"galleryPage"_s)).size(), 1);
}

TEST_F(Viewing, ACollectionWithoutALineInTheIndexIsThere) {
  MakeBook(maker_);
  maker_.Write(u"Data/_xml/bTitle5.xml"_s,
               u"<?xml version=\"1.0\"?>\r\n<Tree>\r\n\t<node label=\"یکم\""
               " src=\"DATA/TXT/ONE.htm\" mediaStatus=\"000\" pic=\"0\" />\r\n</Tree>\r\n"_s);
  Show();
  EXPECT_FALSE(Find(*window_, u"b5"_s).accessibleName().isEmpty());
  Click(*window_, u"b5"_s);
  EXPECT_TRUE(PageText(*window_).contains(u"متن نخست"_s));
}

TEST_F(Viewing, FoldersInPlaceOfFilesAreMissingFiles) {
  MakeBook(maker_);
  for (const QString& path :
       {u"Data/TXT/ONE.htm"_s, u"Data/IMG/P1.jpg"_s, u"Data/FlashIMG/Back.jpg"_s,
        u"Data/_xml/cTitle1.xml"_s, u"Data/TXT/TWO.pdf"_s}) {
    ASSERT_TRUE(QFile::remove(maker_.PathOf(path)));
    maker_.MakeFolder(path);
  }
  Show();
  Click(*window_, u"a1"_s);
  EXPECT_TRUE(PageText(*window_).contains(u"پیدا نشد"_s));
  ClickRow(ListOf(*window_), 2);
  const auto text = AnswerNextBox({});
  Click(*window_, u"attachment"_s);
  EXPECT_TRUE(text->contains(u"پیدا نشد"_s));
  Click(*window_, u"home"_s);
  Click(*window_, u"c1"_s);
  EXPECT_TRUE(RowsOf(ListOf(*window_)).isEmpty());
}

QString DeepTree(int count) {
  QString tree = u"<?xml version=\"1.0\"?>\r\n<Tree>\r\n"_s;
  for (int i = 0; i < count; ++i) tree += u"<node label=\"فصل %1\">\r\n"_s.arg(i);
  return tree +
         u"<node label=\"ته\" src=\"DATA/TXT/ONE.htm\" mediaStatus=\"000\" pic=\"0\" />\r\n"
         "</Tree>\r\n"_s;
}

TEST_F(Viewing, TwentyThousandTitlesInOneAnotherOpen) {
  MakeBook(maker_);
  maker_.Write(u"Data/_xml/aTitle1.xml"_s, DeepTree(20'000));
  Show();
  Click(*window_, u"a1"_s);
  EXPECT_EQ(ListOf(*window_).currentIndex().data().toString(), u"ته"_s);
  EXPECT_EQ(ListOf(*window_).model()->rowCount(), 20'001);
  EXPECT_TRUE(PageText(*window_).contains(u"متن نخست"_s));
}

TEST_F(Viewing, TwentyThousandEntriesOpen) {
  MakeBook(maker_);
  QString tree = u"<?xml version=\"1.0\"?>\r\n<Tree>\r\n"_s;
  for (int i = 0; i < 20'000; ++i) {
    tree +=
        u"<node label=\"%1\" src=\"DATA/TXT/ONE.htm\" mediaStatus=\"000\" pic=\"0\" />\r\n"_s.arg(
            i);
  }
  maker_.Write(u"Data/_xml/aTitle1.xml"_s, tree + u"</Tree>\r\n"_s);
  Show();
  Click(*window_, u"a1"_s);
  QTest::keyClick(&ListOf(*window_), Qt::Key_End);
  EXPECT_EQ(ListOf(*window_).currentIndex().row(), 19'999);
}

TEST_F(Viewing, AHugePageIsLaidOutStepByStep) {
  MakeBook(maker_);
  QStringList paragraphs;
  for (int i = 0; i < 20'000; ++i)
    paragraphs << u"بند شماره‌ی %1 از متنی بلند"_s.arg(i);
  maker_.Write(u"Data/TXT/ONE.htm"_s, PageText(u"بلند"_s, paragraphs));
  Show();
  Click(*window_, u"a1"_s);
  EXPECT_LT(PageText(*window_).size(), 200'000);
  const qsizetype before = PageText(*window_).size();
  QTest::keyClick(&Find(*window_, u"page"_s), Qt::Key_End);
  EXPECT_GT(PageText(*window_).size(), before);
}

TEST_F(Viewing, DamagedPicturesAreNoMatter) {
  MakeBook(maker_);
  maker_.WriteBytes(u"Data/IMG/P1.jpg"_s, QByteArray("\xff\xd8\xff\xe0 cut", 9));
  maker_.WriteBytes(u"Data/FlashIMG/Back.jpg"_s, "no picture");
  Show();
  Click(*window_, u"a1"_s);
  ClickRow(ListOf(*window_), 2);
  EXPECT_TRUE(
      PageText(*window_).contains(u"این تصویر نمایش داده نمی‌شود"_s));
  EXPECT_TRUE(PageText(*window_).contains(u"Data/IMG/P1.jpg"_s));
}

}  // namespace
}  // namespace viewer_tests
