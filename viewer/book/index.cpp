#include "viewer/book/index.h"

#include <QFile>
#include <QRegularExpression>
#include <QtDebug>
#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "viewer/book/text_file.h"
#include "viewer/book/text_scan.h"

namespace viewer {
namespace {

// A line's open tag: <aTitle1 vol="txt">, or <aTitle0> of the credit.
struct OpenTag {
  Collection collection;
  qsizetype end = -1;  // just behind it; -1 if there is none
};

OpenTag OpenTagAt(QStringView text, qsizetype at, qsizetype lineEnd) {
  static constexpr QStringView kWord = u"Title";
  const QStringView tag = text.sliced(at, std::min<qsizetype>(lineEnd - at, 64));
  if (tag.size() < 9 || tag[0] != u'<' || tag[1] < u'a' || tag[1] > u'c') return {};
  if (!tag.sliced(2).startsWith(kWord)) return {};
  const qsizetype close = tag.indexOf(u'>');
  if (close < 0) return {};
  const qsizetype digits = 2 + kWord.size();
  const QStringView rest = tag.sliced(digits, close - digits);
  const qsizetype blank = rest.indexOf(u' ');
  bool isNumber = false;
  const int number = (blank < 0 ? rest : rest.first(blank)).toInt(&isNumber);
  if (!isNumber || number < 0) return {};
  const bool isGallery = rest.contains(u" vol=\"pic1\"");
  return OpenTag{{tag[1], number, isGallery, {}}, at + close + 1};
}

qsizetype SkipIndent(QStringView text, Line line) {
  qsizetype at = line.start;
  while (at < line.end && text[at].isSpace()) ++at;
  return at;
}

// The title ends at its own close tag, the last one of it in the piece: a title may hold anything.
QString TitleIn(QStringView piece, const Collection& collection) {
  const QString close = QStringLiteral("</%1Title%2>").arg(collection.row).arg(collection.number);
  const qsizetype end = piece.lastIndexOf(close);
  return (end < 0 ? piece : piece.first(end)).trimmed().toString();
}

class Reader {
 public:
  explicit Reader(QStringView text) : text_(text) {}

  Index Read() {
    for (Line line = LineAt(text_, 0); line.start < text_.size(); line = LineAt(text_, line.next)) {
      const qsizetype at = SkipIndent(text_, line);
      OpenTag tag = OpenTagAt(text_, at, line.end);
      // Written by hand, the file may have been closed after all.
      const bool ends = text_.sliced(at).startsWith(u"</strings>");
      if (tag.end < 0 && !ends) continue;
      Take(at);
      open_ = std::move(tag);
    }
    Take(text_.size());
    return Made();
  }

 private:
  // Closes what is open.
  void Take(qsizetype end) {
    if (open_.end < 0) return;
    Collection& collection = open_.collection;
    collection.title = TitleIn(text_.sliced(open_.end, end - open_.end), collection);
    if (collection.number == 0) {
      index_.credit = collection.title;
    } else {
      found_[{collection.row, collection.number}] = std::move(collection);
    }
    open_ = {};
  }

  Index Made() {
    for (auto& [key, collection] : found_) index_.collections.push_back(std::move(collection));
    return std::move(index_);
  }

  QStringView text_;
  OpenTag open_;
  Index index_;
  std::map<std::pair<QChar, int>, Collection> found_;
};

QString NameOf(const Collection& collection) {
  return QStringLiteral("%1Title%2").arg(collection.row).arg(collection.number);
}

// By the file's head; nothing where it is neither a gallery nor a table of contents.
std::optional<bool> IsGalleryFile(const BookFolder& book, const Collection& collection) {
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
std::vector<Collection> CollectionsInFolder(const BookFolder& book) {
  std::vector<Collection> found;
  const QStringList names =
      book.NamesIn(QStringLiteral("Data/_xml"), QStringLiteral("?Title*.xml"));
  for (const QString& name : names) {
    if (std::optional<Collection> collection = CollectionOf(name)) found.push_back(*collection);
  }
  std::ranges::sort(found, {}, &Collection::number);
  return found;
}

std::pair<QChar, int> KeyOf(const Collection& collection) {
  return {collection.row, collection.number};
}

// Those of them without a line in the index, as many as are looked at: each file is opened.
std::vector<Collection> Unlisted(const BookFolder& book, const Index& index) {
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
void AddUnlisted(const BookFolder& book, Index& index) {
  for (Collection& collection : Unlisted(book, index)) {
    const std::optional<bool> isGallery = IsGalleryFile(book, collection);
    if (!isGallery) continue;
    collection.isGallery = *isGallery;
    collection.title = QStringLiteral("بدون عنوان");
    index.collections.push_back(std::move(collection));
  }
  std::ranges::stable_sort(index.collections, {}, &Collection::row);
}

}  // namespace

bool AreSame(const Collection& a, const Collection& b) {
  return a.row == b.row && a.number == b.number;
}

Index ParseIndex(QStringView text) { return Reader(text).Read(); }

Index ReadIndex(const BookFolder& book) {
  std::optional<QString> text = ReadText(book, QStringLiteral("Data/_xml/Index.xml"));
  if (!text) return {};
  text->remove(QChar::Null);  // stands where a power cut took a line
  Index index = ParseIndex(*text);
  AddUnlisted(book, index);
  return index;
}

bool HoldsGallery(const BookFolder& book, const Collection& collection) {
  return IsGalleryFile(book, collection).value_or(collection.isGallery);
}

QString FileOf(const Collection& collection) {
  return QStringLiteral("Data/_xml/") + NameOf(collection) + QStringLiteral(".xml");
}

QString PictureOf(const BookFolder& book, const Collection& collection) {
  return book.Resolve(QStringLiteral("Data/IMG/") + NameOf(collection) + QStringLiteral(".jpg"));
}

}  // namespace viewer
