#include "platform/files/host_flush.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <vector>

#include "platform/files/host_descriptor.h"
#include "platform/files/paths.h"

namespace platform {
namespace {

// Up to here a flush of each takes no longer than an editor looks at a box that closes.
constexpr std::size_t kFew = 100;

using HostPaths = std::set<std::string>;

std::string FolderOf(const std::string& hostPath) {
  const std::size_t end = hostPath.rfind('/');
  if (end == std::string::npos) return ".";
  return hostPath.substr(0, end == 0 ? 1 : end);
}

// Where a link leads, another disk maybe; the path itself if it is none.
std::string WithLinkFollowed(const std::string& hostPath) {
  struct stat known {};
  char buffer[PATH_MAX];
  if (::lstat(hostPath.c_str(), &known) != 0 || !S_ISLNK(known.st_mode)) return hostPath;
  return ::realpath(hostPath.c_str(), buffer) != nullptr ? buffer : hostPath;
}

// Those that hold the names, and above them all up to the one that holds `top`: each may be new.
HostPaths FoldersOf(const HostPaths& paths, const std::string& top) {
  HostPaths folders;
  HostPaths behindLinks;
  const std::size_t shortest = FolderOf(top).size();
  for (const std::string& path : paths) {
    behindLinks.insert(FolderOf(WithLinkFollowed(path)));
    std::string folder = FolderOf(path);
    while (folder.size() >= shortest && folders.insert(folder).second && folder.size() > 1) {
      folder = FolderOf(folder);
    }
  }
  folders.merge(behindLinks);
  return folders;
}

// Neither what is gone since nor a folder that may not be looked into has anything to wait for.
bool HasNothing(int error) {
  return error == ENOENT || error == ENOTDIR || error == EACCES || error == ELOOP ||
         error == ENAMETOOLONG;
}

int FlushEach(const HostPaths& paths) {
  for (const std::string& path : paths) {
    const Descriptor opened = OpenHost(path, O_RDONLY);
    if (!opened.IsOpen() && HasNothing(errno)) continue;
    const int error = opened.IsOpen() ? opened.Flush() : errno;
    if (error != 0) return error;
  }
  return 0;
}

// The kernel begins with all of them before the first is waited for.
void BeginToWrite(const HostPaths& files) {
  for (const std::string& file : files) {
    const Descriptor opened = OpenHost(file, O_RDONLY);
    if (opened.IsOpen()) ::sync_file_range(opened.Number(), 0, 0, SYNC_FILE_RANGE_WRITE);
  }
}

// Linux tells of errors here since 5.8, of those that nobody has been told of yet.
int FlushDisksOf(const HostPaths& folders) {
  std::set<dev_t> flushed;
  for (const std::string& folder : folders) {
    const Descriptor opened = OpenHost(folder, O_RDONLY);
    struct stat known {};
    if (!opened.IsOpen() && HasNothing(errno)) continue;
    if (!opened.IsOpen() || ::fstat(opened.Number(), &known) != 0) return errno;
    if (flushed.insert(known.st_dev).second && ::syncfs(opened.Number()) != 0) return errno;
  }
  return 0;
}

int FlushPaths(const HostPaths& paths, const std::string& top) {
  // A disk that was pulled out has not got what was written to it.
  if (::access(top.c_str(), F_OK) != 0) return errno;
  const HostPaths folders = FoldersOf(paths, top);
  if (paths.size() > kFew) return FlushDisksOf(folders);
  BeginToWrite(paths);
  const int error = FlushEach(paths);
  return error != 0 ? error : FlushEach(folders);
}

}  // namespace

void Unflushed::Note(TextView path) { noted_.insert(HostPath(path)); }

void Unflushed::Flush(TextView path) {
  std::string top = HostPath(path);
  const auto begin = noted_.lower_bound(top);
  auto end = begin;
  HostPaths paths;
  while (end != noted_.end() && end->starts_with(top)) paths.insert(paths.end(), *end++);
  while (top.size() > 1 && top.ends_with('/')) top.pop_back();
  const int error = FlushPaths(paths, top);
  if (error != 0) FailHost(u"flush", path, error);
  noted_.erase(begin, end);
}

}  // namespace platform
