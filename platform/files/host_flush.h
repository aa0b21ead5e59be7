// What was written to the host's disks and may still be in its memory alone.
#pragma once

#include <set>
#include <string>

#include "platform/text/text.h"

namespace platform {

class Unflushed {
 public:
  // A file that is written or taken away, or a folder that is made. Failure for a path that the
  // host can't take.
  void Note(TextView path);
  // See FileSystem::Flush. What was noted by a name that is gone since needs its folder alone.
  // After a Failure all of it is still to be flushed.
  void Flush(TextView path);

 private:
  std::set<std::string> noted_;  // host paths
};

}  // namespace platform
