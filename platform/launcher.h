// Starting other programs.
#pragma once

#include "platform/text/text.h"

namespace platform {

class Launcher {
 public:
  Launcher() = default;
  Launcher(const Launcher&) = delete;
  Launcher& operator=(const Launcher&) = delete;
  virtual ~Launcher() = default;

  // Opens a file with `folder` as the current folder and doesn't wait: a program is started,
  // anything else goes to the desktop's handler. Nothing is reported, whatever becomes of it.
  virtual void Open(TextView path, TextView folder) = 0;
};

Launcher& HostLauncher();

}  // namespace platform
