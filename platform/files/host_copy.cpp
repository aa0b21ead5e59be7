#include "platform/files/host_copy.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <string>
#include <string_view>

#include "platform/failure.h"
#include "platform/files/beside_file.h"
#include "platform/files/host_descriptor.h"
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

constexpr std::size_t kKernelStep = std::size_t{1} << 30;
constexpr std::size_t kBufferSize = std::size_t{1} << 16;

// Errors by which the kernel says that it has no copy of its own for these two files.
bool HasNoKernelCopy(int error) {
  return error == EXDEV || error == EINVAL || error == ENOSYS || error == EOPNOTSUPP ||
         error == EPERM;
}

// Copies inside the kernel (sharing blocks where the file system can) as far as that goes.
int CopyInKernel(const Descriptor& from, const Descriptor& to) {
  for (;;) {
    const ssize_t count =
        ::copy_file_range(from.Number(), nullptr, to.Number(), nullptr, kKernelStep, 0);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return HasNoKernelCopy(errno) ? 0 : errno;
    if (count == 0) return 0;
  }
}

int CopyThroughBuffer(const Descriptor& from, const Descriptor& to) {
  const auto buffer = std::make_unique_for_overwrite<char[]>(kBufferSize);
  for (;;) {
    const ssize_t count = ::read(from.Number(), buffer.get(), kBufferSize);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    if (count == 0) return 0;
    std::size_t written = 0;
    const int error = WriteWhole(to, {buffer.get(), static_cast<std::size_t>(count)}, written);
    if (error != 0) return error;
  }
}

// What the kernel left, be it all of it, goes through the buffer: both keep their places.
int CopyContent(const Descriptor& from, const Descriptor& to) {
  const int error = CopyInKernel(from, to);
  return error != 0 ? error : CopyThroughBuffer(from, to);
}

// Half a picture is worse than none.
void CopyToNew(const Descriptor& from, Descriptor to, MadeFile made, TextView target) {
  int error = CopyContent(from, to);
  if (error == 0) error = to.Close();
  if (error != 0) FailHost(u"write", target, error);
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
  const int error = CopyContent(from, beside.File());
  if (error != 0) FailHost(u"write", target, error);
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
  if (errno != EEXIST) FailHost(u"write", target, errno);
  CopyOver(from, known, targetPath, target);
}

}  // namespace platform
