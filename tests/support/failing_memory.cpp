#include "tests/support/failing_memory.h"

#include <cstdlib>
#include <limits>
#include <new>

namespace testing_support {
namespace {

constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();
std::size_t failingFrom = kNever;
int stillPassing = 0;
std::size_t askedFor = 0;

}  // namespace

void FailNextAllocation(std::size_t atLeastBytes, int passing) {
  failingFrom = atLeastBytes;
  stillPassing = passing;
}
bool AllocationStillToFail() { return failingFrom != kNever; }
void LetAllocationsBe() { failingFrom = kNever; }

std::size_t BytesAskedFor(const std::function<void()>& act) {
  const std::size_t before = askedFor;
  act();
  return askedFor - before;
}

namespace {

void* Allocated(std::size_t bytes) {
  askedFor += bytes;
  if (bytes >= failingFrom && stillPassing-- == 0) {
    failingFrom = kNever;
    throw std::bad_alloc();
  }
  void* const memory = std::malloc(bytes > 0 ? bytes : 1);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace
}  // namespace testing_support

void* operator new(std::size_t bytes) { return testing_support::Allocated(bytes); }
void* operator new[](std::size_t bytes) { return testing_support::Allocated(bytes); }
// These are never made to fail: who asks so goes on without the memory.
void* operator new(std::size_t bytes, const std::nothrow_t& /*unused*/) noexcept {
  return std::malloc(bytes > 0 ? bytes : 1);
}
void* operator new[](std::size_t bytes, const std::nothrow_t& /*unused*/) noexcept {
  return std::malloc(bytes > 0 ? bytes : 1);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
