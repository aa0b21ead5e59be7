// The toolkit's fence: Qt lives in platform/qt, the viewer and the tests' and tools' own folders.
#pragma once

#include <string_view>
#include <vector>

#include "tests/house/source_tree.h"

namespace house {

// Whether an include's name is one of Qt's headers.
bool IsToolkitHeader(std::string_view name);

// Includes of Qt, written or brought in through another file, and names of Qt's types.
std::vector<Offence> FenceOffences(const SourceTree& tree);

// Handlers of exceptions outside the two files that may have one.
std::vector<Offence> CatchOffences(const SourceTree& tree);

}  // namespace house
