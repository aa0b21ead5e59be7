// What a power cut has left of an index: its end at any byte, and NULs where bytes weren't on the
// disk yet. The file may have been written by hand in part, and nothing of that may be lost.
#pragma once

#include <optional>
#include <string_view>

#include "platform/text/text.h"

namespace workbench {

// The index as it is to be written anew, to which a line of the collection `name` ("aTitle1") can
// then be added; nothing where none of it is torn. What is certainly a piece of a torn line goes:
// half a character, NULs, a line without its beginning, the beginning of an open tag, and what
// there is of a line of `name`, as that is written anew. Of another collection's line the title
// stays and gets its close tag. The head is completed, and a line end of which the LF is missing.
// Linear.
[[nodiscard]] std::optional<platform::Text> MendedIndex(std::string_view bytes,
                                                        platform::TextView head,
                                                        platform::TextView name);

}  // namespace workbench
