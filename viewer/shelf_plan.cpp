#include "viewer/shelf_plan.h"

#include <algorithm>

namespace viewer {
namespace {

constexpr int kGap = 16;
constexpr int kPadding = 14;

// Three shelves fill the view.
int CardHeight(int view, const Layout& layout) {
  const int third = (view - ShelfPlan::kMargin - ShelfPlan::kCreditHeight) / 3 - 2 * kPadding;
  return std::clamp(third - layout.aboveCards, layout.lowestCard, layout.highestCard);
}

}  // namespace

ShelfPlan::ShelfPlan(const std::vector<book::Collection>& collections) {
  for (std::size_t i = 0; i < collections.size(); ++i) {
    if (i == 0 || collections[i].row != collections[i - 1].row) shelves_.emplace_back().first = i;
    ++shelves_.back().count;
  }
}

// The cards of a line, in its middle.
void ShelfPlan::Arrange(Shelf& shelf, int inner, const Layout& layout) {
  const int height = shelf.card.height();
  const int narrowest = layout.narrowestCard.For(height);
  const int fitting = std::max(1, (inner + kGap) / (narrowest + kGap));
  shelf.columns = std::clamp(shelf.count, 1, fitting);
  const int each =
      std::min(layout.widestCard.For(height), (inner - (shelf.columns - 1) * kGap) / shelf.columns);
  shelf.card.setWidth(each);
  const int used = shelf.columns * each + (shelf.columns - 1) * kGap;
  shelf.right = kMargin + kPadding + inner - (inner - used) / 2;
}

void ShelfPlan::Fit(QSize view, const Layout& layout) {
  const int inner = view.width() - 2 * kMargin - 2 * kPadding;
  int top = kMargin;
  for (Shelf& shelf : shelves_) {
    shelf.card.setHeight(CardHeight(view.height(), layout));
    Arrange(shelf, inner, layout);
    const int lines = (shelf.count + shelf.columns - 1) / shelf.columns;
    const int high = 2 * kPadding + lines * shelf.card.height() + (lines - 1) * kGap;
    shelf.ground = {kMargin, top, view.width() - 2 * kMargin, high};
    top += high + layout.betweenRows;
  }
  height_ = std::max(top + kCreditHeight - layout.betweenRows, view.height());
}

std::vector<QRect> ShelfPlan::Shelves() const {
  std::vector<QRect> grounds;
  for (const Shelf& shelf : shelves_) grounds.push_back(shelf.ground);
  return grounds;
}

QRect ShelfPlan::PlaceOf(std::size_t card) const {
  const auto after = std::ranges::upper_bound(shelves_, card, {}, &Shelf::first);
  const Shelf& shelf = *std::prev(after);
  const int number = static_cast<int>(card - shelf.first);
  const int x = shelf.right - (number % shelf.columns) * (shelf.card.width() + kGap);
  const int y =
      shelf.ground.top() + kPadding + (number / shelf.columns) * (shelf.card.height() + kGap);
  return {QPoint(x - shelf.card.width(), y), shelf.card};
}

ShelfPlan::Range ShelfPlan::CardsWithin(int top, int bottom) const {
  Range range;
  for (const Shelf& shelf : shelves_) {
    const int start = shelf.ground.top() + kPadding;
    const int line = shelf.card.height() + kGap;
    if (bottom <= start || top > shelf.ground.bottom()) continue;
    const int firstLine = std::max(0, (top - start) / line);
    const int endLine = (bottom - start + line - 1) / line;
    const auto cardOf = [&shelf](int lines) {
      return shelf.first + static_cast<std::size_t>(std::min(lines, shelf.count) * shelf.columns);
    };
    const std::size_t last = shelf.first + static_cast<std::size_t>(shelf.count);
    if (range.end == 0) range.first = std::min(cardOf(firstLine), last - 1);
    range.end = std::min(cardOf(endLine), last);
  }
  return range;
}

}  // namespace viewer
