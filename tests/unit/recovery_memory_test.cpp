#include <gtest/gtest.h>

#include "recovery/changes.h"
#include "tests/support/failing_memory.h"
#include "tests/support/recovery_work.h"

namespace {

// A text of megabytes, opened: its record takes no memory that grows with it.
TEST(RecoveryMemory, ALargeTextIsToldInParts) {
  constexpr std::size_t kPart = std::size_t{512} * 1024;
  testing_support::RandomEditor editor(1);
  editor.Work().rest = platform::Text(3'000'000, u'\u0633');
  recovery::LiveWork work = editor.Live();
  work.restEdit = platform::TextEdit{0, 0, work.restLength};
  recovery::Recorded recorded;
  std::size_t bytes = 0;
  const recovery::RecordSink sink = [&](std::string_view told) { bytes += told.size(); };

  testing_support::FailNextAllocation(kPart);
  TellChanges(work, recorded, sink);
  TellWhole(work, recorded, sink);
  EXPECT_TRUE(testing_support::AllocationStillToFail());
  testing_support::LetAllocationsBe();
  EXPECT_GE(bytes, 6'000'000U);
}

}  // namespace
