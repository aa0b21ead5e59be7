#include "platform/launcher.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>

#include "platform/failure.h"
#include "platform/paths.h"

namespace platform {
namespace {

bool IsProgram(const std::string& path) {
  struct stat status = {};
  return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
         ::access(path.c_str(), X_OK) == 0;
}

// In the grandchild: it belongs to nobody who would have to wait for it, and what it prints goes
// nowhere. A file that may be executed need not be a program: on some disks every file may.
[[noreturn]] void Become(bool isProgram, const char* file, const char* folder) {
  const int nowhere = ::open("/dev/null", O_RDWR);
  for (int stream = 0; nowhere >= 0 && stream <= 2; ++stream) ::dup2(nowhere, stream);
  if (::chdir(folder) == 0) {
    constexpr const char* kHandler = "xdg-open";
    if (isProgram) ::execl(file, file, static_cast<char*>(nullptr));
    if (!isProgram || errno == ENOEXEC) {
      ::execlp(kHandler, kHandler, file, static_cast<char*>(nullptr));
    }
  }
  ::_exit(127);
}

void Start(bool isProgram, const char* file, const char* folder) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::setsid();
    if (::fork() == 0) Become(isProgram, file, folder);
    ::_exit(0);
  }
  int status = 0;
  if (child > 0) ::waitpid(child, &status, 0);
}

class ProcessLauncher : public Launcher {
 public:
  void Open(TextView path, TextView folder) override {
    Ignoring([&] {
      // The folder becomes the current one before the file is opened.
      const std::string file = std::filesystem::absolute(HostPath(path));
      const std::string place = folder.empty() ? "/" : HostPath(folder);
      Start(IsProgram(file), file.c_str(), place.c_str());
    });
  }
};

}  // namespace

Launcher& HostLauncher() {
  static ProcessLauncher launcher;
  return launcher;
}

}  // namespace platform
