#include "viewer/book/text_file.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QtDebug>
#include <QtEndian>
#include <algorithm>

#include "viewer/book/shown_name.h"

namespace viewer {
namespace {

constexpr int kUnit = 2;  // bytes

using Convert = void (*)(const void* units, qsizetype count, void* text);

QString FromUnits(QByteArrayView bytes, Convert convert) {
  QString text(bytes.size() / kUnit, Qt::Uninitialized);
  if (!text.isEmpty()) convert(bytes.data(), text.size(), text.data());
  return text;
}

}  // namespace

QString DecodeText(QByteArrayView bytes) {
  if (bytes.startsWith("\xFF\xFE")) return FromUnits(bytes.sliced(2), qFromLittleEndian<char16_t>);
  if (bytes.startsWith("\xFE\xFF")) return FromUnits(bytes.sliced(2), qFromBigEndian<char16_t>);
  if (bytes.startsWith("\xEF\xBB\xBF")) return QString::fromUtf8(bytes.sliced(3));
  return FromUnits(bytes, qFromLittleEndian<char16_t>);
}

std::optional<QString> ReadText(const QString& path) {
  // A pipe would wait for a writer, so it isn't even opened.
  const QFileInfo info(path);
  QFile file(path);
  if (!info.isFile() || !file.open(QIODevice::ReadOnly)) {
    qWarning().noquote() << "Can't be read:" << WithSigns(path);
    return std::nullopt;
  }
  if (file.size() > kLongestText) {
    qWarning().noquote() << "Too long, read in part:" << WithSigns(path);
  }
  const QByteArray bytes = file.read(std::min(file.size(), kLongestText));
  if (file.error() != QFileDevice::NoError) {
    qWarning().noquote() << "Read in part:" << WithSigns(path) << file.errorString();
    if (bytes.isEmpty()) return std::nullopt;
  }
  return DecodeText(bytes);
}

std::optional<QString> ReadText(const BookFolder& book, const QString& pathInBook) {
  const QString path = book.Needed(pathInBook);
  return path.isEmpty() ? std::nullopt : ReadText(path);
}

}  // namespace viewer
