// Pictures of a book that would take much of a decoder: what the reader sees, and what it takes.
#include <gtest/gtest.h>

#include <QScrollBar>
#include <QTest>
#include <QTextEdit>

#include "tests/support/peak_memory.h"
#include "tests/support/picture_files.h"
#include "tests/viewer/window_bench.h"
#include "viewer/window.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace viewer_tests {
namespace {

constexpr unsigned kProgressive = 0xC2;
constexpr long kMost = 300;  // megabytes

class PictureBounds : public testing::Test {
 protected:
  PictureBounds() { MakeBook(maker_); }

  void Write(const QString& path, const std::string& bytes) {
    maker_.WriteBytes(path, QByteArray::fromStdString(bytes));
  }
  void Open() {
    window_ = std::make_unique<viewer::Window>(maker_.Root(), MachineOf(asked_));
    window_->resize(1100, 800);
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
  }
  // The gallery of these pictures.
  void OpenGallery(const QStringList& paths) {
    QString text = u"<?xml version=\"1.0\"?>\r\n<gallery>\r\n"_s;
    for (const QString& path : paths) text += u"\t<img dtl=\"\">%1</img>\r\n"_s.arg(path);
    maker_.Write(u"Data/_xml/bTitle1.xml"_s, text + u"</gallery>\r\n"_s);
    Open();
    Click(*window_, u"b1"_s);
  }
  QImage Cell(int row) {
    QListView& list = ListOf(*window_, u"galleryPage"_s);
    return list.viewport()->grab(list.visualRect(list.model()->index(row, 0))).toImage();
  }
  QColor Middle(int row) {
    const QImage cell = Cell(row);
    return cell.pixelColor(cell.rect().center());
  }
  void OpenPage(const QString& pictures) {
    maker_.Write(u"Data/TXT/ONE.htm"_s, u"<pgTitle>title</pgTitle>\r\n\r\n"_s + pictures);
    Open();
    Click(*window_, u"a1"_s);
  }

