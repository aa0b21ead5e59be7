// Sounds that are a row of frames, each with its own head: MPEG audio, AAC in ADTS, FLAC.
#include <array>
#include <optional>
#include <string>

#include "media/bytes.h"
#include "media/kinds.h"

namespace media {
namespace {

constexpr int kEnoughFrames = 8;
constexpr int kFewestFrames = 3;  // of a sound that ends before
constexpr std::size_t kLongestFrame = 8'192;
constexpr std::size_t kLongestRow = (kEnoughFrames + 1) * kLongestFrame;

struct Frame {
  std::size_t length;
  std::uint64_t likeness;  // what the heads of all frames of a sound have in common
};

// What an editor of tags appends to a sound.
bool IsTail(std::string_view rest) {
  return HasWord(rest, 0, "TAG") || HasWord(rest, 0, "APETAGEX") || HasWord(rest, 0, "LYRICSBEGIN");
}

// As many frames as are enough, one after the other from the first byte on; a sound that ends
// before has a few of them, and ends with the last or in the middle of it.
template <typename FrameAt>
bool HasFrames(std::string_view head, int fewest, FrameAt frameAt) {
  std::optional<Frame> first;
  std::size_t at = 0;
  for (int count = 0; count < kEnoughFrames; ++count) {
    const std::string_view rest = head.substr(at);
    const std::optional<Frame> frame = frameAt(rest);
    if (!frame || frame->length > rest.size()) {
      const bool isCut = frame || rest.size() < 8 || IsTail(rest);
      return count >= fewest && isCut;
    }
    if (!first) first = frame;
    if (frame->likeness != first->likeness) return false;
    at += frame->length;
  }
  return true;
}

// Kilobits a second, by the index in the head; 0 is "free" and 15 none. Source: ISO/IEC 11172-3,
// 2.4.2.3, and 13818-3.
constexpr std::array<unsigned, 15> kLayer2 = {0,   32,  48,  56,  64,  80,  96, 112,
                                              128, 160, 192, 224, 256, 320, 384};
constexpr std::array<unsigned, 15> kLayer3 = {0,   32,  40,  48,  56,  64,  80, 96,
                                              112, 128, 160, 192, 224, 256, 320};
constexpr std::array<unsigned, 15> kLow = {0,  8,  16, 24,  32,  40,  48, 56,
                                           64, 80, 96, 112, 128, 144, 160};
constexpr std::array<unsigned, 3> kRates = {44'100, 48'000, 32'000};

// Layer I is left out: nobody has it, and its heads are those of texts in UTF-16.
std::optional<Frame> MpegAudioFrame(std::string_view bytes) {
  const auto head = static_cast<unsigned>(BigEndian(bytes, 0, 4));
  const unsigned version = head >> 19U & 3U;  // 3: MPEG-1, 2: MPEG-2, 0: "MPEG-2.5"
  const unsigned layer = head >> 17U & 3U;    // 1: III, 2: II
  const unsigned bits = head >> 12U & 15U;
  const unsigned rate = head >> 10U & 3U;
  if (head >> 21U != 0x7FFU || version == 1 || (layer != 1 && layer != 2)) return std::nullopt;
  if (bits == 0 || bits == 15 || rate == 3) return std::nullopt;
  const bool isFirst = version == 3;
  const auto& kilobits = !isFirst ? kLow : layer == 2 ? kLayer2 : kLayer3;
  const unsigned perSecond = kRates[rate] >> (isFirst ? 0U : version == 2 ? 1U : 2U);
  const unsigned samples = layer == 1 && !isFirst ? 72 : 144;
  const unsigned length = samples * 1'000 * kilobits[bits] / perSecond + (head >> 9U & 1U);
  return Frame{length, head & 0xFFFE'0C00U};
}

// Source: ISO/IEC 13818-7, 6.2.
std::optional<Frame> AdtsFrame(std::string_view bytes) {
  const std::uint64_t head = BigEndian(bytes, 0, 7);
  const std::uint64_t rate = head >> 34U & 15U;
  const std::uint64_t length = head >> 13U & 0x1FFFU;
  if (head >> 44U != 0xFFFU || (head >> 41U & 3U) != 0 || rate > 12 || length < 8) return {};
  return Frame{static_cast<std::size_t>(length), head >> 28U & ~std::uint64_t{0x20U}};
}

}  // namespace

bool IsMp3(const Source& source) {
  return HasFrames(source.Read(0, kLongestRow), kFewestFrames, MpegAudioFrame);
}

bool IsAac(const Source& source) {
  return HasFrames(source.Read(0, kLongestRow), kFewestFrames, AdtsFrame);
}

// A few frames that are alike may be chance where they are searched for.
std::optional<std::string> BytesBeforeMp3(const Source& source) {
  constexpr std::size_t kMost = 65'536;
  std::string head = source.Read(0, kMost + kLongestRow);
  const std::string_view bytes = head;
  for (std::size_t at = bytes.find('\xFF'); at <= kMost; at = bytes.find('\xFF', at + 1)) {
    if (!HasFrames(bytes.substr(at, kLongestRow), kEnoughFrames, MpegAudioFrame)) continue;
    head.resize(at);
    return head;
  }
  return std::nullopt;
}

// The stream's description, other blocks, then frames. Source: RFC 9639.
bool IsFlac(const Source& source) {
  constexpr int kMostBlocks = 128;
  const std::string head = source.Read(0, 26);
  if (!HasWord(head, 0, "fLaC") || (BigEndian(head, 4, 4) & 0x7FFF'FFFFU) != 34) return false;
  const bool hasRate = BigEndian(head, 18, 3) >> 4U != 0;
  if (BigEndian(head, 8, 2) < 16 || BigEndian(head, 10, 2) < BigEndian(head, 8, 2) || !hasRate) {
    return false;
  }
  std::uint64_t at = 4;
  for (int i = 0; i < kMostBlocks; ++i) {
    const std::string block = source.Read(at, 4);
    at += 4 + BigEndian(block, 1, 3);
    if ((BigEndian(block, 0, 1) & 0x80U) != 0) {
      return BigEndian(source.Read(at, 2), 0, 2) >> 1U == 0x7FFCU;
    }
  }
  return false;
}

}  // namespace media
