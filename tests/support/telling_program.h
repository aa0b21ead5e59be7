// A program that tells its folder and its arguments through a pipe with a name. Plain C++ and the
// host's own, for both programs' tests.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

namespace testing_support {

class TellingProgram {
 public:
  explicit TellingProgram(std::string pipe) : pipe_(std::move(pipe)) {}
  TellingProgram(const TellingProgram&) = delete;
  TellingProgram& operator=(const TellingProgram&) = delete;
  // It has ended once it has told, be it that nobody has asked it to.
  ~TellingProgram() {
    const int listening = ::open(pipe_.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    while (::waitpid(-1, nullptr, 0) > 0) {
    }
    if (listening >= 0) ::close(listening);
  }

  const std::string& Pipe() const { return pipe_; }

  // Does `more` before it tells.
  [[nodiscard]] bool MakeAt(const std::string& path, const std::string& more = {}) const {
    if (::mkfifo(pipe_.c_str(), S_IRUSR | S_IWUSR) != 0) return false;
    std::ofstream(path) << "#!/bin/sh\n" << more << "echo \"$PWD,$#,$*\" > '" << pipe_ << "'\n";
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    return true;
  }

  // Waits for it.
  std::string Told() const {
    std::ifstream pipe(pipe_);
    std::string line;
    std::getline(pipe, line);
    return line;
  }

  static bool HasChildren() { return ::waitpid(-1, nullptr, WNOHANG) != -1 || errno != ECHILD; }

 private:
  std::string pipe_;
};

}  // namespace testing_support
