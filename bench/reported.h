// The end of a program of the benchmarks.
#pragma once

#include <functional>
#include <iostream>

#include "platform/failure.h"

namespace bench {

// What `body` gives, or 2 with the reason printed where it fails.
inline int Reported(const std::function<int()>& body) {
  int status = 2;
  platform::CatchingFailure([&] { status = body(); },
                            [](const platform::Text& description) {
                              std::cerr << platform::ToUtf8(description) << '\n';
                            });
  return status;
}

}  // namespace bench
