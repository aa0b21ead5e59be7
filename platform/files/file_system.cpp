#include "platform/files/file_system.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

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

class HostFiles : public FileSystem {
 public:
  bool FileExists(TextView path) override { return S_ISREG(KindOf(path)); }
  bool FolderExists(TextView path) override { return S_ISDIR(KindOf(path)); }
  std::unique_ptr<OpenedFile> Open(TextView path, OpenMode mode, bool create) override {
    if (mode != OpenMode::kRead) unflushed_.Note(path);
    return OpenHostFile(path, mode, create);
  }
  void DeleteFile(TextView path) override {
    unflushed_.Note(path);
    if (::unlink(HostPath(path).c_str()) != 0) FailHost(u"delete", path, errno);
  }
  void CopyFile(TextView source, TextView target) override {
    unflushed_.Note(target);
    CopyHostFile(source, target);
  }
  void MakeFolder(TextView path) override {
    unflushed_.Note(path);
    if (::mkdir(HostPath(path).c_str(), kNewFolderMode) != 0) FailHost(u"make", path, errno);
  }
  std::vector<Text> FileNames(TextView folder) override {
    return ListHostFolder(folder, ListedKind::kFiles);
  }
  std::vector<Text> FolderNames(TextView folder) override {
    return ListHostFolder(folder, ListedKind::kFolders);
  }
  void Flush(TextView path) override { unflushed_.Flush(path); }

 private:
  Unflushed unflushed_;
};

}  // namespace

FileSystem& HostFileSystem() {
  static HostFiles files;
  return files;
}

}  // namespace platform
