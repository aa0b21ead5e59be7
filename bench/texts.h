// Persian texts to measure with: made of common words by a fixed rule, so that every run and every
// machine works on the same ones.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/text/text.h"

namespace bench {

// As an editor gets it: paragraphs of some hundred characters with CR LF after them, blanks around
// line breaks, leftovers of markup, dotless yes. Exactly `characters` long and the same in
// Windows-1256, where each character is a byte.
platform::Text RawText(std::size_t characters, std::uint32_t seed = 1);

// The same kind of text without leftovers, as it stands in the workbench.
platform::Text CleanText(std::size_t characters, std::uint32_t seed = 1);

// One line of four to seven words, without any mark.
platform::Text Heading(std::uint32_t seed);

// How the letters of a paragraph are written: as words with a number, as bytes of the code page, or
// by turns.
enum class Spelling : std::uint8_t { kUnits, kBytes, kMixed };

// Rich text as word processors write it, of `bytes` bytes and a little more, all its paragraphs in
// one spelling.
std::string RichText(std::size_t bytes, Spelling spelling);
// Of as much, each paragraph in the next of the three spellings.
std::string RichText(std::size_t bytes);

}  // namespace bench
