#include "platform/files/host_copy.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "platform/failure.h"
#include "platform/files/beside_file.h"
#include "platform/files/host_descriptor.h"
#include "platform/files/in_place.h"
#include "platform/files/paths.h"

namespace platform {
namespace {

constexpr mode_t kExecute = 0111;

// A copy from a read-only disc can be changed, and that of a program started.
mode_t NewFileMode(const struct stat& source) {
  constexpr mode_t kReadAndWrite = 0666;
  return kReadAndWrite | (source.st_mode & kExecute);
}

// Who may read and write stays as it was. Whether there is something to start depends on the new
// content; nobody may start what they couldn't read.
mode_t ModeOver(const struct stat& old, const struct stat& source) {
  constexpr mode_t kRead = 0444;
  constexpr int kFromReadToExecute = 2;
  const mode_t readers = (old.st_mode & kRead) >> kFromReadToExecute;
  return (old.st_mode & ~kExecute) | (source.st_mode & kExecute & readers);
}

// Half a picture is worse than none.
void CopyToNew(const Descriptor& from, Descriptor to, MadeFile made, TextView target) {
  HostError error = CopyContent(from, to);
  if (!error) error = to.Close();
  if (error) FailHost(u"write", target, error);
  made.Keep();
}

void CopyOver(const Descriptor& from, const struct stat& source, const std::string& hostPath,
              TextView target) {
  struct stat old = OrdinaryFile(OpenHost(hostPath, O_WRONLY), u"write", target);
  if (old.st_dev == source.st_dev && old.st_ino == source.st_ino) {
    throw Failure(Text(u"Can't copy ").append(target).append(u": It is the same file"));
  }
  old.st_mode = ModeOver(old, source);
  BesideFile beside(hostPath, target, old);
  const HostError error = CopyContent(from, beside.File());
  if (error) FailHost(u"write", target, error);
  beside.Flush();
  beside.TakePlace();
}

}  // namespace

void CopyHostFile(TextView source, TextView target) {
  std::string targetPath = HostPath(target);
  const Descriptor from = OpenHost(HostPath(source), O_RDONLY);
  const struct stat known = OrdinaryFile(from, u"copy", source);
  Descriptor to = OpenHost(targetPath, O_WRONLY | O_CREAT | O_EXCL, NewFileMode(known));
  if (to.IsOpen()) {
    return CopyToNew(from, std::move(to), MadeFile(std::move(targetPath)), target);
  }
  if (errno != EEXIST) FailHost(u"write", target, HostError(errno));
  CopyOver(from, known, targetPath, target);
}

}  // namespace platform
