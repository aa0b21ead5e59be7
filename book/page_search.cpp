#include "book/page_search.h"

#include <QtEndian>
#include <algorithm>
#include <string_view>
#include <utility>

#include "book/fold.h"
#include "book/page.h"
#include "book/text_file.h"

namespace book {
namespace {

constexpr qsizetype kBefore = 40;  // characters of a snippet before the word
constexpr qsizetype kAfter = 80;

bool IsLittleEndian(QByteArrayView bytes) {
  return !bytes.startsWith("\xFE\xFF") && !bytes.startsWith("\xEF\xBB\xBF");
}

qsizetype BlankBefore(const QString& text, qsizetype at) {
  if (at <= 0) return 0;
  const qsizetype blank = text.indexOf(u' ', at);
  return blank < 0 || blank > at + kBefore / 2 ? at : blank + 1;
}

qsizetype BlankAfter(const QString& text, qsizetype at) {
  if (at >= text.size()) return text.size();
  const qsizetype blank = text.lastIndexOf(u' ', at);
  return blank < at - kAfter / 2 ? at : blank;
}

void SetSnippet(Match& match, const QString& text, qsizetype start, qsizetype end) {
  const qsizetype from = std::min(BlankBefore(text, start - kBefore), start);
  const qsizetype to = std::max(BlankAfter(text, end + kAfter), end);
  match.snippet = text.sliced(from, to - from);
  match.matchStart = start - from;
  match.matchLength = end - start;
  match.offset = start;
}

// A page's texts by their part: -1 is the title.
class Texts {
 public:
  explicit Texts(const Page& page) : page_(page) {}

  int First() const { return -1; }
  int End() const { return static_cast<int>(page_.parts.size()); }
  QString At(int part) const {
    if (part < 0) return page_.title;
    const PagePart& each = page_.parts[static_cast<std::size_t>(part)];
    return each.kind == PagePart::Kind::kParagraph ? each.text : QString();
  }

 private:
  const Page& page_;
};

// Goes through the page's own texts, without its tags. Says whether each of the terms is there, and
// sets the place of the first in the page.
bool Confirm(Match& match, const Page& page, const Query& query) {
  std::vector<const Term*> missing;
  for (const Term& term : query.Terms()) missing.push_back(&term);
  const Texts texts(page);
  bool hasPlace = false;
  std::vector<qsizetype> origins;
  for (int part = texts.First(); part < texts.End() && !missing.empty(); ++part) {
    const QString text = texts.At(part);
    const QString folded = Folded(text, origins, query.Signs());
    std::erase_if(missing, [&](const Term* term) {
      const std::optional<Stretch> found = term->In(UnitsOf(folded));
      if (!found) return false;
      if (!hasPlace) {
        match.part = part;
        SetSnippet(match, text, origins[found->start],
                   origins[found->start + found->length - 1] + 1);
      }
      hasPlace = true;
      return true;
    });
  }
  return missing.empty();
}

}  // namespace

// In the bytes a phrase may hold "&nbsp;".
PageSearch::PageSearch(Query query) : query_(std::move(query)) {
  for (const Term& term : query_.Terms()) {
    for (const QString& word : term.Folded().split(u' ')) words_.emplace_back(word, false);
  }
}

std::u16string_view PageSearch::Fold(QByteArrayView bytes) {
  const char16_t* const table = FoldTable(query_.Signs());
  const auto count = static_cast<std::size_t>(bytes.size() / 2);
  if (folded_.size() < count) folded_.resize(count);
  const char* from = bytes.data();
  char16_t* to = folded_.data();
  unsigned ligatures = 0;  // a branch in the loop would cost a sixth of it
  for (std::size_t i = 0; i < count; ++i, from += 2) {
    *to = table[qFromLittleEndian<char16_t>(from)];
    ligatures += *to == kSeveral ? 1U : 0U;
    if (*to != 0) ++to;
  }
  if (ligatures > 0) return FoldWithLigatures(bytes);
  return {folded_.data(), static_cast<std::size_t>(to - folded_.data())};
}

// The same for a page that holds some, which takes its time.
std::u16string_view PageSearch::FoldWithLigatures(QByteArrayView bytes) {
  const QString folded = Folded(DecodeText(bytes), query_.Signs());
  const std::u16string_view view = UnitsOf(folded);
  folded_.assign(view.begin(), view.end());
  return {folded_.data(), folded_.size()};
}

// Tags and all: a page in which a word doesn't occur here doesn't hold it, and nearly all pages are
// done with that.
bool PageSearch::MayHoldAll(QByteArrayView bytes) {
  const std::u16string_view folded = Fold(bytes);
  return std::ranges::all_of(words_, [&](const Term& term) { return term.In(folded).has_value(); });
}

std::optional<Match> PageSearch::Find(QByteArrayView bytes) {
  if (query_.IsEmpty()) return std::nullopt;
  if (IsLittleEndian(bytes) && !MayHoldAll(bytes)) return std::nullopt;
  const Page page = ForReaders(ParsePage(DecodeText(bytes)));
  Match match;
  if (!Confirm(match, page, query_)) return std::nullopt;
  match.title = page.title;
  return match;
}

}  // namespace book
