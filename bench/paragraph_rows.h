// The rebuilding of a text's paragraphs, beside the same steps in Python.
#pragma once

#include "bench/table.h"

namespace bench {

// Both on 20 MB with all options on; growth to 200 MB.
// A text of sentences and paragraphs, cleaned up.
Row MeasureRebuilding(const Plan& plan);
// One single line without a sentence mark.
Row MeasureRebuildingOneLine(const Plan& plan);

}  // namespace bench
