// JPEG: ITU-T T.81, annex B.
#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

#include "media/bytes.h"
#include "media/picture_readers.h"

namespace media {
namespace {

// Measured with a decoder that leaves out what a smaller picture doesn't need; a picture in several
// scans (progressive, or one for each component) is held whole as its coefficients.
constexpr std::uint64_t kNanosecondsOfBlock = 25;
constexpr std::uint64_t kNanosecondsOfHeldBlock = 150;
constexpr std::uint64_t kNanosecondsOfBlockInScan = 7;
constexpr std::uint64_t kNanosecondsOfByte = 11;
constexpr std::uint64_t kNanosecondsOfByteInScans = 45;
constexpr std::uint64_t kBytesOfHeldBlock = 64ULL * 2;
constexpr std::uint32_t kNanosecondsOfPixel = 8;

constexpr std::size_t kMostComponents = 4;

struct Component {
  unsigned id = 0;
  unsigned horizontal = 1;
  unsigned vertical = 1;
  std::uint64_t blocks = 0;
};

struct Frame {
  PictureSize size;
  bool isProgressive = false;
  std::size_t count = 0;
  std::array<Component, kMostComponents> components;
};

unsigned Byte(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned>(BigEndian(bytes, at, 1));
}

bool StandsAlone(unsigned marker) { return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7); }
bool IsFrame(unsigned marker) {
  constexpr unsigned kHuffmanTables = 0xC4;
  constexpr unsigned kExtension = 0xC8;
  constexpr unsigned kArithmeticTables = 0xCC;
  return marker >= 0xC0 && marker <= 0xCF && marker != kHuffmanTables && marker != kExtension &&
         marker != kArithmeticTables;
}

void CountBlocks(Frame& frame) {
  unsigned horizontal = 1;
  unsigned vertical = 1;
  for (std::size_t i = 0; i < frame.count; ++i) {
    horizontal = std::max(horizontal, frame.components[i].horizontal);
    vertical = std::max(vertical, frame.components[i].vertical);
  }
  const auto units = [](std::uint64_t side, unsigned factor) {
    return (side + 8ULL * factor - 1) / (8ULL * factor);
  };
  const std::uint64_t across = units(frame.size.width, horizontal);
  const std::uint64_t down = units(frame.size.height, vertical);
  for (Component& each : frame.components) {
    each.blocks = across * each.horizontal * down * each.vertical;
  }
}

// The marker's segment begins with its length. Nothing for what no decoder here takes: arithmetic
// coding, lossless and hierarchical pictures, more than eight bits.
std::optional<Frame> FrameAt(std::string_view bytes, std::size_t at, unsigned marker) {
  constexpr unsigned kProgressive = 0xC2;
  Frame frame;
  frame.isProgressive = marker == kProgressive;
  frame.size = {static_cast<std::uint32_t>(BigEndian(bytes, at + 5, 2)),
                static_cast<std::uint32_t>(BigEndian(bytes, at + 3, 2))};
  frame.count = Byte(bytes, at + 7);
  const bool isKnown = marker <= kProgressive && Byte(bytes, at + 2) == 8 &&
                       (frame.count == 1 || frame.count == 3 || frame.count == 4);
  if (!isKnown) return std::nullopt;
  for (std::size_t i = 0; i < frame.count; ++i) {
    const std::size_t place = at + 8 + 3 * i;
    const unsigned factors = Byte(bytes, place + 1);
    frame.components[i] = {Byte(bytes, place), factors >> 4U, factors & 15U};
    const Component& made = frame.components[i];
    const bool fits =
        made.horizontal >= 1 && made.horizontal <= 4 && made.vertical >= 1 && made.vertical <= 4;
    if (!fits) return std::nullopt;
  }
  CountBlocks(frame);
  return frame;
}

std::uint64_t AllBlocks(const Frame& frame) {
  std::uint64_t blocks = 0;
  for (std::size_t i = 0; i < frame.count; ++i) blocks += frame.components[i].blocks;
  return blocks;
}

// Those of the components that the scan names.
std::uint64_t BlocksOfScan(const Frame& frame, std::string_view bytes, std::size_t at) {
  const std::size_t count = std::min<std::size_t>(Byte(bytes, at + 2), kMostComponents);
  std::uint64_t blocks = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const unsigned id = Byte(bytes, at + 3 + 2 * i);
    for (std::size_t k = 0; k < frame.count; ++k) {
      if (frame.components[k].id == id) blocks += frame.components[k].blocks;
    }
  }
  return blocks;
}

