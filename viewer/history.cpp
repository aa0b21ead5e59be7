#include "viewer/history.h"

namespace viewer {
namespace {

bool IsSameEntry(const Spot& a, const Spot& b) {
  if (a.isSearch != b.isSearch || a.place.has_value() != b.place.has_value()) return false;
  return !a.place ||
         (a.place->collection == b.place->collection && a.place->source == b.place->source);
}

}  // namespace

void History::Update(const Spot& spot) {
  if (IsSameEntry(spots_[current_], spot)) spots_[current_] = spot;
}

void History::Add(const Spot& spot) {
  if (IsSameEntry(spots_[current_], spot)) return;
  spots_.resize(current_ + 1);
  if (spots_.size() == kMost) spots_.erase(spots_.begin());
  spots_.push_back(spot);
  current_ = spots_.size() - 1;
}

std::optional<Spot> History::Move(int by) {
  const bool isWay = by < 0 ? current_ > 0 : current_ + 1 < spots_.size();
  if (!isWay) return std::nullopt;
  current_ = by < 0 ? current_ - 1 : current_ + 1;
  return spots_[current_];
}

}  // namespace viewer
