#include "platform/files/host_flush.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <optional>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files/host_descriptor.h"
#include "platform/files/paths.h"

namespace platform {
namespace {

// Up to here a flush of each takes no longer than an editor looks at a box that closes.
constexpr std::size_t kFew = 100;

using HostPaths = std::set<std::string>;
// What was noted and is to be flushed; those of few stand in order.
using Noted = std::unordered_map<std::string, NotedPath>::value_type;
using NotedPaths = std::vector<Noted*>;

// Where a link leads, another disk maybe; the path itself if it is none.
std::string WithLinkFollowed(const std::string& hostPath) {
  struct stat known {};
  char buffer[PATH_MAX];
  if (::lstat(hostPath.c_str(), &known) != 0 || !S_ISLNK(known.st_mode)) return hostPath;
  return ::realpath(hostPath.c_str(), buffer) != nullptr ? buffer : hostPath;
}

bool IsGone(int error) { return error == ENOENT || error == ENOTDIR; }

// Links followed. Nothing for what is gone.
std::optional<struct stat> Found(const std::string& hostPath) {
  struct stat known {};
  if (::stat(hostPath.c_str(), &known) != 0 && IsGone(errno)) return std::nullopt;
  return known;
}

bool IsBelow(const std::string& hostPath, const std::string& folder) {
  return hostPath.starts_with(folder) &&
         (folder.ends_with('/') || hostPath.size() == folder.size() ||
          hostPath[folder.size()] == '/');
}

// What a flush is asked for.
struct Top {
  std::string path;  // without a final "/"
  bool isThere;
};

// Where nothing stands there the top is what paths begin with; an empty one is that of all which
// start at the current folder.
bool IsOf(const Top& top, const std::string& hostPath) {
  if (top.isThere) return IsBelow(hostPath, top.path);
  return top.path.empty() ? !hostPath.starts_with('/') : hostPath.starts_with(top.path);
}

// Those that hold the names, and above them all up to the one that holds the top: each may be new.
HostPaths FoldersOf(const NotedPaths& paths, const Top& top) {
  HostPaths folders;
  HostPaths behindLinks;
  const std::size_t shortest =
      std::max<std::size_t>(top.isThere ? HostFolderOf(top.path).size() : std::string::npos, 1);
  std::string_view last;
  for (const Noted* const noted : paths) {
    const std::string& path = noted->first;
    if (!noted->second.isNoLink) behindLinks.emplace(HostFolderOf(WithLinkFollowed(path)));
    std::string_view folder = HostFolderOf(path);
    if (folder == std::exchange(last, folder)) continue;
    while (folders.emplace(folder).second && folder.size() > shortest) {
      folder = HostFolderOf(folder);
    }
  }
  folders.merge(behindLinks);
  return folders;
}

// How a flush ended. What the disk couldn't take is lost.
struct [[nodiscard]] Outcome {
  HostError error = {};
  std::string lost = {};                     // a file, or a folder with the names in it
  std::optional<dev_t> disk = std::nullopt;  // or all on it may be
};

// What may be written but not read is opened all the same, but for a folder (EISDIR).
Descriptor OpenToFlush(const std::string& path) {
  Descriptor opened = OpenHost(path, O_RDONLY);
  if (opened.IsOpen() || errno != EACCES) return opened;
  return OpenHost(path, O_WRONLY);
}

// What is flushed together: what was written, and the folders that hold it.
struct Flushed {
  const NotedPaths& paths;
  const HostPaths& folders;
};

bool IsOnDisk(const Descriptor& opened, dev_t disk) {
  struct stat known {};
  return opened.IsOpen() && ::fstat(opened.Number(), &known) == 0 && known.st_dev == disk;
}

// For such a folder, whatever else lies on its disk. Not open where nothing does.
Descriptor OpenOnDiskOf(const std::string& folder, const Flushed& all) {
  Descriptor opened = OpenToFlush(folder);
  if (opened.IsOpen() || errno != EISDIR) return opened;
  struct stat known {};
  if (::stat(folder.c_str(), &known) != 0) return opened;
  for (const std::string& path : all.folders) {
    Descriptor other = OpenToFlush(path);
    if (IsOnDisk(other, known.st_dev)) return other;
  }
  for (const Noted* const noted : all.paths) {
    Descriptor other = OpenToFlush(noted->first);
    if (IsOnDisk(other, known.st_dev)) return other;
  }
  errno = EACCES;
  return opened;
}

// Linux tells of errors here since 5.8, of those that nobody has been told of yet.
Outcome FlushDisk(const Descriptor& opened) {
  struct stat known {};
  if (!opened.IsOpen() || ::fstat(opened.Number(), &known) != 0) return {HostError(errno)};
  if (::syncfs(opened.Number()) != 0) return {HostError(errno), {}, known.st_dev};
  return {{}, {}, known.st_dev};
}

Outcome FlushOne(const std::string& path, const Flushed& all) {
  const Descriptor opened = OpenToFlush(path);
  if (!opened.IsOpen() && IsGone(errno)) return {};
  if (!opened.IsOpen() && errno == EISDIR) return FlushDisk(OpenOnDiskOf(path, all));
  if (!opened.IsOpen()) return {HostError(errno)};
  return {opened.Flush(), path};
}

Outcome FlushEach(const Flushed& all) {
  Outcome outcome;
  for (auto each = all.paths.begin(); each != all.paths.end() && !outcome.error; ++each) {
    outcome = FlushOne((*each)->first, all);
  }
  for (auto each = all.folders.begin(); each != all.folders.end() && !outcome.error; ++each) {
    outcome = FlushOne(*each, all);
  }
  return outcome;
}

// The kernel begins with all of them before the first is waited for.
void BeginToWrite(const NotedPaths& files) {
  for (const Noted* const file : files) {
    const Descriptor opened = OpenToFlush(file->first);
    if (opened.IsOpen()) ::sync_file_range(opened.Number(), 0, 0, SYNC_FILE_RANGE_WRITE);
  }
}

Outcome FlushDisksOf(const Flushed& all) {
  std::set<dev_t> flushed;
  for (const std::string& folder : all.folders) {
    const std::optional<struct stat> found = Found(folder);
    if (!found || flushed.contains(found->st_dev)) continue;
    Outcome outcome = FlushDisk(OpenOnDiskOf(folder, all));
    if (outcome.error) return outcome;
    flushed.insert(found->st_dev);
  }
  return {};
}

// A disk that was pulled out has not got what was written to it.
bool IsPulledOut(const NotedPaths& paths, const Top& top) {
  const auto isHomeless = [](const Noted* noted) {
    return !Found(std::string(HostFolderOf(noted->first)));
  };
  return !top.isThere && (paths.empty() || std::ranges::any_of(paths, isHomeless));
}

Outcome FlushPaths(const NotedPaths& paths, const Top& top) {
  if (IsPulledOut(paths, top)) return {HostError(ENOENT)};
  const HostPaths folders = FoldersOf(paths, top);
  const Flushed all{paths, folders};
  if (paths.size() > kFew) return FlushDisksOf(all);
  BeginToWrite(paths);
  return FlushEach(all);
}

bool IsLostBy(const Outcome& outcome, const std::string& hostPath) {
  const std::optional<struct stat> found = Found(hostPath);
  if (!found || S_ISDIR(found->st_mode)) return false;
  if (outcome.disk) return found->st_dev == outcome.disk;
  return !outcome.lost.empty() && (IsBelow(hostPath, outcome.lost) ||
                                   HostFolderOf(WithLinkFollowed(hostPath)) == outcome.lost);
}

// The first of them by name.
void FailForWhatIsLost(const NotedPaths& paths) {
  const Noted* lost = nullptr;
  for (const Noted* const noted : paths) {
    if (!noted->second.error || !Found(noted->first)) continue;
    if (lost == nullptr || noted->first < lost->first) lost = noted;
  }
  if (lost != nullptr) FailHost(u"flush", ToolPath(lost->first), lost->second.error);
}

}  // namespace

NotedPath& Unflushed::Note(const std::string& hostPath) {
  NotedPath& noted = noted_[hostPath];
  if (noted.error && !Found(hostPath)) noted.error = {};
  return noted;
}

void Unflushed::Renew(TextView path) { noted_[HostPath(path)] = {.isWritten = true}; }

bool Unflushed::IsLost(TextView path) const {
  const auto noted = noted_.find(HostPath(path));
  return noted != noted_.end() && noted->second.error && Found(noted->first);
}

void Unflushed::GiveUp(TextView path) { noted_.erase(HostPath(path)); }

void Unflushed::Flush(TextView path) {
  Top top{path.empty() ? std::string() : HostPath(path), false};
  while (top.path.size() > 1 && top.path.ends_with('/')) top.path.pop_back();
  top.isThere = Found(top.path).has_value();
  NotedPaths paths;
  for (Noted& noted : noted_) {
    if (noted.second.isWritten && IsOf(top, noted.first)) paths.push_back(&noted);
  }
  if (paths.size() <= kFew) std::ranges::sort(paths, {}, &Noted::first);
  FailForWhatIsLost(paths);
  const Outcome outcome = FlushPaths(paths, top);
  if (outcome.error) {
    for (auto& [hostPath, noted] : noted_) {
      if (noted.isWritten && IsLostBy(outcome, hostPath)) noted.error = outcome.error;
    }
    FailHost(u"flush", path, outcome.error);
  }
  std::erase_if(
      noted_, [&](const Noted& noted) { return noted.second.isWritten && IsOf(top, noted.first); });
}

}  // namespace platform
