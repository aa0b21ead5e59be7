// Whether a picture may be decoded, by the memory and the time that it takes.
#pragma once

#include <cstdint>
#include <string>

#include "media/picture_header.h"

namespace media {

inline constexpr std::uint64_t kMegabyte = 1ULL << 20U;
// A process spends no more than 256 MB on pictures: this on all that it decodes at a time, ...
inline constexpr std::uint64_t kDecodingMemory = 176 * kMegabyte;
// ... and this on what it keeps to show.
inline constexpr std::uint64_t kKeptMemory = 80 * kMegabyte;
// Larger files aren't even read.
inline constexpr std::uint64_t kLargestPictureFile = 96 * kMegabyte;
// Windows wait for their pictures.
inline constexpr std::uint64_t kLongestDecoding = 1'000'000'000;  // nanoseconds

struct PictureNeed {
  std::uint64_t bytes = 0;  // the file's own and the picture's among them
  std::uint64_t nanoseconds = 0;
};

// Of decoding the picture at the size at which it is shown. Any size may be asked.
PictureNeed NeedOf(const PictureHeader& header, PictureSize shown);

// Why it can't be decoded at that size, in English; empty if it can.
[[nodiscard]] std::string WhyNotDecoded(const PictureHeader& header, PictureSize shown);
// The same for a file's length in bytes, before it is read.
[[nodiscard]] std::string WhyNotRead(std::uint64_t length);

// The largest size of the same shape that takes no more than so many bytes once it is decoded, at
// least 1 x 1; `size` itself, if it fits.
PictureSize WithinMemory(PictureSize size, std::uint64_t bytes);

// From a toolkit's own size, at least 1 x 1, and back.
template <typename Size>
PictureSize FromToolkit(const Size& size) {
  const auto side = [](int pixels) { return static_cast<std::uint32_t>(pixels < 1 ? 1 : pixels); };
  return {side(size.width()), side(size.height())};
}
template <typename Size>
Size ToToolkit(PictureSize size) {
  return {static_cast<int>(size.width), static_cast<int>(size.height)};
}

// The decoders' name for the format; empty for none.
std::string_view FormatName(PictureKind kind);

}  // namespace media
