// Whole processes: start-up and memory.
#pragma once

#include "bench/table.h"

namespace bench {

// Start to first paint of the project window, beside a program that shows an empty one.
Row MeasureStart(const Plan& plan);
// The highest memory of a process that has a text of 20 MB open, beside a bare QTextEdit.
Row MeasureMemory(const Plan& plan);

}  // namespace bench
