// What a picture is, told by its bytes before a decoder sees them: its format, its size, and what
// decoding it takes. Linear in the bytes.
#pragma once

#include <cstdint>
#include <string_view>

namespace media {

// The formats that are shown. None of them can name a file.
enum class PictureKind : std::uint8_t { kUnknown, kJpeg, kPng, kGif, kBitmap };

struct PictureSize {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  bool operator==(const PictureSize&) const = default;
};

// How a decoder comes to a smaller picture.
enum class Scaling : std::uint8_t {
  kWhole,    // it decodes all pixels and makes them fewer then
  kEighths,  // it decodes a number of eighths in each direction (JPEG)
  kLines     // it adds up line by line (PNG)
};

// `size` is as the file has it, not turned upright; 0 x 0 where `problem` says why the bytes can't
// be decoded. The costs are upper bounds of what was measured.
struct PictureHeader {
  PictureKind kind = PictureKind::kUnknown;
  std::string_view problem;
  PictureSize size;
  Scaling scaling = Scaling::kWhole;
  std::uint64_t fixedBytes = 0;        // whatever the size wanted
  std::uint64_t fixedNanoseconds = 0;  // the same
  std::uint32_t bitsPerPixel = 0;      // of memory, for each pixel decoded
  std::uint32_t nanosecondsPerPixel = 0;
};

PictureHeader ReadPictureHeader(std::string_view bytes);

}  // namespace media
