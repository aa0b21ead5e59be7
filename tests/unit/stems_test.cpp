#include "workbench/stems.h"

#include <gtest/gtest.h>

#include <map>

#include "tests/support/fixed_clock.h"

namespace workbench {
namespace {

using platform::Random;
using platform::Text;
using testing_support::FixedClock;

TEST(RandN, UsesDigitsAndSmallLettersUpToY) {
  FixedClock clock;
  Random random;
  std::map<char16_t, int> seen;
  for (int i = 0; i < 34000; ++i) ++seen[RandN(clock, random)];
  EXPECT_EQ(seen.size(), 35U);
  for (const auto& [character, count] : seen) {
    EXPECT_TRUE((character >= u'0' && character <= u'9') ||
                (character >= u'a' && character <= u'y'))
        << static_cast<int>(character);
  }
  // Both ends come half as often as the rest.
  EXPECT_NEAR(seen[u'0'], 500, 120);
  EXPECT_NEAR(seen[u'y'], 500, 120);
  EXPECT_NEAR(seen[u'h'], 1000, 160);
}

TEST(RandN, SeedsBeforeEachCharacter) {
  FixedClock first(u"", 7);
  FixedClock second(u"", 7);
  Random fresh;
  Random usedAlready;
  fresh.Seed(99);
  usedAlready.Seed(3);
  EXPECT_EQ(RandN(first, fresh), RandN(second, usedAlready));
  EXPECT_EQ(first.Ticks(), 8U);
}

TEST(NewN, FourteenCharactersInCapitalLettersWithoutZ) {
  FixedClock clock;
  Random random;
  for (int i = 0; i < 1000; ++i) {
    const Text stem = NewN(clock, random);
    ASSERT_EQ(stem.size(), 14U);
    EXPECT_EQ(stem.find_first_not_of(u"0123456789ABCDEFGHIJKLMNOPQRSTUVWXY"), Text::npos);
  }
}

TEST(NewN, NamesDifferAlsoWhileTheClockStandsStill) {
  class StandingClock : public platform::Clock {
    Text GeneralDate() override { return {}; }
    std::uint64_t Ticks() override { return 1; }
  } clock;
  Random random;
  const Text first = NewN(clock, random);
  EXPECT_NE(first, NewN(clock, random));
}

}  // namespace
}  // namespace workbench
