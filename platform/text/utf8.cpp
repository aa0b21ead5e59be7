#include "platform/text/utf8.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <array>

namespace platform {

// The library's macro narrows.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
Utf8Step FirstOfUtf8(std::string_view bytes) {
  if (bytes.empty()) return {};
  std::size_t length = 0;
  UChar32 character = 0;
  U8_NEXT(bytes, length, bytes.size(), character);
  if (character < 0) return {};
  return {static_cast<char32_t>(character), length};
}
#pragma GCC diagnostic pop

Utf16Step FirstOfUtf16(TextView text) {
  std::size_t length = 0;
  UChar32 character = 0;
  U16_NEXT(text, length, text.size(), character);
  return {static_cast<char32_t>(character), length};
}

void AppendCharacter(std::string& utf8, char32_t character) {
  std::array<char, U8_MAX_LENGTH> bytes{};
  std::size_t length = 0;
  U8_APPEND_UNSAFE(bytes, length, character);
  utf8.append(bytes.data(), length);
}

void AppendCharacter(Text& utf16, char32_t character) {
  std::array<char16_t, U16_MAX_LENGTH> units{};
  std::size_t length = 0;
  U16_APPEND_UNSAFE(units, length, character);
  utf16.append(units.data(), length);
}

}  // namespace platform
