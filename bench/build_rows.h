// The build pass: Form3::MakeFile on filled tables, in the real windows and on the real disk.
#pragma once

#include "bench/table.h"

namespace bench {

// 5,000 text entries without media; growth to 50,000.
Row MeasureTextBuild(const Plan& plan);
// The same without growth, for a work folder in memory: there the tool's own share shows.
Row MeasureTextBuildInMemory(const Plan& plan);
// 200 text entries with four media each, and the same 200 among 5,000.
Row MeasureMediaBuild(const Plan& plan);
Row MeasureMixedBuild(const Plan& plan);

}  // namespace bench
