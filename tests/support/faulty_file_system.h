// A file system whose k-th operation fails, for any k. Each call of FileSystem and each ReadAll,
// Write and Close of a file that it opened is one operation; so are the two existence tests.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/text/text.h"

namespace testing_support {

// Must outlive the files that it opened. The operation that fails is not carried out at all.
class FaultyFileSystem : public platform::FileSystem {
 public:
  static constexpr std::size_t kNever = 0;

  explicit FaultyFileSystem(platform::FileSystem& real) : real_(real) {}

  // Counts anew; the k-th operation from here on fails, counted from 1, and no other.
  void FailAt(std::size_t k) { Restart(k, false); }
  // The same, and each one after it: a disk that was pulled out.
  void FailFrom(std::size_t k) { Restart(k, true); }
  // Counts anew; the first "Open", "Write" ... of a path that ends so fails, and no other.
  void FailWhere(std::string operation, std::string pathEnd) {
    Restart(kNever, false);
    failingOperation_ = std::move(operation);
    failingPathEnd_ = std::move(pathEnd);
  }

  std::size_t Operations() const { return names_.size(); }
  // What was asked since the last FailAt or FailFrom, as "Open C:\a.txt".
  const std::vector<std::string>& Names() const { return names_; }
  bool HasFailed() const { return hasFailed_; }
  // Called with each operation's name just before it is carried out.
  std::function<void(const std::string& name)> onOperation;

  bool FileExists(platform::TextView path) override {
    Count("FileExists", path);
    return real_.FileExists(path);
  }
  bool FolderExists(platform::TextView path) override {
    Count("FolderExists", path);
    return real_.FolderExists(path);
  }
  std::unique_ptr<platform::OpenedFile> Open(platform::TextView path, platform::OpenMode mode,
                                             bool create) override {
    Count("Open", path);
    return std::make_unique<CountedFile>(*this, path, real_.Open(path, mode, create));
  }
  void DeleteFile(platform::TextView path) override {
    Count("DeleteFile", path);
    real_.DeleteFile(path);
  }
  void CopyFile(platform::TextView source, platform::TextView target) override {
    Count("CopyFile", target);
    real_.CopyFile(source, target);
  }
  void MakeFolder(platform::TextView path) override {
    Count("MakeFolder", path);
    real_.MakeFolder(path);
  }
  std::vector<platform::Text> FileNames(platform::TextView folder) override {
    Count("FileNames", folder);
    return real_.FileNames(folder);
  }
  std::vector<platform::Text> FolderNames(platform::TextView folder) override {
    Count("FolderNames", folder);
    return real_.FolderNames(folder);
  }
  void Flush(platform::TextView path) override {
    Count("Flush", path);
    real_.Flush(path);
  }
  // Neither asks anything of the disk.
  bool IsLost(platform::TextView path) override { return real_.IsLost(path); }
  void GiveUp(platform::TextView path) override { real_.GiveUp(path); }

 private:
  class CountedFile : public platform::OpenedFile {
   public:
    CountedFile(FaultyFileSystem& owner, platform::TextView path,
                std::unique_ptr<platform::OpenedFile> real)
        : owner_(owner), path_(path), real_(std::move(real)) {}

    std::string ReadAll() override {
      owner_.Count("ReadAll", path_);
      return real_->ReadAll();
    }
    void Write(std::string_view bytes) override {
      owner_.Count("Write", path_);
      real_->Write(bytes);
    }
    void Close() override {
      owner_.Count("Close", path_);
      real_->Close();
    }

   private:
    FaultyFileSystem& owner_;
    platform::Text path_;
    std::unique_ptr<platform::OpenedFile> real_;
  };

  void Restart(std::size_t k, bool andAllAfter) {
    failing_ = k;
    andAllAfter_ = andAllAfter;
    hasFailed_ = false;
    failingOperation_.clear();
    names_.clear();
  }

  bool Fails(std::string_view operation) const {
    if (!failingOperation_.empty()) {
      return !hasFailed_ && operation == failingOperation_ &&
             names_.back().ends_with(failingPathEnd_);
    }
    if (failing_ == kNever || Operations() < failing_) return false;
    return Operations() == failing_ || andAllAfter_;
  }

  void Count(const char* operation, platform::TextView path) {
    names_.push_back(std::string(operation) + " " + platform::ToUtf8(path));
    if (onOperation) onOperation(std::string(names_.back()));
    if (!Fails(operation)) return;
    hasFailed_ = true;
    throw platform::Failure(u"Made to fail: " + platform::FromUtf8(names_.back()));
  }

  platform::FileSystem& real_;
  std::size_t failing_ = kNever;
  bool andAllAfter_ = false;
  bool hasFailed_ = false;
  std::string failingOperation_;
  std::string failingPathEnd_;
  std::vector<std::string> names_;
};

}  // namespace testing_support
