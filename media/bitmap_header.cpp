// Bitmaps as files: the header of 14 bytes, and after it one of the information headers.
#include "media/bytes.h"
#include "media/picture_readers.h"

namespace media {
namespace {

constexpr std::uint32_t kNanosecondsOfPixel = 10;
constexpr std::uint64_t kNanosecondsOfByte = 5;

// A number with a sign: a bitmap of less than no lines begins at its top.
std::uint32_t Lines(std::uint64_t number) {
  constexpr std::uint64_t kSign = 0x80000000;
  return static_cast<std::uint32_t>(number < kSign ? number : 2 * kSign - number);
}

bool IsKnown(std::uint64_t depth, std::uint64_t packing) {
  constexpr std::uint64_t kMasksWithAlpha = 6;
  const bool isPlain = packing <= 3 || packing == kMasksWithAlpha;
  return isPlain &&
         (depth == 1 || depth == 4 || depth == 8 || depth == 16 || depth == 24 || depth == 32);
}

}  // namespace

PictureHeader ReadBitmapHeader(std::string_view bytes) {
  constexpr std::uint64_t kOldHeader = 12;
  constexpr std::uint32_t kLargestSide = 0x7FFFFFFF;
  PictureHeader header;
  header.kind = PictureKind::kBitmap;
  const bool isOld = LittleEndian(bytes, 14, 4) == kOldHeader;
  const std::uint64_t depth = LittleEndian(bytes, isOld ? 24 : 28, 2);
  const std::uint64_t packing = isOld ? 0 : LittleEndian(bytes, 30, 4);
  const bool isWhole = bytes.size() >= (isOld ? 26U : 54U);
  if (!isWhole || !IsKnown(depth, packing)) return header;
  header.size.width = static_cast<std::uint32_t>(LittleEndian(bytes, 18, isOld ? 2 : 4));
  header.size.height = isOld ? static_cast<std::uint32_t>(LittleEndian(bytes, 20, 2))
                             : Lines(LittleEndian(bytes, 22, 4));
  if (header.size.width > kLargestSide) header.size.width = 0;
  const bool isThin = depth > 1 && depth <= 8;
  header.bitsPerPixel = isThin ? kBitsOfGrey : depth == 32 ? kBitsWithAlpha : kBitsOfColour;
  header.nanosecondsPerPixel = kNanosecondsOfPixel;
  header.fixedNanoseconds = bytes.size() * kNanosecondsOfByte;
  return header;
}

}  // namespace media
