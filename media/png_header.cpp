// PNG: W3C, "Portable Network Graphics", 2nd edition, 5 and 11.
#include <algorithm>
#include <cstddef>

#include "media/bytes.h"
#include "media/picture_readers.h"

namespace media {
namespace {

// Measured. A decoder holds texts several times, as they came and as it gives them on.
constexpr std::uint64_t kNanosecondsOfChunk = 150;
constexpr std::uint64_t kNanosecondsOfByte = 8;
constexpr std::uint64_t kNanosecondsOfTextByte = 20;
constexpr std::uint64_t kBytesOfTextByte = 6;
// What deflate makes of a byte at the most, and what decoders take of one chunk.
constexpr std::uint64_t kExpansion = 1032;
constexpr std::uint64_t kLongestText = 8'000'000;

constexpr std::size_t kFirstChunk = 8;
constexpr std::size_t kHead = 13;
constexpr std::size_t kAroundChunk = 12;  // its length, its name, its checksum

struct Pixels {
  unsigned depth;
  unsigned colour;
  bool isInterlaced;

  bool IsGrey() const { return colour == 0; }
  bool HasPalette() const { return colour == 3; }
  bool HasAlpha() const { return colour == 4 || colour == 6; }
};

bool IsKnown(const Pixels& pixels) {
  const bool isSmall = pixels.depth == 1 || pixels.depth == 2 || pixels.depth == 4;
  const bool isColour = pixels.colour == 2;
  if (pixels.depth == 8) {
    return pixels.IsGrey() || pixels.HasPalette() || isColour || pixels.HasAlpha();
  }
  if (pixels.depth == 16) return pixels.IsGrey() || isColour || pixels.HasAlpha();
  return isSmall && (pixels.IsGrey() || pixels.HasPalette());
}

std::uint32_t BitsPerPixel(const Pixels& pixels, bool hasTransparency) {
  const bool hasAlpha = pixels.HasAlpha() || (hasTransparency && !pixels.HasPalette());
  if (pixels.depth == 16) {
    constexpr std::uint32_t kDoubleGrey = 98;
    return hasAlpha ? 2 * kBitsWithAlpha : pixels.IsGrey() ? kDoubleGrey : kBitsWithAlpha;
  }
  if (hasAlpha) return kBitsWithAlpha;
  const bool isThin = pixels.IsGrey() || pixels.HasPalette();
  return isThin && pixels.depth > 1 ? kBitsOfGrey : kBitsOfColour;
}

std::uint32_t NanosecondsPerPixel(const Pixels& pixels) {
  const std::uint32_t plain = pixels.depth == 16 ? 35 : pixels.depth == 8 ? 12 : 8;
  return pixels.isInterlaced ? plain + (pixels.HasAlpha() ? 26 : 10) : plain;
}

// Lines of single bytes in colour are added up as they come.
bool IsScaledByLines(const Pixels& pixels, bool hasTransparency) {
  const bool isThin = pixels.IsGrey() || pixels.HasPalette();
  return !pixels.isInterlaced && pixels.depth == 8 && !isThin && !hasTransparency;
}

// What becomes of the text in a chunk.
std::uint64_t TextOf(std::string_view bytes, std::size_t data, std::size_t length) {
  const std::string_view name = bytes.substr(data - 4, 4);
  bool isPacked = name == "zTXt" || name == "iCCP";
  if (name == "iTXt") {
    const std::string_view text = bytes.substr(data, length);
    const std::size_t keyword = text.find('\0');
    isPacked = keyword != std::string_view::npos && BigEndian(text, keyword + 1, 1) != 0;
  }
  if (isPacked) return std::min(length * kExpansion, kLongestText);
  return name == "IDAT" || name == "IHDR" ? 0 : length;
}

}  // namespace

PictureHeader ReadPngHeader(std::string_view bytes) {
  PictureHeader header;
  header.kind = PictureKind::kPng;
  const std::size_t start = kFirstChunk + 8;
  const Pixels pixels{static_cast<unsigned>(BigEndian(bytes, start + 8, 1)),
                      static_cast<unsigned>(BigEndian(bytes, start + 9, 1)),
                      BigEndian(bytes, start + 12, 1) != 0};
  const bool isWhole = HasWord(bytes, kFirstChunk + 4, "IHDR") && bytes.size() >= start + kHead;
  if (!isWhole || !IsKnown(pixels)) return header;
  header.size = {static_cast<std::uint32_t>(BigEndian(bytes, start, 4)),
                 static_cast<std::uint32_t>(BigEndian(bytes, start + 4, 4))};
  header.fixedNanoseconds = bytes.size() * kNanosecondsOfByte;
  bool hasTransparency = false;
  for (std::size_t at = kFirstChunk; at + kAroundChunk <= bytes.size();) {
    const std::size_t length = BigEndian(bytes, at, 4);
    const std::size_t data = at + 8;
    if (length > bytes.size() - data) break;
    hasTransparency = hasTransparency || HasWord(bytes, at + 4, "tRNS");
    const std::uint64_t text = TextOf(bytes, data, length);
    header.fixedBytes += text * kBytesOfTextByte;
    header.fixedNanoseconds += kNanosecondsOfChunk + text * kNanosecondsOfTextByte;
    at = data + length + 4;
  }
  header.bitsPerPixel = BitsPerPixel(pixels, hasTransparency);
  header.nanosecondsPerPixel = NanosecondsPerPixel(pixels);
  if (IsScaledByLines(pixels, hasTransparency)) header.scaling = Scaling::kLines;
  return header;
}

}  // namespace media
