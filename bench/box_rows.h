// The workbench's text box, beside the toolkit's own editor.
#pragma once

#include "bench/table.h"

namespace bench {

// The RTF of a selection of a million characters, then read back into the box; beside setHtml.
Row MeasureRichText(const Plan& plan);
// From the press of F3 to the end of the next paint, in a text of two million characters.
Row MeasureMarking(const Plan& plan);

}  // namespace bench
