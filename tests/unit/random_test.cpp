#include "platform/random.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <set>

namespace {

using platform::Random;

TEST(Random, LiesFromZeroUpToButNotIncludingOne) {
  Random random;
  for (std::uint64_t seed = 0; seed < 100000; ++seed) {
    random.Seed(seed);
    const double number = random.Next();
    ASSERT_GE(number, 0.0);
    ASSERT_LT(number, 1.0);
  }
}

TEST(Random, SameSeedAndSameCountGiveTheSameNumbers) {
  Random a;
  Random b;
  a.Seed(42);
  b.Seed(42);
  for (int i = 0; i < 100; ++i) ASSERT_EQ(a.Next(), b.Next());
}

TEST(Random, OneTickOfTheClockGivesDifferentNumbersAllTheSame) {
  Random random;
  std::set<double> numbers;
  for (int i = 0; i < 1000; ++i) {
    random.Seed(42);
    numbers.insert(random.Next());
  }
  EXPECT_EQ(numbers.size(), 1000U);
}

// A pass draws fourteen characters a name, seeding from neighbouring ticks each time.
TEST(Random, NeighbouringSeedsSpreadEvenly) {
  Random random;
  std::array<int, 10> counts{};
  for (std::uint64_t tick = 0; tick < 100000; ++tick) {
    random.Seed(tick);
    ++counts[static_cast<std::size_t>(random.Next() * 10)];
  }
  for (const int count : counts) EXPECT_NEAR(count, 10000, 500);
}

TEST(Random, FirstNumberOfSplitMix64) {
  Random random;
  random.Seed(1234567);
  EXPECT_EQ(random.Next(), std::ldexp(static_cast<double>(6457827717110365317ULL >> 11), -53));
}

}  // namespace
