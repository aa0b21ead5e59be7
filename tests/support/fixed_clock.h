// A clock that stands still for dates, and ticks once a question for seeds.
#pragma once

#include <cstdint>
#include <utility>

#include "platform/clock.h"
#include "platform/text/text.h"

namespace testing_support {

class FixedClock : public platform::Clock {
 public:
  explicit FixedClock(platform::Text date = u"01/02/2003 04:05:06", std::uint64_t firstTick = 1)
      : date_(std::move(date)), tick_(firstTick) {}

  platform::Text GeneralDate() override { return date_; }
  const platform::Text& Date() const { return date_; }
  std::uint64_t Ticks() override { return tick_++; }

  void SetDate(platform::Text date) { date_ = std::move(date); }
  void SetTick(std::uint64_t tick) { tick_ = tick; }

 private:
  platform::Text date_;
  std::uint64_t tick_;
};

}  // namespace testing_support
