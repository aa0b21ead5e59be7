// Ogg, FLV and Matroska, as far as their first pages, tags and elements.
#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "media/bytes.h"
#include "media/kinds.h"

namespace media {
namespace {

// ---- Ogg: pages, each of one stream. Source: RFC 3533.

constexpr int kMostStreams = 16;
constexpr std::size_t kPageHead = 27;

struct Page {
  bool begins;  // a stream
  std::uint64_t body;
  std::uint64_t end;
};

std::optional<Page> PageAt(const Source& source, std::uint64_t at) {
  const std::string head = source.Read(at, kPageHead + 255);
  if (head.size() < kPageHead || !HasWord(head, 0, std::string_view("OggS\0", 5))) return {};
  const std::uint64_t flags = BigEndian(head, 5, 1);
  const auto segments = static_cast<std::size_t>(BigEndian(head, 26, 1));
  if (flags > 7) return {};
  const std::uint64_t body = at + kPageHead + segments;
  std::uint64_t end = body;
  for (std::size_t i = 0; i < segments; ++i) end += BigEndian(head, kPageHead + i, 1);
  return Page{(flags & 2U) != 0, body, end};
}

// No texts among them.
bool IsKnownStream(std::string_view packet) {
  constexpr std::array<std::string_view, 7> kWords = {"\x01vorbis",
                                                      "OpusHead",
                                                      "\x7F"
                                                      "FLAC",
                                                      "\x80theora",
                                                      "Speex   ",
                                                      "fishead",
                                                      "OVP80"};
  return std::ranges::any_of(kWords,
                             [packet](std::string_view word) { return packet.starts_with(word); });
}

// ---- Matroska: elements with a number and a length. Source: RFC 8794, RFC 9559.

constexpr std::uint64_t kHeadElement = 0x1A45DFA3;
constexpr std::uint64_t kSegment = 0x18538067;
constexpr std::uint64_t kDocType = 0x4282;
constexpr std::uint64_t kVoid = 0xEC;
constexpr std::uint64_t kMostHead = 1'024;

struct Element {
  std::uint64_t id;
  std::uint64_t body;
  std::uint64_t length;
};

// How many bytes a number takes that begins with this one; 9 for none.
std::size_t WidthOf(std::uint64_t first) {
  std::size_t width = 1;
  while (width < 9 && (first & 0x80U >> (width - 1)) == 0) ++width;
  return width;
}

std::optional<Element> ElementAt(const Source& source, std::uint64_t at) {
  const std::string head = source.Read(at, 12);
  const std::size_t idWidth = WidthOf(BigEndian(head, 0, 1));
  if (head.empty() || idWidth > 4) return {};
  const std::size_t width = WidthOf(BigEndian(head, idWidth, 1));
  if (width > 8 || idWidth + width > head.size()) return {};
  const std::uint64_t length =
      BigEndian(head, idWidth, width) & ((std::uint64_t{1} << 7U * width) - 1);
  return Element{BigEndian(head, 0, idWidth), at + idWidth + width, length};
}

bool HasKnownDocType(const Source& source, const Element& head) {
  std::uint64_t at = head.body;
  while (at < head.body + head.length) {
    const auto element = ElementAt(source, at);
    if (!element || element->length > kMostHead) return false;
    if (element->id == kDocType) {
      std::string type = source.Read(element->body, static_cast<std::size_t>(element->length));
      type.resize(std::min(type.find('\0'), type.size()));
      return type == "matroska" || type == "webm";
    }
    at = element->body + element->length;
  }
  return false;
}

}  // namespace

// All streams begin before the first of them goes on.
bool IsOgg(const Source& source) {
  std::uint64_t at = 0;
  for (int streams = 0; streams <= kMostStreams; ++streams) {
    const auto page = PageAt(source, at);
    if (!page) return false;
    if (!page->begins) return streams > 0;
    if (!IsKnownStream(source.Read(page->body, 8))) return false;
    at = page->end;
  }
  return false;
}

// A head, then tags of sound, picture or description, each with its length after it once more.
// Source: the format of Flash video, version 10.1, annex E.
bool IsFlv(const Source& source) {
  constexpr int kEnoughTags = 4;
  const std::string head = source.Read(0, 13);
  const std::uint64_t flags = BigEndian(head, 4, 1);
  if (!HasWord(head, 0, "FLV\x01") || (flags & ~std::uint64_t{5}) != 0) return false;
  if (BigEndian(head, 5, 4) != 9 || BigEndian(head, 9, 4) != 0) return false;
  std::uint64_t at = 13;
  for (int tags = 0; tags < kEnoughTags; ++tags) {
    const std::string tag = source.Read(at, 11);
    if (tag.empty() && tags > 0) return true;
    const std::uint64_t type = BigEndian(tag, 0, 1);
    const std::uint64_t length = BigEndian(tag, 1, 3) + 11;
    if (type != 8 && type != 9 && type != 18) return false;
    if (BigEndian(source.Read(at + length, 4), 0, 4) != length) return false;
    at += length + 4;
  }
  return true;
}

bool IsMatroska(const Source& source) {
  constexpr int kMostVoids = 16;
  const auto head = ElementAt(source, 0);
  if (!head || head->id != kHeadElement || head->length > kMostHead) return false;
  if (!HasKnownDocType(source, *head)) return false;
  std::uint64_t at = head->body + head->length;
  for (int i = 0; i < kMostVoids; ++i) {
    const auto element = ElementAt(source, at);
    if (!element || element->id != kVoid) return element && element->id == kSegment;
    at = element->body + std::min(element->length, source.Size());
  }
  return false;
}

}  // namespace media
