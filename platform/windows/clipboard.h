// The system's clipboard, as text whose lines end in CR LF.
#pragma once

#include "platform/text/text.h"

namespace platform {

bool ClipboardHasText();
Text ClipboardText();
void SetClipboardText(TextView text);

}  // namespace platform
