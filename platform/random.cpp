#include "platform/random.h"

namespace platform {
namespace {

constexpr std::uint64_t kStep = 0x9E3779B97F4A7C15;
constexpr int kDoubleBits = 53;

std::uint64_t Mix(std::uint64_t z) {
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
  return z ^ (z >> 31);
}

}  // namespace

// The count keeps two seedings apart that fall into one tick of the clock.
void Random::Seed(std::uint64_t seed) { state_ = seed + drawn_ * kStep; }

double Random::Next() {
  ++drawn_;
  state_ += kStep;
  return static_cast<double>(Mix(state_) >> (64 - kDoubleBits)) * 0x1.0p-53;
}

}  // namespace platform
