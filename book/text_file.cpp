#include "book/text_file.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QtDebug>
#include <QtEndian>
#include <algorithm>
#include <memory>

#include "book/shown_name.h"

namespace book {
namespace {

constexpr int kUnit = 2;  // bytes
constexpr const char* kLittleEndianMark = "\xFF\xFE";

using Convert = void (*)(const void* units, qsizetype count, void* text);

QString FromUnits(QByteArrayView bytes, Convert convert) {
  QString text(bytes.size() / kUnit, Qt::Uninitialized);
  if (!text.isEmpty()) convert(bytes.data(), text.size(), text.data());
  return text;
}

// Null, with a warning, where there is no ordinary file or it can't be opened.
std::unique_ptr<QFile> OpenText(const QString& path) {
  // A pipe would wait for a writer, so it isn't even opened.
  auto file = std::make_unique<QFile>(path);
  if (!QFileInfo(path).isFile() || !file->open(QIODevice::ReadOnly)) {
    qWarning().noquote() << "Can't be read:" << WithSigns(path);
    return nullptr;
  }
  if (file->size() > kLongestText) {
    qWarning().noquote() << "Too long, read in part:" << WithSigns(path);
  }
  return file;
}

bool HasFailed(const QFile& file) {
  if (file.error() == QFileDevice::NoError) return false;
  qWarning().noquote() << "Read in part:" << WithSigns(file.fileName()) << file.errorString();
  return true;
}

// Units that stand in the file as they do in a text.
void ReadUnits(QFile& file, qint64 bytes, const TakePiece& take) {
  constexpr qint64 kUnitsInPiece = 64LL * 1024;
  QString piece(kUnitsInPiece, Qt::Uninitialized);
  while (bytes >= kUnit) {
    const qint64 came =
        file.read(reinterpret_cast<char*>(piece.data()), std::min(bytes, kUnitsInPiece * kUnit));
    if (came < kUnit) return;
    bytes -= came;
    take(QStringView(piece).first(came / kUnit), bytes / kUnit);
  }
}

}  // namespace

QString DecodeText(QByteArrayView bytes) {
  if (bytes.startsWith(kLittleEndianMark)) {
    return FromUnits(bytes.sliced(kUnit), qFromLittleEndian<char16_t>);
  }
  if (bytes.startsWith("\xFE\xFF")) return FromUnits(bytes.sliced(2), qFromBigEndian<char16_t>);
  if (bytes.startsWith("\xEF\xBB\xBF")) return QString::fromUtf8(bytes.sliced(3));
  return FromUnits(bytes, qFromLittleEndian<char16_t>);
}

std::optional<QString> ReadText(const QString& path) {
  const std::unique_ptr<QFile> file = OpenText(path);
  if (!file) return std::nullopt;
  const QByteArray bytes = file->read(std::min(file->size(), kLongestText));
  if (HasFailed(*file) && bytes.isEmpty()) return std::nullopt;
  return DecodeText(bytes);
}

std::optional<QString> ReadText(const Folder& book, const QString& pathInBook) {
  const QString path = book.Needed(pathInBook);
  return path.isEmpty() ? std::nullopt : ReadText(path);
}

bool ReadTextInPieces(const Folder& book, const QString& pathInBook, const TakePiece& take) {
  const QString path = book.Needed(pathInBook);
  const std::unique_ptr<QFile> file = path.isEmpty() ? nullptr : OpenText(path);
  if (!file) return false;
  const qint64 length = std::min(file->size(), kLongestText);
  if (Q_BYTE_ORDER == Q_LITTLE_ENDIAN && file->peek(kUnit) == kLittleEndianMark) {
    file->skip(kUnit);
    ReadUnits(*file, length - kUnit, take);
  } else {
    take(DecodeText(file->read(length)), 0);
  }
  HasFailed(*file);
  return true;
}

}  // namespace book
