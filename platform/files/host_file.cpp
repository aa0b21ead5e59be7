#include "platform/files/host_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

#include "platform/failure.h"
#include "platform/files/beside_file.h"
#include "platform/files/host_descriptor.h"
#include "platform/files/paths.h"
#include "platform/text/encoding.h"

namespace platform {
namespace {

constexpr mode_t kNewFileMode = 0666;  // less the user's mask

[[noreturn]] void FailMode(TextView path) {
  throw Failure(Text(u"Can't use ").append(path).append(u": Bad file mode"));
}

class ReadFile : public OpenedFile {
 public:
  ReadFile(TextView path, Descriptor file, off_t size)
      : path_(path), file_(std::move(file)), size_(static_cast<std::size_t>(size)) {}

  // Up to its end, whatever its size was said to be; room for one byte more shows the end.
  std::string ReadAll() override {
    std::string bytes(size_ + 1, '\0');
    std::size_t length = 0;
    while (const std::size_t count = ReadAt(length, bytes)) {
      length += count;
      if (length == bytes.size()) bytes.resize(bytes.size() * 2);
    }
    bytes.resize(length);
    return bytes;
  }
  void Write(std::string_view) override { FailMode(path_); }
  void Close() override {
    const HostError error = file_.Close();
    if (error) FailHost(u"close", path_, error);
  }

 private:
  std::size_t ReadAt(std::size_t offset, std::string& bytes) {
    ssize_t count = -1;
    do {
      count = ::pread(file_.Number(), bytes.data() + offset, bytes.size() - offset,
                      static_cast<off_t>(offset));
    } while (count < 0 && errno == EINTR);
    if (count < 0) FailHost(u"read", path_, HostError(errno));
    return static_cast<std::size_t>(count);
  }

  Text path_;
  Descriptor file_;
  std::size_t size_;
};

// Written in its place: a new file, an empty one, or one that grows at its end.
class InPlaceFile : public OpenedFile {
 public:
  InPlaceFile(TextView path, Descriptor file) : path_(path), file_(std::move(file)) {}

  std::string ReadAll() override { FailMode(path_); }
  void Write(std::string_view bytes) override {
    std::size_t written = 0;
    const HostError error = WriteWhole(file_, bytes, written);
    if (!error) return;
    if (written != 0) TakeBack(written);
    FailHost(u"write", path_, error);
  }
  void Close() override {
    const HostError error = file_.Close();
    if (error) FailHost(u"write", path_, error);
  }

 private:
  // The disk that was full for the text has nothing against less of it; should it all the same,
  // the failure to be told is the one of the write.
  void TakeBack(std::size_t written) {
    struct stat known {};
    if (::fstat(file_.Number(), &known) != 0) return;
    const off_t size = known.st_size - static_cast<off_t>(written);
    if (::ftruncate(file_.Number(), size) == 0) ::lseek(file_.Number(), size, SEEK_SET);
  }

  Text path_;
  Descriptor file_;
};

// Stays as far as it got. Where not even its first text had room it goes away again: empty, it
// would count as there when its beginning is to be written once more.
class NewFile : public InPlaceFile {
 public:
  NewFile(TextView path, MadeFile made, Descriptor file)
      : InPlaceFile(path, std::move(file)), made_(std::move(made)) {}

  void Write(std::string_view bytes) override {
    InPlaceFile::Write(bytes);
    made_.Keep();
  }
  void Close() override {
    InPlaceFile::Close();
    made_.Keep();
  }

 private:
  MadeFile made_;
};

class ReplacedFile : public OpenedFile {
 public:
  ReplacedFile(TextView path, const std::string& hostPath, const struct stat& known)
      : path_(path), beside_(std::make_unique<BesideFile>(hostPath, path, known)) {}

  std::string ReadAll() override { FailMode(path_); }
  void Write(std::string_view bytes) override {
    if (!beside_) FailHost(u"write", path_, HostError(EBADF));
    beside_->Write(bytes);
  }
  void Close() override {
    const std::unique_ptr<BesideFile> ending = std::move(beside_);
    if (!ending) return;
    ending->Flush();
    ending->TakePlace();
  }

 private:
  Text path_;
  std::unique_ptr<BesideFile> beside_;
};

// Opening it in its place shows whether it may be written, also where it is then left alone.
std::unique_ptr<OpenedFile> OpenToReplace(TextView path, std::string hostPath, int creating,
                                          NotedPath& noted) {
  if (creating != 0) {
    Descriptor file = OpenHost(hostPath, O_WRONLY | O_CREAT | O_EXCL, kNewFileMode);
    if (file.IsOpen()) {
      MadeFile made(std::move(hostPath));
      noted.isOrdinary = noted.isNoLink = true;
      return std::make_unique<NewFile>(path, std::move(made), std::move(file));
    }
  }
  Descriptor file = OpenHost(hostPath, O_WRONLY | creating, kNewFileMode);
  const struct stat known = OrdinaryFile(file, u"open", path);
  if (known.st_size > static_cast<off_t>(kUtf16Mark.size())) {
    return std::make_unique<ReplacedFile>(path, hostPath, known);
  }
  if (known.st_size != 0 && ::ftruncate(file.Number(), 0) != 0)
    FailHost(u"write", path, HostError(errno));
  return std::make_unique<InPlaceFile>(path, std::move(file));
}

std::unique_ptr<OpenedFile> OpenToAppend(TextView path, const std::string& hostPath, int creating,
                                         NotedPath& noted) {
  Descriptor file = OpenHost(hostPath, O_WRONLY | O_APPEND | creating, kNewFileMode);
  if (!noted.isOrdinary || !file.IsOpen()) OrdinaryFile(file, u"open", path);
  noted.isOrdinary = true;
  return std::make_unique<InPlaceFile>(path, std::move(file));
}

}  // namespace

std::unique_ptr<OpenedFile> OpenHostFileToRead(TextView path) {
  Descriptor file = OpenHost(HostPath(path), O_RDONLY);
  const struct stat known = OrdinaryFile(file, u"open", path);
  return std::make_unique<ReadFile>(path, std::move(file), known.st_size);
}

std::unique_ptr<OpenedFile> OpenHostFileToWrite(TextView path, std::string hostPath, OpenMode mode,
                                                bool create, NotedPath& noted) {
  const int creating = create ? O_CREAT : 0;
  if (mode == OpenMode::kReplace) return OpenToReplace(path, std::move(hostPath), creating, noted);
  return OpenToAppend(path, hostPath, creating, noted);
}

}  // namespace platform
