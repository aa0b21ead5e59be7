// Memory that runs out on request, for operations over pure text that can fail in no other way. A
// program gets it by its name: tests in *_memory_test.cpp link it, and no others do.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace testing_support {

// The next request of operator new for that many bytes or more throws std::bad_alloc, once, with as
// many let through before it as `passing` says. Give it the size of the text in hand, so that what
// is needed around it isn't hit.
void FailNextAllocation(std::size_t atLeastBytes, int passing = 0);
// True as long as such a request hasn't come.
bool AllocationStillToFail();
// Memory is there again.
void LetAllocationsBe();

// What operator new is asked for during the call, in bytes, whether or not it is given back: each
// copy of a text counts.
std::size_t BytesAskedFor(const std::function<void()>& act);
inline std::size_t SizeInMemory(const std::u16string& text) {
  return text.size() * sizeof(char16_t);
}
// Small texts of an operation: its line in a log, the message of a failure.
inline constexpr std::size_t kSmallChange = 8192;

}  // namespace testing_support
