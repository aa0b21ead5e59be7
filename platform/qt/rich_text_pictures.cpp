#include "platform/qt/rich_text_pictures.h"

#include <QBuffer>
#include <QPainter>
#include <QtEndian>
#include <algorithm>

#include "media/picture_plan.h"
#include "platform/qt/picture_decoder.h"

namespace platform {
namespace {

constexpr int kBitmapFileHeader = 14;
// On a document: what its pictures take so far.
constexpr const char* kBytesShown = "bytesShown";
// Of one picture; as much as a box of text can show.
constexpr quint64 kLargestShown = 4 * media::kMegabyte;

quint32 NumberAt(const QByteArray& bytes, qsizetype at) {
  return qFromLittleEndian<quint32>(bytes.constData() + at);
}

QByteArray Little(quint32 number) {
  const quint32 little = qToLittleEndian(number);
  return {reinterpret_cast<const char*>(&little), sizeof little};
}

constexpr qsizetype kShortHeader = 40;
constexpr qsizetype kLongHeader = 108;
constexpr quint32 kColourMasks = 3;  // red, green, blue
constexpr quint32 kClearMasks = 6;   // and how clear a pixel is
constexpr qsizetype kMask = 4;

// Behind a short header stand the masks that tell which bits of a pixel are which colour; a long
// one holds them itself, all four of them. The toolkit reads four of them there only.
QByteArray WithMasksInHeader(const QByteArray& dib) {
  constexpr qsizetype kMasks = 4 * kMask;
  const bool masksBehind = NumberAt(dib, 0) == kShortHeader && NumberAt(dib, 16) == kClearMasks;
  if (!masksBehind || dib.size() < kShortHeader + kMasks) return dib;
  QByteArray header = dib.first(kShortHeader + kMasks);
  header.replace(0, kMask, Little(kLongHeader)).replace(16, kMask, Little(kColourMasks));
  return header + QByteArray(kLongHeader - header.size(), '\0') + dib.sliced(header.size());
}

// A bitmap as rich text holds it lacks what its file begins with.
QByteArray WithBitmapFileHeader(const QByteArray& picture) {
  constexpr quint32 kFileHeader = kBitmapFileHeader;
  if (picture.size() < kShortHeader) return {};
  const QByteArray dib = WithMasksInHeader(picture);
  const quint32 header = NumberAt(dib, 0);
  const quint32 bitsPerPixel = NumberAt(dib, 12) >> 16;
  const bool masksBehind = header == kShortHeader && NumberAt(dib, 16) == kColourMasks;
  const quint32 masks = masksBehind ? 3 * kMask : 0;
  quint32 colours = NumberAt(dib, 32);
  if (colours == 0 && bitsPerPixel <= 8) colours = 1U << bitsPerPixel;
  return "BM" + Little(static_cast<quint32>(dib.size()) + kFileHeader) + Little(0) +
         Little(kFileHeader + header + masks + 4 * colours) + dib;
}

std::string PngOf(QByteArray& file) {
  const QImage image = DecodePicture(file, [](QSize whole) { return whole; }).picture;
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return bytes.toStdString();
}

// A document's resources of all kinds share their names.
QUrl FileNameOf(const QString& name) { return {QStringLiteral("file-of-") + name}; }

QImage CrossedBox() {
  constexpr int kSide = 48;
  QImage box(kSide, kSide, QImage::Format_RGB32);
  box.fill(Qt::lightGray);
  QPainter painter(&box);
  painter.setPen(Qt::darkGray);
  painter.drawRect(box.rect().adjusted(0, 0, -1, -1));
  painter.drawLine(box.rect().topLeft(), box.rect().bottomRight());
  painter.drawLine(box.rect().topRight(), box.rect().bottomLeft());
  return box;
}

}  // namespace

void AddPictureFile(QTextDocument& document, const QString& name, rtf::PictureKind kind,
                    const QByteArray& bytes) {
  const bool isBitmap = kind == rtf::PictureKind::kBitmap;
  document.addResource(QTextDocument::UserResource, FileNameOf(name),
                       isBitmap ? WithBitmapFileHeader(bytes) : bytes);
}

rtf::Picture PictureOfFile(QByteArray file) {
  const std::string bytes = file.toStdString();
  switch (media::ReadPictureHeader(bytes).kind) {
    case media::PictureKind::kJpeg:
      return {.kind = rtf::PictureKind::kJpeg, .bytes = bytes};
    case media::PictureKind::kPng:
      return {.kind = rtf::PictureKind::kPng, .bytes = bytes};
    case media::PictureKind::kBitmap:
      return {.kind = rtf::PictureKind::kBitmap, .bytes = bytes.substr(kBitmapFileHeader)};
    case media::PictureKind::kGif:
      return {.kind = rtf::PictureKind::kPng, .bytes = PngOf(file)};
    case media::PictureKind::kUnknown:
      break;
  }
  return {};
}

QImage ShownPicture(QTextDocument& document, const QUrl& name) {
  QByteArray file =
      document.resource(QTextDocument::UserResource, FileNameOf(name.toString())).toByteArray();
  const quint64 before = document.property(kBytesShown).toULongLong();
  // The more there are, the coarser are the next; none is left out.
  const quint64 left = media::kKeptMemory - std::min<quint64>(before, media::kKeptMemory);
  const quint64 most = std::min(left / 32, kLargestShown);
  DecodedPicture decoded =
      DecodePicture(file, [most](QSize whole) { return WithinMemory(whole, most); });
  if (decoded.picture.isNull()) return CrossedBox();
  document.setProperty(kBytesShown, before + static_cast<quint64>(decoded.picture.sizeInBytes()));
  decoded.picture.setDevicePixelRatio(static_cast<double>(decoded.picture.width()) /
                                      decoded.whole.width());
  return decoded.picture;
}

}  // namespace platform
