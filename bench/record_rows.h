// The record of what is filed and not yet built: what it costs, how long it is, what it gives back.
#pragma once

#include "bench/table.h"

namespace bench {

Row MeasureRecordCost(const Plan& plan);
Row MeasureRecordSize(const Plan& plan);
Row MeasureRecordByKeys(const Plan& plan);
Row MeasureBringingBack(const Plan& plan);

}  // namespace bench
