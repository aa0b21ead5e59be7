// The log files: what an entry looks like, and the writing of one.
#pragma once

#include <cstdint>

#include "platform/clock.h"
#include "platform/files/file_system_object.h"
#include "platform/text/text.h"

namespace core {

// Divides one run from the next.
inline constexpr platform::TextView kLogRule = u"======================";

// The head of a new log file. `date` is the present moment as the clock writes it.
platform::Text LogBanner(platform::TextView date);
platform::Text LogEntry(platform::TextView date, platform::TextView text);
// The text of an entry about a failure, and about a box that was closed.
platform::Text FailureNote(std::int16_t number, platform::TextView description);
platform::Text DisplayNote(std::int16_t number);

// Adds one entry to the 8-bit file at `path`, which gets its banner if it isn't there. A file that
// can't be made or written is left out without a report: this never fails.
void WriteLog(platform::FileSystemObject& fileSys, platform::Clock& clock, platform::TextView text,
              platform::TextView path);

}  // namespace core
