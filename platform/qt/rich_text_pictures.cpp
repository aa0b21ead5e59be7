#include "platform/qt/rich_text_pictures.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QPainter>
#include <QTextFormat>
#include <QUrl>
#include <QtEndian>
#include <cstring>
#include <memory>

#include "media/picture_plan.h"
#include "platform/qt/picture_decoder.h"

namespace platform {
namespace {

constexpr int kBitmapFileHeader = 14;
constexpr qsizetype kKilobyte = 1024;
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

// After a short header stand the masks that tell which bits of a pixel are which colour; a long
// one holds them itself, all four of them. The toolkit reads four of them there only.
QByteArray WithMasksInHeader(const QByteArray& dib) {
  constexpr qsizetype kMasks = 4 * kMask;
  const bool masksAfter = NumberAt(dib, 0) == kShortHeader && NumberAt(dib, 16) == kClearMasks;
  if (!masksAfter || dib.size() < kShortHeader + kMasks) return dib;
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
  const bool masksAfter = header == kShortHeader && NumberAt(dib, 16) == kColourMasks;
  const quint32 masks = masksAfter ? 3 * kMask : 0;
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

void RichTextPictures::Show(QTextDocument& document) {
  static RichTextPictures pictures;
  document.documentLayout()->registerHandler(QTextFormat::ImageObject, &pictures);
  pictures.Know(document);
}

RichTextPictures::RichTextPictures()
    : kept_(static_cast<qsizetype>(media::kKeptMemory) / kKilobyte) {}

void* RichTextPictures::qt_metacast(const char* name) {
  const bool draws = std::strcmp(name, qobject_interface_iid<QTextObjectInterface*>()) == 0;
  return draws ? static_cast<QTextObjectInterface*>(this) : QObject::qt_metacast(name);
}

// A size of its own has been set in whole pixels or not at all.
QSizeF RichTextPictures::intrinsicSize(QTextDocument* document, int /*position*/,
                                       const QTextFormat& format) {
  const QTextImageFormat image = format.toImageFormat();
  const bool hasWidth = image.hasProperty(QTextFormat::ImageWidth);
  const bool hasHeight = image.hasProperty(QTextFormat::ImageHeight);
  const QSize own(qRound(image.width()), qRound(image.height()));
  if (hasWidth && hasHeight) return own;
  const QSize whole = WholeSize(*document, image.name());
  if (hasWidth)
    return QSize(own.width(), qRound(own.width() * 1.0 * whole.height() / whole.width()));
  if (hasHeight) {
    return QSize(qRound(own.height() * 1.0 * whole.width() / whole.height()), own.height());
  }
  return whole;
}

void RichTextPictures::drawObject(QPainter* painter, const QRectF& place, QTextDocument* document,
                                  int /*position*/, const QTextFormat& format) {
  const QSizeF drawn = place.size() * painter->device()->devicePixelRatioF();
  painter->drawImage(place, Decoded(*document, format.toImageFormat().name(), drawn.toSize()));
}

// It lasts until the next one is decoded.
const QImage& RichTextPictures::Decoded(QTextDocument& document, const QString& name, QSize drawn) {
  const Name key(&document, name);
  const Shown* const kept = kept_.object(key);
  if (kept && kept->drawn == drawn) return kept->picture;
  QByteArray file = document.resource(QTextDocument::UserResource, FileNameOf(name)).toByteArray();
  DecodedPicture decoded = DecodePicture(
      file, [&](QSize whole) { return WithinMemory(whole.boundedTo(drawn), kLargestShown); });
  auto shown = std::make_unique<Shown>(Shown{decoded.picture, drawn});
  whole_[key] = decoded.whole;
  if (decoded.picture.isNull()) {
    shown->picture = CrossedBox();
    whole_[key] = shown->picture.size();
  }
  shown->picture.convertTo(shown->picture.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                            : QImage::Format_RGB32);
  const qsizetype cost = shown->picture.sizeInBytes() / kKilobyte + 1;
  const QImage& picture = shown->picture;
  kept_.insert(key, shown.release(), cost);
  return picture;
}

QSize RichTextPictures::WholeSize(QTextDocument& document, const QString& name) {
  constexpr int kAny = 1 << 24;
  const Name key(&document, name);
  if (!whole_.contains(key)) Decoded(document, name, {kAny, kAny});
  return whole_.value(key);
}

void RichTextPictures::Know(const QTextDocument& document) {
  if (known_.contains(&document)) return;
  known_.insert(&document);
  connect(&document, &QObject::destroyed, this, [this](QObject* gone) { Forget(gone); });
}

void RichTextPictures::Forget(const QObject* document) {
  known_.remove(document);
  const auto names = kept_.keys();
  for (const Name& name : names) {
    if (name.first == document) kept_.remove(name);
  }
  whole_.removeIf([document](const auto& each) { return each.key().first == document; });
}

}  // namespace platform
