// The settings file of a project, CDProperty.xml, and the reader of tagged text.
#pragma once

#include <cstdint>

#include "platform/text/text.h"

namespace core {

// What the window's switches say.
struct Switches {
  bool music = false;
  bool firstPattern = false;
  bool print = false;
};

// Option 0 is the music ("1" on, "0" off), 1 the pattern ("1" first, "2" second), 2 the printing
// ("1" offered, "0" not). Any other gives "0".
platform::Text OptionText(std::int16_t option, const Switches& switches);

// The values as they go into the file, unescaped; the counts as they were typed.
struct SettingsValues {
  platform::Text aNumber;
  platform::Text bNumber;
  platform::Text cNumber;
  platform::Text pattern;
  platform::Text music;
  platform::Text print;
};

// The whole file.
platform::Text SettingsText(const SettingsValues& values);

// What stands between the first <tag> and the first </tag>, empty where there is no <tag>.
// Failure if </tag> is missing or stands first.
platform::Text TaggedText(platform::TextView text, platform::TextView tag);

}  // namespace core
