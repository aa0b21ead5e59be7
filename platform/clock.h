// The present moment.
#pragma once

#include <cstdint>

#include "platform/text/text.h"

namespace platform {

class Clock {
 public:
  Clock() = default;
  Clock(const Clock&) = delete;
  Clock& operator=(const Clock&) = delete;
  virtual ~Clock() = default;

  // Date and time in the general format of the regional settings: short date, a blank, long time.
  // Digits are ASCII ones, so that an 8-bit log can hold them.
  virtual Text GeneralDate() = 0;
  // Nanoseconds; grows, from no fixed start. For seeds.
  virtual std::uint64_t Ticks() = 0;
};

Clock& HostClock();

// Another moment, in seconds since 1970, in the form of GeneralDate.
Text GeneralDateOf(std::int64_t seconds);

}  // namespace platform
