// The small text operations of the workbench: what a raw text goes through when it is opened, and
// how titles and texts are cut for a line. None of them looks at anything but its arguments.
#pragma once

#include <cstdint>

#include "platform/text/text.h"

namespace workbench {

// The clean-up of an input text. Ten replacements, each over the whole text and each seeing what
// the ones before it left: "&nbsp;" and "<ircMAIN>" become a blank, "</ircMAIN>" a line break, one
// blank in front of a line break goes and two after it, U+0649 becomes U+064A, and U+200F follows
// every "!", "." and ":". One pass over the text, however many of them apply.
platform::Text Rep(platform::Text text);

// Gives its argument back: a first character alone is never the pair CR LF, so a title keeps the
// line breaks in front of it. RemCrLf takes them out later. Form3's failure number for it is 58.
platform::Text DelCrLf(platform::TextView text);

// Text as one line: line breaks become blanks, then each pair of blanks one blank in a single pass
// (three leave two), then the blanks at both ends go.
platform::Text RemCrLf(platform::TextView text);

// A text of more than n characters cut after the first blank at or after position n (so that no
// word is cut), or to n characters where no blank follows, with "..." after it. Failure for n < 1
// (number 65).
platform::Text BeBor(platform::TextView text, std::int16_t n);

}  // namespace workbench
