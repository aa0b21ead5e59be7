// The process around the windows: one thread, one event loop.
#pragma once

#include <functional>
#include <memory>

#include "platform/text/text.h"

namespace platform {

class Application {
 public:
  Application(int& argc, char** argv);
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;
  ~Application();

  // Runs `start`, then the events until EndProcess; returns its status. A failure that leaves
  // `start` or a handler ends the process with one message box and status 1.
  int Run(const std::function<void()>& start);

 private:
  struct Peer;
  std::unique_ptr<Peer> peer_;
};

// Takes all windows off the screen at once, without their Form_Unload, and ends the event loop.
void EndProcess(int status);

// The application's title, which message boxes bear.
inline constexpr TextView kApplicationTitle = u"Zorvand";

}  // namespace platform
