#include "media/source.h"

#include <algorithm>

namespace media {

std::string Source::Read(std::uint64_t at, std::size_t count) const {
  if (at >= Size()) return {};
  const std::uint64_t there = std::min<std::uint64_t>(count, Size() - at);
  std::string bytes = reader_(start_ + at, static_cast<std::size_t>(there));
  bytes.resize(std::min<std::size_t>(bytes.size(), static_cast<std::size_t>(there)));
  return bytes;
}

Source Source::From(std::uint64_t at) const {
  Source rest = *this;
  rest.start_ += std::min(at, Size());
  return rest;
}

Source SourceOf(std::string_view bytes) {
  return {bytes.size(), [bytes](std::uint64_t at, std::size_t count) {
            return std::string(bytes.substr(static_cast<std::size_t>(at), count));
          }};
}

}  // namespace media
