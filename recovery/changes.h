// From the work to the bytes of its record.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

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
  kRest = 10,       // start, how much went, what came: after what kRestPart has told
  kRestPart = 11,   // the next part of what comes, no change yet
};

// The small things of the work as the record has them.
struct Recorded {
  std::array<platform::Text, kTextFields> texts;
  std::array<std::ptrdiff_t, kNumberFields> numbers{};
};

// Gets bytes for the end of the record, in their order.
using RecordSink = std::function<void(std::string_view bytes)>;

// The pieces that tell what has changed since the last call; none if nothing has. The last of them
// makes the change, those before it hold parts of a text that is too long for one. Costs what has
// changed, whatever is filed already, and no more memory than a piece.
void TellChanges(LiveWork& work, Recorded& recorded, const RecordSink& sink);

// The file that tells all of it, head and pieces; it counts as told from then on. A part of that
// file, cut after any piece, is the work with fewer rows.
void TellWhole(LiveWork& work, Recorded& recorded, const RecordSink& sink);

}  // namespace recovery
