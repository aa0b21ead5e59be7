#include "tests/support/disk_recorder.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <map>
#include <string_view>

namespace testing_support {
namespace {

using Kind = DiskEvent::Kind;

struct Recording {
  std::string folder;  // with its final "/"; empty: nothing is recorded
  std::vector<DiskEvent> events;
  std::map<int, std::string> opened;
  int refusal = 0;
  std::string refused;  // empty: each
};

// Never taken down: calls come until the very end of the process.
Recording& TheRecording() {
  static auto* const recording = new Recording;
  return *recording;
}

bool IsRecording() { return !TheRecording().folder.empty(); }

template <typename Call>
Call* Library(const char* name) {
  return reinterpret_cast<Call*>(dlsym(RTLD_NEXT, name));
}

std::string Absolute(std::string_view path) {
  char current[PATH_MAX];
  if (path.starts_with('/') || ::getcwd(current, sizeof current) == nullptr) {
    return std::string(path);
  }
  return std::string(current).append("/").append(path == "." ? "" : path);
}

// Or the folder itself, with or without its final "/".
bool IsInside(std::string_view path) {
  if (!IsRecording()) return false;
  const std::string& folder = TheRecording().folder;
  const std::string absolute = Absolute(path);
  return absolute.starts_with(folder) || absolute + "/" == folder;
}

void Record(DiskEvent event) { TheRecording().events.push_back(std::move(event)); }

std::string Below(std::string_view path) {
  std::string below = Absolute(path);
  below.erase(0, TheRecording().folder.size());
  while (below.ends_with('/')) below.pop_back();
  return below;
}

const std::string* OpenedAs(int file) {
  const auto found = TheRecording().opened.find(file);
  return !IsRecording() || found == TheRecording().opened.end() ? nullptr : &found->second;
}

void RecordPath(Kind kind, std::string_view path) {
  if (IsInside(path)) Record({.kind = kind, .path = Below(path)});
}

void RecordOpen(int file, std::string_view path, bool isMade) {
  if (!IsInside(path)) return;
  if (isMade) RecordPath(Kind::kMake, path);
  TheRecording().opened[file] = Below(path);
}

// What was written last through the file.
void RecordWrite(int file, std::size_t length) {
  const std::string* const path = OpenedAs(file);
  if (path == nullptr || length == 0) return;
  const off_t end = ::lseek(file, 0, SEEK_CUR);
  DiskEvent event{.kind = Kind::kWrite, .path = *path, .bytes = std::string(length, '\0')};
  event.at = static_cast<std::size_t>(end) - length;
  const std::string whole = TheRecording().folder + *path;
  const int reading = Library<int(const char*, int, ...)>("open")(whole.c_str(), O_RDONLY);
  const ssize_t count = ::pread(reading, event.bytes.data(), length, static_cast<off_t>(event.at));
  Library<int(int)>("close")(reading);
  if (count == static_cast<ssize_t>(length)) Record(std::move(event));
}

// What is open under the old name goes on under the new one.
void RecordRename(const std::string& from, const std::string& to) {
  Record({.kind = Kind::kRename, .path = from, .target = to});
  for (auto& [file, path] : TheRecording().opened) {
    if (path == from) path = to;
  }
}

void RecordFlush(int file) {
  const std::string* const path = OpenedAs(file);
  struct stat known {};
  if (path == nullptr || ::fstat(file, &known) != 0) return;
  Record({.kind = S_ISDIR(known.st_mode) ? Kind::kFlushFolder : Kind::kFlushFile, .path = *path});
}

bool IsRefused(int file, Kind loss) {
  const std::string& refused = TheRecording().refused;
  if (TheRecording().refusal == 0 || OpenedAs(file) == nullptr) return false;
  if (!refused.empty() && refused != *OpenedAs(file)) return false;
  Record({.kind = loss, .path = *OpenedAs(file)});
  errno = TheRecording().refusal;
  return true;
}

}  // namespace

DiskRecorder::DiskRecorder(const std::string& hostFolder) {
  TheRecording() = {hostFolder.ends_with('/') ? hostFolder : hostFolder + "/", {}, {}, 0, {}};
}

DiskRecorder::~DiskRecorder() { TheRecording() = {}; }

void DiskRecorder::Tell(const std::string& what) { Record({.kind = Kind::kTold, .path = what}); }

void DiskRecorder::RefuseFlushes(int error, const std::string& of) {
  TheRecording().refusal = error;
  TheRecording().refused = of;
}

const std::vector<DiskEvent>& DiskRecorder::Events() { return TheRecording().events; }

}  // namespace testing_support

