// Random file names. All files of one entry share one.
#pragma once

#include "platform/clock.h"
#include "platform/random.h"
#include "platform/text/text.h"

namespace workbench {

// One character, 0 to 9 or a to y. The generator is seeded from the clock before it is asked. Both
// ends of the range come half as often as the rest.
char16_t RandN(platform::Clock& clock, platform::Random& random);

// A name of 14 characters, 0 to 9 and A to Y.
platform::Text NewN(platform::Clock& clock, platform::Random& random);

}  // namespace workbench
