#include "platform/qt/picture_decoder.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <algorithm>
#include <utility>

namespace platform {
namespace {

constexpr qint64 kMegabyte = 1024 * 1024;
// Larger files than this are read piece by piece.
constexpr qint64 kReadWhole = 64 * kMegabyte;
// As much memory is kept for the next picture: new pages cost as much as the reading itself.
constexpr qint64 kKept = 16 * kMegabyte;

DecodedPicture DecodeFrom(QIODevice& device, QSize size) {
  QImageReader reader(&device);
  reader.setDecideFormatFromContent(true);
  // A JPEG decoder that knows the size wanted leaves out most of the work.
  if (reader.size().isValid()) reader.setScaledSize(size);
  QImage picture = reader.read();
  return {std::move(picture), reader.errorString()};
}

}  // namespace

DecodedPicture DecodePicture(const QString& path, QSize size) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return {{}, file.errorString()};
  if (file.size() > kReadWhole) return DecodeFrom(file, size);
  // The JPEG decoder is a tenth faster over bytes that lie in one piece.
  static QByteArray bytes;
  bytes.resize(file.size());
  bytes.resize(std::max<qint64>(file.read(bytes.data(), bytes.size()), 0));
  QBuffer inMemory(&bytes);
  inMemory.open(QIODevice::ReadOnly);
  DecodedPicture decoded = DecodeFrom(inMemory, size);
  if (bytes.capacity() > kKept) bytes = QByteArray();
  return decoded;
}

}  // namespace platform
