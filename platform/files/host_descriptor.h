// An open file of the host, and the few things done with one. For the host's file system alone.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "platform/files/host_error.h"
#include "platform/text/text.h"

namespace platform {

// Failure "Can't <deed> <path>: <what the host says of the error>".
[[noreturn]] void FailHost(TextView deed, TextView path, HostError error);

class [[nodiscard]] Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept;
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(Descriptor&&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor();

  int Number() const { return number_; }
  bool IsOpen() const { return number_ >= 0; }
  // None where what was written is on the disk. A host that has no flush for such a file has
  // nothing to wait for.
  HostError Flush() const;
  // Closed in any case.
  HostError Close();

 private:
  int number_;
};

// The folder that holds a host path: "/" at the top, "." for a name alone.
std::string_view HostFolderOf(std::string_view hostPath);

// Never waits for the other end of a pipe and never takes a terminal over. Not open where it
// failed; errno says why.
Descriptor OpenHost(const std::string& hostPath, int flags, mode_t mode = 0);

// A file that was made here and is nobody's yet: it goes away again unless it is kept.
class [[nodiscard]] MadeFile {
 public:
  explicit MadeFile(std::string hostPath) noexcept : hostPath_(std::move(hostPath)) {}
  MadeFile(MadeFile&& other) noexcept;
  MadeFile(const MadeFile&) = delete;
  MadeFile& operator=(MadeFile&&) = delete;
  MadeFile& operator=(const MadeFile&) = delete;
  ~MadeFile();

  void Keep() { isKept_ = true; }

 private:
  std::string hostPath_;
  bool isKept_ = false;
};

// What the host knows of an open file. Failure if that is no ordinary file.
struct stat OrdinaryFile(const Descriptor& file, TextView deed, TextView path);

// Writes all of it or gives the error. `written` says how much of it reached the file.
HostError WriteWhole(const Descriptor& file, std::string_view bytes, std::size_t& written);

}  // namespace platform
