#include "media/picture_header.h"

#include "media/bytes.h"
#include "media/picture_readers.h"

namespace media {
namespace {

// So that no product of what is reckoned from it overflows.
constexpr std::uint32_t kLargestSide = 1U << 24U;

PictureHeader ReadByKind(std::string_view bytes) {
  if (HasWord(bytes, 0, "\xFF\xD8\xFF")) return ReadJpegHeader(bytes);
  if (HasWord(bytes, 0, "\x89PNG\r\n\x1A\n")) return ReadPngHeader(bytes);
  if (HasWord(bytes, 0, "GIF87a") || HasWord(bytes, 0, "GIF89a")) return ReadGifHeader(bytes);
  if (HasWord(bytes, 0, "BM")) return ReadBitmapHeader(bytes);
  PictureHeader unknown;
  unknown.problem = "It is no JPEG, PNG, GIF or bitmap.";
  return unknown;
}

}  // namespace

PictureHeader ReadPictureHeader(std::string_view bytes) {
  PictureHeader header = ReadByKind(bytes);
  const bool isEmpty = header.size.width == 0 || header.size.height == 0;
  if (header.problem.empty() && isEmpty) header.problem = "Its header is damaged.";
  if (header.size.width > kLargestSide || header.size.height > kLargestSide) {
    header.problem = "It is too large for any decoder.";
  }
  if (!header.problem.empty()) header.size = {};
  header.fixedBytes += bytes.size();
  return header;
}

}  // namespace media
