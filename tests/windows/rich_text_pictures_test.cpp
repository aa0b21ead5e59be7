// Pictures inside rich text, from files and from other programs' clipboards.
#include <gtest/gtest.h>

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QMimeData>
#include <QPainter>
#include <filesystem>
#include <fstream>

#include "tests/support/peak_memory.h"
#include "tests/support/picture_files.h"
#include "tests/support/rich_text_bench.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace testing_support;
using platform::Text;
using platform::rtf::Picture;
using platform::rtf::PictureKind;

constexpr long kMost = 300;  // megabytes

class RichTextPictures : public testing::Test, protected RichTextBench {
 protected:
  static Text RtfWith(const std::vector<Picture>& pictures) {
    platform::rtf::Paragraph paragraph;
    paragraph.direction = platform::rtf::Direction::kLeftToRight;
    for (const Picture& picture : pictures) paragraph.runs.push_back({{}, picture});
    return RtfOf({{paragraph}});
  }
  QImage Drawn() {
    window.ShowActive();
    return Edit().viewport()->grab().toImage();
  }
  // Draws it within bounds, and keeps its bytes.
  void ExpectBounded(const Picture& picture) {
    const Text rtf = RtfWith({picture});
    const PeakMemory memory;
    matn.SetTextRTF(rtf);
    Drawn();
    EXPECT_LT(memory.Megabytes(), kMost);
    EXPECT_EQ(matn.TextRTF(), rtf);
  }
  void PasteHtml(const QByteArray& html) {
    auto* data = new QMimeData;
    data->setData("text/html", html);
    QApplication::clipboard()->setMimeData(data);
    window.ShowActive();
    Robot::PressKey("Rich", "matn", Qt::Key_V, Qt::ControlModifier);
  }
  std::vector<Picture> Pictures() const {
    std::vector<Picture> pictures;
    for (const auto& paragraph : Content().paragraphs) {
      for (const auto& run : paragraph.runs) {
        if (const auto* picture = std::get_if<Picture>(&run.content)) pictures.push_back(*picture);
      }
    }
    return pictures;
  }
};

TEST_F(RichTextPictures, AVastPictureIsABoxAndKeepsItsBytes) {
  ExpectBounded({PictureKind::kJpeg, EmptyJpeg(0xC2, 20'000, 19'999, 3), 1500, 1500});
  const QColor middle = Drawn().pixelColor(30, 12);
  EXPECT_EQ(middle, QColor(Qt::lightGray));
}

TEST_F(RichTextPictures, NeitherAVastPngNorHugeTextsAreDecoded) {
  ExpectBounded({PictureKind::kPng, VastPng(), 0, 0});
  ExpectBounded({PictureKind::kPng, PngWithTexts(40), 1500, 1500});
  ExpectBounded({PictureKind::kBitmap, BitmapHead(20'000, -20'000, 1).substr(14), 0, 0});
}

TEST_F(RichTextPictures, OtherFormatsThanItSaysAreShownIfTheyAreKnown) {
  const std::string gif = GifHead(3, 3, 3, 3) + GifCodesOf(9);
  matn.SetTextRTF(RtfWith({{PictureKind::kPng, gif, 1500, 1500}}));
  EXPECT_EQ(Drawn().pixelColor(30, 30), QColor(0x40, 0x40, 0x40));
  matn.SetTextRTF(RtfWith({{PictureKind::kPng, "P6\n1 1\n255\nabc", 1500, 1500}}));
  EXPECT_EQ(Drawn().pixelColor(30, 12), QColor(Qt::lightGray));
}

// Each would take 12 MB in its own size.
TEST_F(RichTextPictures, ManyLargePicturesTogetherStayWithinBounds) {
  const Picture large{PictureKind::kJpeg, PictureOf("JPG", QColor(10, 120, 200), {2000, 1500}), 900,
                      600};
  const Text rtf = RtfWith(std::vector<Picture>(100, large));
  const PeakMemory memory;
  matn.SetTextRTF(rtf);
  const QImage drawn = Drawn();
  EXPECT_LT(memory.Megabytes(), kMost);
  EXPECT_NEAR(drawn.pixelColor(30, 20).blue(), 200, 8);
  EXPECT_EQ(matn.TextRTF(), rtf);
}

