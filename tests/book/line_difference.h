// What differs between two texts, line by line.
#pragma once

#include <string>

namespace book {

// All lines in order: "  " before one that both have, "- " before one of `expected` alone, "+ "
// before one of `actual` alone. As few of the latter two as possible.
std::string LineDifference(const std::string& expected, const std::string& actual);

}  // namespace book
