// What both programs start for a file: the file itself if it is a program, else whoever opens it.
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace launch {

// Whether a file may be executed and begins as a program does. On some disks every file may be
// executed.
bool IsProgram(const std::string& file);

// Nobody waits for what it starts, which is the head of a session of its own; what that prints goes
// nowhere. Paths are the host's. Each call gives false where nobody was started; saying so is the
// caller's matter. What a file may do that is opened, the caller has asked before.
class Launcher {
 public:
  // Has a file opened by the program that the desktop has for its kind.
  using Handler = std::function<bool(const std::string& file, const std::string& folder)>;

  // Without one, the desktop's own command (xdg-open).
  explicit Launcher(Handler handler = nullptr) : handler_(std::move(handler)) {}

  // As a program, whatever it is, with `folder` as its current one.
  [[nodiscard]] bool Start(const std::string& file, const std::string& folder);
  // As a document, whatever it is.
  [[nodiscard]] bool HandOver(const std::string& file, const std::string& folder);
  // By what it is. A program that the host can't run, one of another system, is handed over.
  [[nodiscard]] bool Open(const std::string& file, const std::string& folder);

 private:
  // The host's error number, 0 where it runs.
  [[nodiscard]] int Run(std::vector<std::string> arguments, const std::string& folder);
  void BuryTheDead();

  Handler handler_;
  std::vector<pid_t> started_;
};

}  // namespace launch
