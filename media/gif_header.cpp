// GIF: CompuServe, "Graphics Interchange Format, Version 89a".
#include <algorithm>
#include <array>
#include <cstddef>

#include "media/bytes.h"
#include "media/picture_readers.h"

namespace media {
namespace {

constexpr std::uint32_t kNanosecondsOfPixel = 8;
constexpr std::uint64_t kNanosecondsOfStep = 5;
constexpr std::uint64_t kNanosecondsOfByte = 20;

std::size_t ColoursOf(std::uint64_t flags) {
  constexpr std::uint64_t kHasColours = 0x80;
  return (flags & kHasColours) == 0 ? 0 : std::size_t{3} << ((flags & 7U) + 1);
}

// The place after the blocks.
std::size_t AfterBlocks(std::string_view bytes, std::size_t at) {
  while (at < bytes.size() && bytes[at] != 0) at += 1 + BigEndian(bytes, at, 1);
  return at + 1;
}

// Counts the pixels that the codes of a frame stand for: there may be more of them than the frame
// has room for, and a decoder goes through all.
class Codes {
 public:
  explicit Codes(unsigned bits) : clear_(1U << bits), first_(bits + 1) { Clear(); }

  std::uint64_t Pixels() const { return pixels_; }

  // After the code of the end nothing counts.
  void Take(unsigned byte) {
    if (ended_) return;
    bits_ |= std::uint64_t{byte} << count_;
    count_ += 8;
    while (count_ >= size_ && !ended_) {
      const auto code = static_cast<unsigned>(bits_ & ((1U << size_) - 1));
      bits_ >>= size_;
      count_ -= size_;
      Obey(code);
    }
  }

 private:
  static constexpr unsigned kMostBits = 12;
  static constexpr unsigned kMostCodes = 1U << kMostBits;

  void Clear() {
    size_ = first_;
    next_ = clear_ + 2;
    before_ = 0;
  }

  void Obey(unsigned code) {
    if (code == clear_) return Clear();
    ended_ = code == clear_ + 1;
    if (ended_) return;
    if (before_ != 0 && next_ < kMostCodes) {
      lengths_[next_++] = before_ + 1;
      if (next_ == 1U << size_ && size_ < kMostBits) ++size_;
    }
    before_ = code < clear_ ? 1 : lengths_[code];
    pixels_ += before_;
  }

  unsigned clear_;
  unsigned first_;
  unsigned size_ = 0;
  unsigned next_ = 0;
  std::uint32_t before_ = 0;  // the length of the last code's text
  std::array<std::uint32_t, kMostCodes> lengths_{};
  std::uint64_t bits_ = 0;
  unsigned count_ = 0;
  bool ended_ = false;
  std::uint64_t pixels_ = 0;
};

std::uint64_t StepsOf(std::string_view bytes, std::size_t at) {
  constexpr unsigned kMostBits = 11;
  const auto bits = static_cast<unsigned>(BigEndian(bytes, at, 1));
  if (bits == 0 || bits > kMostBits) return 0;
  Codes codes(bits);
  for (++at; at < bytes.size() && bytes[at] != 0;) {
    const std::size_t length = BigEndian(bytes, at, 1);
    for (const char byte : bytes.substr(at + 1, length)) {
      codes.Take(static_cast<unsigned char>(byte));
    }
    at += 1 + length;
  }
  return codes.Pixels();
}

std::uint32_t Number(std::string_view bytes, std::size_t at) {
  return static_cast<std::uint32_t>(LittleEndian(bytes, at, 2));
}

// Decoders don't believe in a canvas many times as large as the frame.
std::uint32_t Side(std::uint32_t canvas, std::uint32_t place, std::uint32_t frame) {
  const bool isBelieved = canvas > 0 && canvas / 10 <= std::max(frame, 200U);
  return isBelieved ? canvas : place + frame;
}

}  // namespace

PictureHeader ReadGifHeader(std::string_view bytes) {
  constexpr std::size_t kAfterScreen = 13;
  constexpr std::size_t kFrameHead = 10;
  constexpr std::string_view kControl = "\xF9";
  constexpr std::uint32_t kBitsOfKept = 32;
  constexpr char kExtension = '\x21';
  constexpr char kFrame = '\x2C';
  PictureHeader header;
  header.kind = PictureKind::kGif;
  std::size_t at = kAfterScreen + ColoursOf(BigEndian(bytes, 10, 1));
  bool isOpaque = true;
  for (; at < bytes.size() && bytes[at] == kExtension; at = AfterBlocks(bytes, at + 2)) {
    // It may say that a colour lets through what is behind, and that the canvas is to be kept.
    isOpaque = isOpaque && !HasWord(bytes, at + 1, kControl);
  }
  if (at + kFrameHead > bytes.size() || bytes[at] != kFrame) return header;
  header.size = {Side(Number(bytes, 6), Number(bytes, at + 1), Number(bytes, at + 5)),
                 Side(Number(bytes, 8), Number(bytes, at + 3), Number(bytes, at + 7))};
  header.bitsPerPixel = isOpaque ? kBitsOfColour : kBitsWithAlpha + kBitsOfKept;
  header.nanosecondsPerPixel = kNanosecondsOfPixel;
  const std::size_t codes = at + kFrameHead + ColoursOf(BigEndian(bytes, at + 9, 1));
  header.fixedNanoseconds =
      StepsOf(bytes, codes) * kNanosecondsOfStep + bytes.size() * kNanosecondsOfByte;
  return header;
}

}  // namespace media
