// Where everything is written that a run of the bench writes: on the build's own disk, or in
// memory.
#pragma once

#include <string>

namespace bench {

// A folder for the whole run. Nothing in it goes before its end: on ext4 files are made many times
// slower just after thousands were deleted.
class WorkFolder {
 public:
  explicit WorkFolder(const std::string& place);
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;
  ~WorkFolder();

  // A new folder below, whose name starts as given.
  std::string NewFolder(const std::string& name);

 private:
  std::string path_;
  int count_ = 0;
};

// The places of work folders. The second needs a tmpfs there, as Debian has it.
constexpr const char* kOnDisk = ZORVAND_BENCH_FOLDER;
constexpr const char* kInMemory = "/dev/shm";

void WriteFile(const std::string& path, const std::string& bytes);
std::string ReadFile(const std::string& path);

}  // namespace bench
