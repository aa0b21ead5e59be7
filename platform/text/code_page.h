// The code pages of Windows, DOS, the Mac and ISO, by their Windows numbers.
#pragma once

#include <array>
#include <bitset>
#include <string_view>

#include "platform/text/text.h"

namespace platform {

using CharacterTable = std::array<char16_t, 256>;

class CodePage {
 public:
  CodePage(const CodePage&) = delete;
  CodePage& operator=(const CodePage&) = delete;
  virtual ~CodePage() = default;

  // Whether a character can have more than one byte.
  bool HasSeveralBytes() const { return severalBytes_; }
  // Every byte's own character. U+FFFD where it has none, and in a page of several bytes NUL for
  // all that isn't ASCII.
  const CharacterTable& Characters() const { return characters_; }
  // Whether `byte` is the first of two, and whether it can be the second. Only the East Asian pages
  // have such bytes.
  bool IsLead(unsigned char byte) const { return leads_[byte]; }
  bool IsTrail(unsigned char byte) const { return trails_[byte]; }
  // Whatever is no character becomes U+FFFD.
  virtual Text Decode(std::string_view bytes) const = 0;

 protected:
  using Bytes = std::bitset<256>;

  // A page of one byte a character.
  explicit CodePage(const CharacterTable& characters) : characters_(characters) {}
  // A page of several.
  CodePage(const Bytes& leads, const Bytes& trails);

 private:
  bool severalBytes_ = false;
  CharacterTable characters_{};
  Bytes leads_;
  Bytes trails_;
};

// Made when it is first asked for; lives as long as the process. nullptr for a number that is
// unknown.
const CodePage* FindCodePage(int number);

}  // namespace platform
