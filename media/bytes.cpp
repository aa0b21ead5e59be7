#include "media/bytes.h"

namespace media {
namespace {

std::uint64_t ByteAt(std::string_view bytes, std::size_t at) {
  return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U;
}

}  // namespace

std::uint64_t BigEndian(std::string_view bytes, std::size_t at, std::size_t count) {
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < count; ++i) number = number << 8U | ByteAt(bytes, at + i);
  return number;
}

std::uint64_t LittleEndian(std::string_view bytes, std::size_t at, std::size_t count) {
  std::uint64_t number = 0;
  for (std::size_t i = count; i > 0; --i) number = number << 8U | ByteAt(bytes, at + i - 1);
  return number;
}

bool HasWord(std::string_view bytes, std::size_t at, std::string_view word) {
  return at <= bytes.size() && bytes.substr(at).starts_with(word);
}

}  // namespace media
