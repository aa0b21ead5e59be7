// Pictures that come from other threads: which are decoded, and what is seen until they are there.
#include <gtest/gtest.h>

#include <QPainter>
#include <QPrinter>
#include <QScrollBar>
#include <QTest>
#include <QThread>
#include <QTimer>

#include "book/page.h"
#include "tests/support/peak_memory.h"
#include "tests/support/picture_files.h"
#include "tests/viewer/window_bench.h"
#include "viewer/pictures.h"
#include "viewer/print_page.h"
#include "viewer/window.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace viewer_tests {
namespace {

const QString kPicture = u"Data/IMG/A.jpg"_s;

class PicturesOfABook : public testing::Test {
 protected:
  void Write(const QString& path, const std::string& bytes) {
    maker_.WriteBytes(path, QByteArray::fromStdString(bytes));
  }
  viewer::ShownPicture Get(QSize box, QWidget& waiting) {
    return pictures_.Get({{kPicture, true}, box, viewer::Fit::kInside, &waiting});
  }

  BookMaker maker_;
  viewer::Pictures pictures_{maker_.Book()};
};

TEST_F(PicturesOfABook, OfAWindowThatGrowsTheLastSizeIsDecoded) {
  Write(kPicture, PictureOf("PNG", Qt::green, {900, 600}));
  QWidget waiting;
  pictures_.Start();
  for (int width = 100; width <= 600; ++width) Get({width, 400}, waiting);
  EXPECT_TRUE(Await([&] { return Get({600, 400}, waiting).pixmap.size() == QSize(600, 400); }));
  // Besides that what had begun before.
  EXPECT_LE(pictures_.DecodedCount(), 5);
}

TEST_F(PicturesOfABook, UntilItIsThereTheSizeBeforeIsShownAsLargeAsItWillBe) {
  Write(kPicture, PictureOf("PNG", Qt::green, {300, 200}));
  QWidget waiting;
  pictures_.Start();
  ASSERT_TRUE(Await([&] { return !Get({150, 150}, waiting).pixmap.isNull(); }));
  const viewer::ShownPicture before = Get({200, 200}, waiting);
  EXPECT_EQ(before.pixmap.size(), QSize(150, 100));
  EXPECT_EQ(before.size, QSizeF(200, 133));
  // Never larger than it is.
  EXPECT_EQ(Get({2000, 2000}, waiting).size, QSizeF(300, 200));
  EXPECT_TRUE(Await([&] { return Get({200, 200}, waiting).pixmap.size() == QSize(200, 133); }));
}

TEST_F(PicturesOfABook, WhatNobodyWantsAnyLongerIsNotDecoded) {
  Write(kPicture, PictureOf("PNG", Qt::green, {300, 200}));
  QWidget waiting;
  bool isWanted = true;
  for (int width = 10; width < 60; ++width) {
    pictures_.Get({{kPicture, true},
                   {width, width},
                   width % 2 == 0 ? viewer::Fit::kInside : viewer::Fit::kCovering,
                   &waiting,
                   [&isWanted] { return isWanted ? QRect(0, 0, 9, 9) : QRect(); }});
  }
  isWanted = false;
  pictures_.Start();
  EXPECT_TRUE(Get({59, 59}, waiting).pixmap.isNull());
  EXPECT_TRUE(Await([&] { return !Get({59, 59}, waiting).pixmap.isNull(); }));
  EXPECT_EQ(pictures_.DecodedCount(), 1);
}

TEST_F(PicturesOfABook, APathOfTheDiskIsNoPathInTheBook) {
  Write(kPicture, PictureOf("PNG", Qt::green, {30, 20}));
  QWidget waiting;
  pictures_.Start();
  const viewer::PictureFile hostile{maker_.PathOf(kPicture), true};
  const viewer::PictureFile onDisk{maker_.PathOf(kPicture)};
  const auto get = [&](const viewer::PictureFile& file) {
    return !pictures_.Get({file, {50, 50}, viewer::Fit::kInside, &waiting}).pixmap.isNull();
  };
  EXPECT_TRUE(Await([&] { return get(onDisk); }));
  EXPECT_TRUE(Await([&] { return get(hostile) || pictures_.IsBroken(hostile); }));
  EXPECT_FALSE(get(hostile));
  EXPECT_EQ(pictures_.NoteInPlaceOf(hostile), u"این تصویر پیدا نشد"_s);
}

// The log says on which thread a picture turned out to be damaged.
bool g_windowsThreadDecoded = false;
int g_damaged = 0;
void Look(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& text) {
  if (!text.startsWith("damaged picture"_L1)) return;
  ++g_damaged;
  if (QThread::currentThread() == qApp->thread()) g_windowsThreadDecoded = true;
}

std::string DamagedPicture() {
  std::string damaged = PictureOf("PNG", Qt::green, {300, 300});
  return damaged.replace(damaged.find("IDAT") + 4, 12, 12, 'x');
}

TEST_F(PicturesOfABook, PrintingDecodesBesideTheWindowsThread) {
  Write(kPicture, DamagedPicture());
  book::Page page;
  page.parts.push_back({book::PagePart::Kind::kPicture, kPicture});
  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(maker_.PathOf(u"printed.pdf"_s));
  bool isAlive = false;
  QTimer::singleShot(0, [&isAlive] { isAlive = true; });
  g_damaged = 0;
  g_windowsThreadDecoded = false;
  const QtMessageHandler before = qInstallMessageHandler(Look);
  EXPECT_TRUE(viewer::PrintPage(printer, maker_.Book(), page, [](int, int) { return true; }));
  qInstallMessageHandler(before);
  EXPECT_EQ(g_damaged, 1);
  EXPECT_FALSE(g_windowsThreadDecoded);
  EXPECT_TRUE(isAlive);
}

class PicturesInAWindow : public testing::Test {
 protected:
  PicturesInAWindow() { MakeBook(maker_); }

