// Memory that runs out on request, for operations over pure text that can fail in no other way. A
// program gets it by its name: tests in *_memory_test.cpp link it, and no others do.
#pragma once

#include <cstddef>

namespace testing_support {

// The next request of operator new for that many bytes or more throws std::bad_alloc, once. Give
// it the size of the text in hand, so that what is needed around it isn't hit.
void FailNextAllocation(std::size_t atLeastBytes);
// True as long as such a request hasn't come.
bool AllocationStillToFail();
// Memory is there again.
void LetAllocationsBe();

}  // namespace testing_support
