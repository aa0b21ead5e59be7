// Filing passages into a table that is full already.
#pragma once

#include "bench/table.h"

namespace bench {

Row MeasureMarkingMore(const Plan& plan);

}  // namespace bench
