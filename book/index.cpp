#include "book/index.h"

#include <QFile>
#include <QRegularExpression>
#include <QtDebug>
#include <algorithm>
#include <optional>
#include <utility>

#include "book/index_reader.h"
#include "book/text_file.h"

namespace book {
namespace {

QString NameOf(const Collection& collection) {
  return collection.row + QStringLiteral("Title") + QString::number(collection.number);
}

// By the file's head; nothing where it is neither a gallery nor a table of contents.
std::optional<bool> IsGalleryFile(const Folder& book, const Collection& collection) {
  constexpr qint64 kHead = 4096;  // bytes
  const QString path = book.Resolve(FileOf(collection));
  QFile file(path);
  if (path.isEmpty() || !file.open(QIODevice::ReadOnly)) return std::nullopt;
  const QString head = DecodeText(file.read(kHead));
  const qsizetype gallery = head.indexOf(QLatin1String("<gallery>"));
  const qsizetype tree = head.indexOf(QLatin1String("<Tree>"));
  if (gallery < 0 && tree < 0) return std::nullopt;
  return tree < 0 || (gallery >= 0 && gallery < tree);
}

std::optional<Collection> CollectionOf(const QString& fileName) {
  static const QRegularExpression kName(QStringLiteral("^([abc])title([1-9][0-9]{0,8})\\.xml$"));
  const QRegularExpressionMatch match = kName.match(fileName.toLower());
  if (!match.hasMatch()) return std::nullopt;
  return Collection{match.captured(1).front(), match.captured(2).toInt(), false, {}};
}

// Those whose files lie in the book, by number.
std::vector<Collection> CollectionsInFolder(const Folder& book) {
  std::vector<Collection> found;
  const QStringList names =
      book.NamesIn(QStringLiteral("Data/_xml"), QStringLiteral("?Title*.xml"));
  for (const QString& name : names) {
    if (std::optional<Collection> collection = CollectionOf(name)) found.push_back(*collection);
  }
  std::ranges::sort(found, {}, &Collection::number);
  return found;
}

// Those of them without a line in the index, as many as are looked at: each file is opened.
std::vector<Collection> Unlisted(const Folder& book, const Index& index) {
  constexpr std::size_t kMost = 1000;
  std::vector<Collection> unlisted;
  for (Collection& collection : CollectionsInFolder(book)) {
    // So far the listed ones stand by row and number.
    if (std::ranges::binary_search(index.collections, KeyOf(collection), {}, KeyOf)) continue;
    if (unlisted.size() == kMost) {
      qWarning() << "The index leaves out too many collections; shown of them:" << kMost;
      break;
    }
    unlisted.push_back(std::move(collection));
  }
  return unlisted;
}

// What only the folder tells of, each at the end of its row.
void AddUnlisted(const Folder& book, Index& index) {
  std::vector<Collection> unlisted = Unlisted(book, index);
  if (unlisted.empty()) return;
  for (Collection& collection : unlisted) {
    const std::optional<bool> isGallery = IsGalleryFile(book, collection);
    if (!isGallery) continue;
    collection.isGallery = *isGallery;
    collection.title = QStringLiteral("بدون عنوان");
    index.collections.push_back(std::move(collection));
  }
  std::ranges::stable_sort(index.collections, {}, &Collection::row);
}

}  // namespace

std::pair<QChar, int> KeyOf(const Collection& collection) {
  return {collection.row, collection.number};
}

bool AreSame(const Collection& a, const Collection& b) { return KeyOf(a) == KeyOf(b); }

Index ParseIndex(QStringView text) {
  IndexReader reader;
  reader.Feed(text);
  return reader.Finish();
}

Index ReadIndex(const Folder& book) {
  IndexReader reader;
  const bool isThere = ReadTextInPieces(
      book, QStringLiteral("Data/_xml/Index.xml"),
      [&reader](QStringView piece, qsizetype toCome) { reader.Feed(piece, toCome); });
  if (!isThere) return {};
  Index index = reader.Finish();
  AddUnlisted(book, index);
  return index;
}

bool HoldsGallery(const Folder& book, const Collection& collection) {
  return IsGalleryFile(book, collection).value_or(collection.isGallery);
}

QString FileOf(const Collection& collection) {
  return QStringLiteral("Data/_xml/") + NameOf(collection) + QStringLiteral(".xml");
}

QString PictureOf(const Folder& book, const Collection& collection) {
  return book.Resolve(QStringLiteral("Data/IMG/") + NameOf(collection) + QStringLiteral(".jpg"));
}

}  // namespace book
