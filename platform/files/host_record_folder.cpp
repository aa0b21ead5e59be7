#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <utility>

#include "platform/failure.h"
#include "platform/files/dead_files.h"
#include "platform/files/host_descriptor.h"
#include "platform/files/paths.h"
#include "platform/files/record_folder.h"

namespace platform {
namespace {

constexpr std::string_view kRecordEnding = ".record";
constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;
constexpr TextView kWriteDeed = u"write";

class HostRecord : public RecordFile {
 public:
  HostRecord(std::string hostPath, Text path, Descriptor file, off_t size)
      : hostPath_(std::move(hostPath)),
        path_(std::move(path)),
        file_(std::make_unique<Descriptor>(std::move(file))),
        size_(size) {}

  std::uint64_t Size() override { return static_cast<std::uint64_t>(size_); }

  std::string Read(std::size_t most) override {
    std::string bytes(std::min(most, static_cast<std::size_t>(size_)), '\0');
    std::size_t length = 0;
    while (length < bytes.size()) {
      const ssize_t count = ::pread(file_->Number(), bytes.data() + length, bytes.size() - length,
                                    static_cast<off_t>(length));
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) FailHost(u"read", path_, HostError(errno));
      if (count == 0) break;
      length += static_cast<std::size_t>(count);
    }
    bytes.resize(length);
    return bytes;
  }

  void Append(std::string_view bytes) override {
    std::size_t written = 0;
    const HostError error = WriteWhole(*file_, bytes, written);
    if (error) {
      // A torn piece would hide all that comes after it.
      static_cast<void>(::ftruncate(file_->Number(), size_) == 0);
      FailHost(kWriteDeed, path_, error);
    }
    size_ += static_cast<off_t>(written);
  }

  void Replace(const std::function<void(const Sink&)>& write) override {
    const std::string beside = BesidePath();
    Descriptor made = OpenHost(beside, O_RDWR | O_APPEND | O_CREAT | O_EXCL, kOwnerOnly);
    if (!made.IsOpen()) FailHost(kWriteDeed, path_, HostError(errno));
    MadeFile unfinished(beside);
    if (const HostError locked = LockAsOwner(made, beside); locked) {
      FailHost(u"lock", path_, locked);
    }
    off_t size = 0;
    write([&](std::string_view bytes) {
      std::size_t written = 0;
      if (const HostError error = WriteWhole(made, bytes, written)) {
        FailHost(kWriteDeed, path_, error);
      }
      size += static_cast<off_t>(written);
    });
    if (const HostError error = made.Flush()) FailHost(kWriteDeed, path_, error);
    if (std::rename(beside.c_str(), hostPath_.c_str()) != 0)
      FailHost(kWriteDeed, path_, HostError(errno));
    unfinished.Keep();
    file_ = std::make_unique<Descriptor>(std::move(made));
    size_ = size;
    nameIsNew_ = true;
  }

  void Sync() override {
    int result = 0;
    do {
      result = ::fdatasync(file_->Number());
    } while (result != 0 && errno == EINTR);
    if (result != 0) FailHost(kWriteDeed, path_, HostError(errno));
    if (!std::exchange(nameIsNew_, false)) return;
    std::string folder(HostFolderOf(hostPath_));
    FlushFolder(folder);
    if (!std::exchange(foldersAreNew_, false)) return;
    // What of these its user can't read was there before.
    while ((folder = std::string(HostFolderOf(folder))).size() > 1) {
      if (::access(folder.c_str(), R_OK) == 0) FlushFolder(folder);
    }
  }

  void Rename(TextView beginning) override {
    const std::size_t name = hostPath_.rfind('/') + 1;
    std::string renamed = hostPath_.substr(0, name).append(ToUtf8(beginning)).append(kRecordEnding);
    if (::renameat2(AT_FDCWD, hostPath_.c_str(), AT_FDCWD, renamed.c_str(), RENAME_NOREPLACE) != 0)
      FailHost(u"rename", path_, HostError(errno));
    hostPath_ = std::move(renamed);
    path_ = ToolPath(hostPath_);
    nameIsNew_ = true;
  }

  void Remove() override {
    if (::unlink(hostPath_.c_str()) != 0 && errno != ENOENT)
      FailHost(u"remove", path_, HostError(errno));
  }

