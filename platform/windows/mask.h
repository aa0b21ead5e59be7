// File masks as a file list takes them.
#pragma once

#include "platform/text/text.h"

namespace platform {

// True where the name fits one of the masks, which ";" separates: "*" is any run of characters, "?"
// any one; letter case doesn't count. "*.*" fits every name, also one without a dot.
bool FitsMasks(TextView name, TextView masks);

}  // namespace platform
