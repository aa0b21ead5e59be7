#include "tests/faults/in_memory.h"

#include <unistd.h>

#include <cstdlib>

namespace faults {

InMemory::InMemory() {
  constexpr const char* kMemory = "/dev/shm";
  const char* const before = std::getenv("TMPDIR");
  if (before != nullptr) before_ = before;
  if (access(kMemory, W_OK | X_OK) == 0) setenv("TMPDIR", kMemory, 1);
}

InMemory::~InMemory() {
  if (before_.empty()) {
    unsetenv("TMPDIR");
  } else {
    setenv("TMPDIR", before_.c_str(), 1);
  }
}

}  // namespace faults
