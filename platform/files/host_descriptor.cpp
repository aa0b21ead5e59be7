#include "platform/files/host_descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "platform/failure.h"

namespace platform {
namespace {

// In English whatever the user's language is: descriptions go to the log.
Text DescriptionOf(HostError error) {
#if defined(__GLIBC__)
  const char* const description = strerrordesc_np(error.Number());
#else
  const char* const description = std::strerror(error.Number());
#endif
  return description != nullptr ? FromUtf8(description) : u"error " + FromNumber(error.Number());
}

}  // namespace

void FailHost(TextView deed, TextView path, HostError error) {
  Text description = u"Can't ";
  description.append(deed).append(u" ").append(path).append(u": ").append(DescriptionOf(error));
  throw Failure(std::move(description));
}

Descriptor::Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}

// Nobody is left to tell; who has written closes it before.
Descriptor::~Descriptor() { static_cast<void>(Close()); }

HostError Descriptor::Close() {
  if (!IsOpen()) return {};
  // An interrupted close has closed all the same.
  return HostError::Unless(::close(std::exchange(number_, -1)) == 0 || errno == EINTR);
}

HostError Descriptor::Flush() const {
  int result = 0;
  do {
    result = ::fsync(number_);
  } while (result != 0 && errno == EINTR);
  return HostError::Unless(result == 0 || errno == EINVAL);
}

MadeFile::MadeFile(MadeFile&& other) noexcept
    : hostPath_(std::move(other.hostPath_)), isKept_(std::exchange(other.isKept_, true)) {}

MadeFile::~MadeFile() {
  if (!isKept_) ::unlink(hostPath_.c_str());
}

std::string_view HostFolderOf(std::string_view hostPath) {
  const std::size_t end = hostPath.rfind('/');
  if (end == std::string_view::npos) return ".";
  return hostPath.substr(0, end == 0 ? 1 : end);
}

Descriptor OpenHost(const std::string& hostPath, int flags, mode_t mode) {
  int number = -1;
  do {
    number = ::open(hostPath.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode);
  } while (number < 0 && errno == EINTR);
  return Descriptor(number);
}

struct stat OrdinaryFile(const Descriptor& file, TextView deed, TextView path) {
  struct stat known {};
  if (!file.IsOpen() || ::fstat(file.Number(), &known) != 0) FailHost(deed, path, HostError(errno));
  if (S_ISDIR(known.st_mode)) FailHost(deed, path, HostError(EISDIR));
  if (!S_ISREG(known.st_mode)) {
    throw Failure(
        Text(u"Can't ").append(deed).append(u" ").append(path).append(u": Not an ordinary file"));
  }
  return known;
}

HostError WriteWhole(const Descriptor& file, std::string_view bytes, std::size_t& written) {
  written = 0;
  while (written < bytes.size()) {
    const ssize_t count = ::write(file.Number(), bytes.data() + written, bytes.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return HostError(errno);
    if (count == 0) return HostError(ENOSPC);
    written += static_cast<std::size_t>(count);
  }
  return {};
}

}  // namespace platform
