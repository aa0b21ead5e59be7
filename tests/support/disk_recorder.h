// Records what this process asks of the files in a folder, as the kernel hears it. The program that
// links this has calls of its own in place of the C library's (open, write, rename, fsync ...),
// each of which hands on to the library's; those that the platform doesn't use are not seen.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace testing_support {

struct DiskEvent {
  enum class Kind : std::uint8_t {
    kMake,  // an empty file
    kMakeFolder,
    kTakeAway,
    kRename,  // to `target`
    kWrite,   // `bytes` at `at`
    kCut,     // to the length `at`
    kFlushFile,
    kFlushFolder,
    kFlushDisk,
    kLoseFile,  // a flush was refused: what wasn't on the disk yet never will be
    kLoseDisk,
    kTold,  // the editor was told something: `path` says what
  };
  Kind kind;
  std::string path = {};  // from the folder on ("Data/TXT/x.htm"); of an open file, its name then
  std::string target = {};
  std::size_t at = 0;
  std::string bytes = {};
};

// One recording at a time.
class DiskRecorder {
 public:
  explicit DiskRecorder(const std::string& hostFolder);
  ~DiskRecorder();
  DiskRecorder(const DiskRecorder&) = delete;
  DiskRecorder& operator=(const DiskRecorder&) = delete;

  static void Tell(const std::string& what);
  // From here on each flush fails with this error number, and the bytes are lost; 0: none does.
  // `of` (as in an event): of this path alone.
  static void RefuseFlushes(int error, const std::string& of = {});
  static const std::vector<DiskEvent>& Events();
};

}  // namespace testing_support
