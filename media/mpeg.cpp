// The streams of MPEG: program, transport, and a video stream alone. Source: ISO/IEC 13818-1, 2.4
// and 2.5; 11172-2, 2.4.2.
#include <optional>
#include <string>

#include "media/bytes.h"
#include "media/kinds.h"

namespace media {
namespace {

constexpr std::uint64_t kPack = 0x1BA;
constexpr std::uint64_t kEnd = 0x1B9;
constexpr std::uint64_t kSequence = 0x1B3;
constexpr std::uint64_t kFirstStream = 0x1BB;

// How long the pack or packet at `at` is, with its head; none if it isn't one.
std::optional<std::uint64_t> UnitLength(const Source& source, std::uint64_t at) {
  const std::string head = source.Read(at, 14);
  const std::uint64_t code = BigEndian(head, 0, 4);
  if (head.size() < 6 || code < kPack || code > 0x1FF) return {};
  if (code >= kFirstStream) return 6 + BigEndian(head, 4, 2);
  const std::uint64_t marks = BigEndian(head, 4, 1);
  if (marks >> 4U == 2) return 12;  // MPEG-1
  if (marks >> 6U == 1 && head.size() == 14) return 14 + (BigEndian(head, 13, 1) & 7U);
  return {};
}

bool IsProgramStream(const Source& source) {
  constexpr int kEnoughUnits = 6;
  constexpr int kFewestUnits = 3;
  if (BigEndian(source.Read(0, 4), 0, 4) != kPack) return false;
  std::uint64_t at = 0;
  for (int units = 0; units < kEnoughUnits; ++units) {
    const bool isEnd = at >= source.Size() || BigEndian(source.Read(at, 4), 0, 4) == kEnd;
    if (isEnd && units >= kFewestUnits) return true;
    const auto length = UnitLength(source, at);
    if (!length) return false;
    at += *length;
  }
  return true;
}

// Packets of one length, the first byte the same in each.
bool IsTransportStream(const Source& source) {
  constexpr std::size_t kPacket = 188;
  constexpr std::size_t kEnoughPackets = 8;
  constexpr std::size_t kFewestPackets = 3;
  const std::string head = source.Read(0, kPacket * kEnoughPackets);
  if (head.size() < kPacket * kFewestPackets) return false;
  for (std::size_t at = 0; at + kPacket <= head.size(); at += kPacket) {
    const std::uint64_t packet = BigEndian(head, at, 4);
    const bool isDamaged = (packet & 0x80'0000U) != 0;
    const bool isEmpty = (packet & 0x30U) == 0;
    if (packet >> 24U != 0x47U || isDamaged || isEmpty) return false;
  }
  return true;
}

// The head of a sequence, and what comes after it: an extension, pictures.
bool IsVideoStream(const Source& source) {
  const std::string head = source.Read(0, 256);
  if (BigEndian(head, 0, 4) != kSequence) return false;
  const std::uint64_t size = BigEndian(head, 4, 3);
  const std::uint64_t shapeAndRate = BigEndian(head, 7, 1);
  const bool hasMark = (BigEndian(head, 10, 1) & 0x20U) != 0;
  const std::uint64_t rate = shapeAndRate & 15U;
  if (size >> 12U == 0 || (size & 0xFFFU) == 0 || !hasMark) return false;
  if (shapeAndRate >> 4U == 0 || rate == 0 || rate > 8) return false;
  const std::size_t next = head.find(std::string_view("\0\0\1", 3), 12);
  const std::uint64_t code = next == std::string::npos ? 0 : BigEndian(head, next + 3, 1);
  return code == 0xB2 || code == 0xB5 || code == 0xB8;
}

}  // namespace

bool IsMpeg(const Source& source) {
  return IsProgramStream(source) || IsTransportStream(source) || IsVideoStream(source);
}

}  // namespace media
