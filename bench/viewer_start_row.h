// The start of the viewer.
#pragma once

#include "bench/table.h"

namespace bench {

// Start to first paint of the index of a book of 30 collections and 20,000 pages, beside a program
// that shows an empty window; both on a screen (an X server of
// its own, Xvfb).
Row MeasureViewerStart(const Plan& plan);

// The same with 100,000 collections and no pages, beside the viewer itself with 1,000: what is more
// is the reading of a file of a hundred times the size.
Row MeasureViewerManyCollections(const Plan& plan);

}  // namespace bench
