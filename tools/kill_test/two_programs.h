// Two programs at work on the same collection of the same book.
#pragma once

#include "tools/kill_test/plan.h"

namespace kill_test {

// The second is offered nothing of the first and touches nothing of it; once the first is killed, a
// third is offered what the first had, while the second goes on. 0 where all is well; says what
// isn't.
int DriveTwoPrograms(const Plan& plan);

}  // namespace kill_test
