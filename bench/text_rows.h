// The plain rules on large texts, beside programs that do the same.
#pragma once

#include "bench/table.h"

namespace bench {

// Rep on 20 MB, beside ten str.replace calls in Python on the same text; growth to 200 MB.
Row MeasureCleanUp(const Plan& plan);
// Reading a 16 MB file of rich text and taking its plain text, beside catdoc; growth to 160 MB.
Row MeasurePlainText(const Plan& plan);

}  // namespace bench
