// The program itself, killed after each operation.
#pragma once

#include <string>

#include "tools/kill_test/plan.h"

namespace kill_test {

// The same as in the processes of the driver's own, at the delivered program in `plan.program`.
// What is compared is what the workbench shows, and the book. 0 where all is well; says what isn't.
int DriveProgram(const Plan& plan);

}  // namespace kill_test
