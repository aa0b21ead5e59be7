// Pictures of a few bytes that say they are large, made by hand from the formats' definitions.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace testing_support {

// As many bytes as wanted: those above the number's own are zeros.
inline std::string Big(std::uint64_t number, int count) {
  constexpr int kOwn = 8;
  std::string bytes;
  for (int i = count - 1; i >= 0; --i) {
    bytes += i < kOwn ? static_cast<char>(number >> (8 * i) & 0xFFU) : '\0';
  }
  return bytes;
}

inline std::string Little(std::uint64_t number, int count) {
  const std::string big = Big(number, count);
  return {big.rbegin(), big.rend()};
}

// JPEG, ITU-T T.81. `frame` is the last half of the marker: C0 baseline, C2 progressive.
inline std::string JpegSegment(unsigned marker, const std::string& content) {
  return "\xFF" + Big(marker, 1) + Big(content.size() + 2, 2) + content;
}

inline std::string JpegFrame(unsigned frame, int width, int height, int components,
                             unsigned sampling = 0x11) {
  std::string content = Big(8, 1) + Big(static_cast<std::uint64_t>(height), 2) +
                        Big(static_cast<std::uint64_t>(width), 2) +
                        Big(static_cast<std::uint64_t>(components), 1);
  for (int i = 1; i <= components; ++i) {
    content += Big(static_cast<std::uint64_t>(i), 1) + Big(i == 1 ? sampling : 0x11, 1) + Big(0, 1);
  }
  return JpegSegment(frame, content);
}

// Of the first components.
inline std::string JpegScan(int components, bool progressive) {
  std::string content = Big(static_cast<std::uint64_t>(components), 1);
  for (int i = 1; i <= components; ++i)
    content += Big(static_cast<std::uint64_t>(i), 1) + Big(0, 1);
  return JpegSegment(0xDA, content + Big(0, 1) + Big(progressive ? 0 : 63, 1) + Big(0, 1));
}

// A whole picture whose data have ended before they began; decoders show it in grey.
inline std::string EmptyJpeg(unsigned frame, int width, int height, int components, int scans = 1,
                             unsigned sampling = 0x11) {
  constexpr unsigned kProgressive = 0xC2;
  std::string jpeg = "\xFF\xD8" + JpegSegment(0xDB, Big(0, 1) + std::string(64, '\1'));
  jpeg += JpegFrame(frame, width, height, components, sampling);
  for (const unsigned table : {0x00U, 0x10U}) {
    jpeg += JpegSegment(0xC4, Big(table, 1) + "\1" + std::string(16, '\0'));
  }
  for (int i = 0; i < scans; ++i) jpeg += JpegScan(components, frame == kProgressive);
  return jpeg + "\xFF\xD9";
}

// PNG, W3C, annex D.
inline std::uint32_t Checksum(std::string_view bytes) {
  std::uint32_t sum = 0xFFFFFFFF;
  for (const char byte : bytes) {
    sum ^= static_cast<unsigned char>(byte);
    for (int i = 0; i < 8; ++i) sum = sum >> 1U ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  return ~sum;
}

inline std::string PngChunk(std::string_view name, const std::string& content) {
  const std::string named = std::string(name) + content;
  return Big(content.size(), 4) + named + Big(Checksum(named), 4);
}

inline std::string PngHead(std::uint64_t width, std::uint64_t height, unsigned depth,
                           unsigned colour, bool interlaced = false) {
  return "\x89PNG\r\n\x1A\n" +
         PngChunk("IHDR", Big(width, 4) + Big(height, 4) + Big(depth, 1) + Big(colour, 1) +
                              Big(0, 2) + Big(interlaced ? 1 : 0, 1));
}

// GIF: a canvas and one frame of the same size, or of its own.
inline std::string GifHead(unsigned width, unsigned height, unsigned frameWidth,
                           unsigned frameHeight) {
  return "GIF89a" + Little(width, 2) + Little(height, 2) + Little(0x80, 1) + Little(0, 2) +
         std::string(6, '\x40') + "," + Little(0, 4) + Little(frameWidth, 2) +
         Little(frameHeight, 2) + Little(0, 1);
}

// Codes of a frame in which each stands for one pixel more than the last: many pixels in few bytes.
inline std::string GifCodesOf(std::uint64_t pixels) {
  std::string codes;
  std::uint64_t bits = 0;
  unsigned count = 0;
  unsigned size = 3;
  const auto add = [&](unsigned code) {
    bits |= std::uint64_t{code} << count;
    for (count += size; count >= 8; count -= 8, bits >>= 8U) codes += static_cast<char>(bits);
  };
  for (std::uint64_t made = 0; made < pixels;) {
    add(4);
    size = 3;
    add(0);
    ++made;
    std::uint64_t length = 1;
    for (unsigned next = 6; next < 4095 && made < pixels; made += ++length) {
      add(next++);
      if (next == 1U << size && size < 12) ++size;
    }
  }
  add(5);
  codes += static_cast<char>(bits);
  std::string blocks = Little(2, 1);
  for (std::size_t at = 0; at < codes.size(); at += 255) {
    const std::string block = codes.substr(at, 255);
    blocks += Little(block.size(), 1) + block;
  }
  return blocks + Little(0, 1) + ";";
}

// A bitmap's two headers; the data begin after them.
inline std::string BitmapHead(std::int64_t width, std::int64_t height, unsigned depth,
                              unsigned packing = 0) {
  return "BM" + Little(0, 8) + Little(54, 4) + Little(40, 4) +
         Little(static_cast<std::uint64_t>(width), 4) +
         Little(static_cast<std::uint64_t>(height), 4) + Little(1, 2) + Little(depth, 2) +
         Little(packing, 4) + Little(0, 20);
}

}  // namespace testing_support
