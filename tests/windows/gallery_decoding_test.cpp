// Which pictures a gallery shows, whatever their names say, and what it spends on them.
#include <gtest/gtest.h>

#include "tests/support/gallery_desk.h"
#include "tests/support/peak_memory.h"
#include "tests/support/picture_files.h"

namespace {

using namespace testing_support;

constexpr unsigned kBaseline = 0xC0;
constexpr unsigned kProgressive = 0xC2;
constexpr long kMost = 300;  // megabytes

class GalleryDecoding : public testing::Test {
 protected:
  GalleryDecoding() {
    desk.MakeFolders("Pictures");
    desk.OpenOn(u"Head Text");
    Robot::Click("Form3", "Com(12)");
  }
  void Show(const std::string& picture) {
    desk.Write("Pictures/p.jpg", picture);
    desk.OpenFolder("Form3");
  }
  // A failure of its own in the log, with its number and the reason; the window stays, and shows
  // the next picture.
  void ExpectRefused(const std::string& picture, const char16_t* why) {
    const PeakMemory memory;
    const int before = desk.LoggedFailures(44);
    Show(picture);
    EXPECT_LT(memory.Megabytes(), kMost);
    EXPECT_EQ(desk.LoggedFailures(44), before + 1);
    EXPECT_NE(desk.form1.lastErrorText.find(why), platform::Text::npos)
        << Utf8(desk.form1.lastErrorText);
    EXPECT_TRUE(desk.form3.IsVisible());
    Show(PictureOf("JPG", Qt::blue));
    EXPECT_EQ(desk.LoggedFailures(44), before + 1);
  }
  void ExpectShown(const std::string& picture, QColor colour) {
    const PeakMemory memory;
    Show(picture);
    EXPECT_LT(memory.Megabytes(), kMost);
    EXPECT_EQ(desk.AllLoggedFailures(), 0) << Utf8(desk.form1.lastErrorText);
    ExpectColour(0.5, 0.5, colour);
  }
  // Of the first row's picture, at parts of its width and height.
  static void ExpectColour(double across, double down, QColor colour) {
    const QImage image = Robot::Find("Form3", "IMG(0)").grab().toImage();
    const QColor seen = image.pixelColor(static_cast<int>(image.width() * across),
                                         static_cast<int>(image.height() * down));
    EXPECT_NEAR(seen.red(), colour.red(), 8);
    EXPECT_NEAR(seen.green(), colour.green(), 8);
    EXPECT_NEAR(seen.blue(), colour.blue(), 8);
  }

  GalleryDesk desk;
};

TEST_F(GalleryDecoding, AFewBytesOfAVastProgressiveJpegAreRefused) {
  const std::string bomb = EmptyJpeg(kProgressive, 20'000, 19'999, 3);
  ASSERT_LE(bomb.size(), 257U);
  ExpectRefused(bomb, u"20000 x 19999 pixels; decoding it would take 2316 MB of memory");
}

TEST_F(GalleryDecoding, SoIsAVastJpegWhoseComponentsComeOneByOne) {
  const std::string head = EmptyJpeg(kBaseline, 20'000, 19'999, 3);
  const std::string onlyFirst = head.substr(0, head.find("\xFF\xDA")) + JpegScan(1, false);
  ExpectRefused(onlyFirst + JpegScan(1, false) + "\xFF\xD9", u"MB of memory");
}

TEST_F(GalleryDecoding, AVastPngIsRefused) { ExpectRefused(VastPng(), u"30000 x 30000 pixels"); }

TEST_F(GalleryDecoding, ASmallPngWithHugeTextsIsRefused) {
  ExpectRefused(PngWithTexts(40), u"10 x 10 pixels; decoding it would take");
}

TEST_F(GalleryDecoding, AGifThatNeverEndsIsRefused) {
  ExpectRefused(GifHead(300, 200, 300, 200) + GifCodesOf(1'000'000'000), u"would take too long");
}

TEST_F(GalleryDecoding, AVastGifOrBitmapIsRefused) {
  ExpectRefused(GifHead(65'535, 65'535, 65'535, 65'535) + GifCodesOf(100), u"MB of memory");
  ExpectRefused(BitmapHead(20'000, 20'000, 1, 0) + std::string(100, '\0'), u"MB of memory");
  ExpectRefused(BitmapHead(0x7FFFFFFF, -0x7FFFFFFF, 32, 3), u"too large for any decoder");
}

// The names of all of these end in .jpg.
TEST_F(GalleryDecoding, WhatIsNoJpegPngGifOrBitmapIsRefused) {
  const char* const kNone = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"/>";
  ExpectRefused(kNone, u"It is no JPEG, PNG, GIF or bitmap.");
  ExpectRefused("/* XPM */\nstatic char *x[] = {\n\"2 1 1 1\",\n\"a c #ff0000\",\n\"aa\"};\n",
                u"It is no JPEG");
  ExpectRefused("P6\n2 1\n255\nabcabc", u"It is no JPEG");
}

TEST_F(GalleryDecoding, AFileTooLargeForAPictureIsRefusedUnread) {
  desk.Write("Pictures/p.jpg", PictureOf("JPG", Qt::blue));
  std::filesystem::resize_file(desk.HostPath("Pictures/p.jpg"), 3'000'000'000);
  const PeakMemory memory;
  desk.OpenFolder("Form3");
  EXPECT_LT(memory.Megabytes(), 60);
  EXPECT_EQ(desk.LoggedFailures(44), 1);
}

TEST_F(GalleryDecoding, WhatElseIsNamedAJpegIsShown) {
  const QColor colour(40, 120, 200);
  for (const char* format : {"PNG", "BMP", "JPG"}) ExpectShown(PictureOf(format, colour), colour);
  ExpectShown(GifHead(3, 3, 3, 3) + GifCodesOf(9), QColor(0x40, 0x40, 0x40));
}

TEST_F(GalleryDecoding, LargePicturesThatCanBeDecodedAreShown) {
  const QColor grey(128, 128, 128);
  ExpectShown(EmptyJpeg(kBaseline, 20'000, 20'000, 1), grey);
  ExpectShown(EmptyJpeg(kProgressive, 6000, 4000, 3, 1, 0x22), grey);
  ExpectShown(PictureOf("PNG", Qt::red, {5000, 4000}), Qt::red);
  ExpectShown(PictureOf("BMP", Qt::red, {3000, 2000}), Qt::red);
}

TEST_F(GalleryDecoding, APictureTakenWithTheCameraUprightIsShownUpright) {
  Show(TurnedJpeg(Qt::red, Qt::blue));
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
  ExpectColour(0.25, 0.2, Qt::red);
  ExpectColour(0.75, 0.2, Qt::red);
  ExpectColour(0.25, 0.8, Qt::blue);
  ExpectColour(0.75, 0.8, Qt::blue);
}

}  // namespace
