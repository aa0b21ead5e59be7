// The code pages that rich text names, ready for reading text with one look a byte.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "platform/text.h"

namespace platform::rtf {

struct CodePage {
  explicit CodePage(int pageNumber);

  // Whether `byte` is the first of two. UTF-8 has no such bytes: none of its later bytes is ASCII.
  bool IsLead(unsigned char byte) const;
  // The character of a byte, or 0 where the byte alone has none.
  char16_t Character(unsigned char byte) const { return all[byte]; }

  int number;
  bool severalBytes;                  // a character can have more than one
  std::array<char16_t, 256> all;      // every byte's own character
  std::array<char16_t, 256> letters;  // the same, but 0 for what isn't simply text: control
                                      // characters and the three signs that RTF itself uses
};

// Made when it is first asked for; lives as long as the process. Numbers that RTF 1.9.1 doesn't
// know count as 1252.
const CodePage& GetCodePage(int number);

inline constexpr int kWesternCodePage = 1252;
// The page whose bytes show signs; they are read into the private area, as U+F000 + byte.
inline constexpr int kSymbolCodePage = 42;
// What stands for "as the document says".
inline constexpr int kDocumentCodePage = 0;

// The page of a font's \fcharset; kDocumentCodePage for 1 and for unknown ones.
int CodePageOfCharset(int charset);

}  // namespace platform::rtf
