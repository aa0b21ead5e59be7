// The readers of the single formats; ReadPictureHeader picks one by the first bytes.
#pragma once

#include <cstdint>
#include <string_view>

#include "media/picture_header.h"

namespace media {

PictureHeader ReadJpegHeader(std::string_view bytes);
PictureHeader ReadPngHeader(std::string_view bytes);
PictureHeader ReadGifHeader(std::string_view bytes);
PictureHeader ReadBitmapHeader(std::string_view bytes);

// What a pixel takes in a decoder and after it, in bits: measured, and a little more. One of four
// bytes is made smaller as it is. Any other is held besides in the form in which that can be done.
inline constexpr std::uint32_t kBitsOfColour = 34;
inline constexpr std::uint32_t kBitsOfGrey = 50;
inline constexpr std::uint32_t kBitsWithAlpha = 66;

inline std::uint64_t PixelsOf(PictureSize size) { return std::uint64_t{size.width} * size.height; }

}  // namespace media
