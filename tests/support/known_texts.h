// The texts that the editor, the disk or the log must see, as tests/windows/data/constants.txt has
// them: written out by hand, once for all tests, and never taken from the program.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/text/text.h"

namespace testing_support {

struct KnownSection {
  std::string name;
  std::vector<std::pair<std::string, platform::Text>> texts;  // place, text with U+200F
};
// All of them, as they stand.
const std::vector<KnownSection>& KnownTexts();

// A text known at a place ("message 4"), by its number from 0 on. Throws where there is none.
const platform::Text& KnownText(const std::string& place, int number = 0);
const platform::Text& KnownMessage(int number);

// As the screen shows it, in UTF-8: between two letters a right-to-left mark is a half-space.
std::string AsShown(platform::TextView text);
// What the box of a message number shows.
std::string BoxText(int number);

}  // namespace testing_support
