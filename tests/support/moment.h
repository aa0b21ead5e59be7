// The present moment by the host's own clock, for tests of what the tool says of it.
#pragma once

#include <ctime>
#include <string>

#include "platform/clock.h"
#include "platform/text/text.h"

namespace testing_support {

// As strftime writes it in the locale C.
inline std::string NowAs(const char* format) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char buffer[256];
  return {buffer, std::strftime(buffer, sizeof buffer, format, &local)};
}

struct Moment {
  std::string told;      // by the tool
  std::string expected;  // by the format
};
// Both of the same second: where one has ended meanwhile, both are asked again.
inline Moment MomentTold(platform::Clock& clock, const char* format) {
  for (;;) {
    const std::string before = NowAs(format);
    const std::string told = platform::ToUtf8(clock.GeneralDate());
    if (NowAs(format) == before) return {told, before};
  }
}

}  // namespace testing_support
