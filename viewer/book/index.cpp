#include "viewer/book/index.h"

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

OpenTag OpenTagAt(QStringView text, qsizetype at) {
  static constexpr QStringView kWord = u"Title";
  const QStringView tag = text.sliced(at, std::min<qsizetype>(text.size() - at, 64));
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
      OpenTag tag = OpenTagAt(text_, at);
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

}  // namespace

Index ParseIndex(QStringView text) { return Reader(text).Read(); }

Index ReadIndex(const BookFolder& book) {
  const std::optional<QString> text = ReadText(book, QStringLiteral("Data/_xml/Index.xml"));
  return text ? ParseIndex(*text) : Index{};
}

QString FileOf(const Collection& collection) {
  return QStringLiteral("Data/_xml/") + NameOf(collection) + QStringLiteral(".xml");
}

QString PictureOf(const BookFolder& book, const Collection& collection) {
  return book.Resolve(QStringLiteral("Data/IMG/") + NameOf(collection) + QStringLiteral(".jpg"));
}

}  // namespace viewer
