#include "platform/files/beside_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>

#include "platform/files/dead_files.h"
#include "platform/files/in_place.h"

namespace platform {
namespace {

// Keeps the hidden name inside what file systems allow for one (255 bytes).
constexpr std::size_t kLongestNamePart = 200;
constexpr mode_t kModeBits = 07777;

std::string WithLinksFollowed(const std::string& hostPath, TextView path) {
  char buffer[PATH_MAX];
  if (::realpath(hostPath.c_str(), buffer) == nullptr) FailHost(u"write", path, HostError(errno));
  return buffer;
}

std::string BesidePath(const std::string& target) {
  const std::size_t name = target.rfind('/') + 1;
  return target.substr(0, name)
      .append(".")
      .append(target, name, kLongestNamePart)
      .append(kBesideEnding);
}

// Not open where it failed; errno says why. Between the making and the lock another tool may take
// the file for a dead one's and away, but hardly time and again.
Descriptor MakeAnew(const std::string& hostPath) {
  constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;
  constexpr int kTries = 10;
  for (int i = 0; i < kTries; ++i) {
    Descriptor made = OpenHost(hostPath, O_RDWR | O_CREAT | O_EXCL, kOwnerOnly);
    if (made.IsOpen() && LockAsAlive(made, hostPath)) return made;
    if (!made.IsOpen() && (errno != EEXIST || !TakeDead(hostPath))) return made;
  }
  errno = EBUSY;
  return Descriptor(-1);
}

// Elsewhere, without a name, in a folder that takes none.
Descriptor MakeNew(const std::string& hostPath, TextView path, bool& isBeside) {
  SweepDead(hostPath.substr(0, hostPath.rfind('/') + 1));
  Descriptor made = MakeAnew(hostPath);
  isBeside = made.IsOpen();
  if (isBeside) return made;
  if (!IsShut(errno)) FailHost(u"write", path, HostError(errno));
  return MakeUnnamed(path);
}

// Not everybody may give a file to its old owner or group; a text that is saved as one's own is
// better than none.
void KeepOwner(const Descriptor& file, const struct stat& known) {
  constexpr auto kAsItIs = static_cast<uid_t>(-1);
  const bool kept = ::fchown(file.Number(), known.st_uid, known.st_gid) == 0 ||
                    ::fchown(file.Number(), kAsItIs, known.st_gid) == 0;
  static_cast<void>(kept);
}

// The owner first, as a change of owner takes mode bits away.
HostError TakeOver(const Descriptor& file, const struct stat& known) {
  KeepOwner(file, known);
  return HostError::Unless(::fchmod(file.Number(), known.st_mode & kModeBits) == 0);
}

}  // namespace

BesideFile::BesideFile(const std::string& hostPath, TextView path, const struct stat& known)
    : path_(path),
      target_(WithLinksFollowed(hostPath, path)),
      beside_(BesidePath(target_)),
      file_(MakeNew(beside_, path, isBeside_)),
      made_(beside_),
      mode_(known.st_mode & kModeBits) {
  if (!isBeside_) made_.Keep();  // it isn't there
  const HostError error = isBeside_ ? TakeOver(file_, known) : HostError();
  if (error) FailHost(u"write", path_, error);
}

void BesideFile::Write(std::string_view bytes) {
  if (error_) Fail(error_);
  std::size_t written = 0;
  const HostError error = WriteWhole(file_, bytes, written);
  if (error) Fail(error);
}

void BesideFile::Flush() {
  if (error_) Fail(error_);
  const HostError error = file_.Flush();
  if (error) Fail(error);
}

void BesideFile::TakePlace() {
  if (error_) Fail(error_);
  // Before it is closed, as that gives up the lock: another tool would take it for a dead one's.
  if (isBeside_ && std::rename(beside_.c_str(), target_.c_str()) == 0) {
    made_.Keep();
  } else if (isBeside_ && !IsShut(errno)) {
    Fail(HostError(errno));
  } else {
    GoOver();
  }
  const HostError error = file_.Close();
  if (error) Fail(error);
}

// Others' files may be there for everybody to write, but their mode bits are the owner's.
void BesideFile::GoOver() {
  ReplaceInPlace(file_, target_, path_);
  static_cast<void>(::chmod(target_.c_str(), mode_) == 0);
}

void BesideFile::Fail(HostError error) {
  error_ = error;
  FailHost(u"write", path_, error);
}

}  // namespace platform
