// The code pages that rich text names, ready for reading text with one look a byte.
#pragma once

#include <string_view>

#include "platform/text/code_page.h"
#include "platform/text/text.h"

namespace platform::rtf {

class FontPage {
 public:
  // `page` has to outlive this; nullptr for the page of signs.
  FontPage(int number, const CodePage* page);

  int Number() const { return number_; }
  // Whether a character can have more than one byte. Those are read by Decode.
  bool HasSeveralBytes() const { return page_ != nullptr && page_->HasSeveralBytes(); }
  bool IsLead(unsigned char byte) const { return page_->IsLead(byte); }
  bool IsTrail(unsigned char byte) const { return page_->IsTrail(byte); }
  Text Decode(std::string_view bytes) const { return page_->Decode(bytes); }

  // The character of a byte, NUL where the byte alone has none.
  char16_t Character(unsigned char byte) const { return all_[byte]; }
  // The same of every byte, but NUL for what isn't simply text: control characters and the three
  // signs that RTF itself uses.
  const CharacterTable& Letters() const { return letters_; }

 private:
  int number_;
  const CodePage* page_;
  CharacterTable all_;
  CharacterTable letters_;
};

// Made when it is first asked for; lives as long as the process. Unknown numbers count as 1252.
const FontPage& GetFontPage(int number);

inline constexpr int kWesternCodePage = 1252;
inline constexpr int kShiftJisCodePage = 932;
// The page whose bytes show signs; they are read into the private area, as U+F000 + byte.
inline constexpr int kSymbolCodePage = 42;
// What stands for "as the document says".
inline constexpr int kDocumentCodePage = 0;

// The page of a font's \fcharset; kDocumentCodePage for 1 and for unknown ones.
int CodePageOfCharset(int charset);

}  // namespace platform::rtf
