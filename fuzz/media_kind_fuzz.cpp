// What a sound or a film is. Whatever the bytes are, they are answered in few reads.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "media/media_kind.h"

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

constexpr std::uint64_t kMostBytes = 8'000'000;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  std::uint64_t read = 0;
  const media::Source source(size, [&](std::uint64_t at, std::size_t count) {
    Require(at <= size && count <= size - at);
    read += count;
    return std::string(bytes.substr(static_cast<std::size_t>(at), count));
  });
  const auto medium = media::MediumOf(source);
  Require(read <= kMostBytes);
  if (!medium) return 0;
  Require(medium->start < size);
  // Without its tags it is the same.
  const std::string_view rest = bytes.substr(static_cast<std::size_t>(medium->start));
  const auto again = media::MediumOf(media::SourceOf(rest));
  Require(again && again->kind == medium->kind && again->start == 0);
  return 0;
}