  BookMaker maker_;
  std::shared_ptr<Asked> asked_ = std::make_shared<Asked>();
  std::unique_ptr<viewer::Window> window_;
};

TEST_F(PictureBounds, PicturesThatCannotBeDecodedHaveAWordInTheirPlace) {
  const QString cannot[] = {u"Data/IMG/A.jpg"_s, u"Data/IMG/B.jpg"_s, u"Data/IMG/C.jpg"_s,
                            u"Data/IMG/D.jpg"_s, u"Data/IMG/E.jpg"_s};
  Write(cannot[0], EmptyJpeg(kProgressive, 20'000, 19'999, 3));
  Write(cannot[1], VastPng());
  Write(cannot[2], PngWithTexts(40));
  Write(cannot[3], GifHead(300, 200, 300, 200) + GifCodesOf(1'000'000'000));
  Write(cannot[4], "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"/>");
  Write(u"Data/IMG/P1.jpg"_s, PictureOf("PNG", Qt::green));
  const PeakMemory memory;
  OpenGallery({cannot[0], cannot[1], cannot[2], cannot[3], cannot[4], u"Data/IMG/GONE.jpg"_s,
               u"Data/IMG/P1.jpg"_s});
  ASSERT_TRUE(Await([&] { return Middle(6) == QColor(Qt::green); }));
  // One word for all of them, another for the one that isn't there.
  for (int row = 1; row < 5; ++row) {
    EXPECT_TRUE(Await([&] {
      return Cell(row).copy(20, 20, 170, 170) == Cell(0).copy(20, 20, 170, 170);
    })) << row;
  }
  EXPECT_NE(Cell(5).copy(20, 20, 170, 170), Cell(0).copy(20, 20, 170, 170));
  EXPECT_LT(memory.Megabytes(), kMost);
}

// Each takes more than half of what may be decoded at a time.
TEST_F(PictureBounds, LargePicturesWaitForEachOtherAndAreAllShown) {
  QStringList paths;
  for (int i = 0; i < 6; ++i) {
    paths << u"Data/IMG/L%1.jpg"_s.arg(i);
    Write(paths.back(), EmptyJpeg(kProgressive, 5000, 4800, 3));
  }
  const PeakMemory memory;
  OpenGallery(paths);
  for (int row = 0; row < 6; ++row) {
    EXPECT_TRUE(Await([&] { return Middle(row) == QColor(128, 128, 128); })) << row;
  }
  EXPECT_LT(memory.Megabytes(), 240);
}

TEST_F(PictureBounds, APageSaysWhichOfItsPicturesItCannotShow) {
  Write(u"Data/IMG/A.jpg"_s, EmptyJpeg(kProgressive, 20'000, 19'999, 3));
  const PeakMemory memory;
  OpenPage(u"<IMG src=\"Data/IMG/A.jpg\">\r\n<IMG src=\"Data/IMG/GONE.jpg\">\r\n"_s);
  EXPECT_LT(memory.Megabytes(), kMost);
  const QString text = PageText(*window_);
  EXPECT_TRUE(text.contains(
      u"[این تصویر نمایش داده نمی‌شود: \u2066Data/IMG/A.jpg"_s))
      << text.toStdString();
  EXPECT_TRUE(text.contains(u"[این تصویر در کتاب پیدا نشد: \u2066Data/IMG/GONE.jpg"_s));
}

// Decoding them may take a second each.
TEST_F(PictureBounds, APageIsThereBeforeItsPictures) {
  Write(u"Data/IMG/A.jpg"_s, PictureOf("PNG", Qt::green, {300, 300}));
  OpenPage(u"<pgMain>words</pgMain>\r\n<IMG src=\"Data/IMG/A.jpg\">\r\n"_s);
  auto& page = static_cast<QTextEdit&>(Find(*window_, u"page"_s));
  const auto hasGreen = [&] {
    const QImage seen = page.viewport()->grab().toImage();
    for (int y = 0; y < seen.height(); y += 20) {
      if (seen.pixelColor(seen.width() / 2, y) == QColor(Qt::green)) return true;
    }
    return false;
  };
  const double height = page.document()->size().height();
  EXPECT_GT(height, 300);
  EXPECT_TRUE(PageText(*window_).contains(u"words"_s));
  EXPECT_FALSE(hasGreen());
  EXPECT_TRUE(Await(hasGreen));
  EXPECT_EQ(page.document()->size().height(), height);
}

TEST_F(PictureBounds, APictureOfAPageThatTurnsOutToBeDamagedGivesWayToItsWords) {
  std::string damaged = PictureOf("PNG", Qt::green, {300, 300});
  damaged.replace(damaged.find("IDAT") + 4, 12, 12, 'x');
  Write(u"Data/IMG/A.jpg"_s, damaged);
  OpenPage(
      u"<pgMain>before</pgMain>\r\n<IMG src=\"Data/IMG/A.jpg\">\r\n<pgMain>after</pgMain>\r\n"_s);
  EXPECT_TRUE(Await([&] {
    window_->grab();
    return PageText(*window_).contains(
        u"[این تصویر نمایش داده نمی‌شود: \u2066Data/IMG/A.jpg"_s);
  }));
  EXPECT_TRUE(PageText(*window_).contains(u"after"_s));
}

// What a page shows is at most as much as fits into its window; what lies above is decoded anew.
TEST_F(PictureBounds, APictureOfAPageIsThereAgainAfterManyOthers) {
  QString pictures;
  Write(u"Data/IMG/A.jpg"_s, PictureOf("PNG", Qt::green, {700, 300}));
  pictures += u"<IMG src=\"Data/IMG/A.jpg\">\r\n"_s;
  for (int i = 0; i < 12; ++i) {
    Write(u"Data/IMG/R%1.jpg"_s.arg(i), PictureOf("PNG", Qt::red, {780, 1200}));
    pictures += u"<IMG src=\"Data/IMG/R%1.jpg\">\r\n"_s.arg(i);
  }
  OpenPage(pictures);
  auto& page = static_cast<QTextEdit&>(Find(*window_, u"page"_s));
  const auto middleIs = [&](Qt::GlobalColor colour) {
    const QImage seen = page.viewport()->grab().toImage();
    return seen.pixelColor(seen.width() / 2, 150) == QColor(colour);
  };
  EXPECT_TRUE(Await([&] { return middleIs(Qt::green); }));
  QScrollBar& bar = *page.verticalScrollBar();
  for (int step = 1; step <= 12; ++step) {
    bar.setValue(step * 1220);
    EXPECT_TRUE(Await([&] { return middleIs(Qt::red); })) << step;
  }
  bar.setValue(0);
  EXPECT_TRUE(Await([&] { return middleIs(Qt::green); }));
}

// Each of them takes 3.6 MB in the page.
TEST_F(PictureBounds, APageOfManyTallPicturesStaysWithinBounds) {
  QString pictures;
  Write(u"Data/IMG/A.jpg"_s, PictureOf("JPG", Qt::darkGreen, {1560, 2400}));
  for (int i = 0; i < 200; ++i) pictures += u"<IMG src=\"Data/IMG/A.jpg\">\r\n"_s;
  const PeakMemory memory;
  OpenPage(pictures);
  QTest::keyClick(&Find(*window_, u"page"_s), Qt::Key_End);
  EXPECT_LT(memory.Megabytes(), 160);
  EXPECT_FALSE(PageText(*window_).contains(u"نمایش داده نمی‌شود"_s));
}

TEST_F(PictureBounds, ABackdropOfAnyFormatAndSizeLeavesTheWindowAsItIs) {
  Write(u"Data/FlashIMG/Back.jpg"_s, EmptyJpeg(kProgressive, 20'000, 19'999, 3));
  Write(u"Data/IMG/aTitle1.jpg"_s, VastPng());
  Write(u"Data/IMG/aTitle2.jpg"_s, PictureOf("PNG", Qt::red));
  const PeakMemory memory;
  Open();
  QWidget& card = Find(*window_, u"a2"_s);
  const auto hasRed = [&] {
    const QImage seen = card.grab().toImage();
    return seen.pixelColor(seen.width() - 40, seen.height() / 2) == QColor(Qt::red);
  };
  EXPECT_TRUE(Await(hasRed));
  window_.reset();  // it waits for what is being decoded
  EXPECT_LT(memory.Megabytes(), kMost);
}

TEST_F(PictureBounds, APictureTakenUprightIsShownUprightWhateverItsName) {
  Write(u"Data/IMG/U.jpg"_s, TurnedJpeg(Qt::red, Qt::blue));
  Write(u"Data/IMG/J.jpg"_s, PictureOf("PNG", Qt::green));
  Write(u"Data/IMG/G.jpg"_s, GifHead(30, 30, 30, 30) + GifCodesOf(900));
  OpenGallery({u"Data/IMG/U.jpg"_s, u"Data/IMG/J.jpg"_s, u"Data/IMG/G.jpg"_s});
  ASSERT_TRUE(Await([&] { return Middle(1) == QColor(Qt::green); }));
  ASSERT_TRUE(Await([&] { return Middle(2) == QColor(0x40, 0x40, 0x40); }));
  ASSERT_TRUE(Await([&] { return Middle(0).red() + Middle(0).blue() > 200; }));
  const QImage cell = Cell(0);
  const QPoint middle = cell.rect().center();
  EXPECT_GT(cell.pixelColor(middle - QPoint(0, 16)).red(), 200);
  EXPECT_GT(cell.pixelColor(middle + QPoint(0, 16)).blue(), 200);
}

}  // namespace
}  // namespace viewer_tests
