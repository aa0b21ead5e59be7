// The window's size: its controls follow it, and it doesn't get smaller than designed.
#include <array>

#include "platform/failure.h"
#include "workbench/format_window.h"

namespace workbench {

using platform::TextView;
using platform::Twips;

void Form3::Form_Resize() {
  platform::Ignoring([&] {
    if (designGeometry.measures.empty()) return;
    if (Width() < designGeometry.width) SetWidth(designGeometry.width);
    if (Height() < designGeometry.height) SetHeight(designGeometry.height);
    for (const ControlMeasure& each : Resized(designGeometry, Width(), Height())) {
      WriteMeasure(each);
    }
  });
}

platform::Control& Form3::SizedControl(TextView name, int index) {
  if (name == u"Com") return Com(index);
  if (name == u"HazC") return HazC(index);
  if (name == u"IMF") return IMF(index);
  if (name == u"IMG") return IMG(index);
  if (name == u"IMC") return IMC(index);
  if (name == u"IMN") return IMN(index);
  if (name == u"IMJ") return IMJ(index);
  if (name == u"Label14") return Label14(index);
  const std::array<platform::Control*, 15> singles = {&matn,   &bindex, &books,  &Frame1, &Frame2,
                                                      &Frame3, &Frame4, &Frame5, &Label1, &Label3,
                                                      &HazP,   &Noghte, &chnd,   &P22,    &VSC};
  for (platform::Control* single : singles) {
    if (single->Name() == name) return *single;
  }
  throw platform::Failure(u"No such control: " + platform::Text(name));
}

Twips Form3::ReadMeasure(TextView name, int index, Measure measure) {
  const platform::Control& control = SizedControl(name, index);
  switch (measure) {
    case Measure::kLeft:
      return control.Left();
    case Measure::kTop:
      return control.Top();
    case Measure::kWidth:
      return control.Width();
    case Measure::kHeight:
      return control.Height();
  }
  return 0;
}

void Form3::WriteMeasure(const ControlMeasure& measure) {
  platform::Control& control = SizedControl(measure.control, measure.index);
  switch (measure.measure) {
    case Measure::kLeft:
      return control.SetLeft(measure.value);
    case Measure::kTop:
      return control.SetTop(measure.value);
    case Measure::kWidth:
      return control.SetWidth(measure.value);
    case Measure::kHeight:
      return control.SetHeight(measure.value);
  }
}

}  // namespace workbench
