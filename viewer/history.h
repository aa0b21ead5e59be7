// The places through which a reader has come, as a browser keeps them.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "viewer/memory.h"

namespace viewer {

// The index where it is no place of the book.
struct Spot {
  std::optional<BookPlace> place;
  bool isSearch = false;
};

class History {
 public:
  // Of the spot where the reader is: its place in the page is another by now.
  void Update(const Spot& spot);
  // After the current one; those after it are dropped. The same entry once more is no new spot.
  void Add(const Spot& spot);
  // Back (-1) or forward (1); nothing where there is no way.
  std::optional<Spot> Move(int by);

 private:
  static constexpr std::size_t kMost = 500;

  std::vector<Spot> spots_ = {{}};  // from the index on
  std::size_t current_ = 0;
};

}  // namespace viewer
