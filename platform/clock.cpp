#include "platform/clock.h"

#include <locale.h>

#include <chrono>
#include <ctime>

namespace platform {
namespace {

// The user's regional settings for dates; nothing else of the process follows them.
locale_t DateLocale() {
  static const locale_t kRegional = [] {
    const locale_t named = newlocale(LC_TIME_MASK, "", nullptr);
    return named != nullptr ? named : newlocale(LC_TIME_MASK, "C", nullptr);
  }();
  return kRegional;
}

std::uint64_t Nanoseconds(std::chrono::nanoseconds time) {
  return static_cast<std::uint64_t>(time.count());
}

std::uint64_t SinceBoot() {
  return Nanoseconds(std::chrono::steady_clock::now().time_since_epoch());
}

std::uint64_t SinceEpoch() {
  return Nanoseconds(std::chrono::system_clock::now().time_since_epoch());
}

class SystemClock : public Clock {
 public:
  Text GeneralDate() override { return GeneralDateOf(std::time(nullptr)); }

  // The steady clock never steps back; the date in front of it keeps the seeds of two runs apart.
  std::uint64_t Ticks() override {
    static const std::uint64_t kStart = SinceEpoch() - SinceBoot();
    return kStart + SinceBoot();
  }
};

}  // namespace

Clock& HostClock() {
  static SystemClock clock;
  return clock;
}

Text GeneralDateOf(std::int64_t seconds) {
  const std::time_t moment = seconds;
  std::tm local{};
  localtime_r(&moment, &local);
  char buffer[256];
  const std::size_t length = strftime_l(buffer, sizeof buffer, "%x %X", &local, DateLocale());
  return WithAsciiDigits(FromUtf8({buffer, length}));
}

}  // namespace platform
