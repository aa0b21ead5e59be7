// The whole program in a process of its own (EXPECT_EXIT), for tests of how a process ends. What
// it shows and logs goes to its error output.
#pragma once

#include <QTimer>
#include <functional>
#include <string>

#include "tests/support/application.h"
#include "tests/support/desk.h"

namespace testing_support {

// Reports each box of the desk as "BOX title: text.", and at the process's end the log, with "END
// OF LOG" after it; then takes the desk's folder away.
void ReportEndOf(Desk& desk);
// "The loop has ended.", the windows that are still there, and the end with that status.
[[noreturn]] void ReportLoopEnd(int status);
// How many boxes a report tells of.
int BoxesIn(const std::string& report);

// Runs the program as its main does; `act` is an event of its loop.
template <typename DeskType>
[[noreturn]] void RunProgram(const std::function<void(DeskType&)>& act) {
  // Left on the heap: a process that ends in the middle of an event takes nothing apart.
  auto* desk = new DeskType;
  ReportEndOf(*desk);
  const int status = TheApplication().Run([&] {
    desk->Start();
    QTimer::singleShot(0, [&] { act(*desk); });
  });
  ReportLoopEnd(status);
}

}  // namespace testing_support
