#include "core/log.h"

#include "core/joined.h"
#include "platform/failure.h"

namespace core {

namespace {

using platform::Text;
using platform::TextView;

void WriteAndClose(platform::TextStream file, TextView text) {
  file.Write(text);
  file.Close();
}

}  // namespace

Text LogBanner(TextView date) {
  return Joined({u"In the Name of Allah\r\n\r\n", u"This is a log file for Zorvand software\r\n",
                 u"Created in ", date, u"\r\n", kLogRule, u"\r\n\r\n"});
}

Text LogEntry(TextView date, TextView text) { return Joined({date, u": ", text, platform::kCrLf}); }

Text FailureNote(std::int16_t number, TextView description) {
  return Joined({u"Error occurred => Error number is ", platform::FromNumber(number), u" (",
                 description, u")"});
}

Text DisplayNote(std::int16_t number) {
  return Joined({u"Payam number ", platform::FromNumber(number), u" displayed."});
}

void WriteLog(platform::FileSystemObject& fileSys, platform::Clock& clock, TextView text,
              TextView path) {
  bool exists = false;
  platform::Ignoring([&] { exists = fileSys.FileExists(path); });
  if (!exists) {
    platform::Ignoring(
        [&] { WriteAndClose(fileSys.CreateTextFile(path), LogBanner(clock.GeneralDate())); });
  }
  platform::Ignoring([&] {
    WriteAndClose(fileSys.OpenTextFile(path, platform::IoMode::kForAppending),
                  LogEntry(clock.GeneralDate(), text));
  });
}

}  // namespace core
