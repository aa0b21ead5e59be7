// Pictures told by their headers, and what decoding them would take.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "media/picture_header.h"
#include "media/picture_plan.h"
#include "tests/support/picture_bytes.h"

namespace media {
namespace {

using namespace testing_support;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr PictureSize kCell{100, 100};
constexpr unsigned kBaseline = 0xC0;
constexpr unsigned kProgressive = 0xC2;

PictureKind KindOf(const std::string& bytes) { return ReadPictureHeader(bytes).kind; }
PictureSize SizeOf(const std::string& bytes) { return ReadPictureHeader(bytes).size; }
PictureNeed NeedOf(const std::string& bytes, PictureSize shown = kCell) {
  return NeedOf(ReadPictureHeader(bytes), shown);
}
std::string WhyNot(const std::string& bytes, PictureSize shown = kCell) {
  return WhyNotDecoded(ReadPictureHeader(bytes), shown);
}

std::string Png(std::uint64_t width, std::uint64_t height, unsigned depth, unsigned colour,
                bool interlaced = false) {
  return PngHead(width, height, depth, colour, interlaced) + PngChunk("IDAT", "x");
}

TEST(MediaPicture, ItsKindAndSizeAreToldFromItsBytes) {
  EXPECT_EQ(KindOf(EmptyJpeg(kBaseline, 30, 20, 3)), PictureKind::kJpeg);
  EXPECT_EQ(SizeOf(EmptyJpeg(kBaseline, 30, 20, 3)), (PictureSize{30, 20}));
  EXPECT_EQ(KindOf(Png(31, 21, 8, 2)), PictureKind::kPng);
  EXPECT_EQ(SizeOf(Png(31, 21, 8, 2)), (PictureSize{31, 21}));
  EXPECT_EQ(KindOf(GifHead(32, 22, 32, 22)), PictureKind::kGif);
  EXPECT_EQ(SizeOf(GifHead(32, 22, 32, 22)), (PictureSize{32, 22}));
  EXPECT_EQ(KindOf(BitmapHead(33, -23, 24)), PictureKind::kBitmap);
  EXPECT_EQ(SizeOf(BitmapHead(33, -23, 24)), (PictureSize{33, 23}));
  const std::string old = "BM" + Little(0, 8) + Little(26, 4) + Little(12, 4) + Little(34, 2) +
                          Little(24, 2) + Little(1, 2) + Little(8, 2);
  EXPECT_EQ(SizeOf(old), (PictureSize{34, 24}));
}

TEST(MediaPicture, NothingElseIsOne) {
  for (const char* bytes :
       {"", "<svg xmlns='http://www.w3.org/2000/svg'/>", "<?xml version='1.0'?><svg/>",
        "/* XPM */ static char* x[] = {", "P6 1 1 255 abc", "RIFF....WEBPVP8 ", "GIF", "\xFF\xD8",
        "no picture", "#define x_width 16"}) {
    EXPECT_EQ(KindOf(bytes), PictureKind::kUnknown) << bytes;
    EXPECT_THAT(WhyNot(bytes), HasSubstr("no JPEG, PNG, GIF or bitmap")) << bytes;
  }
}

TEST(MediaPicture, OfACutHeaderNothingIsDecoded) {
  const std::string jpeg = EmptyJpeg(kBaseline, 30, 20, 3);
  const std::pair<std::string, std::size_t> heads[] = {
      {jpeg, jpeg.find("\xFF\xDA") + 2},
      {PngHead(30, 20, 8, 2), 29},
      {GifHead(30, 20, 30, 20), GifHead(30, 20, 30, 20).size()},
      {BitmapHead(30, 20, 24), 54}};
  for (const auto& [head, needed] : heads) {
    for (std::size_t length = 0; length < needed; ++length) {
      EXPECT_THAT(WhyNot(head.substr(0, length)), Not(IsEmpty())) << length;
    }
    EXPECT_THAT(WhyNot(head), IsEmpty());
  }
}

TEST(MediaPicture, AJpegsSizeMayStandAfterMegabytes) {
  const std::string head = "\xFF\xD8";
  std::string segments;
  for (int i = 0; i < 60; ++i) segments += JpegSegment(0xE1, std::string(65'000, '\xC0'));
  const std::string rest = EmptyJpeg(kBaseline, 30, 20, 3).substr(2);
  EXPECT_EQ(SizeOf(head + segments + rest), (PictureSize{30, 20}));
  EXPECT_THAT(WhyNot(head + segments + rest), IsEmpty());
  EXPECT_THAT(WhyNot(head + segments), HasSubstr("damaged"));
}

TEST(MediaPicture, JpegsThatNoDecoderTakesAreRefused) {
  for (const unsigned frame : {0xC3U, 0xC5U, 0xC9U, 0xCAU, 0xCFU}) {
    EXPECT_THAT(WhyNot(EmptyJpeg(frame, 30, 20, 3)), HasSubstr("a kind that isn't decoded"));
  }
  EXPECT_THAT(WhyNot(EmptyJpeg(kBaseline, 30, 20, 2)), HasSubstr("a kind that isn't decoded"));
  EXPECT_THAT(WhyNot(EmptyJpeg(kBaseline, 30, 20, 3, 1, 0x10)), HasSubstr("isn't decoded"));
  EXPECT_THAT(WhyNot(EmptyJpeg(kBaseline, 30, 0, 3)), HasSubstr("damaged"));
}

// All of its coefficients are kept: two bytes for each sample of each component.
TEST(MediaPicture, AProgressiveJpegTakesTheMemoryOfItsWholeSize) {
  const std::string bomb = EmptyJpeg(kProgressive, 20'000, 19'999, 3);
  EXPECT_LT(bomb.size(), 257U);
  EXPECT_GT(NeedOf(bomb).bytes, 20'000ULL * 19'999 * 3 * 2);
  EXPECT_THAT(WhyNot(bomb),
              testing::StartsWith("It measures 20000 x 19999 pixels; decoding it would take 2316"));
  EXPECT_THAT(WhyNot(EmptyJpeg(kProgressive, 6000, 4000, 3, 1, 0x22)), IsEmpty());
  const auto full = NeedOf(EmptyJpeg(kProgressive, 4000, 4000, 3)).bytes;
  const auto halved = NeedOf(EmptyJpeg(kProgressive, 4000, 4000, 3, 1, 0x22)).bytes;
  EXPECT_NEAR(static_cast<double>(full - halved), 4000.0 * 4000 * 1.5 * 2, 1e6);
}

TEST(MediaPicture, SoDoesABaselineJpegWhoseComponentsComeOneByOne) {
  const std::string head = "\xFF\xD8" + JpegFrame(kBaseline, 20'000, 20'000, 3);
  EXPECT_GT(NeedOf(head + JpegScan(1, false) + "\xFF\xD9").bytes, 2'000 * kMegabyte);
  EXPECT_LT(NeedOf(head + JpegScan(3, false) + "\xFF\xD9").bytes, 100 * kMegabyte);
}

TEST(MediaPicture, ABaselineJpegIsDecodedInTheSizeWanted) {
  const std::string jpeg = EmptyJpeg(kBaseline, 20'000, 20'000, 1);
  EXPECT_THAT(WhyNot(jpeg), IsEmpty());
  EXPECT_THAT(WhyNot(jpeg, {20'000, 20'000}), HasSubstr("of memory"));
  EXPECT_LT(NeedOf(jpeg, {2500, 2500}).bytes, NeedOf(jpeg, {2501, 2500}).bytes / 2);
}

TEST(MediaPicture, ManyScansTakeTheirTime) {
  EXPECT_THAT(WhyNot(EmptyJpeg(kProgressive, 5000, 4000, 3, 10)), IsEmpty());
  EXPECT_THAT(WhyNot(EmptyJpeg(kProgressive, 5000, 4000, 3, 1000)), HasSubstr("too long"));
}

TEST(MediaPicture, APngIsDecodedWholeOrLineByLine) {
  EXPECT_THAT(WhyNot(Png(6000, 4000, 8, 2)), IsEmpty());
  EXPECT_LT(NeedOf(Png(6000, 4000, 8, 2)).bytes, 5 * kMegabyte);
  EXPECT_GT(NeedOf(Png(6000, 4000, 8, 2), {6000, 4000}).bytes, 6000ULL * 4000 * 8);
  EXPECT_GT(NeedOf(Png(6000, 4000, 8, 2, true)).bytes, 6000ULL * 4000 * 4);
  EXPECT_GT(NeedOf(Png(6000, 4000, 16, 6)).bytes, 6000ULL * 4000 * 16);
  EXPECT_GT(NeedOf(Png(6000, 4000, 1, 0)).bytes, 6000ULL * 4000 * 4);
}

// Sheets from a scanner, and what a camera or a drawing program gives.
TEST(MediaPicture, LargePicturesOfEverydayAreDecoded) {
  EXPECT_THAT(WhyNot(Png(4960, 7016, 1, 0)), IsEmpty());
  for (const auto& [depth, colour] : {std::pair{8U, 0U}, {8U, 2U}, {8U, 3U}, {8U, 6U}}) {
    EXPECT_THAT(WhyNot(Png(6000, 4000, depth, colour)), IsEmpty()) << colour;
  }
  EXPECT_THAT(WhyNot(Png(6000, 4000, 8, 2, true)), IsEmpty());
  std::string bitmap = BitmapHead(6000, 4000, 24);
  bitmap.resize(bitmap.size() + 6000UL * 4000 * 3);
  EXPECT_THAT(WhyNot(bitmap), IsEmpty());
  EXPECT_THAT(WhyNot(GifHead(5000, 4000, 5000, 4000)), IsEmpty());
  EXPECT_THAT(WhyNot(EmptyJpeg(kBaseline, 16'320, 12'240, 3, 1, 0x22), {1900, 1000}), IsEmpty());
  EXPECT_THAT(WhyNot(EmptyJpeg(kProgressive, 8000, 6000, 3, 10, 0x22)), IsEmpty());
}

TEST(MediaPicture, AVastPngIsRefusedWhateverItsPixels) {
  for (const bool interlaced : {false, true}) {
    for (const auto& [depth, colour] :
         {std::pair{1U, 0U}, {8U, 0U}, {8U, 2U}, {8U, 3U}, {16U, 6U}}) {
      EXPECT_THAT(WhyNot(Png(30'000, 30'000, depth, colour, interlaced)), Not(IsEmpty()))
          << depth << colour << interlaced;
    }
  }
  EXPECT_THAT(WhyNot(Png(0xFFFFFFFF, 0xFFFFFFFF, 8, 2)), HasSubstr("too large"));
  EXPECT_THAT(WhyNot(Png(30, 20, 3, 0)), HasSubstr("damaged"));
}

// Some thousand bytes of a text become eight million.
TEST(MediaPicture, PackedTextsInAPngCount) {
  const std::string packed(8'000, 'x');
  std::string texts;
  for (int i = 0; i < 10; ++i) texts += PngChunk("zTXt", packed);
  EXPECT_THAT(WhyNot(PngHead(30, 20, 8, 2) + texts), HasSubstr("of memory"));
  EXPECT_THAT(WhyNot(PngHead(30, 20, 8, 2) + PngChunk("IDAT", "x") + texts), HasSubstr("memory"));
  std::string plain = std::string("XML\0\0", 5) + packed;
  EXPECT_THAT(WhyNot(PngHead(30, 20, 8, 2) + PngChunk("iTXt", plain)), IsEmpty());
  EXPECT_LT(NeedOf(PngHead(30, 20, 8, 2) + PngChunk("iTXt", plain)).bytes, 2 * kMegabyte);
  plain[4] = '\1';
  EXPECT_GT(NeedOf(PngHead(30, 20, 8, 2) + PngChunk("iTXt", plain)).bytes, 40 * kMegabyte);
}

TEST(MediaPicture, AGifIsACanvas) {
  EXPECT_THAT(WhyNot(GifHead(3000, 2000, 3000, 2000)), IsEmpty());
  EXPECT_THAT(WhyNot(GifHead(65'535, 65'535, 65'535, 65'535)), HasSubstr("of memory"));
  EXPECT_THAT(WhyNot(GifHead(65'535, 65'535, 7'000, 7'000)), HasSubstr("of memory"));
  EXPECT_EQ(SizeOf(GifHead(65'535, 65'535, 1, 2)), (PictureSize{1, 2}));
  EXPECT_EQ(SizeOf(GifHead(0, 0, 40, 30)), (PictureSize{40, 30}));
}

// A decoder goes through them all, though it has no place for them.
TEST(MediaPicture, MorePixelsThanAGifHasRoomForTakeTheirTime) {
  const std::string head = GifHead(300, 200, 300, 200);
  EXPECT_THAT(WhyNot(head + GifCodesOf(60'000)), IsEmpty());
  const std::string many = head + GifCodesOf(500'000'000);
  EXPECT_LT(many.size(), 500'000U);
  EXPECT_THAT(WhyNot(many), HasSubstr("too long"));
}

TEST(MediaPicture, ABitmapOfAnySizeAndSign) {
  EXPECT_THAT(WhyNot(BitmapHead(4000, 3000, 24)), IsEmpty());
  EXPECT_THAT(WhyNot(BitmapHead(4000, -3000, 32, 3)), IsEmpty());
  EXPECT_THAT(WhyNot(BitmapHead(20'000, 20'000, 1)), HasSubstr("of memory"));
  EXPECT_THAT(WhyNot(BitmapHead(20'000, 20'000, 8, 1)), HasSubstr("of memory"));
  for (const std::int64_t side : {0x7FFFFFFFLL, -0x80000000LL, -1LL, 0LL}) {
    EXPECT_THAT(WhyNot(BitmapHead(side, 10, 24)), Not(IsEmpty())) << side;
  }
  EXPECT_THAT(WhyNot(BitmapHead(10, -0x80000000LL, 24)), Not(IsEmpty()));
  EXPECT_THAT(WhyNot(BitmapHead(10, 10, 24, 4)), HasSubstr("damaged"));
  EXPECT_THAT(WhyNot(BitmapHead(10, 10, 7)), HasSubstr("damaged"));
}

TEST(MediaPicture, FilesTooLargeForAPictureAreNotRead) {
  EXPECT_THAT(WhyNotRead(50 * kMegabyte), IsEmpty());
  EXPECT_THAT(WhyNotRead(5000 * kMegabyte), HasSubstr("5000 MB"));
}

TEST(MediaPicture, ASizeWithinMemoryKeepsItsShape) {
  EXPECT_EQ(WithinMemory({40, 30}, 4800), (PictureSize{40, 30}));
  EXPECT_EQ(WithinMemory({4000, 3000}, 480'000), (PictureSize{400, 300}));
  EXPECT_EQ(WithinMemory({4'000'000, 1}, 4), (PictureSize{2000, 1}));
  EXPECT_EQ(WithinMemory({0, 0}, 4), (PictureSize{0, 0}));
}

}  // namespace
}  // namespace media