TEST_F(RichTextPictures, APictureWithoutASizeTakesTheRoomThatItMeasures) {
  matn.SetTextRTF(RtfWith({{PictureKind::kPng, PictureOf("PNG", Qt::red, {2000, 1500}), 0, 0}}));
  Drawn();
  EXPECT_NEAR(Edit().document()->size().height(), 1500, 60);
}

// The rectangle around all that is of that colour.
QRect RoomOf(const QImage& drawn, const QColor& colour) {
  QRect room;
  for (int y = 0; y < drawn.height(); ++y) {
    for (int x = 0; x < drawn.width(); ++x) {
      if (drawn.pixelColor(x, y) == colour) room |= QRect(x, y, 1, 1);
    }
  }
  return room;
}

// Half blue and half red, as rich text holds it: without its file's head.
std::string TwoColours(QImage::Format format) {
  QImage picture(40, 30, QImage::Format_RGB32);
  picture.fill(Qt::blue);
  QPainter(&picture).fillRect(20, 0, 20, 30, Qt::red);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  picture.convertToFormat(format, {qRgb(0, 0, 255), qRgb(255, 0, 0)}).save(&buffer, "BMP");
  return bytes.toStdString().substr(14);
}

TEST_F(RichTextPictures, BitmapsWithAndWithoutATableOfColoursAreShownAsTheyAre) {
  for (const auto format : {QImage::Format_Mono, QImage::Format_Indexed8, QImage::Format_RGB32}) {
    matn.SetTextRTF(RtfWith({{PictureKind::kBitmap, TwoColours(format), 600, 450}}));
    matn.SetSelStart(1);  // the caret stands after it
    const QImage drawn = Drawn();
    const QRect blue = RoomOf(drawn, Qt::blue);
    EXPECT_EQ(blue.size(), QSize(20, 30)) << format;
    EXPECT_EQ(RoomOf(drawn, Qt::red), blue.translated(20, 0)) << format;
  }
}

TEST_F(RichTextPictures, WhatCantBeDecodedIsABoxThatIsCrossed) {
  matn.SetTextRTF(RtfWith({{PictureKind::kPng, "no picture", 0, 0}}));
  matn.SetSelStart(1);  // the caret stands after it
  const QImage drawn = Drawn();
  const QColor line(Qt::darkGray);
  const QRect box = RoomOf(drawn, line);
  ASSERT_EQ(box.size(), QSize(48, 48));
  for (int i = 0; i < box.width(); ++i) {
    const int x = box.left() + i;
    const int y = box.top() + i;
    for (const QPoint place : {QPoint(x, box.top()), QPoint(x, box.bottom()), QPoint(box.left(), y),
                               QPoint(box.right(), y), QPoint(x, y), QPoint(x, box.bottom() - i)}) {
      ASSERT_EQ(drawn.pixelColor(place), line) << place.x() << ", " << place.y();
    }
  }
}

TEST_F(RichTextPictures, WhereOneMeasureIsMissingThePictureKeepsItsShape) {
  constexpr int kTwips = 15;  // of a pixel
  const std::string bytes = PictureOf("PNG", Qt::red, {40, 30});
  const auto sizeOf = [&](int width, int height) {
    matn.SetTextRTF(RtfWith({{PictureKind::kPng, bytes, width * kTwips, height * kTwips}}));
    matn.SetSelStart(1);  // the caret stands after it
    return RoomOf(Drawn(), Qt::red).size();
  };
  EXPECT_EQ(sizeOf(80, 0), QSize(80, 60));
  EXPECT_EQ(sizeOf(0, 90), QSize(120, 90));
}

constexpr platform::ControlRow BoxAt(platform::TextView name, int left) {
  return {.name = name,
          .kind = platform::ControlKind::kRichTextBox,
          .left = left,
          .top = 150,
          .width = 3000,
          .height = 3000};
}
constexpr std::array kFourRows = std::to_array<platform::ControlRow>(
    {BoxAt(u"one", 150), BoxAt(u"two", 3300), BoxAt(u"three", 6450), BoxAt(u"four", 9600)});

