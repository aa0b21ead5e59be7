// What a run of the kill test is to do, and what its two ways of driving the windows share.
#pragma once

#include <string>

#include "tests/book/book_files.h"

namespace kill_test {

struct Plan {
  std::string work;
  int operations = 300;
  unsigned seed = 1;
  std::string program = {};  // the folder of the delivered program
  std::string plugIns = {};  // the folder of the robot that is put into it
};

// Says what went wrong and how to have it again; gives the status of that.
int Fail(const Plan& plan, const std::string& said);
// The book in the plan's folder "Data", its random names replaced.
book::BookFiles BuiltBook(const Plan& plan);
// What a first run finds.
void BeginAnew(const Plan& plan);
// The end of both chains: compares what the broken and the unbroken runs built.
int Compare(const Plan& plan, const book::BookFiles& unbroken, const book::BookFiles& broken,
            bool recordIsGone);

}  // namespace kill_test
