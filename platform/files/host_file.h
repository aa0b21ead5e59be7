// Opening one of the host's files, in each of the three ways.
#pragma once

#include <memory>

#include "platform/files/file_system.h"
#include "platform/text/text.h"

namespace platform {

[[nodiscard]] std::unique_ptr<OpenedFile> OpenHostFile(TextView path, OpenMode mode, bool create);

}  // namespace platform