constexpr platform::WindowDefinition kFourBoxes = {
    .name = u"Four", .title = u"", .width = 12'750, .height = 3'300, .rows = kFourRows};

// Of each text alone its pictures of 4 MB stay within bounds.
TEST(RichTexts, PicturesOfSeveralTogetherStayWithinBounds) {
  SmallWindow window(kFourBoxes);
  platform::RichTextBox one(window, u"one");
  platform::RichTextBox two(window, u"two");
  platform::RichTextBox three(window, u"three");
  platform::RichTextBox four(window, u"four");
  window.Load();
  const auto show = [](platform::RichTextBox& box, Qt::GlobalColor colour) {
    const Picture picture{PictureKind::kPng, PictureOf("PNG", colour, {1000, 1000}), 0, 0};
    platform::rtf::Paragraph paragraph;
    paragraph.direction = platform::rtf::Direction::kLeftToRight;
    paragraph.runs.assign(40, {{}, picture});
    box.SetTextRTF(RtfOf({{paragraph}}));
  };
  const auto seen = [](const char* name) {
    auto& box = Robot::FindAs<QTextEdit>("Four", name);
    return box.viewport()->grab().toImage().pixelColor(30, 30);
  };
  const PeakMemory memory;
  window.ShowActive();
  for (platform::RichTextBox* box : {&one, &two, &three}) show(*box, Qt::blue);
  show(four, Qt::red);
  EXPECT_EQ(seen("four"), QColor(Qt::red));
  for (const char* name : {"one", "two", "three"}) EXPECT_EQ(seen(name), QColor(Qt::blue)) << name;
  EXPECT_LT(memory.Megabytes(), 130);
}

// A page may name a pipe, or a file without an end.
TEST_F(RichTextPictures, WhatAPastedPageNamesIsNeverRead) {
  const TemporaryFolder folder;
  const std::string path = folder.HostPath() + "/large.png";
  std::ofstream(path) << PictureOf("PNG", Qt::red);
  std::filesystem::resize_file(path, 1'500'000'000);
  const PeakMemory memory;
  PasteHtml("<p style=\"background-image:url('file://" + QByteArray::fromStdString(path) +
            "')\">text<img src=\"file://" + QByteArray::fromStdString(path) + "\"><img src=\"" +
            QByteArray::fromStdString(path) + "\"></p>");
  Drawn();
  EXPECT_LT(memory.Megabytes(), kMost);
  EXPECT_EQ(matn.Text().substr(0, 4), u"text");
  for (const Picture& picture : Pictures()) EXPECT_TRUE(picture.bytes.empty());
}

TEST_F(RichTextPictures, APictureInAPastedPageItselfComesInAsItIs) {
  const auto address = [](const std::string& file) {
    return "<img src=\"data:image/png;base64," + QByteArray::fromStdString(file).toBase64() + "\">";
  };
  const std::string jpeg = PictureOf("JPG", Qt::red);
  const std::string bitmap = PictureOf("BMP", Qt::red);
  const std::string bomb = EmptyJpeg(0xC2, 20'000, 19'999, 3);
  const PeakMemory memory;
  PasteHtml("<p>" + address(jpeg) + address(bitmap) + address(GifHead(3, 3, 3, 3) + GifCodesOf(9)) +
            address(bomb) + address("<svg/>") + "</p>");
  Drawn();
  EXPECT_LT(memory.Megabytes(), kMost);
  const std::vector<Picture> pictures = Pictures();
  ASSERT_EQ(pictures.size(), 5U);
  EXPECT_EQ(pictures[0].bytes, jpeg);
  EXPECT_EQ(pictures[1].kind, PictureKind::kBitmap);
  EXPECT_EQ(pictures[1].bytes, bitmap.substr(14));
  EXPECT_TRUE(QImage::fromData(QByteArray::fromStdString(pictures[2].bytes), "PNG").size() ==
              QSize(3, 3));
  EXPECT_EQ(pictures[3].bytes, bomb);
  EXPECT_TRUE(pictures[4].bytes.empty());
}

}  // namespace
