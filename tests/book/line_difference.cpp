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

// common[i][j]: how many lines the rests after i and j have in common, in order.
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

Lines MarkedLines(const Lines& left, const Lines& right) {
  const auto common = CommonLines(left, right);
  Lines marked;
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < left.size() || j < right.size()) {
    if (i < left.size() && j < right.size() && left[i] == right[j]) {
      marked.push_back("  " + left[i++]);
      ++j;
    } else if (j == right.size() || (i < left.size() && common[i + 1][j] >= common[i][j + 1])) {
      marked.push_back("- " + left[i++]);
    } else {
      marked.push_back("+ " + right[j++]);
    }
  }
  return marked;
}

bool IsNearAChange(const Lines& marked, std::size_t at) {
  constexpr std::size_t kAround = 3;
  const std::size_t from = at > kAround ? at - kAround : 0;
  const std::size_t to = std::min(at + kAround + 1, marked.size());
  return std::any_of(marked.begin() + static_cast<std::ptrdiff_t>(from),
                     marked.begin() + static_cast<std::ptrdiff_t>(to),
                     [](const std::string& line) { return !line.starts_with("  "); });
}

}  // namespace

std::string LineDifference(const std::string& expected, const std::string& actual) {
  const Lines marked = MarkedLines(LinesOf(expected), LinesOf(actual));
  std::string difference;
  bool leftOut = false;
  for (std::size_t i = 0; i < marked.size(); ++i) {
    if (IsNearAChange(marked, i)) {
      difference += marked[i] + "\n";
    } else if (!leftOut) {
      difference += "...\n";
    }
    leftOut = !IsNearAChange(marked, i);
  }
  return expected == actual ? "" : difference;
}

}  // namespace book
