// RIFF: a tree of chunks, each with a name of four letters and a length; WAV and AVI are two of
// them.
#include <algorithm>
#include <array>
#include <functional>
#include <string>

#include "media/bytes.h"
#include "media/kinds.h"

namespace media {
namespace {

constexpr int kMostChunks = 1'024;
constexpr std::size_t kHead = 12;                  // name, length and the name of what is in it
constexpr std::uint64_t kLongestHead = 1'048'576;  // of a film, before it begins

struct Chunk {
  std::string head;
  std::uint64_t body;
  std::uint64_t length;

  bool Is(std::string_view name) const { return HasWord(head, 0, name); }
  bool IsListOf(std::string_view name) const { return Is("LIST") && HasWord(head, 8, name); }
};

enum class Go { kOn, kRefuse, kDone };
enum class Way { kDone, kEnd, kRefused };

// Goes through the chunks from `at` to `end`. More of them than anybody makes are refused.
Way Walk(const Source& source, std::uint64_t at, std::uint64_t end,
         const std::function<Go(const Chunk&)>& step) {
  for (int i = 0; at + 8 <= end; ++i) {
    Chunk chunk{source.Read(at, kHead), at + 8, 0};
    if (i == kMostChunks || chunk.head.size() < 8) return Way::kRefused;
    chunk.length = LittleEndian(chunk.head, 4, 4);
    const Go go = step(chunk);
    if (go != Go::kOn) return go == Go::kDone ? Way::kDone : Way::kRefused;
    at = chunk.body + chunk.length + chunk.length % 2;
  }
  return Way::kEnd;
}

// Samples as they are and the old codecs of speech; MPEG audio. Source: RFC 2361.
bool IsKnownFormat(std::uint64_t tag) {
  constexpr std::array<std::uint64_t, 9> kTags = {0x01, 0x02, 0x03, 0x06, 0x07,
                                                  0x11, 0x31, 0x50, 0x55};
  return std::ranges::find(kTags, tag) != kTags.end();
}

bool IsWaveFormat(std::string_view format) {
  constexpr std::string_view kSubformat{"\x00\x00\x00\x00\x10\x00\x80\x00\x00\xAA\x00\x38\x9B\x71",
                                        14};
  const std::uint64_t channels = LittleEndian(format, 2, 2);
  const std::uint64_t rate = LittleEndian(format, 4, 4);
  if (format.size() < 16 || channels == 0 || channels > 64 || rate == 0 || rate > 768'000) {
    return false;
  }
  const std::uint64_t tag = LittleEndian(format, 0, 2);
  if (tag != 0xFFFE) return IsKnownFormat(tag);
  return HasWord(format, 26, kSubformat) && IsKnownFormat(LittleEndian(format, 24, 2));
}

// Only sounds and pictures: a stream of texts is a file in the file, which players read as one.
bool IsStreamList(const Source& source, const Chunk& list) {
  bool isKnown = false;
  const Way way = Walk(source, list.body + 4, list.body + list.length, [&](const Chunk& chunk) {
    if (!chunk.Is("strh")) return Go::kOn;
    isKnown = HasWord(chunk.head, 8, "vids") || HasWord(chunk.head, 8, "auds");
    return isKnown ? Go::kOn : Go::kRefuse;
  });
  return way == Way::kEnd && isKnown;
}

bool IsAviHead(const Source& source, const Chunk& list) {
  int streams = 0;
  const Way way = Walk(source, list.body + 4, list.body + list.length, [&](const Chunk& chunk) {
    if (!chunk.IsListOf("strl")) return Go::kOn;
    ++streams;
    return IsStreamList(source, chunk) ? Go::kOn : Go::kRefuse;
  });
  return way == Way::kEnd && streams > 0;
}

// Some players read lists of any name as if what is in them stood beside them, so such a stream is
// looked for wherever it stands before the film itself.
bool HoldsTexts(std::string_view beforeFilm) {
  constexpr std::size_t kToKind = 8;
  for (std::size_t at = 0; (at = beforeFilm.find("strh", at)) != std::string_view::npos; ++at) {
    if (HasWord(beforeFilm, at + kToKind, "txts")) return true;
  }
  return false;
}

}  // namespace

bool IsWave(const Source& source) {
  const std::string head = source.Read(0, kHead);
  if (!HasWord(head, 0, "RIFF") || !HasWord(head, 8, "WAVE")) return false;
  bool hasFormat = false;
  const Way way = Walk(source, kHead, source.Size(), [&](const Chunk& chunk) {
    if (chunk.Is("data")) return hasFormat ? Go::kDone : Go::kRefuse;
    if (!chunk.Is("fmt ")) return Go::kOn;
    hasFormat = IsWaveFormat(source.Read(
        chunk.body, static_cast<std::size_t>(std::min<std::uint64_t>(chunk.length, 40))));
    return hasFormat ? Go::kOn : Go::kRefuse;
  });
  return way == Way::kDone;
}

bool IsAvi(const Source& source) {
  const std::string head = source.Read(0, kHead);
  if (!HasWord(head, 0, "RIFF") || !HasWord(head, 8, "AVI ")) return false;
  bool hasHead = false;
  std::uint64_t film = 0;
  const Way way = Walk(source, kHead, source.Size(), [&](const Chunk& chunk) {
    film = chunk.body;
    if (chunk.IsListOf("movi")) return hasHead ? Go::kDone : Go::kRefuse;
    if (hasHead || !chunk.IsListOf("hdrl")) return hasHead ? Go::kOn : Go::kRefuse;
    hasHead = IsAviHead(source, chunk);
    return hasHead ? Go::kOn : Go::kRefuse;
  });
  return way == Way::kDone && film <= kLongestHead &&
         !HoldsTexts(source.Read(0, static_cast<std::size_t>(film)));
}

}  // namespace media
