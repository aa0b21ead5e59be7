// What something takes of memory while it runs.
#pragma once

#include <malloc.h>

#include <fstream>
#include <string>

namespace testing_support {

// Under a sanitizer memory isn't given back at once, and nothing can be said about it.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kMemoryIsMeasured = false;
#else
inline constexpr bool kMemoryIsMeasured = true;
#endif

// From its making on, in megabytes above what the process had then (proc(5), clear_refs).
class PeakMemory {
 public:
  PeakMemory() {
    ::malloc_trim(0);  // what earlier tests have left counts for nothing
    std::ofstream("/proc/self/clear_refs") << "5";
    before_ = Highest();
  }
  long Megabytes() const { return kMemoryIsMeasured ? (Highest() - before_) / 1024 : 0; }

 private:
  static long Highest() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
      if (line.starts_with("VmHWM:")) return std::stol(line.substr(line.find(':') + 1));
    }
    return 0;
  }

  long before_ = 0;
};

}  // namespace testing_support
