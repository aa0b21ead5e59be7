// The player's search over a page. The first byte counts the characters of the words that are
// sought, the words follow, then the page as it stands on disk.
#include <QByteArrayView>
#include <QString>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>

#include "book/fold.h"
#include "book/marks.h"
#include "book/page.h"
#include "book/page_search.h"
#include "book/query.h"
#include "book/text_file.h"

namespace {

using book::Folded;
using book::Match;
using book::Page;
using book::Query;
using book::Term;

void Require(bool holds) {
  if (!holds) std::abort();
}

QStringList TextsOf(const Page& page) {
  QStringList texts = {page.title};
  for (const book::PagePart& part : page.parts) {
    texts += part.kind == book::PagePart::Kind::kParagraph ? part.text : QString();
  }
  return texts;
}

// The plain way, without a look at the bytes first.
bool Holds(const QString& text, const Term& term) {
  const QString folded = Folded(text);
  return term.In(book::UnitsOf(folded)).has_value();
}

bool HoldsAll(const QStringList& texts, const Query& query) {
  return std::ranges::all_of(query.Terms(), [&](const Term& term) {
    return std::ranges::any_of(texts, [&](const QString& text) { return Holds(text, term); });
  });
}

// A word may start or end within a ligature, which is one character.
bool HoldsOne(const QString& text, const Query& query) {
  return std::ranges::any_of(query.Terms(), [&](const Term& term) { return Holds(text, term); });
}

void CheckMatch(const Match& match, const QStringList& texts, const Query& query) {
  Require(match.part >= -1 && match.part + 1 < texts.size());
  const QString& text = texts[match.part + 1];
  const QString found = text.sliced(match.offset, match.matchLength);
  Require(HoldsOne(found, query));
  Require(match.snippet.sliced(match.matchStart, match.matchLength) == found);
  Require(text.contains(match.snippet));
  for (int part = -1; part < match.part; ++part) {
    for (const Term& term : query.Terms()) Require(!Holds(texts[part + 1], term));
  }
}

void CheckMarks(const QString& text, const Query& query) {
  const std::vector<book::Mark> marks = book::MarksIn(text, query);
  qsizetype after = 0;
  for (const book::Mark& mark : marks) {
    Require(mark.start >= after && mark.length > 0);
    after = mark.start + mark.length;
    Require(after <= text.size());
    Require(HoldsOne(text.sliced(mark.start, mark.length), query));
  }
  Require(HoldsOne(text, query) == !marks.empty());
}

void CheckTerms(const Query& query) {
  for (const Term& term : query.Terms()) {
    const QString& folded = term.Folded();
    Require(!folded.isEmpty() && folded == folded.simplified() && Folded(folded) == folded);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const QByteArrayView bytes(reinterpret_cast<const char*>(data) + 1,
                             static_cast<qsizetype>(size) - 1);
  const qsizetype wordBytes = std::min(qsizetype{data[0]} * 2, bytes.size());
  const QString typed = book::DecodeText(bytes.first(wordBytes));
  const QByteArrayView file = bytes.sliced(wordBytes);

  const Query query({.words = typed});
  CheckTerms(query);
  const Page page = book::ForReaders(book::ParsePage(book::DecodeText(file)));
  const QStringList texts = TextsOf(page);
  book::PageSearch search(query);
  const std::optional<Match> match = search.Find(file);
  Require(match.has_value() == (!query.IsEmpty() && HoldsAll(texts, query)));
  if (match) CheckMatch(*match, texts, query);
  for (const QString& text : texts) CheckMarks(text, query);
  return 0;
}
