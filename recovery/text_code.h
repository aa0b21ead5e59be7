// How a record holds text: a byte a character of the machine's code page, which is what the texts
// come in. Nothing is lost of any other text; it takes more room.
#pragma once

#include <string>
#include <string_view>

#include "platform/text/text.h"

namespace recovery {

void AppendCoded(std::string& bytes, platform::TextView text);
// Failure for bytes that no text has.
platform::Text Decoded(std::string_view bytes);

// The same for rich text: what the window writes at a paragraph's end takes a byte. False, and
// nothing is added, for what is no rich text and for what would be unfolded to more than eight
// times its bytes.
[[nodiscard]] bool Fold(std::string& bytes, platform::TextView richText);
platform::Text Unfolded(std::string_view bytes);

}  // namespace recovery
