// A file's new content, made beside it and put in its place only when it is whole.
#pragma once

#include <sys/stat.h>

#include <string>
#include <string_view>

#include "platform/host_descriptor.h"
#include "platform/text.h"

namespace platform {

// What the names of such files end in; none of them is a file of anybody's.
inline constexpr std::string_view kBesideEnding = ".zorvand-new";

// The hidden file ".<name>.zorvand-new" in the folder of the file that it is to replace. What a
// crash left there is thrown away by the next one. A link is followed: its target is replaced.
class BesideFile {
 public:
  // `known` is what the host says of the file at `hostPath`, whose mode bits the new one gets, and
  // its owner and group as far as the user may give files away.
  BesideFile(const std::string& hostPath, TextView path, const struct stat& known);
  BesideFile(const BesideFile&) = delete;
  BesideFile& operator=(const BesideFile&) = delete;
  // Leaves the old file as it was, unless the new one has taken its place.
  ~BesideFile();

  const Descriptor& File() const { return file_; }
  void Write(std::string_view bytes);
  // Puts what was written on the disk itself, so that not even a power cut can lose both contents.
  void Flush();
  // Failure if any write failed before.
  void TakePlace();

 private:
  [[noreturn]] void Fail(int error);

  Text path_;
  std::string target_;
  std::string beside_;
  Descriptor file_;
  int error_ = 0;
  bool inPlace_ = false;
};

}  // namespace platform
