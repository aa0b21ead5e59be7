// The processes that are killed.
#pragma once

#include <sys/types.h>

#include <map>
#include <string>
#include <vector>

namespace kill_test {

// Starts a program with these arguments and, besides this process's own, this environment.
class Child {
 public:
  Child(const std::string& program, const std::vector<std::string>& arguments,
        const std::map<std::string, std::string>& environment);
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  ~Child();

  // What it says up to its end, or until it says DONE and waits.
  std::string Say();
  void Kill();
  std::string SayAndKill();
  // What it says up to its end, with FAILED after it unless its status is 0.
  std::string SayToTheEnd();

 private:
  int WaitForEnd();

  pid_t process_ = 0;
  int output_ = -1;
};

inline constexpr const char* kDone = "DONE\n";

}  // namespace kill_test
