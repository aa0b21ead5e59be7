#include "platform/clock.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>

#include "tests/support/fixed_clock.h"
#include "tests/support/moment.h"

namespace {

using platform::HostClock;

// Set before the first question, as the regional settings are looked up once.
class ClockTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { setenv("LC_ALL", "C", 1); }
};

TEST_F(ClockTest, GeneralDateIsShortDateBlankLongTime) {
  const auto [told, expected] = testing_support::MomentTold(HostClock(), "%m/%d/%y %H:%M:%S");
  EXPECT_EQ(told, expected);
}

TEST_F(ClockTest, TicksGrow) {
  std::uint64_t last = 0;
  for (int i = 0; i < 1000; ++i) {
    const std::uint64_t now = HostClock().Ticks();
    ASSERT_GE(now, last);
    last = now;
  }
  EXPECT_GT(last, 0U);
}

TEST_F(ClockTest, AFixedClockStandsStillAndTicks) {
  testing_support::FixedClock clock(u"1/1/2000 0:00:00", 5);
  EXPECT_EQ(clock.GeneralDate(), clock.GeneralDate());
  EXPECT_EQ(clock.Ticks(), 5U);
  EXPECT_EQ(clock.Ticks(), 6U);
  clock.SetDate(u"later");
  EXPECT_EQ(clock.GeneralDate(), u"later");
}

}  // namespace
