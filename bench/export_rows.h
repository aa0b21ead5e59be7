// The export: ExportPass of the project window, on the real disk.
#pragma once

#include "bench/table.h"

namespace bench {

// 5,000 pages and 200 large files copied as the script says; beside it `cp -r`.
Row MeasureExport(const Plan& plan);
// The print pages of 5,000 pages as an export makes them, but out of memory and to nowhere; growth
// to 50,000. Then of as many on the disk.
Row MeasurePrintPages(const Plan& plan);
Row MeasurePrintPagesOnDisk(const Plan& plan);
// For a work folder in memory.
Row MeasurePrintPagesInMemoryFiles(const Plan& plan);

}  // namespace bench
