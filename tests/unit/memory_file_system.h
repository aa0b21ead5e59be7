// Files in memory, for rules that write a few: what stands where, and which paths refuse.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/text/text.h"

namespace testing_support {

class MemoryFileSystem : public platform::FileSystem {
 public:
  std::map<platform::Text, std::string> content;
  std::set<platform::Text> refusing;  // neither made nor written
  int opened = 0;
  int closed = 0;

  bool FileExists(platform::TextView path) override {
    return content.contains(platform::Text(path));
  }
  bool FolderExists(platform::TextView) override { return false; }
  std::unique_ptr<platform::OpenedFile> Open(platform::TextView path, platform::OpenMode mode,
                                             bool create) override {
    const platform::Text key(path);
    if (refusing.contains(key)) throw platform::Failure(u"Permission denied: " + key);
    if (!create && !content.contains(key)) throw platform::Failure(u"File not found: " + key);
    ++opened;
    if (mode == platform::OpenMode::kReplace) content[key].clear();
    return std::make_unique<MemoryFile>(*this, content[key]);
  }
  void DeleteFile(platform::TextView path) override { content.erase(platform::Text(path)); }
  void CopyFile(platform::TextView source, platform::TextView target) override {
    content[platform::Text(target)] = content.at(platform::Text(source));
  }
  void MakeFolder(platform::TextView) override {}
  std::vector<platform::Text> FileNames(platform::TextView) override { return {}; }
  std::vector<platform::Text> FolderNames(platform::TextView) override { return {}; }
  void Flush(platform::TextView) override {}
  bool IsLost(platform::TextView) override { return false; }
  void GiveUp(platform::TextView) override {}

 private:
  class MemoryFile : public platform::OpenedFile {
   public:
    MemoryFile(MemoryFileSystem& files, std::string& content) : files_(files), content_(content) {}
    std::string ReadAll() override { return content_; }
    void Write(std::string_view bytes) override { content_ += bytes; }
    void Close() override { ++files_.closed; }

   private:
    MemoryFileSystem& files_;
    std::string& content_;
  };
};

// A clock that stands still.
class StoppedClock : public platform::Clock {
 public:
  platform::Text GeneralDate() override { return u"1/2/2026 3:04:05 PM"; }
  std::uint64_t Ticks() override { return 0; }
};

}  // namespace testing_support
