// Copying one of the host's files.
#pragma once

#include "platform/text/text.h"

namespace platform {

void CopyHostFile(TextView source, TextView target);

}  // namespace platform
