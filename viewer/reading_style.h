// How a reader wants the book's texts: chosen in the window, remembered for the book.
#pragma once

#include <QString>
#include <optional>

#include "book/reading_text.h"
#include "viewer/look.h"

namespace viewer {

struct ReadingStyle {
  static constexpr int kSmallest = 13;
  static constexpr int kLargest = 44;
  static constexpr int kUsual = 17;

  int pixels = kUsual;   // the height of a page's letters; lists go along
  QString letters;       // a font's family; empty: the book's own
  int lineHeight = 165;  // per cent
  bool justified = false;
  std::optional<Light> light;  // none: the one of the book's layout
  book::Digits digits = book::Digits::kAsTheyAre;

  bool operator==(const ReadingStyle&) const = default;
};

// With each value within its bounds.
ReadingStyle Bounded(ReadingStyle style);
const Look& LookIn(const std::optional<Light>& light, int layout);
// The height of letters in lists, where it is `usual` in a book that nobody has changed.
int ListPixels(const ReadingStyle& style, int usual);

}  // namespace viewer
