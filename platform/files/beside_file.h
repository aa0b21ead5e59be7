// A file's new content, made beside it and put in its place only when it is whole.
#pragma once

#include <sys/stat.h>

#include <string>
#include <string_view>

#include "platform/files/host_descriptor.h"
#include "platform/text/text.h"

namespace platform {

// The hidden file ".<name>.zorvand-new" in the folder of the file that it is to replace, locked
// (flock) as long as its tool lives. What a dead one left in that folder, for whatever file, goes
// when the next is made. Failure where a living one replaces the same file at this moment. A link
// is followed: its target is replaced. In a folder that takes no new names, or lets none be
// replaced, the content is kept elsewhere and goes over the old one when it is whole.
class BesideFile {
 public:
  // `known` is what the host says of the file at `hostPath`, whose mode bits the new one gets, and
  // its owner and group as far as the user may give files away.
  BesideFile(const std::string& hostPath, TextView path, const struct stat& known);
  BesideFile(const BesideFile&) = delete;
  BesideFile& operator=(const BesideFile&) = delete;
  // Leaves the old file as it was, unless the new one has taken its place.
  ~BesideFile() = default;

  const Descriptor& File() const { return file_; }
  void Write(std::string_view bytes);
  // Puts what was written on the disk itself, so that not even a power cut can lose both contents.
  void Flush();
  // Failure if any write failed before.
  void TakePlace();

 private:
  [[noreturn]] void Fail(HostError error);
  void GoOver();

  Text path_;
  std::string target_;
  std::string beside_;
  bool isBeside_ = true;
  Descriptor file_;
  MadeFile made_;
  mode_t mode_;
  HostError error_;
};

}  // namespace platform
