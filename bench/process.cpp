#include "bench/process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <stdexcept>

#include "bench/timing.h"

namespace bench {
namespace {

constexpr const char* kNowhere = "/dev/null";

[[noreturn]] void Complain(const std::string& program, const std::string& what) {
  throw std::runtime_error(program + " " + what);
}

class Actions {
 public:
  Actions() { posix_spawn_file_actions_init(&actions_); }
  Actions(const Actions&) = delete;
  Actions& operator=(const Actions&) = delete;
  ~Actions() { posix_spawn_file_actions_destroy(&actions_); }

  void Open(int number, int flags) {
    posix_spawn_file_actions_addopen(&actions_, number, kNowhere, flags, 0);
  }
  void Use(int from, int number) { posix_spawn_file_actions_adddup2(&actions_, from, number); }
  const posix_spawn_file_actions_t* Get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_;
};

pid_t Start(const Command& command, const Actions& actions) {
  std::vector<char*> arguments;
  for (const std::string& argument : command) {
    arguments.push_back(const_cast<char*>(argument.c_str()));
  }
  arguments.push_back(nullptr);
  pid_t process = -1;
  const int error =
      posix_spawnp(&process, arguments.front(), actions.Get(), nullptr, arguments.data(), environ);
  if (error != 0) Complain(command.front(), "can't be started");
  return process;
}

int WaitFor(pid_t process) {
  int status = 0;
  while (::waitpid(process, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

struct Pipe {
  Pipe() {
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  }
  std::array<int, 2> ends;  // reading, writing
};

std::string Rest(std::FILE* file) {
  std::string text;
  std::array<char, 4096> buffer;
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file)) {
    text.append(buffer.data(), count);
  }
  return text;
}

}  // namespace

double SecondsOfRun(const Command& command) {
  Actions actions;
  actions.Open(STDIN_FILENO, O_RDONLY);
  actions.Open(STDOUT_FILENO, O_WRONLY);
  int status = 0;
  const double seconds = SecondsOf([&] { status = WaitFor(Start(command, actions)); });
  if (status != 0) Complain(command.front(), "ended with status " + std::to_string(status));
  return seconds;
}

std::string OutputOf(const Command& command) {
  const Pipe pipe;
  Actions actions;
  actions.Open(STDIN_FILENO, O_RDONLY);
  actions.Use(pipe.ends[1], STDOUT_FILENO);
  const pid_t process = Start(command, actions);
  ::close(pipe.ends[1]);
  std::FILE* const output = ::fdopen(pipe.ends[0], "r");
  std::string text = Rest(output);
  std::fclose(output);
  const int status = WaitFor(process);
  if (status != 0) Complain(command.front(), "ended with status " + std::to_string(status));
  return text;
}

Dialogue::Dialogue(const Command& command) : name_(command.front()) {
  const Pipe questions;
  const Pipe answers;
  Actions actions;
  actions.Use(questions.ends[0], STDIN_FILENO);
  actions.Use(answers.ends[1], STDOUT_FILENO);
  process_ = Start(command, actions);
  ::close(questions.ends[0]);
  ::close(answers.ends[1]);
  to_ = ::fdopen(questions.ends[1], "w");
  from_ = ::fdopen(answers.ends[0], "r");
}

Dialogue::~Dialogue() {
  std::fclose(to_);
  std::fclose(from_);
  ::kill(process_, SIGTERM);
  WaitFor(process_);
}

std::string Dialogue::ReadLine() {
  std::array<char, 4096> buffer;
  if (std::fgets(buffer.data(), buffer.size(), from_) == nullptr) Complain(name_, "said nothing");
  return buffer.data();
}

std::string Dialogue::Ask(const std::string& line) {
  if (std::fputs((line + "\n").c_str(), to_) < 0 || std::fflush(to_) != 0) {
    Complain(name_, "doesn't listen");
  }
  return ReadLine();
}

}  // namespace bench
