#include "book/marks.h"

#include "book/fold.h"

namespace book {
namespace {

constexpr std::size_t kMostMarks = 100;

}  // namespace

std::vector<Mark> MarksIn(const QString& text, const QStringList& foldedWords) {
  std::vector<Mark> marks;
  std::vector<qsizetype> origins;
  const QString folded = Folded(text, origins);
  qsizetype after = 0;  // of the last mark, in the text
  for (qsizetype at = 0; at < folded.size() && marks.size() < kMostMarks;) {
    qsizetype nearest = -1;
    qsizetype length = 0;
    for (const QString& word : foldedWords) {
      const qsizetype found = folded.indexOf(word, at);
      if (found < 0 || (nearest >= 0 && found >= nearest)) continue;
      nearest = found;
      length = word.size();
    }
    if (nearest < 0) break;
    const qsizetype start = origins[static_cast<std::size_t>(nearest)];
    const qsizetype last = origins[static_cast<std::size_t>(nearest + length - 1)];
    at = nearest + length;
    if (start < after) continue;  // it starts within a ligature that is marked already
    marks.push_back({start, last + 1 - start});
    after = last + 1;
  }
  return marks;
}

}  // namespace book
