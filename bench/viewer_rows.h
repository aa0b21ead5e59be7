// The book's player, beside what searches files from the command line.
#pragma once

#include "bench/table.h"

namespace bench {

// A word that stands in each 200th of 20,000 pages, beside grep -r on the same pages in UTF-8. Both
// are cold: before each run the kernel's caches are emptied, names and all, where we may do that;
// elsewhere it is asked to forget the pages' bytes alone, and the row says so.
Row MeasureViewerSearch(const Plan& plan);

}  // namespace bench
