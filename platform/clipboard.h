// The system's clipboard, as text.
#pragma once

#include "platform/text.h"

namespace platform {

bool ClipboardHasText();
Text ClipboardText();
void SetClipboardText(TextView text);

}  // namespace platform
