#include "platform/files/file_system.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/failure.h"
#include "platform/files/host_copy.h"
#include "platform/files/host_descriptor.h"
#include "platform/files/host_file.h"
#include "platform/files/host_flush.h"
#include "platform/files/host_listing.h"
#include "platform/files/paths.h"

namespace platform {
namespace {

constexpr mode_t kNewFolderMode = 0777;  // less the user's mask

// 0 for what isn't there or can't be asked for.
mode_t KindOf(TextView path) {
  struct stat known {};
  Ignoring([&] {
    if (::stat(HostPath(path).c_str(), &known) != 0) known.st_mode = 0;
  });
  return known.st_mode;
}

// Makes good what was lost once it is closed.
class ReplacingFile : public OpenedFile {
 public:
  ReplacingFile(Unflushed& unflushed, TextView path, std::unique_ptr<OpenedFile> file)
      : unflushed_(unflushed), path_(path), file_(std::move(file)) {}

  std::string ReadAll() override { return file_->ReadAll(); }
  void Write(std::string_view bytes) override { file_->Write(bytes); }
  void Close() override {
    file_->Close();
    if (!std::exchange(isClosed_, true)) unflushed_.Renew(path_);
  }

 private:
  Unflushed& unflushed_;
  Text path_;
  std::unique_ptr<OpenedFile> file_;
  bool isClosed_ = false;
};

class HostFiles : public FileSystem {
 public:
  bool FileExists(TextView path) override { return S_ISREG(KindOf(path)); }
  bool FolderExists(TextView path) override { return S_ISDIR(KindOf(path)); }
  std::unique_ptr<OpenedFile> Open(TextView path, OpenMode mode, bool create) override {
    if (mode == OpenMode::kRead) return OpenHostFileToRead(path);
    std::string hostPath = HostPath(path);
    NotedPath& noted = unflushed_.Note(hostPath);
    std::unique_ptr<OpenedFile> file =
        OpenHostFileToWrite(path, std::move(hostPath), mode, create, noted);
    noted.isWritten = true;
    if (mode == OpenMode::kAppend || !noted.error) return file;
    return std::make_unique<ReplacingFile>(unflushed_, path, std::move(file));
  }
  void DeleteFile(TextView path) override {
    const std::string hostPath = HostPath(path);
    NotedPath& noted = unflushed_.Note(hostPath);
    if (::unlink(hostPath.c_str()) != 0) FailHost(u"delete", path, HostError(errno));
    noted = {.isWritten = true, .error = noted.error};
  }
  void CopyFile(TextView source, TextView target) override {
    NotedPath& noted = unflushed_.Note(HostPath(target));
    CopyHostFile(source, target);
    noted = {.isWritten = true};
  }
  void MakeFolder(TextView path) override {
    const std::string hostPath = HostPath(path);
    NotedPath& noted = unflushed_.Note(hostPath);
    if (::mkdir(hostPath.c_str(), kNewFolderMode) != 0) FailHost(u"make", path, HostError(errno));
    noted.isWritten = true;
  }
  std::vector<Text> FileNames(TextView folder) override {
    return ListHostFolder(folder, ListedKind::kFiles);
  }
  std::vector<Text> FolderNames(TextView folder) override {
    return ListHostFolder(folder, ListedKind::kFolders);
  }
  void Flush(TextView path) override { unflushed_.Flush(path); }
  bool IsLost(TextView path) override { return unflushed_.IsLost(path); }
  void GiveUp(TextView path) override { unflushed_.GiveUp(path); }

 private:
  Unflushed unflushed_;
};

}  // namespace

FileSystem& HostFileSystem() {
  static HostFiles files;
  return files;
}

}  // namespace platform
