#pragma once

#include <vector>

#include "platform/launcher.h"

namespace testing_support {

// Starts nothing, and keeps what it was asked to open.
class RecordedLauncher : public platform::Launcher {
 public:
  struct Opened {
    platform::Text path;
    platform::Text folder;
    bool operator==(const Opened&) const = default;
  };

  void Open(platform::TextView path, platform::TextView folder) override {
    opened.push_back({platform::Text(path), platform::Text(folder)});
  }

  std::vector<Opened> opened;
};

}  // namespace testing_support
