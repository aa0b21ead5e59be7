// The arrows between the rooms: they point down, and nothing goes in a circle.
#pragma once

#include <vector>

#include "tests/house/source_tree.h"

namespace house {

// Includes of a room that the including room may not see; of a header that is neither the tree's
// nor the standard library's, written or brought in through another file, where that isn't allowed;
// and those whose name can't be read.
std::vector<Offence> ArrowOffences(const SourceTree& tree);

// Circles of includes between files, each reported once, at the include that closes it.
std::vector<Offence> CircleOffences(const SourceTree& tree);

// Sources that lie in no known room.
std::vector<Offence> HomelessOffences(const SourceTree& tree);

}  // namespace house
