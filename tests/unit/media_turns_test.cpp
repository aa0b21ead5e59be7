#include "media/turns.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace media {
namespace {

// However many decode at once, they never have more than there is.
TEST(MediaTurns, NoMoreIsHandedOutThanThereIs) {
  constexpr std::uint64_t kAll = 100;
  Turns turns(kAll);
  std::atomic<std::uint64_t> used = 0;
  std::atomic<bool> tooMuch = false;
  const auto work = [&](std::uint64_t bytes) {
    for (int i = 0; i < 2000; ++i) {
      const auto turn = turns.Take(bytes);
      if (used.fetch_add(bytes) + bytes > kAll) tooMuch = true;
      used -= bytes;
    }
  };
  {
    std::vector<std::jthread> threads;
    for (const std::uint64_t bytes : {100U, 60U, 40U, 1U}) threads.emplace_back(work, bytes);
  }
  EXPECT_FALSE(tooMuch);
}

TEST(MediaTurns, WhatIsGivenBackCanBeTakenAgain) {
  Turns turns(10);
  for (int i = 0; i < 3; ++i) {
    const auto one = turns.Take(4);
    const auto other = turns.Take(6);
  }
  const auto all = turns.Take(10);
}

}  // namespace
}  // namespace media
