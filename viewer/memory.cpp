#include "viewer/memory.h"

#include <QCryptographicHash>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <algorithm>

#include "book/raw_file.h"

namespace viewer {
namespace {

constexpr int kLightOfBook = -1;
constexpr qint64 kLongestFile = 4LL * 1024 * 1024;

QString KeyOf(const book::Folder& book) {
  book::RawFile file;
  const QByteArrayView bytes = file.Read(book.Resolve(QStringLiteral("Data/_xml/Index.xml")));
  if (bytes.isEmpty()) return {};
  QCryptographicHash hash(QCryptographicHash::Sha256);
  hash.addData(bytes);
  return QString::fromLatin1(hash.result().toHex());
}

QJsonObject ObjectOf(const BookPlace& place) {
  return {{QStringLiteral("collection"), place.collection},
          {QStringLiteral("source"), place.source},
          {QStringLiteral("part"), static_cast<qint64>(place.place.part)},
          {QStringLiteral("offset"), static_cast<qint64>(place.place.offset)}};
}

BookPlace PlaceOf(const QJsonObject& object) {
  BookPlace place;
  place.collection = object[QStringLiteral("collection")].toString();
  place.source = object[QStringLiteral("source")].toString();
  place.place.part =
      static_cast<std::size_t>(std::max<qint64>(0, object[QStringLiteral("part")].toInteger()));
  place.place.offset = std::max<qint64>(0, object[QStringLiteral("offset")].toInteger());
  return place;
}

QJsonObject ObjectOf(const ReadingStyle& style) {
  return {{QStringLiteral("pixels"), style.pixels},
          {QStringLiteral("letters"), style.letters},
          {QStringLiteral("lineHeight"), style.lineHeight},
          {QStringLiteral("justified"), style.justified},
          {QStringLiteral("light"), style.light ? static_cast<int>(*style.light) : kLightOfBook},
          {QStringLiteral("persianDigits"), style.digits == book::Digits::kPersian}};
}

ReadingStyle StyleOf(const QJsonObject& object) {
  ReadingStyle style;
  style.pixels = object[QStringLiteral("pixels")].toInt(style.pixels);
  style.letters = object[QStringLiteral("letters")].toString();
  style.lineHeight = object[QStringLiteral("lineHeight")].toInt(style.lineHeight);
  style.justified = object[QStringLiteral("justified")].toBool();
  const int light = object[QStringLiteral("light")].toInt(kLightOfBook);
  if (light >= static_cast<int>(Light::kDay) && light <= static_cast<int>(Light::kNight)) {
    style.light = static_cast<Light>(light);
  }
  if (object[QStringLiteral("persianDigits")].toBool()) style.digits = book::Digits::kPersian;
  return Bounded(style);
}

Remembered RememberedOf(const QJsonObject& object) {
  Remembered remembered;
  if (object.contains(QStringLiteral("last"))) {
    remembered.last = PlaceOf(object[QStringLiteral("last")].toObject());
  }
  remembered.style = StyleOf(object[QStringLiteral("style")].toObject());
  remembered.music = object[QStringLiteral("music")].toBool(true);
  const QJsonArray bookmarks = object[QStringLiteral("bookmarks")].toArray();
  for (const QJsonValue& each : bookmarks) {
    if (remembered.bookmarks.size() == Memory::kMostBookmarks) break;
    const QJsonObject bookmark = each.toObject();
    remembered.bookmarks.push_back({bookmark[QStringLiteral("name")].toString(),
                                    PlaceOf(bookmark[QStringLiteral("place")].toObject())});
  }
  return remembered;
}

}  // namespace

Memory::Memory(const QString& folder, const book::Folder& book) {
  const QString key = folder.isEmpty() ? QString() : KeyOf(book);
  if (!key.isEmpty()) path_ = folder + u'/' + key + QStringLiteral(".json");
}

Remembered Memory::Read() const {
  if (path_.isEmpty() || !QFileInfo::exists(path_)) return {};
  QFile file(path_);
  const bool isOpen = QFileInfo(path_).isFile() && file.open(QIODevice::ReadOnly);
  const QByteArray bytes = isOpen ? file.read(kLongestFile) : QByteArray();
  const QJsonDocument document = QJsonDocument::fromJson(bytes);
  if (!document.isObject()) {
    qWarning().noquote() << "What was remembered can't be read and is forgotten:" << path_;
    return {};
  }
  return RememberedOf(document.object());
}

void Memory::Write(const Remembered& remembered) const {
  if (path_.isEmpty() || !QDir().mkpath(QFileInfo(path_).path())) return;
  QJsonArray bookmarks;
  for (const Bookmark& each : remembered.bookmarks) {
    bookmarks.append(QJsonObject{{QStringLiteral("name"), each.name},
                                 {QStringLiteral("place"), ObjectOf(each.place)}});
  }
  QJsonObject object{{QStringLiteral("style"), ObjectOf(remembered.style)},
                     {QStringLiteral("music"), remembered.music},
                     {QStringLiteral("bookmarks"), bookmarks}};
  if (remembered.last) object.insert(QStringLiteral("last"), ObjectOf(*remembered.last));
  QSaveFile file(path_);
  if (!file.open(QIODevice::WriteOnly)) return;
  file.write(QJsonDocument(object).toJson());
  file.commit();
}

}  // namespace viewer
