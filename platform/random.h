// Random numbers that are seeded from the clock.
#pragma once

#include <cstdint>

namespace platform {

// SplitMix64 (Steele, Lea, Flood 2014): one multiplication chain from seed to number, so seeding
// anew for every number costs nothing.
class Random {
 public:
  // Numbers depend on the seed and on how many were drawn before.
  void Seed(std::uint64_t seed);
  // From 0 up to but not including 1.
  double Next();

 private:
  std::uint64_t state_ = 0;
  std::uint64_t drawn_ = 0;
};

}  // namespace platform
