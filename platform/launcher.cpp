#include "platform/launcher.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/failure.h"
#include "platform/files/paths.h"

namespace platform {
namespace {

// That it may be executed isn't enough: on some disks every file may.
bool IsProgram(const std::string& path) {
  struct stat status = {};
  const bool mayRun = ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
                      ::access(path.c_str(), X_OK) == 0;
  if (!mayRun) return false;
  std::string head(4, '\0');
  std::ifstream(path, std::ios::binary).read(head.data(), 4);
  return head == "\177ELF" || head.starts_with("#!") || head.starts_with("MZ");
}

// How a program is started: in its folder, as the head of a session of its own, and what it prints
// goes nowhere.
class Surroundings {
 public:
  explicit Surroundings(const char* folder) {
    ::posix_spawn_file_actions_init(&actions_);
    for (int stream = 0; stream <= 2; ++stream) {
      ::posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", O_RDWR, 0);
    }
    ::posix_spawn_file_actions_addchdir_np(&actions_, folder);
    ::posix_spawnattr_init(&attributes_);
    ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSID);
  }
  Surroundings(const Surroundings&) = delete;
  Surroundings& operator=(const Surroundings&) = delete;
  ~Surroundings() {
    ::posix_spawnattr_destroy(&attributes_);
    ::posix_spawn_file_actions_destroy(&actions_);
  }

  // 0, or the error number. The arguments end with a null; the first is the program, looked for in
  // PATH if it has no slash.
  int Start(const std::vector<const char*>& arguments, pid_t& process) const {
    // The list isn't changed by the call, whatever its type says.
    const auto list = const_cast<char* const*>(arguments.data());
    return ::posix_spawnp(&process, arguments.front(), &actions_, &attributes_, list, environ);
  }

 private:
  posix_spawn_file_actions_t actions_{};
  posix_spawnattr_t attributes_{};
};

class ProcessLauncher : public Launcher {
 public:
  void Open(TextView path, TextView folder) override {
    Ignoring([&] {
      BuryTheDead();
      // The folder becomes the current one before the file is opened.
      const std::string file = std::filesystem::absolute(HostPath(path));
      const std::string place = folder.empty() ? "/" : HostPath(folder);
      if (std::filesystem::is_directory(place)) Start(file, place);
    });
  }

 private:
  // The kernel may have nobody for a program of another system.
  void Start(const std::string& file, const std::string& folder) {
    const Surroundings surroundings(folder.c_str());
    pid_t process = 0;
    int error = ENOEXEC;
    if (IsProgram(file)) error = surroundings.Start({file.c_str(), nullptr}, process);
    if (error == ENOEXEC) {
      error = surroundings.Start({"xdg-open", file.c_str(), nullptr}, process);
    }
    if (error == 0) started_.push_back(process);
  }

  // Those that have ended since are let go: nobody is waited for.
  void BuryTheDead() {
    std::erase_if(started_,
                  [](pid_t process) { return ::waitpid(process, nullptr, WNOHANG) != 0; });
  }

  std::vector<pid_t> started_;
};

}  // namespace

Launcher& HostLauncher() {
  static ProcessLauncher launcher;
  return launcher;
}

}  // namespace platform
