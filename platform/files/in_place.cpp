#include "platform/files/in_place.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <memory>

namespace platform {
namespace {

constexpr std::size_t kKernelStep = std::size_t{1} << 30;
constexpr std::size_t kBufferSize = std::size_t{1} << 16;

// Errors by which the kernel says that it has no copy of its own for these two files.
bool HasNoKernelCopy(int error) {
  return error == EXDEV || error == EINVAL || error == ENOSYS || error == EOPNOTSUPP ||
         error == EPERM;
}

// Copies inside the kernel (sharing blocks where the file system can) as far as that goes.
HostError CopyInKernel(const Descriptor& from, const Descriptor& to) {
  for (;;) {
    const ssize_t count =
        ::copy_file_range(from.Number(), nullptr, to.Number(), nullptr, kKernelStep, 0);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return HostError::Unless(HasNoKernelCopy(errno));
    if (count == 0) return {};
  }
}

HostError CopyThroughBuffer(const Descriptor& from, const Descriptor& to) {
  const auto buffer = std::make_unique_for_overwrite<char[]>(kBufferSize);
  for (;;) {
    const ssize_t count = ::read(from.Number(), buffer.get(), kBufferSize);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return HostError(errno);
    if (count == 0) return {};
    std::size_t written = 0;
    const HostError error =
        WriteWhole(to, {buffer.get(), static_cast<std::size_t>(count)}, written);
    if (error) return error;
  }
}

HostError Rewind(const Descriptor& file) {
  return HostError::Unless(::lseek(file.Number(), 0, SEEK_SET) == 0);
}

HostError CopyFromTheBeginning(const Descriptor& from, const Descriptor& to) {
  HostError error = Rewind(from);
  if (!error) error = Rewind(to);
  return error ? error : CopyContent(from, to);
}

off_t SizeOf(const Descriptor& file, TextView path) {
  struct stat known {};
  if (::fstat(file.Number(), &known) != 0) FailHost(u"write", path, HostError(errno));
  return known.st_size;
}

// Room beyond the old content, which stays as it is. Not every file system can promise any; there
// the writing itself finds out.
HostError Reserve(const Descriptor& file, off_t oldSize, off_t newSize) {
  if (newSize <= oldSize) return {};
  const int mode = FALLOC_FL_KEEP_SIZE;
  if (::fallocate(file.Number(), mode, oldSize, newSize - oldSize) == 0) return {};
  const HostError error(errno);
  if (error.Number() == EOPNOTSUPP || error.Number() == ENOSYS) return {};
  // What it got until it failed goes back; there is nothing to be done where that fails, too.
  static_cast<void>(::ftruncate(file.Number(), oldSize) == 0);
  return error;
}

HostError Overwrite(const Descriptor& file, const Descriptor& content, off_t size) {
  const HostError error = CopyFromTheBeginning(content, file);
  if (error) return error;
  return ::ftruncate(file.Number(), size) == 0 ? file.Flush() : HostError(errno);
}

// Two tools at once would mix their texts.
Descriptor OpenAlone(const std::string& hostPath, TextView path) {
  Descriptor file = OpenHost(hostPath, O_RDWR);
  if (!file.IsOpen()) FailHost(u"write", path, HostError(errno));
  if (::flock(file.Number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    FailHost(u"write", path, HostError(EBUSY));
  }
  return file;
}

}  // namespace

bool IsShut(int error) { return error == EACCES || error == EPERM || error == EROFS; }

Descriptor MakeUnnamed(TextView path) {
  std::FILE* const made = std::tmpfile();
  if (made == nullptr) FailHost(u"write", path, HostError(errno));
  Descriptor file(::fcntl(::fileno(made), F_DUPFD_CLOEXEC, 0));
  const HostError error(errno);
  static_cast<void>(std::fclose(made));  // nothing was written through it
  if (!file.IsOpen()) FailHost(u"write", path, error);
  return file;
}

// What the kernel left, be it all of it, goes through the buffer: both keep their places.
HostError CopyContent(const Descriptor& from, const Descriptor& to) {
  const HostError error = CopyInKernel(from, to);
  return error ? error : CopyThroughBuffer(from, to);
}

void ReplaceInPlace(const Descriptor& content, const std::string& hostPath, TextView path) {
  const Descriptor file = OpenAlone(hostPath, path);
  const off_t oldSize = SizeOf(file, path);
  const off_t newSize = SizeOf(content, path);
  const Descriptor old = MakeUnnamed(path);
  HostError error = CopyFromTheBeginning(file, old);
  if (!error) error = Reserve(file, oldSize, newSize);
  if (error) FailHost(u"write", path, error);
  error = Overwrite(file, content, newSize);
  if (!error) return;
  const HostError lost = Overwrite(file, old, oldSize);
  if (lost) FailHost(u"write the old content back to", path, lost);
  FailHost(u"write", path, error);
}

}  // namespace platform
