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

std::u16string_view ViewOf(const QString& text) {
  return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}

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

void SetSnippet(Match& match, const QString& text, const QString& word) {
  const qsizetype at = Folded(text).indexOf(word);
  if (at < 0) return;
  const qsizetype start = OriginOf(text, at);
  const qsizetype end = OriginOf(text, at + word.size() - 1) + 1;
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

// Goes through the page's own texts, without its tags. Says whether each of the words is there, and
// sets the place of the first in the page.
bool Confirm(Match& match, const Page& page, const QStringList& words) {
  QStringList missing = words;
  const Texts texts(page);
  QString firstWord;
  for (int part = texts.First(); part < texts.End() && !missing.isEmpty(); ++part) {
    const QString folded = Folded(texts.At(part));
    const auto isHere = [&](const QString& word) { return folded.contains(word); };
    const auto found = std::ranges::find_if(std::as_const(missing), isHere);
    if (found == missing.cend()) continue;
    if (firstWord.isEmpty()) {
      firstWord = *found;
      match.part = part;
    }
    missing.removeIf(isHere);
  }
  if (!missing.isEmpty()) return false;
  SetSnippet(match, texts.At(match.part), firstWord);
  return true;
}

}  // namespace

PageSearch::PageSearch(const QString& words) : words_(WordsOf(words)) {}

std::u16string_view PageSearch::Fold(QByteArrayView bytes) {
  const char16_t* const table = FoldTable();
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
  const QString folded = Folded(DecodeText(bytes));
  const std::u16string_view view = ViewOf(folded);
  folded_.assign(view.begin(), view.end());
  return {folded_.data(), folded_.size()};
}

// Tags and all: a page in which a word doesn't occur here doesn't hold it, and nearly all pages are
// done with that.
bool PageSearch::MayHoldAll(QByteArrayView bytes) {
  const std::u16string_view folded = Fold(bytes);
  return std::ranges::all_of(words_, [&](const QString& word) {
    return folded.find(ViewOf(word)) != std::u16string_view::npos;
  });
}

std::optional<Match> PageSearch::Find(QByteArrayView bytes) {
  if (words_.isEmpty()) return std::nullopt;
  if (IsLittleEndian(bytes) && !MayHoldAll(bytes)) return std::nullopt;
  const Page page = ForReaders(ParsePage(DecodeText(bytes)));
  Match match;
  if (!Confirm(match, page, words_)) return std::nullopt;
  match.title = page.title;
  return match;
}

}  // namespace book
