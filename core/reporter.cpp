#include "core/reporter.h"

#include "core/book_places.h"
#include "core/log.h"
#include "core/messages.h"
#include "platform/failure.h"
#include "platform/files/paths.h"
#include "platform/windows/application.h"
#include "platform/windows/message_box.h"

namespace core {

using platform::Text;
using platform::TextView;

void Reporter::LogMe(TextView text) {
  platform::Ignoring([&] { DoLog(text, LogFile(platform::DoSlash(machine_.programFolder))); });
  platform::Ignoring([&] { DoLog(text, machine_.systemLogPath); });
}

void Reporter::DoLog(TextView text, TextView path) {
  if (files_ != nullptr) WriteLog(*files_, machine_.clock, text, path);
}

void Reporter::LogErr(std::int16_t number) {
  platform::Ignoring([&] { LogMe(FailureNote(number, lastErrorText)); });
}

void Reporter::bepayam(std::int16_t number) {
  if (NamesFailure(number)) LogErr(number);
  if (!ShowsBox(number)) return;
  platform::ShowNotice(MessageText(number), platform::kApplicationTitle);
  LogMe(DisplayNote(number));
}

void Reporter::Catching(std::int16_t number, const std::function<void()>& operation) {
  platform::CatchingFailure(operation, [&](const Text& description) {
    lastErrorText = description;
    bepayam(number);
  });
}

}  // namespace core
