// The names in one of the host's folders.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/text/text.h"

namespace platform {

enum class ListedKind : std::uint8_t { kFiles, kFolders };

std::vector<Text> ListHostFolder(TextView path, ListedKind kind);

}  // namespace platform
