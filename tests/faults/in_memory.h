// Temporary folders in memory, for tests that need hundreds of them.
#pragma once

#include <string>

namespace faults {

// As long as it lives temporary folders lie in memory, where the host has a place for that.
class InMemory {
 public:
  InMemory();
  ~InMemory();
  InMemory(const InMemory&) = delete;
  InMemory& operator=(const InMemory&) = delete;

 private:
  std::string before_;
};

}  // namespace faults
