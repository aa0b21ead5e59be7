#include "tools/sample_session/threads.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace sample {
namespace {

// "17 (name) S ...", where the name may hold anything.
bool Sleeps(const std::filesystem::path& task) {
  std::ifstream file(task / "stat");
  const std::string stat{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const std::size_t name = stat.rfind(") ");
  const bool hasEnded = name == std::string::npos;
  return hasEnded || stat[name + 2] == 'S';
}

}  // namespace

bool OtherThreadsSleep() {
  const std::string self = std::to_string(gettid());
  for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
    if (task.path().filename() != self && !Sleeps(task.path())) return false;
  }
  return true;
}

}  // namespace sample
