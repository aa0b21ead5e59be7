#include "tests/book/line_difference.h"

#include <algorithm>
#include <sstream>
#include <vector>

namespace book {
namespace {

using Lines = std::vector<std::string>;

Lines LinesOf(const std::string& text) {
  Lines lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// common[i][j]: how many lines the rests behind i and j have in common, in order.
std::vector<std::vector<int>> CommonLines(const Lines& expected, const Lines& actual) {
  std::vector<std::vector<int>> common(expected.size() + 1, std::vector<int>(actual.size() + 1, 0));
  for (std::size_t i = expected.size(); i-- > 0;) {
    for (std::size_t j = actual.size(); j-- > 0;) {
      common[i][j] = expected[i] == actual[j] ? common[i + 1][j + 1] + 1
                                              : std::max(common[i + 1][j], common[i][j + 1]);
    }
  }
  return common;
}

}  // namespace

std::string LineDifference(const std::string& expected, const std::string& actual) {
  const Lines left = LinesOf(expected);
  const Lines right = LinesOf(actual);
  const auto common = CommonLines(left, right);
  std::string difference;
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < left.size() || j < right.size()) {
    if (i < left.size() && j < right.size() && left[i] == right[j]) {
      difference += "  " + left[i++] + "\n";
      ++j;
    } else if (j == right.size() || (i < left.size() && common[i + 1][j] >= common[i][j + 1])) {
      difference += "- " + left[i++] + "\n";
    } else {
      difference += "+ " + right[j++] + "\n";
    }
  }
  return difference;
}

}  // namespace book
