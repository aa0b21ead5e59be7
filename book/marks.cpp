#include "book/marks.h"

#include "book/fold.h"

namespace book {
namespace {

// Where each term stands next, from a place on that only grows.
class NextOfEach {
 public:
  NextOfEach(const QString& folded, const std::vector<Term>& terms)
      : text_(UnitsOf(folded)), terms_(terms) {
    for (const Term& term : terms) next_.push_back(term.In(text_));
  }

  // The first from the place on; the longest of those that start together.
  std::optional<Stretch> From(std::size_t place) {
    std::optional<Stretch> first;
    for (std::size_t i = 0; i < terms_.size(); ++i) {
      std::optional<Stretch>& next = next_[i];
      if (next && next->start < place) next = terms_[i].In(text_, place);
      if (next && (!first || next->start < first->start)) first = next;
    }
    return first;
  }

 private:
  std::u16string_view text_;
  const std::vector<Term>& terms_;
  std::vector<std::optional<Stretch>> next_;
};

}  // namespace

std::vector<Mark> MarksIn(const QString& text, const Query& query, std::size_t most) {
  std::vector<Mark> marks;
  std::vector<qsizetype> origins;
  const QString folded = Folded(text, origins, query.Signs());
  NextOfEach nextOfEach(folded, query.Terms());
  qsizetype after = 0;  // of the last mark, in the text
  std::size_t place = 0;
  while (marks.size() < most) {
    const std::optional<Stretch> found = nextOfEach.From(place);
    if (!found) break;
    place = found->start + found->length;
    const qsizetype start = origins[found->start];
    const qsizetype end = origins[place - 1] + 1;
    if (start < after) continue;  // it starts within a ligature that is marked already
    marks.push_back({start, end - start});
    after = end;
  }
  return marks;
}

}  // namespace book
