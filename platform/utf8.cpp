#include "platform/utf8.h"

#include <algorithm>

namespace platform {
namespace {

constexpr char32_t kLastCharacter = 0x10FFFF;

// How many bytes a character takes that begins with `lead`; 0 for a byte that begins none.
std::size_t LengthByLead(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  if (lead >= 0xF0 && lead < 0xF5) return 4;
  return 0;
}

bool IsShortestForm(char32_t character, std::size_t length) {
  if (length == 3) return character >= 0x800;
  if (length == 4) return character >= 0x10000;
  return true;
}

char TrailByte(char32_t character, unsigned shift) {
  return static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
}

}  // namespace

Utf8Step FirstOfUtf8(std::string_view bytes) {
  if (bytes.empty()) return {};
  const auto lead = static_cast<unsigned char>(bytes[0]);
  const std::size_t length = LengthByLead(lead);
  if (length == 0 || bytes.size() < length) return {};
  if (length == 1) return {lead, 1};
  char32_t character = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const auto trail = static_cast<unsigned char>(bytes[i]);
    if ((trail & 0xC0U) != 0x80U) return {};
    character = (character << 6) | (trail & 0x3FU);
  }
  if (!IsShortestForm(character, length)) return {};
  if (IsSurrogate(character) || character > kLastCharacter) return {};
  return {character, length};
}

Utf16Step FirstOfUtf16(TextView text) {
  const char32_t lead = text[0];
  if ((lead & 0xFC00U) != 0xD800U || text.size() < 2) return {lead, 1};
  const char32_t trail = text[1];
  if ((trail & 0xFC00U) != 0xDC00U) return {lead, 1};
  return {0x10000U + ((lead - 0xD800U) << 10) + (trail - 0xDC00U), 2};
}

void AppendCharacter(std::string& utf8, char32_t character) {
  if (character < 0x80) {
    utf8 += static_cast<char>(character);
    return;
  }
  if (character < 0x800) {
    utf8 += static_cast<char>(0xC0U | (character >> 6));
  } else {
    if (character < 0x10000) {
      utf8 += static_cast<char>(0xE0U | (character >> 12));
    } else {
      utf8 += static_cast<char>(0xF0U | (character >> 18));
      utf8 += TrailByte(character, 12);
    }
    utf8 += TrailByte(character, 6);
  }
  utf8 += TrailByte(character, 0);
}

void AppendCharacter(Text& utf16, char32_t character) {
  if (character < 0x10000) {
    utf16 += static_cast<char16_t>(character);
    return;
  }
  utf16 += static_cast<char16_t>(0xD800U + ((character - 0x10000U) >> 10));
  utf16 += static_cast<char16_t>(0xDC00U + ((character - 0x10000U) & 0x3FFU));
}

}  // namespace platform
