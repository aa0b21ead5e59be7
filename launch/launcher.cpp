#include "launch/launcher.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>

namespace launch {
namespace {

// How a program is started.
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

  // 0, or the error number. The first of the arguments is the program, looked for in PATH if it has
  // no slash.
  [[nodiscard]] int Start(std::vector<std::string> arguments, pid_t& process) const {
    std::vector<char*> list;
    list.reserve(arguments.size() + 1);
    for (std::string& argument : arguments) list.push_back(argument.data());
    list.push_back(nullptr);
    return ::posix_spawnp(&process, list.front(), &actions_, &attributes_, list.data(), environ);
  }

 private:
  posix_spawn_file_actions_t actions_{};
  posix_spawnattr_t attributes_{};
};

}  // namespace

bool IsProgram(const std::string& file) {
  struct stat status = {};
  const bool mayRun = ::stat(file.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
                      ::access(file.c_str(), X_OK) == 0;
  if (!mayRun) return false;
  std::string head(4, '\0');
  std::ifstream(file, std::ios::binary).read(head.data(), 4);
  return head == "\177ELF" || head.starts_with("#!") || head.starts_with("MZ");
}

bool Launcher::Start(const std::string& file, const std::string& folder) {
  return Run({file}, folder) == 0;
}

bool Launcher::HandOver(const std::string& file, const std::string& folder) {
  if (handler_) return handler_(file, folder);
  return Run({"xdg-open", file}, folder) == 0;
}

bool Launcher::Open(const std::string& file, const std::string& folder) {
  const int error = IsProgram(file) ? Run({file}, folder) : ENOEXEC;
  return error == ENOEXEC ? HandOver(file, folder) : error == 0;
}

int Launcher::Run(std::vector<std::string> arguments, const std::string& folder) {
  BuryTheDead();
  pid_t process = 0;
  const int error = Surroundings(folder.c_str()).Start(std::move(arguments), process);
  if (error == 0) started_.push_back(process);
  return error;
}

// Those that have ended since are let go: nobody is waited for.
void Launcher::BuryTheDead() {
  std::erase_if(started_, [](pid_t process) { return ::waitpid(process, nullptr, WNOHANG) != 0; });
}

}  // namespace launch
