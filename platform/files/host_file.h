// Opening one of the host's files, in each of the three ways. Failure where it can't be, or is no
// ordinary file.
#pragma once

#include <memory>
#include <string>

#include "platform/files/file_system.h"
#include "platform/files/host_flush.h"
#include "platform/text/text.h"

namespace platform {

[[nodiscard]] std::unique_ptr<OpenedFile> OpenHostFileToRead(TextView path);

// `noted` says of the path what the host need not be asked again, and is told it.
[[nodiscard]] std::unique_ptr<OpenedFile> OpenHostFileToWrite(TextView path, std::string hostPath,
                                                              OpenMode mode, bool create,
                                                              NotedPath& noted);

}  // namespace platform
