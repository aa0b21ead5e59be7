// The readers of the single formats; ReadPictureHeader picks one by the first bytes.
#pragma once

#include <string_view>

#include "media/picture_header.h"

namespace media {

PictureHeader ReadJpegHeader(std::string_view bytes);
PictureHeader ReadPngHeader(std::string_view bytes);
PictureHeader ReadGifHeader(std::string_view bytes);
PictureHeader ReadBitmapHeader(std::string_view bytes);

inline std::uint64_t PixelsOf(PictureSize size) { return std::uint64_t{size.width} * size.height; }

}  // namespace media
