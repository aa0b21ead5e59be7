// How a caption reaches the screen.
#pragma once

#include "platform/text/text.h"

namespace platform {

// Captions write U+200F where Persian writes a half-space inside a word. A modern text engine draws
// that mark as nothing and joins the letters, so between two letters it becomes U+200C here; a mark
// after punctuation stays, it keeps the punctuation on the left of its sentence.
Text ShownCaption(TextView caption);

}  // namespace platform
