#include "book/query.h"

#include <QChar>
#include <QStringList>
#include <algorithm>
#include <cstring>
#include <utility>

namespace book {
namespace {

constexpr std::size_t kNone = std::u16string_view::npos;
constexpr std::u16string_view kCarriers =
    u"\u0627\u0648\u06CC\u0626";  // alef, waw, yeh; with hamza

bool IsCarrier(char16_t c) { return kCarriers.find(c) != kNone; }

bool AreAlike(char16_t a, char16_t b) {
  return a == b || (a == kYehWithHamza && IsCarrier(b)) || (b == kYehWithHamza && IsCarrier(a));
}

bool HasOneSpelling(char16_t c) { return c != u' ' && !IsCarrier(c); }

// The C library's search of bytes is the quickest there is; a character starts at an even one.
std::size_t FindUnits(std::u16string_view text, std::u16string_view what, std::size_t from) {
  const auto* const start = reinterpret_cast<const char*>(text.data());
  const char* at = start + 2 * from;
  const char* const end = start + 2 * text.size();
  while (at < end) {
    at = static_cast<const char*>(
        ::memmem(at, static_cast<std::size_t>(end - at), what.data(), 2 * what.size()));
    if (at == nullptr) return kNone;
    if ((at - start) % 2 == 0) return static_cast<std::size_t>(at - start) / 2;
    ++at;
  }
  return kNone;
}

// Where the text has gone through the wanted letters from `at` on; kNone where it doesn't.
std::size_t EndOf(std::u16string_view text, std::size_t at, std::u16string_view wanted) {
  for (const char16_t c : wanted) {
    if (at >= text.size() || !AreAlike(text[at], c)) return kNone;
    ++at;
    while (c == u' ' && at < text.size() && text[at] == u' ') ++at;
  }
  return at;
}

// The same backwards, from before `at` on.
std::size_t StartOf(std::u16string_view text, std::size_t at, std::u16string_view wanted) {
  for (; !wanted.empty(); wanted.remove_suffix(1)) {
    if (at == 0 || !AreAlike(text[at - 1], wanted.back())) return kNone;
    --at;
    while (wanted.back() == u' ' && at > 0 && text[at - 1] == u' ') --at;
  }
  return at;
}

bool IsOfWord(char16_t c) { return QChar(c).isLetterOrNumber() || QChar(c).isMark(); }

bool StandsAlone(std::u16string_view text, std::size_t start, std::size_t end) {
  return (start == 0 || !IsOfWord(text[start - 1])) && (end == text.size() || !IsOfWord(text[end]));
}

// The typed text's phrases (at odd places) and what stands between them. One that isn't closed goes
// on to the end.
QStringList AtQuotes(const QString& typed) {
  QString even = typed;
  for (const char16_t quote : {u'«', u'»', u'“', u'”', u'„'}) even.replace(QChar(quote), u'"');
  return even.split(u'"');
}

}  // namespace

std::u16string_view UnitsOf(const QString& text) {
  return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}

Term::Term(QString folded, bool isWhole) : folded_(std::move(folded)), isWhole_(isWhole) {
  const std::u16string_view units = UnitsOf(folded_);
  for (std::size_t start = 0; start < units.size();) {
    const auto* const end = std::find_if_not(units.begin() + start, units.end(), HasOneSpelling);
    const auto length = static_cast<std::size_t>(end - units.begin()) - start;
    if (length > anchorLength_) {
      anchor_ = start;
      anchorLength_ = length;
    }
    start += length + 1;
  }
}

std::u16string_view Term::Anchor() const { return UnitsOf(folded_).substr(anchor_, anchorLength_); }

std::optional<Stretch> Term::At(std::u16string_view text, std::size_t anchor) const {
  const std::u16string_view units = UnitsOf(folded_);
  const std::size_t start = StartOf(text, anchor, units.substr(0, anchor_));
  if (start == kNone) return std::nullopt;
  const std::size_t end =
      EndOf(text, anchor + anchorLength_, units.substr(anchor_ + anchorLength_));
  if (end == kNone || (isWhole_ && !StandsAlone(text, start, end))) return std::nullopt;
  return Stretch{start, end - start};
}

std::optional<Stretch> Term::In(std::u16string_view text, std::size_t from) const {
  for (std::size_t at = from; at < text.size(); ++at) {
    if (anchorLength_ > 0) at = FindUnits(text, Anchor(), at);
    if (at == kNone) break;
    const std::optional<Stretch> found = At(text, at);
    if (found && found->start >= from) return found;
  }
  return std::nullopt;
}

Query::Query(const Wish& wish) : signs_(wish.vowelSigns) {
  const auto take = [&](const QString& folded) {
    const QString term = folded.simplified();
    if (!term.isEmpty()) terms_.emplace_back(term, wish.wholeWords);
  };
  const QStringList pieces = AtQuotes(wish.words);
  for (qsizetype i = 0; i < pieces.size(); ++i) {
    const QString folded = Folded(pieces[i].simplified(), signs_);
    if (i % 2 == 1) {
      take(folded);
    } else {
      for (const QString& word : folded.split(u' ')) take(word);
    }
  }
  std::ranges::stable_sort(terms_, std::greater<>(),
                           [](const Term& term) { return term.Folded().size(); });
}

}  // namespace book
