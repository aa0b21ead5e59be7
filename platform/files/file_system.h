// Everything that the tool asks of a disk. Paths are text with backslashes (see paths.h). Whatever
// fails throws Failure with a description that names the path; nothing returns a status.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text/text.h"

namespace platform {

enum class OpenMode : std::uint8_t {
  kRead,     // the file must exist
  kReplace,  // the file gets new content; a new or empty one is written straight, one that holds
             // more than a byte order mark keeps its old content until Close has succeeded
  kAppend,   // what is written goes to the end; a write that fails half-way leaves nothing behind
};

// One open file. Closing twice does nothing. A file that goes away without Close keeps its old
// content if it was opened to be replaced; a new one stays as far as it got, unless that is
// nothing.
class OpenedFile {
 public:
  OpenedFile() = default;
  OpenedFile(const OpenedFile&) = delete;
  OpenedFile& operator=(const OpenedFile&) = delete;
  virtual ~OpenedFile() = default;

  // All bytes from the beginning. Failure if they can't be read.
  virtual std::string ReadAll() = 0;
  // Failure if not all of it reached the file.
  virtual void Write(std::string_view bytes) = 0;
  // Failure if what was written is not safe in its place.
  virtual void Close() = 0;
};

class FileSystem {
 public:
  FileSystem() = default;
  FileSystem(const FileSystem&) = delete;
  FileSystem& operator=(const FileSystem&) = delete;
  virtual ~FileSystem() = default;

  // True for an ordinary file (a folder is none); a path that can't be asked for is no file.
  virtual bool FileExists(TextView path) = 0;
  virtual bool FolderExists(TextView path) = 0;
  // `create`: a file that isn't there is made (kReplace, kAppend); without it that is a Failure.
  [[nodiscard]] virtual std::unique_ptr<OpenedFile> Open(TextView path, OpenMode mode,
                                                         bool create) = 0;
  virtual void DeleteFile(TextView path) = 0;
  // Over whatever file stands at the target, which keeps its content if the copy fails. Failure if
  // source and target are one file.
  virtual void CopyFile(TextView source, TextView target) = 0;
  // One level. Failure if the folder exists or its parent doesn't.
  virtual void MakeFolder(TextView path) = 0;
  // The names (no paths) of the ordinary files or of the folders in a folder, sorted without regard
  // to case. Failure if the folder can't be read.
  virtual std::vector<Text> FileNames(TextView folder) = 0;
  virtual std::vector<Text> FolderNames(TextView folder) = 0;
  // Returns when all that was written so far by these operations under a path (a file, or a folder
  // with all below it, links followed) is on its disk, names included. Where nothing stands there
  // the path is what others begin with; an empty one is that of those which start at the current
  // folder. Failure if the disk says no or isn't there any more.
  // Few files are flushed one by one, which waits for no other program and misses no error; for
  // many that takes twenty times as long as one flush of each disk they lie on (syncfs).
  //
  // What a disk couldn't take it has lost, and says so once. A file of which it said so, or may
  // have (where it was flushed whole: each that wasn't flushed yet), is lost: each Flush of what
  // holds it fails with the same error, until the file is replaced or copied over, is gone, or is
  // given up.
  virtual void Flush(TextView path) = 0;
  [[nodiscard]] virtual bool IsLost(TextView path) = 0;
  // Nobody needs what was written to this file: no Flush looks at it any more.
  virtual void GiveUp(TextView path) = 0;
};

// The machine's own disks.
FileSystem& HostFileSystem();

}  // namespace platform
