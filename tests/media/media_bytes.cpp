#include "tests/media/media_bytes.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace media_tests {
namespace {

// Lets the box whose name stands after `from` have that many bytes more; gives where its name is.
std::size_t Grow(std::string& bytes, std::string_view name, std::size_t from, std::size_t by) {
  const std::size_t at = bytes.find(name, from);
  if (at == std::string::npos || at < 4) throw std::runtime_error("the film has no such box");
  std::uint64_t size = 0;
  for (std::size_t i = at - 4; i < at; ++i)
    size = size << 8U | static_cast<unsigned char>(bytes[i]);
  bytes.replace(at - 4, 4, Big(size + by, 4));
  return at;
}

}  // namespace

std::string Sample(const std::string& name) {
  std::ifstream file(std::string(ZORVAND_SOURCE_DIR "/tests/media/samples/") + name,
                     std::ios::binary);
  if (!file) throw std::runtime_error("there is no sample " + name);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string Big(std::uint64_t number, int bytes) {
  std::string text;
  for (int i = bytes - 1; i >= 0; --i) text += static_cast<char>(number >> 8 * i & 0xFF);
  return text;
}

std::string Little(std::uint64_t number, int bytes) {
  const std::string text = Big(number, bytes);
  return {text.rbegin(), text.rend()};
}

std::string Mp3FrameWith(std::string_view text) {
  constexpr std::size_t kLength = 417;
  std::string frame = "\xFF\xFB\x90\x44" + std::string(text);
  frame.resize(kLength, '\0');
  return frame;
}

std::string Mp3Frames(int count) {
  std::string sound;
  for (int i = 0; i < count; ++i) sound += Mp3FrameWith({});
  return sound;
}

std::string Id3(std::string_view body, bool foot) {
  const std::size_t length = body.size();
  std::string size;
  for (int i = 3; i >= 0; --i) size += static_cast<char>(length >> 7 * i & 0x7F);
  const std::string head = std::string("\x04\0", 2) + (foot ? '\x10' : '\0') + size;
  return "ID3" + head + std::string(body) + (foot ? "3DI" + head : std::string());
}

std::string Box(std::string_view name, std::string_view body) {
  return Big(8 + body.size(), 4) + std::string(name) + std::string(body);
}

std::string Chunk(std::string_view name, std::string_view body) {
  return std::string(name) + Little(body.size(), 4) + std::string(body) +
         std::string(body.size() % 2, '\0');
}

std::string OggPage(std::string_view packet) {
  return std::string("OggS\0\x02", 6) + std::string(20, '\0') + '\x01' +
         static_cast<char>(packet.size()) + std::string(packet);
}

std::string FilmWithReference(std::string_view reference) {
  constexpr std::size_t kOldReference = 12;
  std::string film = Sample("film.mp4");
  std::size_t at = film.rfind("moov");
  const std::size_t more = reference.size() - kOldReference;
  for (const char* name : {"moov", "trak", "mdia", "minf", "dinf", "dref"}) {
    at = Grow(film, name, at, more);
  }
  constexpr std::size_t kHead = 12;  // the name itself, version and flags, how many there are
  film.replace(at + kHead, kOldReference, reference);
  return film;
}

std::string FilmWithBox(std::string_view box) {
  std::string film = Sample("film.mp4");
  const std::size_t at = Grow(film, "moov", film.rfind("moov"), box.size());
  film.insert(at + 4, box);
  return film;
}

}  // namespace media_tests
