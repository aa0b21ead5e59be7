// What a program has asked the system for, as strace has written it down.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace media_tests {

struct Reach {
  std::string during;  // the last mark before it: a file "/mark/NAME" that was opened
  std::string call;    // "socket AF_INET", "open /etc/passwd", "connect /run/x"
};

// Each file that was opened or tried, each socket that was made, each place that one was connected
// to and each program that was started, in order.
std::vector<Reach> ReadStrace(std::string_view log);

}  // namespace media_tests
