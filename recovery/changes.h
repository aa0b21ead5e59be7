// From the work to the bytes of its record.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "platform/text/text.h"
#include "recovery/work.h"

namespace recovery {

// What a piece can tell. The numbers stand on the disk.
enum class Change : std::uint8_t {
  kText = 1,        // number, text
  kNumber = 2,      // number, value
  kClear = 3,       // column
  kRows = 4,        // column, first row, how many, their texts
  kClearSlots = 5,  // column of a grid, row
  kSlots = 6,       // column of a grid, row, first slot, how many, their texts
  kGap = 7,         // row that went, last row that stayed
  kLineCame = 8,    // row
  kLineWent = 9,    // row
  kRest = 10,       // start, how much went, what came
};

// The small things of the work as the record has them.
struct Recorded {
  std::array<platform::Text, kTextFields> texts;
  std::array<std::ptrdiff_t, kNumberFields> numbers{};
};

// The content of the piece that tells what has changed since the last call; empty if nothing has.
// Costs what has changed, whatever is filed already.
std::string ChangesOf(LiveWork& work, Recorded& recorded);

// The file that tells all of it, head and pieces; it counts as told from then on. A part of that
// file, cut after any piece, is the work with fewer rows.
std::string WholeRecord(LiveWork& work, Recorded& recorded);

}  // namespace recovery
