// What every room says to the editor and to the log: steps, numbered messages, failures. The
// project window is the one reporter of the tool.
#pragma once

#include <cstdint>
#include <functional>

#include "core/machine.h"
#include "platform/files/file_system_object.h"
#include "platform/text/text.h"

namespace core {

class Reporter {
 public:
  explicit Reporter(Machine& machine) : machine_(machine) {}
  Reporter(const Reporter&) = delete;
  Reporter& operator=(const Reporter&) = delete;
  virtual ~Reporter() = default;

  // Never fails and does nothing before the log is begun.
  void LogMe(platform::TextView text);
  void DoLog(platform::TextView text, platform::TextView path);
  void LogErr(std::int16_t number);
  // Returns once its box, if the number has one, is closed.
  void bepayam(std::int16_t number);
  // Runs an operation. Its failure ends it, goes to lastErrorText and to bepayam(number).
  void Catching(std::int16_t number, const std::function<void()>& operation);

  platform::Text lastErrorText;

 protected:
  // `files` writes the log from now on, until it is nullptr.
  void LogThrough(platform::FileSystemObject* files) { files_ = files; }

 private:
  Machine& machine_;
  platform::FileSystemObject* files_ = nullptr;
};

}  // namespace core