// The C library's own names and declarations; those of its arguments are reserved words.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)

using testing_support::Kind;
using testing_support::Library;

extern "C" {

int open(const char* path, int flags, ...) {
  va_list more;
  va_start(more, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
  va_end(more);
  static const auto library = Library<int(const char*, int, ...)>("open");
  const bool mayMake = (flags & O_CREAT) != 0 && testing_support::IsInside(path);
  const bool isMade = mayMake && ::access(path, F_OK) != 0;
  const int file = library(path, flags, mode);
  if (file >= 0) testing_support::RecordOpen(file, path, isMade);
  return file;
}

int close(int file) {
  static const auto library = Library<int(int)>("close");
  if (testing_support::IsRecording()) testing_support::TheRecording().opened.erase(file);
  return library(file);
}

ssize_t write(int file, const void* bytes, size_t length) {
  static const auto library = Library<ssize_t(int, const void*, size_t)>("write");
  const ssize_t written = library(file, bytes, length);
  if (written > 0) testing_support::RecordWrite(file, static_cast<size_t>(written));
  return written;
}

ssize_t copy_file_range(int from, off64_t* fromAt, int to, off64_t* toAt, size_t length,
                        unsigned int flags) {
  static const auto library =
      Library<ssize_t(int, off64_t*, int, off64_t*, size_t, unsigned int)>("copy_file_range");
  const ssize_t copied = library(from, fromAt, to, toAt, length, flags);
  if (copied > 0) testing_support::RecordWrite(to, static_cast<size_t>(copied));
  return copied;
}

int ftruncate(int file, off_t length) noexcept {
  static const auto library = Library<int(int, off_t)>("ftruncate");
  const int result = library(file, length);
  const std::string* const path = testing_support::OpenedAs(file);
  if (result == 0 && path != nullptr) {
    testing_support::Record({.kind = Kind::kCut, .path = *path, .at = static_cast<size_t>(length)});
  }
  return result;
}

int rename(const char* from, const char* to) noexcept {
  static const auto library = Library<int(const char*, const char*)>("rename");
  const int result = library(from, to);
  if (result == 0 && testing_support::IsInside(from)) {
    testing_support::RecordRename(testing_support::Below(from), testing_support::Below(to));
  }
  return result;
}

int unlink(const char* path) noexcept {
  static const auto library = Library<int(const char*)>("unlink");
  const int result = library(path);
  if (result == 0) testing_support::RecordPath(Kind::kTakeAway, path);
  return result;
}

int mkdir(const char* path, mode_t mode) noexcept {
  static const auto library = Library<int(const char*, mode_t)>("mkdir");
  const int result = library(path, mode);
  if (result == 0) testing_support::RecordPath(Kind::kMakeFolder, path);
  return result;
}

int fsync(int file) {
  static const auto library = Library<int(int)>("fsync");
  if (testing_support::IsRefused(file, Kind::kLoseFile)) return -1;
  const int result = library(file);
  if (result == 0) testing_support::RecordFlush(file);
  return result;
}

// The length of a file is among what it flushes.
int fdatasync(int file) {
  static const auto library = Library<int(int)>("fdatasync");
  if (testing_support::IsRefused(file, Kind::kLoseFile)) return -1;
  const int result = library(file);
  if (result == 0) testing_support::RecordFlush(file);
  return result;
}

int syncfs(int file) noexcept {
  static const auto library = Library<int(int)>("syncfs");
  if (testing_support::IsRefused(file, Kind::kLoseDisk)) return -1;
  const int result = library(file);
  if (result == 0 && testing_support::OpenedAs(file) != nullptr) {
    testing_support::Record({.kind = Kind::kFlushDisk});
  }
  return result;
}

}  // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
