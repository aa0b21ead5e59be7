// How a window's controls follow its size: by how much each measure grows that its catalogue row
// says to grow. All measures are twips. Nothing here touches a window.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "platform/text/text.h"
#include "platform/windows/window_definition.h"

namespace workbench {

using platform::Growth;

enum class Measure : std::uint8_t { kLeft, kTop, kWidth, kHeight };

// One measure of one control. `value` is the design's or the new one.
struct ControlMeasure {
  platform::TextView control;
  int index = platform::kNoIndex;
  Measure measure = Measure::kLeft;
  Growth growth = Growth::kNone;
  platform::Twips value = 0;
};

// The window as designed: its inside, and every measure that follows it. The heights of the picture
// cells stand before their tops, and the cells stand in order.
struct DesignGeometry {
  platform::Twips width = 0;
  platform::Twips height = 0;
  std::vector<ControlMeasure> measures;
};

using MeasureReader =
    std::function<platform::Twips(platform::TextView control, int index, Measure measure)>;

// Takes the measures that the rows say grow, each through `read`, whose failure goes to the caller.
DesignGeometry TakeGeometry(std::span<const platform::ControlRow> rows, platform::Twips width,
                            platform::Twips height, const MeasureReader& read);

// The same measures, in the same order, for an inside of that size. The size is taken as it is,
// also below the design's.
std::vector<ControlMeasure> Resized(const DesignGeometry& design, platform::Twips width,
                                    platform::Twips height);

}  // namespace workbench
