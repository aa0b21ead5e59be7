// Where everything is written that a run of the bench writes, on the build's own disk.
#pragma once

#include <string>

namespace bench {

// A folder for the whole run. Nothing in it goes before its end: on ext4 files are made many times
// slower just after thousands were deleted.
class WorkFolder {
 public:
  WorkFolder();
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;
  ~WorkFolder();

  // A new folder below, whose name starts as given.
  std::string NewFolder(const std::string& name);

 private:
  std::string path_;
  int count_ = 0;
};

void WriteFile(const std::string& path, const std::string& bytes);
std::string ReadFile(const std::string& path);

}  // namespace bench
