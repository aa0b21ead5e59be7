// Whole processes: start-up and memory.
#pragma once

#include "bench/table.h"

namespace bench {

// Start to first paint of the project window, beside a program that shows an empty one: on a screen
// (an X server of its own, Xvfb), and drawn in memory by the toolkit's offscreen platform.
Row MeasureStart(const Plan& plan);
Row MeasureStartOffscreen(const Plan& plan);
// The highest memory of a process that has a text of 20 MB open, beside a bare QTextEdit.
Row MeasureMemory(const Plan& plan);

}  // namespace bench
