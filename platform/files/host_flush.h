// What was written to the host's disks and may still be in its memory alone, or lost with it.
//
// A disk that couldn't take bytes says so once. The host has dropped them then, and a second flush
// of the same file succeeds. So a file whose flush has failed is lost: each Flush of what holds it
// fails with that error, until it is written anew from its beginning (more at its end doesn't bring
// back the rest), it is gone from its disk, or nobody needs it any more. Of a folder's failed flush
// all files noted in it are lost, and of a whole disk's all that were noted on it, as nobody says
// which they were. A folder has no bytes of its own: its flush is tried again.
#pragma once

#include <string>
#include <unordered_map>

#include "platform/files/host_error.h"
#include "platform/text/text.h"

namespace platform {

// A path to which something was done, or tried to.
struct NotedPath {
  bool isWritten = false;   // else nothing was done, and there is nothing to flush
  bool isOrdinary = false;  // a file that was opened here already, so nobody need look again
  bool isNoLink = false;    // as it was made here
  HostError error = {};     // of the flush by which it is lost
};

class Unflushed {
 public:
  // Before a file is written or taken away or a folder is made; what is done then says so in
  // `isWritten`. Stays until a Flush of the path.
  NotedPath& Note(const std::string& hostPath);
  // A file that stands there anew, from its beginning. Failure for a path that the host can't take.
  void Renew(TextView path);
  // See FileSystem.
  bool IsLost(TextView path) const;
  void GiveUp(TextView path);
  // See FileSystem. What was noted by a name that is gone since needs its folder alone, if the path
  // itself is there, and else is a Failure. After a Failure all of it is still to be flushed, but
  // for what is lost.
  void Flush(TextView path);

 private:
  std::unordered_map<std::string, NotedPath> noted_;  // by host path
};

}  // namespace platform
