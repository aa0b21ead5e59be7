#include "workbench/workbench_geometry.h"

#include <array>

#include "support/window_catalogue.h"

namespace workbench {

namespace {

using platform::Growths;
using platform::Twips;

constexpr int kCells = support::kPictureCells;

struct GrowingMeasure {
  Measure measure;
  Growth Growths::*growth;
};

// The height before the top, which may rest on it.
constexpr std::array kMeasures = std::to_array<GrowingMeasure>({
    {Measure::kLeft, &Growths::left},
    {Measure::kWidth, &Growths::width},
    {Measure::kHeight, &Growths::height},
    {Measure::kTop, &Growths::top},
});

// Where a control ends that others may be stacked below: the one told last.
struct Stack {
  Twips height = 0;
  Twips end = 0;

  // The top of the next one; the first of an array stays where it is.
  Twips TopOf(const ControlMeasure& top) {
    const Twips at = top.index == 0 ? top.value : end;
    end = at + height;
    return at;
  }
};

}  // namespace

DesignGeometry TakeGeometry(std::span<const platform::ControlRow> rows, Twips width, Twips height,
                            const MeasureReader& read) {
  DesignGeometry design{.width = width, .height = height, .measures = {}};
  for (const platform::ControlRow& row : rows) {
    for (const GrowingMeasure& each : kMeasures) {
      const Growth growth = row.grows.*each.growth;
      if (growth == Growth::kNone) continue;
      design.measures.push_back({.control = row.name,
                                 .index = row.index,
                                 .measure = each.measure,
                                 .growth = growth,
                                 .value = read(row.name, row.index, each.measure)});
    }
  }
  return design;
}

std::vector<ControlMeasure> Resized(const DesignGeometry& design, Twips width, Twips height) {
  const Twips byWidth = width - design.width;
  const Twips byHeight = height - design.height;
  Stack stack;
  std::vector<ControlMeasure> measures = design.measures;
  for (ControlMeasure& each : measures) {
    switch (each.growth) {
      case Growth::kNone:
        break;
      case Growth::kByWidth:
        each.value += byWidth;
        break;
      case Growth::kByHeight:
        each.value += byHeight;
        break;
      case Growth::kByFifthOfHeight:
        each.value += byHeight / kCells;
        break;
      case Growth::kStacked:
        each.value = stack.TopOf(each);
        break;
    }
    if (each.measure == Measure::kHeight) stack.height = each.value;
  }
  return measures;
}

}  // namespace workbench
