#include "viewer/book/marks.h"

#include "viewer/book/fold.h"

namespace viewer {
namespace {

constexpr std::size_t kMostMarks = 100;

struct FoldedText {
  QString text;
  std::vector<qsizetype> places;  // of each character in the original
};

FoldedText Fold(const QString& text) {
  FoldedText folded;
  folded.text.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    const char16_t character = FoldedCharacter(text[i].unicode());
    if (character == 0) continue;
    folded.text += QChar(character);
    folded.places.push_back(i);
  }
  return folded;
}

}  // namespace

std::vector<Mark> MarksIn(const QString& text, const QStringList& foldedWords) {
  std::vector<Mark> marks;
  const FoldedText folded = Fold(text);
  for (qsizetype at = 0; at < folded.text.size() && marks.size() < kMostMarks;) {
    qsizetype nearest = -1;
    qsizetype length = 0;
    for (const QString& word : foldedWords) {
      const qsizetype found = folded.text.indexOf(word, at);
      if (found < 0 || (nearest >= 0 && found >= nearest)) continue;
      nearest = found;
      length = word.size();
    }
    if (nearest < 0) break;
    const qsizetype start = folded.places[static_cast<std::size_t>(nearest)];
    const qsizetype last = folded.places[static_cast<std::size_t>(nearest + length - 1)];
    marks.push_back({start, last + 1 - start});
    at = nearest + length;
  }
  return marks;
}

}  // namespace viewer