  void Open() {
    window_ = std::make_unique<viewer::Window>(maker_.Root(), MachineOf(asked_));
    window_->resize(1100, 800);
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
  }
  void OpenGallery(int count) {
    QString text = u"<?xml version=\"1.0\"?>\r\n<gallery>\r\n"_s;
    for (int i = 0; i < count; ++i) {
      text += u"\t<img dtl=\"\">data/img/g%1.JPG</img>\r\n"_s.arg(i);
      maker_.WriteBytes(u"Data/IMG/G%1.jpg"_s.arg(i),
                        QByteArray::fromStdString(PictureOf("PNG", Qt::green, {40, 40})));
    }
    maker_.Write(u"Data/_xml/bTitle1.xml"_s, text + u"</gallery>\r\n"_s);
    Open();
    Click(*window_, u"b1"_s);
  }
  QColor Middle(int row) {
    QListView& list = ListOf(*window_, u"galleryPage"_s);
    const QImage cell =
        list.viewport()->grab(list.visualRect(list.model()->index(row, 0))).toImage();
    return cell.pixelColor(cell.rect().center());
  }

  BookMaker maker_;
  std::shared_ptr<Asked> asked_ = std::make_shared<Asked>();
  std::unique_ptr<viewer::Window> window_;
};

TEST_F(PicturesInAWindow, ARepaintAsksNoDisk) {
  OpenGallery(3);
  for (int row = 0; row < 3; ++row) {
    ASSERT_TRUE(Await([&] { return Middle(row) == QColor(Qt::green); })) << row;
  }
  ASSERT_TRUE(QDir(maker_.PathOf(u"Data/IMG"_s)).removeRecursively());
  for (int row = 0; row < 3; ++row) EXPECT_EQ(Middle(row), QColor(Qt::green)) << row;
}

TEST_F(PicturesInAWindow, ALongGalleryShowsWhatItHasBeenScrolledTo) {
  OpenGallery(400);
  QScrollBar& bar = *ListOf(*window_, u"galleryPage"_s).verticalScrollBar();
  ASSERT_TRUE(Await([&] { return bar.maximum() > 0 && Middle(0) == QColor(Qt::green); }));
  for (int place = 0; place < bar.maximum(); place += 150) {
    bar.setValue(place);
    window_->grab();
  }
  bar.setValue(bar.maximum());
  EXPECT_TRUE(Await([&] { return Middle(399) == QColor(Qt::green); }));
  bar.setValue(0);
  EXPECT_TRUE(Await([&] { return Middle(0) == QColor(Qt::green); }));
}

TEST_F(PicturesInAWindow, TheBackdropFillsAWindowThatGrows) {
  maker_.WriteBytes(u"Data/FlashIMG/Back.jpg"_s,
                    QByteArray::fromStdString(PictureOf("PNG", Qt::red, {400, 300})));
  Open();
  const auto isRed = [](const QColor& colour) { return colour.red() > colour.green() + 60; };
  ASSERT_TRUE(Await([&] { return isRed(window_->grab().toImage().pixelColor(3, 400)); }));
  for (const QSize size : {QSize(1200, 850), QSize(1500, 1000), QSize(800, 600)}) {
    window_->resize(size);
    const QImage seen = window_->grab().toImage();  // by now nothing can have been decoded
    for (const QPoint corner :
         {QPoint(3, 70), QPoint(size.width() - 4, 70), QPoint(3, size.height() - 4),
          QPoint(size.width() - 4, size.height() - 4)}) {
      EXPECT_TRUE(isRed(seen.pixelColor(corner))) << corner.x() << ' ' << corner.y();
    }
  }
}

TEST_F(PicturesInAWindow, APictureOfThirtyThousandPixelsASideIsShownOrNamed) {
  constexpr unsigned kBaseline = 0xC0;
  OpenGallery(3);
  maker_.WriteBytes(u"Data/IMG/G0.jpg"_s,
                    QByteArray::fromStdString(EmptyJpeg(kBaseline, 30'000, 30'000, 3)));
  maker_.WriteBytes(u"Data/IMG/G1.jpg"_s, QByteArray::fromStdString(VastPng()));
  Open();
  const PeakMemory memory;
  Click(*window_, u"b1"_s);
  EXPECT_TRUE(Await([&] { return Middle(2) == QColor(Qt::green); }));
  QListView& list = ListOf(*window_, u"galleryPage"_s);
  const auto cell = [&](int row) {
    return list.viewport()->grab(list.visualRect(list.model()->index(row, 0))).toImage();
  };
  const QImage waiting = cell(0);
  EXPECT_TRUE(Await([&] { return cell(0) != waiting || cell(1) != waiting; }));
  window_.reset();
  EXPECT_LT(memory.Megabytes(), 256);
}

}  // namespace
}  // namespace viewer_tests
