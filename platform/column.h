// A table's column that has no end: reading past it gives an empty value, writing makes it grow.
// It knows which of its rows may have changed lately, for whoever keeps a record of it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <utility>

#include "platform/failure.h"

namespace platform {

// The rows from `first` to the one before `end`; no row where both are the same.
struct RowRange {
  std::ptrdiff_t first = 0;
  std::ptrdiff_t end = 0;

  bool IsEmpty() const { return first >= end; }
  // Takes in all rows between, too: what is written in one go lies together.
  void Add(std::ptrdiff_t from, std::ptrdiff_t to) {
    *this = IsEmpty() ? RowRange{from, to} : RowRange{std::min(first, from), std::max(end, to)};
  }
};

template <typename T>
class Column {
 public:
  // The value of the row, an empty one past the end. Failure for a negative row.
  const T& operator()(std::ptrdiff_t row) const {
    static const T kEmpty{};
    const std::size_t at = Checked(row);
    return at < rows_.size() ? rows_[at] : kEmpty;
  }
  // The row, made if it is not there yet. Failure for a negative row. Rows stay where they are
  // while the table grows, so a row can be written from another one: At(7) = column(2).
  T& At(std::ptrdiff_t row) {
    const std::size_t at = Checked(row);
    touched_.Add(std::min(row, Count()), row + 1);
    if (at >= rows_.size()) rows_.resize(at + 1);
    return rows_[at];
  }
  void Set(std::ptrdiff_t row, T value) { At(row) = std::move(value); }
  // How many rows were ever written since the last Clear.
  std::ptrdiff_t Count() const { return static_cast<std::ptrdiff_t>(rows_.size()); }
  void Clear() {
    rows_.clear();
    touched_ = {};
    wasCleared_ = true;
  }

  // Puts a row in front of `row`, or takes it out; those after it move. Failure for a negative
  // row.
  void Insert(std::ptrdiff_t row, T value) {
    const std::size_t at = Checked(row);
    if (at >= rows_.size()) return Set(row, std::move(value));
    rows_.insert(rows_.begin() + row, std::move(value));
    if (touched_.first >= row) ++touched_.first;
    if (touched_.end > row) ++touched_.end;
    touched_.Add(row, row + 1);
  }
  void Remove(std::ptrdiff_t row) {
    if (Checked(row) < rows_.size()) rows_.erase(rows_.begin() + row);
    if (touched_.first > row) --touched_.first;
    if (touched_.end > row) --touched_.end;
  }
  // Each row from `row` to the one before `last` gets the value of the one after it; the last
  // keeps its own. Failure for a negative row.
  void MoveUp(std::ptrdiff_t row, std::ptrdiff_t last) {
    for (std::size_t at = Checked(row); at < Checked(last) && at < rows_.size(); ++at) {
      const bool moves = at + 1 < Checked(last) && at + 1 < rows_.size();
      rows_[at] =
          moves ? std::move(rows_[at + 1]) : T((*this)(static_cast<std::ptrdiff_t>(at) + 1));
    }
    if (!touched_.IsEmpty() && touched_.first > row) --touched_.first;
  }

  // The rows that were written since the last Settle, or since a Clear after that, counted as they
  // stand now. What Insert, Remove and MoveUp have only moved doesn't count.
  const RowRange& Touched() const { return touched_; }
  bool WasCleared() const { return wasCleared_; }
  void Settle() {
    touched_ = {};
    wasCleared_ = false;
  }

 private:
  static std::size_t Checked(std::ptrdiff_t row) {
    if (row < 0) throw Failure(u"Subscript out of range");
    return static_cast<std::size_t>(row);
  }
  // Not a vector: it would move its rows, and one of bool has nothing to refer to.
  std::deque<T> rows_;
  RowRange touched_;
  bool wasCleared_ = false;
};

}  // namespace platform
