// What is drawn: the height of letters, colours, and when a window is drawn anew.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetricsF>
#include <QImage>
#include <QListWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>
#include <QTextEdit>
#include <array>

#include "platform/qt/artwork.h"
#include "platform/windows/controls.h"
#include "platform/windows/rich_text_box.h"
#include "support/window_catalogue.h"
#include "tests/support/small_window.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::Artwork;
using platform::ControlKind;
using platform::ControlRow;
using platform::FileList;
using platform::ImageBox;
using platform::RichTextBox;
using platform::WindowDefinition;
using testing_support::Robot;
using testing_support::SmallWindow;
using testing_support::TemporaryFolder;

constexpr std::array kRows = std::to_array<ControlRow>({
    {.name = u"text", .kind = ControlKind::kRichTextBox, .width = 3000, .height = 1500},
    {.name = u"files", .kind = ControlKind::kFileList, .top = 1500, .width = 3000, .height = 1500},
    {.name = u"image", .kind = ControlKind::kImage, .top = 3000, .width = 3000, .height = 1500},
});
constexpr WindowDefinition kWindow = {
    .name = u"Drawn", .title = u"", .width = 3000, .height = 4500, .rows = kRows};
constexpr WindowDefinition kBehind = {
    .name = u"Behind", .title = u"", .width = 1500, .height = 1500, .rows = {}};
constexpr WindowDefinition kFront = {
    .name = u"Front", .title = u"", .width = 1500, .height = 1500, .rows = {}};

class Painting : public testing::Test {
 protected:
  SmallWindow window{kWindow};
  RichTextBox text{window, u"text"};
  FileList files{window, u"files"};
  ImageBox image{window, u"image"};
};

struct Colours {
  int red = 0;
  int green = 0;
  int blue = 0;
};

// How many pixels are plainly of one of the three.
Colours ColoursOf(const QImage& picture) {
  constexpr int kPlainly = 60;
  Colours colours;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const QColor pixel = picture.pixelColor(x, y);
      const int red = pixel.red();
      const int green = pixel.green();
      const int blue = pixel.blue();
      if (red > green + kPlainly && red > blue + kPlainly) ++colours.red;
      if (green > red + kPlainly && green > blue + kPlainly) ++colours.green;
      if (blue > red + kPlainly && blue > green + kPlainly) ++colours.blue;
    }
  }
  return colours;
}

void ExpectRed(const QImage& picture, int atLeast) {
  const Colours colours = ColoursOf(picture);
  EXPECT_GE(colours.red, atLeast);
  EXPECT_EQ(colours.green, 0);
  EXPECT_EQ(colours.blue, 0);
}

TEST_F(Painting, ARedTextIsRed) {
  window.ShowActive();
  text.SetTextRTF(u"{\\rtf1{\\colortbl;\\red255\\green0\\blue0;}\\cf1\\fs40 llllll}");
  Robot::Settle();
  ExpectRed(Robot::FindAs<QTextEdit>("Drawn", "text").viewport()->grab().toImage(), 30);
}

TEST_F(Painting, ARedPictureIsRed) {
  const TemporaryFolder folder;
  QImage picture(40, 40, QImage::Format_RGB32);
  picture.fill(Qt::red);
  ASSERT_TRUE(picture.save(QString::fromStdString(folder.HostPath("red.bmp"))));
  window.ShowActive();
  image.LoadPicture(folder.Path(u"red.bmp"));
  ExpectRed(Robot::Find("Drawn", "image").grab().toImage(), 10000);
}

// The third book of the collection, and the arrow onto the disc.
TEST(PaintingArtwork, TheRedPartsAreRed) {
  for (const Artwork artwork : {Artwork::kCollectionIcon, Artwork::kExportButton}) {
    QImage picture(100, 100, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    platform::DrawArtwork(painter, artwork, picture.rect(), platform::Ground::kLight);
    painter.end();
    int red = 0;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        if (picture.pixelColor(x, y) == QColor(0xb4, 0x45, 0x3c)) ++red;
      }
    }
    EXPECT_GE(red, 300) << static_cast<int>(artwork);
  }
}

QRect InkOf(const QImage& picture) {
  QRect ink;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (qGray(picture.pixel(x, y)) < 128) ink |= QRect(x, y, 1, 1);
    }
  }
  return ink;
}

// Ten points at 96 dots to the inch; the captions around it have eleven pixels.
TEST(PaintingOpeningText, StandsInTenPoints) {
  SmallWindow window(support::Form6Definition());
  window.ShowActive();
  auto& box = Robot::FindAs<QTextEdit>("Form6", "matn");
  const QString words = box.toPlainText();
  ASSERT_FALSE(words.isEmpty());
  QFont font = QApplication::font();
  const auto widthAt = [&](int pixels) {
    font.setPixelSize(pixels);
    return QFontMetricsF(font).tightBoundingRect(words).width();
  };
  box.clearFocus();
  const QRect ink = InkOf(box.viewport()->grab().toImage());
  EXPECT_GT(ink.width(), widthAt(12));
  EXPECT_LT(ink.width(), widthAt(15));
}

// On screens where uncovering a window paints nothing, too. It is empty, so that nothing else has
// it painted.
TEST(PaintingWindow, ThatComesToTheFrontIsDrawnAnew) {
  SmallWindow behind(kBehind);
  behind.ShowActive();
  SmallWindow front(kFront);
  front.ShowActive();
  Robot::WaitUntil([&] { return !behind.OnScreen().isActiveWindow(); });
  Robot::Settle();
  int paints = 0;
  behind.onPaint = [&] { ++paints; };
  behind.OnScreen().activateWindow();
  Robot::WaitUntil([&] { return behind.OnScreen().isActiveWindow(); });
  Robot::Settle();
  EXPECT_GE(paints, 1);
}

// Two quick clicks on two lines are a double click to the machine; what opens is the line under the
// pointer and not the one before.
TEST_F(Painting, ADoubleClickOpensTheLineUnderThePointer) {
  const TemporaryFolder folder;
  folder.Write(u"a.txt", "");
  folder.Write(u"b.txt", "");
  std::vector<platform::Text> opened;
  files.onDoubleClick = [&] { opened.push_back(files.FileName()); };
  window.ShowActive();
  files.SetPath(folder.Path());
  auto& list = Robot::FindAs<QListWidget>("Drawn", "files");
  const auto middle = [&](int line) { return list.visualItemRect(list.item(line)).center(); };
  QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, middle(0));
  const QPointF at = middle(1);
  QMouseEvent second(QEvent::MouseButtonDblClick, at, list.viewport()->mapToGlobal(at),
                     Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(list.viewport(), &second);
  EXPECT_EQ(opened, std::vector<platform::Text>{u"b.txt"});
}

}  // namespace
