// How long functions and files are.
#pragma once

#include <string_view>
#include <vector>

#include "tests/house/source_tree.h"

namespace house {

inline constexpr int kLongestFunction = 45;  // lines, from its first word to its closing brace
inline constexpr int kLongestFile = 600;

// Of code without comments and literals (BareCode).
std::vector<Function> FunctionsOf(std::string_view bareCode);

// Functions and files that can't be seen whole.
std::vector<Offence> LengthOffences(const SourceTree& tree);

}  // namespace house
