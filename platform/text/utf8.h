// UTF-8 one character at a time, for those who decide themselves what a bad byte becomes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/text/text.h"

namespace platform {

struct Utf8Step {
  char32_t character = 0;
  std::size_t length = 0;  // in bytes; 0 where the bytes begin with no well-formed character
};

// The character that `bytes` begins with (Unicode 15, table 3-7: no overlong form, no surrogate).
Utf8Step FirstOfUtf8(std::string_view bytes);

struct Utf16Step {
  char32_t character = 0;
  std::size_t length = 0;  // in units; a lone surrogate is given as it is
};

// The character that `text`, which must not be empty, begins with.
Utf16Step FirstOfUtf16(TextView text);

constexpr bool IsSurrogate(char32_t character) { return (character & 0xFFFFF800U) == 0xD800U; }

void AppendCharacter(std::string& utf8, char32_t character);
void AppendCharacter(Text& utf16, char32_t character);

}  // namespace platform
