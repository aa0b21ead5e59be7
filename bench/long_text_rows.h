// Texts of an unusual shape in the rich-text box: one endless word, one word in thousands of
// formats, nothing but paragraph ends.
#pragma once

#include "bench/table.h"

namespace bench {

Row MeasureEndlessWord(const Plan& plan);
Row MeasureWordOfFormats(const Plan& plan);
Row MeasureOpeningEmptyParagraphs(const Plan& plan);
Row MeasureClosingEmptyParagraphs(const Plan& plan);

}  // namespace bench