 private:
  void FlushFolder(const std::string& hostFolder) const {
    const Descriptor folder = OpenHost(hostFolder, O_RDONLY);
    const HostError error = folder.IsOpen() ? folder.Flush() : HostError(errno);
    if (error) FailHost(kWriteDeed, path_, error);
  }

  std::string BesidePath() const {
    const std::size_t name = hostPath_.rfind('/') + 1;
    return hostPath_.substr(0, name).append(".").append(hostPath_, name).append(kBesideEnding);
  }

  std::string hostPath_;
  Text path_;
  std::unique_ptr<Descriptor> file_;
  off_t size_;
  bool nameIsNew_ = true;
  bool foldersAreNew_ = true;  // those above it: one that a first start has made
};

class RecordsOfHost : public RecordFolder {
 public:
  explicit RecordsOfHost(Text path) : path_(std::move(path)) {}

  std::vector<FoundRecord> List() override {
    const HostFolder folder(::opendir(HostPath(path_).c_str()));
    if (!folder && errno == ENOENT) return {};
    if (!folder) FailHost(u"list", path_, HostError(errno));
    std::vector<FoundRecord> found;
    while (const dirent* const entry = ::readdir(folder.get())) {
      const std::string_view name = entry->d_name;
      struct stat known {};
      if (name.starts_with('.') || !name.ends_with(kRecordEnding)) continue;
      if (::fstatat(::dirfd(folder.get()), entry->d_name, &known, AT_SYMLINK_NOFOLLOW) != 0 ||
          !S_ISREG(known.st_mode)) {
        continue;
      }
      found.push_back({ToolName(name), known.st_mtim.tv_sec, known.st_mtim.tv_nsec});
    }
    return found;
  }

  // An interrupted tool's file beside a record goes, too.
  std::unique_ptr<RecordFile> Take(TextView name) override {
    const Text path = PathOf(name);
    std::string hostPath = HostPath(path);
    Descriptor file = OpenHost(hostPath, O_RDWR | O_APPEND | O_NOFOLLOW);
    if (!file.IsOpen() && errno == ENOENT) return nullptr;
    const struct stat known = OrdinaryFile(file, u"open", path);
    if (LockAsOwner(file, hostPath)) return nullptr;
    SweepDead(HostPath(path_) + "/");
    return std::make_unique<HostRecord>(std::move(hostPath), path, std::move(file), known.st_size);
  }

  std::unique_ptr<RecordFile> Make(TextView beginning) override {
    MakeFolder();
    const Text process = FromNumber(static_cast<std::int64_t>(::getpid()));
    for (int number = 1;; ++number) {
      const Text path = PathOf(Text(beginning)
                                   .append(u"-")
                                   .append(process)
                                   .append(u"-")
                                   .append(FromNumber(number))
                                   .append(FromUtf8(kRecordEnding)));
      std::string hostPath = HostPath(path);
      Descriptor file =
          OpenHost(hostPath, O_RDWR | O_APPEND | O_CREAT | O_EXCL | O_NOFOLLOW, kOwnerOnly);
      if (!file.IsOpen() && errno == EEXIST) continue;
      if (!file.IsOpen()) FailHost(u"make", path, HostError(errno));
      MadeFile made(hostPath);
      const HostError error = LockAsOwner(file, hostPath);
      if (error.Number() == EWOULDBLOCK)
        continue;  // another tool took it for one that was left empty
      if (error) FailHost(u"lock", path, error);
      made.Keep();
      return std::make_unique<HostRecord>(std::move(hostPath), path, std::move(file), 0);
    }
  }

  std::int64_t Now() override { return std::time(nullptr); }
  std::chrono::milliseconds Uptime() override {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
  }

 private:
  Text PathOf(TextView name) const { return Text(path_).append(u"\\").append(name); }

  // The one above it, in which the second log lies, is made with that.
  void MakeFolder() const {
    if (::mkdir(HostPath(path_).c_str(), S_IRWXU) != 0 && errno != EEXIST) {
      FailHost(u"make", path_, HostError(errno));
    }
  }

  Text path_;
};

}  // namespace

std::unique_ptr<RecordFolder> HostRecordFolder(Text path) {
  return std::make_unique<RecordsOfHost>(std::move(path));
}

}  // namespace platform
