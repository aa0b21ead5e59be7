#include "media/picture_plan.h"

#include <algorithm>
#include <cmath>

#include "media/picture_readers.h"

namespace media {
namespace {

// In the decoder and after it: the picture, the same turned upright, and as a window takes it.
constexpr std::uint64_t kBytesOfShownPixel = 3ULL * 4;
constexpr std::uint64_t kNanosecondsOfShownPixel = 15;
// Tables and some lines of pixels.
constexpr std::uint64_t kBytesOfDecoder = kMegabyte;
constexpr std::uint64_t kBytesOfColumn = 64;
// Beyond this all sizes are alike, and nothing overflows.
constexpr std::uint32_t kLargestSide = 1U << 24U;

PictureSize Bounded(PictureSize size) {
  return {std::clamp(size.width, 1U, kLargestSide), std::clamp(size.height, 1U, kLargestSide)};
}

// As the decoder chooses them: the least that isn't smaller than what is wanted in either
// direction.
std::uint64_t EighthsOf(PictureSize whole, PictureSize shown) {
  const auto eighths = [](std::uint64_t wanted, std::uint64_t all) {
    return (8 * wanted + all - 1) / all;
  };
  const std::uint64_t most =
      std::max(eighths(shown.width, whole.width), eighths(shown.height, whole.height));
  return std::clamp<std::uint64_t>(most, 1, 8);
}

std::uint64_t PixelsDecoded(const PictureHeader& header, PictureSize shown) {
  const PictureSize whole = Bounded(header.size);
  if (header.scaling == Scaling::kEighths) {
    const std::uint64_t eighths = EighthsOf(whole, shown);
    return (whole.width * eighths / 8 + 1) * (whole.height * eighths / 8 + 1);
  }
  return PixelsOf(whole);
}

// Where a picture isn't made smaller in both directions, it is held whole.
bool IsHeld(const PictureHeader& header, PictureSize shown) {
  const PictureSize whole = header.size;
  return header.scaling != Scaling::kLines || shown.width > whole.width ||
         shown.height > whole.height || shown == whole;
}

}  // namespace

PictureNeed NeedOf(const PictureHeader& header, PictureSize shown) {
  shown = Bounded(shown);
  const std::uint64_t decoded = PixelsDecoded(header, shown);
  const std::uint64_t columns = std::max(header.size.width, shown.width);
  PictureNeed need;
  need.bytes = header.fixedBytes + kBytesOfDecoder + columns * kBytesOfColumn +
               PixelsOf(shown) * kBytesOfShownPixel;
  if (IsHeld(header, shown)) need.bytes += decoded * header.bitsPerPixel / 8;
  need.nanoseconds = header.fixedNanoseconds + decoded * header.nanosecondsPerPixel +
                     PixelsOf(shown) * kNanosecondsOfShownPixel;
  return need;
}

std::string WhyNotDecoded(const PictureHeader& header, PictureSize shown) {
  if (!header.problem.empty()) return std::string(header.problem);
  const PictureNeed need = NeedOf(header, shown);
  const std::string size = "It measures " + std::to_string(header.size.width) + " x " +
                           std::to_string(header.size.height) + " pixels";
  if (need.bytes > kDecodingMemory) {
    return size + "; decoding it would take " + std::to_string(need.bytes / kMegabyte) +
           " MB of memory.";
  }
  if (need.nanoseconds > kLongestDecoding) return size + "; decoding it would take too long.";
  return {};
}

std::string WhyNotRead(std::uint64_t length) {
  if (length <= kLargestPictureFile) return {};
  return "The file of " + std::to_string(length / kMegabyte) + " MB is too large for a picture.";
}

PictureSize WithinMemory(PictureSize size, std::uint64_t bytes) {
  constexpr double kBytesOfPixel = 4;
  const double pixels = static_cast<double>(size.width) * static_cast<double>(size.height);
  const double share =
      std::sqrt(static_cast<double>(bytes) / kBytesOfPixel / std::max(pixels, 1.0));
  if (share >= 1) return size;
  const auto part = [share](std::uint32_t side) {
    return std::max(1U, static_cast<std::uint32_t>(side * share));
  };
  return {part(size.width), part(size.height)};
}

std::string_view FormatName(PictureKind kind) {
  switch (kind) {
    case PictureKind::kJpeg:
      return "jpeg";
    case PictureKind::kPng:
      return "png";
    case PictureKind::kGif:
      return "gif";
    case PictureKind::kBitmap:
      return "bmp";
    case PictureKind::kUnknown:
      break;
  }
  return {};
}

}  // namespace media
