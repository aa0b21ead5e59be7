// Whole pictures in all formats, among them small files that would take much of a decoder.
#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <string>

#include "tests/support/picture_bytes.h"

namespace testing_support {

inline std::string FileOf(const QImage& image, const char* format) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, format);
  return bytes.toStdString();
}

inline std::string PictureOf(const char* format, QColor colour, QSize size = {40, 30}) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(colour);
  return FileOf(image, format);
}

// zlib's format.
inline std::string Packed(const std::string& bytes) {
  constexpr qsizetype kLengthBefore = 4;
  const QByteArray packed =
      qCompress(reinterpret_cast<const uchar*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
  return packed.mid(kLengthBefore).toStdString();
}

// A camera's picture that was held upright: left half `left` and right half `right` as its file
// has it; upright the left half is on top (EXIF's orientation 6).
inline std::string TurnedJpeg(QColor left, QColor right) {
  QImage image(64, 32, QImage::Format_RGB32);
  image.fill(left);
  for (int y = 0; y < 32; ++y) {
    for (int x = 32; x < 64; ++x) image.setPixelColor(x, y, right);
  }
  const std::string orientation = std::string("Exif\0\0MM\0*\0\0\0\x08", 14) + Big(1, 2) +
                                  Big(0x0112, 2) + Big(3, 2) + Big(1, 4) + Big(6, 2) + Big(0, 6);
  const std::string jpeg = FileOf(image, "JPG");
  return jpeg.substr(0, 2) + JpegSegment(0xE1, orientation) + jpeg.substr(2);
}

// Black and white, of 30,000 by 30,000; some hundred kilobytes.
inline std::string VastPng() {
  constexpr std::size_t kSide = 30'000;
  constexpr std::size_t kLine = 1 + (kSide + 7) / 8;
  return PngHead(kSide, kSide, 1, 0) + PngChunk("IDAT", Packed(std::string(kLine * kSide, '\0'))) +
         PngChunk("IEND", "");
}

// Of 10 by 10 pixels, with texts of 8 MB each that take 8 KB.
inline std::string PngWithTexts(int texts) {
  const std::string text = std::string("k\0\0", 3) + Packed(std::string(7'900'000, 'x'));
  std::string png = PngHead(10, 10, 8, 2);
  for (int i = 0; i < texts; ++i) png += PngChunk("zTXt", text);
  return png + PngChunk("IDAT", Packed(std::string(31UL * 10, '\0'))) + PngChunk("IEND", "");
}

}  // namespace testing_support
