#include "workbench/workbench_geometry.h"

#include <array>

namespace workbench {

namespace {

using platform::kNoIndex;
using platform::TextView;
using platform::Twips;

struct GrowingMeasure {
  TextView control;
  int first;  // of a control array: the indices from first to last
  int last;
  Measure measure;
  Growth growth;
};

constexpr int kCells = 5;
constexpr int kLastCell = kCells - 1;
constexpr TextView kCellFrame = u"IMF";

constexpr std::array kGrowingMeasures = std::to_array<GrowingMeasure>({
    {u"matn", kNoIndex, kNoIndex, Measure::kWidth, Growth::kByWidth},
    {u"matn", kNoIndex, kNoIndex, Measure::kHeight, Growth::kByHeight},
    {u"bindex", kNoIndex, kNoIndex, Measure::kWidth, Growth::kByWidth},
    {u"Frame1", kNoIndex, kNoIndex, Measure::kWidth, Growth::kByWidth},
    {u"Frame2", kNoIndex, kNoIndex, Measure::kWidth, Growth::kByWidth},
    {u"books", kNoIndex, kNoIndex, Measure::kLeft, Growth::kByWidth},
    {u"Label3", kNoIndex, kNoIndex, Measure::kLeft, Growth::kByWidth},
    {u"Label1", kNoIndex, kNoIndex, Measure::kLeft, Growth::kByWidth},
    {u"P22", kNoIndex, kNoIndex, Measure::kLeft, Growth::kByWidth},
    {u"chnd", kNoIndex, kNoIndex, Measure::kLeft, Growth::kByWidth},
    {u"Noghte", kNoIndex, kNoIndex, Measure::kLeft, Growth::kByWidth},
    {u"HazP", kNoIndex, kNoIndex, Measure::kLeft, Growth::kByWidth},
    {u"HazC", 12, 12, Measure::kLeft, Growth::kByWidth},
    {u"Com", 12, 12, Measure::kLeft, Growth::kByWidth},
    {u"Frame3", kNoIndex, kNoIndex, Measure::kTop, Growth::kByHeight},
    {u"Frame3", kNoIndex, kNoIndex, Measure::kWidth, Growth::kByWidth},
    {u"Frame4", kNoIndex, kNoIndex, Measure::kWidth, Growth::kByWidth},
    {u"Frame4", kNoIndex, kNoIndex, Measure::kHeight, Growth::kByHeight},
    {u"Com", 13, 13, Measure::kTop, Growth::kByHeight},
    {kCellFrame, 0, kLastCell, Measure::kWidth, Growth::kByWidth},
    {kCellFrame, 0, kLastCell, Measure::kHeight, Growth::kByFifthOfHeight},
    {kCellFrame, 0, 0, Measure::kTop, Growth::kNone},
    {kCellFrame, 1, kLastCell, Measure::kTop, Growth::kStacked},
    {u"IMG", 0, kLastCell, Measure::kLeft, Growth::kByWidth},
    {u"IMG", 0, kLastCell, Measure::kHeight, Growth::kByFifthOfHeight},
    {u"IMC", 0, kLastCell, Measure::kLeft, Growth::kByWidth},
    {u"Label14", 0, kLastCell, Measure::kLeft, Growth::kByWidth},
    {u"IMN", 0, kLastCell, Measure::kWidth, Growth::kByWidth},
    {u"IMJ", 0, kLastCell, Measure::kWidth, Growth::kByWidth},
    {u"VSC", kNoIndex, kNoIndex, Measure::kLeft, Growth::kByWidth},
    {u"VSC", kNoIndex, kNoIndex, Measure::kHeight, Growth::kByHeight},
    {u"Frame5", kNoIndex, kNoIndex, Measure::kTop, Growth::kByHeight},
    {u"Frame5", kNoIndex, kNoIndex, Measure::kWidth, Growth::kByWidth},
    {u"Com", 0, 3, Measure::kLeft, Growth::kByWidth},
    {u"Com", 5, 10, Measure::kLeft, Growth::kByWidth},
});

// The cells of the gallery frame while they are laid out one below the other.
class CellStack {
 public:
  void Note(const ControlMeasure& laidOut) {
    if (laidOut.control != kCellFrame) return;
    const auto cell = static_cast<std::size_t>(laidOut.index);
    if (laidOut.measure == Measure::kHeight) heights_[cell] = laidOut.value;
    if (laidOut.measure == Measure::kTop) tops_[cell] = laidOut.value;
  }
  Twips TopOf(int index) const {
    const auto cell = static_cast<std::size_t>(index);
    return tops_[cell - 1] + heights_[cell];
  }

 private:
  std::array<Twips, kCells> tops_{};
  std::array<Twips, kCells> heights_{};
};

}  // namespace

DesignGeometry TakeGeometry(Twips width, Twips height, const MeasureReader& read) {
  DesignGeometry design{.width = width, .height = height, .measures = {}};
  for (const GrowingMeasure& row : kGrowingMeasures) {
    for (int index = row.first; index <= row.last; ++index) {
      design.measures.push_back({.control = row.control,
                                 .index = index,
                                 .measure = row.measure,
                                 .growth = row.growth,
                                 .value = read(row.control, index, row.measure)});
    }
  }
  return design;
}

std::vector<ControlMeasure> Resized(const DesignGeometry& design, Twips width, Twips height) {
  const Twips byWidth = width - design.width;
  const Twips byHeight = height - design.height;
  CellStack cells;
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
        each.value = cells.TopOf(each.index);
        break;
    }
    cells.Note(each);
  }
  return measures;
}

}  // namespace workbench
