// The window's size: its controls follow it, and it doesn't get smaller than designed.
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

Twips Form3::ReadMeasure(TextView name, int index, Measure measure) {
  const platform::Control& control = ControlNamed(name, index);
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
  platform::Control& control = ControlNamed(measure.control, measure.index);
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
