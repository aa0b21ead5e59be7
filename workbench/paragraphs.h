// The rebuilding of a text's paragraphs: its line breaks dropped, a paragraph begun after each
// sentence mark, and long lines broken by the number of their words.
#pragma once

#include <cstdint>

#include "platform/text/text.h"

namespace workbench {

struct ParagraphRules {
  // Single line breaks become blanks, two in a row one break, runs of blanks one blank. The marker
  // "#0#" stands for such a break meanwhile, so one that the text already holds becomes a break.
  bool removeBreaks = true;
  // A line break after every ".", "!" and "؟"; U+200F in front of it but for the last.
  bool breakAtMarks = true;
  // How many words a line is broken after, if it has at least two words more. Below 1 counts as 1.
  std::int16_t wordLimit = 22;
};

// Empty lines in front of the first text vanish, and the result, unless it is empty, ends in CR LF.
// A line begins with no pair of U+200F and blank: clean texts have such pairs after their marks.
//
// Once a line has been broken k times, what lies in its last k characters counts as looked at, so
// its last piece can hold more words than the others. Linear in the text, whatever it holds; needs
// the memory of one copy.
platform::Text RebuildParagraphs(platform::Text text, const ParagraphRules& rules);

}  // namespace workbench
