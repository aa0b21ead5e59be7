// A table's column that has no end: reading past it gives an empty value, writing makes it grow.
#pragma once

#include <cstddef>
#include <deque>
#include <utility>

#include "platform/failure.h"

namespace platform {

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
    if (at >= rows_.size()) rows_.resize(at + 1);
    return rows_[at];
  }
  void Set(std::ptrdiff_t row, T value) { At(row) = std::move(value); }
  // How many rows were ever written since the last Clear.
  std::ptrdiff_t Count() const { return static_cast<std::ptrdiff_t>(rows_.size()); }
  void Clear() { rows_.clear(); }

 private:
  static std::size_t Checked(std::ptrdiff_t row) {
    if (row < 0) throw Failure(u"Subscript out of range");
    return static_cast<std::size_t>(row);
  }
  // Not a vector: it would move its rows, and one of bool has nothing to refer to.
  std::deque<T> rows_;
};

}  // namespace platform
