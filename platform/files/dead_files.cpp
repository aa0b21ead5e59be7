#include "platform/files/dead_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <map>

namespace platform {
namespace {

constexpr std::size_t kNamesForACall = 1000;
constexpr HostError kIsLocked(EWOULDBLOCK);

bool IsAt(const Descriptor& file, const std::string& hostPath) {
  struct stat known {};
  struct stat there {};
  return ::fstat(file.Number(), &known) == 0 && ::lstat(hostPath.c_str(), &there) == 0 &&
         known.st_dev == there.st_dev && known.st_ino == there.st_ino;
}

// `kIsLocked` where a living tool has the lock, another error where the host has no such locks.
HostError LockError(const Descriptor& file) {
  return HostError::Unless(::flock(file.Number(), LOCK_EX | LOCK_NB) == 0);
}

bool IsBeside(std::string_view name) {
  return name.starts_with('.') && name.ends_with(kBesideEnding);
}

// A link is not followed; it is nobody's.
Descriptor OpenLeft(const std::string& hostPath) {
  return OpenHost(hostPath, O_RDONLY | O_NOFOLLOW);
}

// The lock is held until the file is gone, so that of two who find it one takes it, and takes
// nothing that was made there meanwhile.
[[nodiscard]] bool TakeLocked(const Descriptor& left, const std::string& hostPath) {
  return !IsAt(left, hostPath) || ::unlink(hostPath.c_str()) == 0 || errno == ENOENT;
}

void TakeIfSurelyDead(const std::string& hostPath) {
  const Descriptor left = OpenLeft(hostPath);
  // One that stays is in nobody's way.
  if (left.IsOpen() && !LockError(left)) static_cast<void>(TakeLocked(left, hostPath));
}

// How many names it has.
std::size_t Sweep(const std::string& hostFolder) {
  const HostFolder folder(::opendir(hostFolder.c_str()));
  if (!folder) return 0;
  std::size_t names = 0;
  while (const dirent* const entry = ::readdir(folder.get())) {
    ++names;
    if (IsBeside(entry->d_name)) TakeIfSurelyDead(hostFolder + entry->d_name);
  }
  return names;
}

}  // namespace

HostError LockAsOwner(const Descriptor& file, const std::string& hostPath) {
  const HostError error = LockError(file);
  return !error && !IsAt(file, hostPath) ? kIsLocked : error;
}

bool LockAsAlive(const Descriptor& made, const std::string& hostPath) {
  return LockError(made) != kIsLocked && IsAt(made, hostPath);
}

bool TakeDead(const std::string& hostPath) {
  const Descriptor left = OpenLeft(hostPath);
  if (left.IsOpen() && LockError(left) != kIsLocked) return TakeLocked(left, hostPath);
  if (left.IsOpen()) errno = EBUSY;
  // A link, or what a tool of another user left before it was its file's own.
  const bool isNobodys = errno == ELOOP || errno == EACCES;
  return errno == ENOENT || (isNobodys && ::unlink(hostPath.c_str()) == 0);
}

void SweepDead(const std::string& hostFolder) {
  static std::map<std::string, std::size_t> restsByFolder;  // calls until it is listed again
  std::size_t& rests = restsByFolder[hostFolder];
  if (rests > 0) {
    --rests;
  } else {
    rests = Sweep(hostFolder) / kNamesForACall;
  }
}

}  // namespace platform
