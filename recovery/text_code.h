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

// The same for rich text, whose "\u1575?" takes the room of the character that it stands for. Only
// for a text that IsFoldable says yes to.
bool IsFoldable(platform::TextView text);
void AppendFolded(std::string& bytes, platform::TextView richText);
platform::Text Unfolded(std::string_view bytes);

}  // namespace recovery
