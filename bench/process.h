// Other programs that the bench runs. Each failure is a std::runtime_error that names the program.
#pragma once

#include <sys/types.h>

#include <cstdio>
#include <string>
#include <vector>

namespace bench {

using Command = std::vector<std::string>;

// Runs the command to its end; its output goes to /dev/null. Gives the wall time in seconds.
// Failure unless its exit status is 0.
double SecondsOfRun(const Command& command);
// What it printed.
std::string OutputOf(const Command& command);

// A program that runs beside the bench and answers each line with a line.
class Dialogue {
 public:
  explicit Dialogue(const Command& command);
  Dialogue(const Dialogue&) = delete;
  Dialogue& operator=(const Dialogue&) = delete;
  // Ends it.
  ~Dialogue();

  std::string ReadLine();
  std::string Ask(const std::string& line);

 private:
  std::string name_;
  pid_t process_;
  std::FILE* to_ = nullptr;
  std::FILE* from_ = nullptr;
};

}  // namespace bench
