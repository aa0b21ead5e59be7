// From the bytes of a record back to the work.
#pragma once

#include <optional>
#include <string_view>

#include "recovery/work.h"

namespace recovery {

// The work as far as the file tells it whole; what follows a piece that was torn off or damaged is
// left out. Nothing for a file that isn't readable, or whose pieces are whole and make no sense.
// Takes memory in the measure of the file's size.
[[nodiscard]] std::optional<Work> ReadRecord(std::string_view file);

// Whose work a file tells of, by its beginning alone; nothing where that isn't readable.
[[nodiscard]] std::optional<Collection> ReadCollection(std::string_view beginning);
// So much of a file's beginning is enough for that.
inline constexpr std::size_t kBeginning = std::size_t{64} * 1024;

}  // namespace recovery
