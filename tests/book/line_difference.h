// What differs between two texts, line by line.
#pragma once

#include <string>

namespace book {

// The lines that differ, with up to three around them: "  " before one that both have, "- " before
// one of `expected` alone, "+ " before one of `actual` alone, as few of the latter two as possible.
// "..." stands for lines that are left out. Empty for the same text.
std::string LineDifference(const std::string& expected, const std::string& actual);

}  // namespace book
