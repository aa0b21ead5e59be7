// Where the cards of the index stand: each row of the book on a shelf of its own, from right to
// left, in as many lines as it needs. Any card is found without a look at the others.
#pragma once

#include <QRect>
#include <QSize>
#include <cstddef>
#include <vector>

#include "book/index.h"
#include "viewer/layout.h"

namespace viewer {

// Pixels from the top left of all that can be scrolled through.
class ShelfPlan {
 public:
  static constexpr int kMargin = 22;        // around the shelves
  static constexpr int kCreditHeight = 26;  // of the line below them

  // Of collections that stand by row; goes through them once.
  explicit ShelfPlan(const std::vector<book::Collection>& collections);

  // For a view of this size.
  void Fit(QSize view, const Layout& layout);

  int Height() const { return height_; }
  std::vector<QRect> Shelves() const;
  // Of the card with this number, from 0 on.
  QRect PlaceOf(std::size_t card) const;

  struct Range {
    std::size_t first = 0;
    std::size_t end = 0;  // after the last
  };
  // Those that stand there in whole or in part, and what lies between them.
  Range CardsWithin(int top, int bottom) const;

 private:
  struct Shelf {
    std::size_t first = 0;
    int count = 0;
    QRect ground;
    int right = 0;    // of the first card of a line
    int columns = 1;  // cards of a line
    QSize card;
  };
  static void Arrange(Shelf& shelf, int inner, const Layout& layout);

  std::vector<Shelf> shelves_;
  int height_ = 0;
};

}  // namespace viewer
