// The paragraph window, beside the toolkit's own editor.
#pragma once

#include "bench/table.h"

namespace bench {

// From the click on the line of an entry of 200 KB to the end of the first paint; beside a new bare
// editor that takes the same text as HTML and is painted.
Row MeasureOpeningEntry(const Plan& plan);

}  // namespace bench