struct Marker {
  unsigned code = 0;
  std::size_t segment = 0;  // where its length stands
};

// The next one, whatever stands before it; nothing at the end.
std::optional<Marker> NextMarker(std::string_view bytes, std::size_t from) {
  for (;;) {
    const std::size_t at = bytes.find('\xFF', from);
    if (at == std::string_view::npos) return std::nullopt;
    const std::size_t code = bytes.find_first_not_of('\xFF', at);
    if (code == std::string_view::npos) return std::nullopt;
    if (Byte(bytes, code) != 0) return Marker{Byte(bytes, code), code + 1};
    from = code + 1;
  }
}

// Reads on to the first scan, or to the last where the frame turns out to come in several.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}

  PictureHeader Read() {
    for (auto marker = NextMarker(bytes_, kFirst); marker && goesOn_;) {
      const std::size_t next = Take(*marker);
      marker = goesOn_ ? NextMarker(bytes_, next) : std::nullopt;
    }
    PictureHeader header;
    header.kind = PictureKind::kJpeg;
    if (isUnknown_) header.problem = "It is a JPEG of a kind that isn't decoded.";
    if (frame_ && scans_ > 0) Fill(header);
    return header;
  }

 private:
  static constexpr std::size_t kFirst = 2;

  // Gives the place after it.
  std::size_t Take(const Marker& marker) {
    constexpr unsigned kEnd = 0xD9;
    constexpr unsigned kScan = 0xDA;
    if (marker.code == kEnd) goesOn_ = false;
    if (StandsAlone(marker.code) || !goesOn_) return marker.segment;
    if (IsFrame(marker.code) && scans_ == 0) TakeFrame(marker);
    if (marker.code == kScan) TakeScan(marker);
    const std::size_t length = std::max<std::size_t>(BigEndian(bytes_, marker.segment, 2), 2);
    segments_ += length;
    return marker.segment + length;
  }

  void TakeFrame(const Marker& marker) {
    frame_ = FrameAt(bytes_, marker.segment, marker.code);
    isUnknown_ = !frame_;
    goesOn_ = !isUnknown_;
  }

  void TakeScan(const Marker& marker) {
    if (!frame_) {
      goesOn_ = false;
      return;
    }
    const bool isWhole = Byte(bytes_, marker.segment + 2) >= frame_->count;
    if (scans_ == 0) isHeld_ = frame_->isProgressive || !isWhole;
    ++scans_;
    scannedBlocks_ += BlocksOfScan(*frame_, bytes_, marker.segment);
    goesOn_ = isHeld_;
  }

  void Fill(PictureHeader& header) const {
    const std::uint64_t blocks = AllBlocks(*frame_);
    header.size = frame_->size;
    header.scaling = Scaling::kEighths;
    header.bitsPerPixel = frame_->count == 1 ? kBitsOfGrey : kBitsOfColour;
    header.nanosecondsPerPixel = kNanosecondsOfPixel;
    header.fixedBytes = segments_;  // a decoder keeps what it gives on
    header.fixedNanoseconds = blocks * kNanosecondsOfBlock;
    if (isHeld_) {
      header.fixedBytes += blocks * kBytesOfHeldBlock;
      header.fixedNanoseconds += blocks * kNanosecondsOfHeldBlock +
                                 scannedBlocks_ * kNanosecondsOfBlockInScan +
                                 bytes_.size() * kNanosecondsOfByteInScans;
    } else {
      header.fixedNanoseconds += bytes_.size() * kNanosecondsOfByte;
    }
  }

  std::string_view bytes_;
  std::optional<Frame> frame_;
  bool isUnknown_ = false;
  bool goesOn_ = true;
  bool isHeld_ = false;
  std::uint64_t segments_ = 0;
  std::uint64_t scans_ = 0;
  std::uint64_t scannedBlocks_ = 0;
};

}  // namespace

PictureHeader ReadJpegHeader(std::string_view bytes) { return Reader(bytes).Read(); }

}  // namespace media
