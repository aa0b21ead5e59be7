// A change of a large text, told without the text.
#pragma once

#include "platform/text/text.h"

namespace platform {

// From `start` on, so many characters went and so many came. Paragraph ends are "\n" and count one,
// as everywhere in a text box of many paragraphs.
struct TextEdit {
  Position start = 0;
  Position removed = 0;
  Position added = 0;
};

}  // namespace platform
