// The host's files as an export uses them, with an eye on its print pages.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "platform/files/file_system.h"

namespace bench {

// Knows when the print pages begin, by the template that is opened, and when they are done, by the
// next entry of the log.
class PrintWatch : public platform::FileSystem {
 public:
  // Of the last export.
  double Seconds() const;

  // From here on the folder of the print pages is a list of so many pages in memory, which are
  // these by turns, and a print page that is written there goes nowhere.
  void KeepPagesInMemory(std::size_t count, std::vector<std::string> pages);

  bool FileExists(platform::TextView path) override { return host_.FileExists(path); }
  bool FolderExists(platform::TextView path) override { return host_.FolderExists(path); }
  std::unique_ptr<platform::OpenedFile> Open(platform::TextView path, platform::OpenMode mode,
                                             bool create) override;
  void DeleteFile(platform::TextView path) override { host_.DeleteFile(path); }
  void CopyFile(platform::TextView source, platform::TextView target) override {
    host_.CopyFile(source, target);
  }
  void MakeFolder(platform::TextView path) override { host_.MakeFolder(path); }
  std::vector<platform::Text> FileNames(platform::TextView folder) override;
  std::vector<platform::Text> FolderNames(platform::TextView folder) override {
    return host_.FolderNames(folder);
  }
  // What is in memory has no disk to get to.
  void Flush(platform::TextView path) override {
    if (count_ == 0) host_.Flush(path);
  }
  bool IsLost(platform::TextView path) override { return host_.IsLost(path); }
  void GiveUp(platform::TextView path) override { host_.GiveUp(path); }

 private:
  using Clock = std::chrono::steady_clock;
  bool IsPrinting() const { return begin_ > end_; }

  platform::FileSystem& host_ = platform::HostFileSystem();
  Clock::time_point begin_;
  Clock::time_point end_;
  std::size_t count_ = 0;
  std::size_t next_ = 0;
  std::vector<std::string> pages_;
};

}  // namespace bench
