// The numbered messages: which text a number has, and through which of the two channels it goes.
#pragma once

#include <cstdint>

#include "platform/text/text.h"

namespace core {

// What the box says. Empty for a number that only the log takes note of.
platform::Text MessageText(std::int16_t number);
// The number stands for a failure, so the log gets its description.
bool NamesFailure(std::int16_t number);
// 31 to 99 leave no trace on the screen.
bool ShowsBox(std::int16_t number);

}  // namespace core
