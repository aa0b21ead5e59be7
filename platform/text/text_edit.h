// A change of a large text, told without the text.
#pragma once

#include "platform/text/text.h"

namespace platform {

// From `start` on, `removed` characters went and `added` came. Paragraph ends are "\n" and count
// one, as everywhere in a text box of many paragraphs.
struct TextEdit {
  Position start = 0;
  Position removed = 0;
  Text added;
};

}  // namespace platform
