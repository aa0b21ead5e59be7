#include "platform/launcher.h"

#include <filesystem>
#include <string>

#include "launch/launcher.h"
#include "platform/failure.h"
#include "platform/files/paths.h"

namespace platform {
namespace {

class ProcessLauncher : public Launcher {
 public:
  void Open(TextView path, TextView folder) override {
    Ignoring([&] {
      // The folder becomes the current one before the file is opened.
      const std::string file = std::filesystem::absolute(HostPath(path));
      const std::string place = folder.empty() ? "/" : HostPath(folder);
      static_cast<void>(launcher_.Open(file, place));  // nothing is reported
    });
  }

 private:
  launch::Launcher launcher_;
};

}  // namespace

Launcher& HostLauncher() {
  static ProcessLauncher launcher;
  return launcher;
}

}  // namespace platform
