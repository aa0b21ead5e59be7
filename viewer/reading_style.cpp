#include "viewer/reading_style.h"

#include <algorithm>

namespace viewer {
namespace {

constexpr int kLeastLineHeight = 120;
constexpr int kMostLineHeight = 260;
constexpr int kLargestInLists = 26;

}  // namespace

ReadingStyle Bounded(ReadingStyle style) {
  style.pixels = std::clamp(style.pixels, ReadingStyle::kSmallest, ReadingStyle::kLargest);
  style.lineHeight = std::clamp(style.lineHeight, kLeastLineHeight, kMostLineHeight);
  return style;
}

const Look& LookIn(const std::optional<Light>& light, int layout) {
  return light ? LookOf(layout, *light) : LookOf(layout);
}

int ListPixels(const ReadingStyle& style, int usual) {
  return std::clamp(usual * style.pixels / ReadingStyle::kUsual, usual * 3 / 4, kLargestInLists);
}

}  // namespace viewer
