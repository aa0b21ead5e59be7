#include "tools/kill_test/process.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

namespace kill_test {

Child::Child(const std::string& program, const std::vector<std::string>& arguments,
             const std::map<std::string, std::string>& environment) {
  int ends[2];
  if (::pipe(ends) != 0) std::abort();
  process_ = ::fork();
  if (process_ == 0) {
    ::dup2(ends[1], STDOUT_FILENO);
    ::close(ends[0]);
    for (const auto& [name, value] : environment) ::setenv(name.c_str(), value.c_str(), 1);
    std::vector<std::string> words = {program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> all;
    all.reserve(words.size() + 1);
    for (std::string& word : words) all.push_back(word.data());
    all.push_back(nullptr);
    ::execv(program.c_str(), all.data());
    ::_exit(127);
  }
  ::close(ends[1]);
  output_ = ends[0];
}

Child::~Child() { ::close(output_); }

int Child::WaitForEnd() {
  int status = 0;
  ::waitpid(process_, &status, 0);
  return status;
}

std::string Child::Say() {
  std::string said;
  char byte = 0;
  while (!said.ends_with(kDone) && ::read(output_, &byte, 1) == 1) said += byte;
  return said;
}

void Child::Kill() {
  ::kill(process_, SIGKILL);
  WaitForEnd();
}

std::string Child::SayAndKill() {
  std::string said = Say();
  Kill();
  return said;
}

std::string Child::SayToTheEnd() {
  std::string said;
  char byte = 0;
  while (::read(output_, &byte, 1) == 1) said += byte;
  const int status = WaitForEnd();
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) said += "FAILED\n";
  return said;
}

}  // namespace kill_test
