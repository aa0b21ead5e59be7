#include "book/index_reader.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>
#include <vector>

namespace book {
namespace {

struct Number {
  qint64 value = -1;     // where there are no digits, or too many
  qsizetype length = 0;  // of its digits
};

Number NumberAt(QStringView text) {
  constexpr qsizetype kMostDigits = 10;
  Number number;
  qint64 value = 0;
  for (const QChar digit : text) {
    if (digit < u'0' || digit > u'9' || number.length > kMostDigits) break;
    value = 10 * value + (digit.unicode() - u'0');
    ++number.length;
  }
  if (number.length > 0 && value <= std::numeric_limits<int>::max()) number.value = value;
  return number;
}

bool IsCloseTagAt(QStringView text, qsizetype at, QStringView name) {
  return at >= 0 && text[at] == u'<' && text[at + 1] == u'/' &&
         text.sliced(at + 2, name.size()) == name && text[at + 2 + name.size()] == u'>';
}

// What stands before the last close tag of that name; all where there is none.
QStringView BeforeCloseTag(QStringView text, QStringView name) {
  const qsizetype length = name.size() + 3;
  // It is the last thing, as a rule, and to search for it takes a while.
  qsizetype at = text.size() - length;
  while (at >= 0 && !IsCloseTagAt(text, at, name)) at = text.first(at).lastIndexOf(u'<');
  return at < 0 ? text : text.first(at);
}

// By row and number, as they stand in nearly every file; of two lines of a collection the later one
// counts.
void PutInOrder(std::vector<Collection>& all) {
  if (std::ranges::adjacent_find(all, std::ranges::greater_equal(), KeyOf) == all.end()) return;
  std::ranges::stable_sort(all, {}, KeyOf);
  const auto others =
      std::unique(all.rbegin(), all.rend(),
                  [](const Collection& a, const Collection& b) { return AreSame(a, b); });
  all.erase(all.begin(), others.base());
}

}  // namespace

void IndexReader::Feed(QStringView piece, qsizetype toCome) {
  toCome_ = toCome;
  if (piece.contains(QChar::Null)) {
    held_ += piece.toString().remove(QChar::Null);
  } else {
    held_ += piece;
  }
  TakeLines();
  DropWhatIsDone();
}

Index IndexReader::Finish() {
  if (line_ < held_.size()) TakeLine(held_.size());
  Close(held_.size());
  PutInOrder(index_.collections);
  return std::move(index_);
}

void IndexReader::TakeLines() {
  for (;;) {
    const qsizetype feed = held_.indexOf(u'\n', std::max(line_, searched_));
    if (feed < 0) break;
    TakeLine(feed);
    line_ = feed + 1;
  }
  searched_ = held_.size();
}

// An element goes on to the next one's open tag: a title may hold anything.
void IndexReader::TakeLine(qsizetype end) {
  const QStringView text = held_;
  qsizetype at = line_;
  while (at < end && text[at].isSpace()) ++at;
  if (at == end || text[at] != u'<') return;
  std::optional<Open> open = OpenAt(at, end);
  // Written by hand, the file may have been closed after all.
  if (!open && !text.sliced(at).startsWith(u"</strings>")) return;
  Close(at);
  open_ = std::move(open);
}

std::optional<IndexReader::Open> IndexReader::OpenAt(qsizetype at, qsizetype lineEnd) const {
  static constexpr QStringView kWord = u"Title";
  static constexpr QStringView kGallery = u" vol=\"pic1\"";
  constexpr qsizetype kDigits = 2 + kWord.size();
  const QStringView tag = QStringView(held_).sliced(at, std::min<qsizetype>(lineEnd - at, 64));
  if (tag.size() < kDigits + 2 || tag[1] < u'a' || tag[1] > u'c') return std::nullopt;
  if (!tag.sliced(2).startsWith(kWord)) return std::nullopt;
  const Number number = NumberAt(tag.sliced(kDigits));
  const qsizetype nameEnd = kDigits + number.length;
  const bool ends = nameEnd < tag.size() && (tag[nameEnd] == u'>' || tag[nameEnd] == u' ');
  const qsizetype close = ends ? tag.indexOf(u'>', nameEnd) : -1;
  if (number.value < 0 || close < 0) return std::nullopt;
  const QStringView rest = tag.sliced(nameEnd, close - nameEnd);
  const bool isGallery = rest.size() >= kGallery.size() && rest.contains(kGallery);
  return Open{
      {tag[1], static_cast<int>(number.value), isGallery, {}}, at, nameEnd - 1, at + close + 1};
}

// The title ends at the last close tag of its own.
void IndexReader::Close(qsizetype end) {
  if (!open_) return;
  const QStringView text = held_;
  const QStringView name = text.sliced(open_->start + 1, open_->nameLength);
  const QStringView piece = text.sliced(open_->end, end - open_->end).trimmed();
  Collection& collection = open_->collection;
  collection.title = BeforeCloseTag(piece, name).trimmed().toString();
  if (collection.number == 0) {
    index_.credit = collection.title;
  } else {
    MakeRoom(end - open_->start);
    index_.collections.push_back(std::move(collection));
  }
  open_.reset();
}

// For all that come, if they are as long as this one: to grow by and by takes fresh memory each
// time.
void IndexReader::MakeRoom(qsizetype lengthOfElement) {
  std::vector<Collection>& all = index_.collections;
  if (all.size() < all.capacity()) return;
  const auto more = static_cast<std::size_t>((held_.size() + toCome_) / lengthOfElement + 1);
  all.reserve(all.size() + std::max(all.size(), more));
}

void IndexReader::DropWhatIsDone() {
  const qsizetype done = open_ ? open_->start : line_;
  held_.remove(0, done);
  line_ -= done;
  searched_ -= done;
  if (!open_) return;
  open_->start -= done;
  open_->end -= done;
}

}  // namespace book
