#include "book/raw_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <algorithm>
#include <cerrno>
#include <utility>

#include "book/text_file.h"

namespace book {
namespace {

// Without O_NONBLOCK a pipe would wait for a writer.
int OpenWhatItIs(const QByteArray& encodedPath) {
  return ::open(encodedPath.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
}

class Handle {
 public:
  explicit Handle(const QByteArray& encodedPath) : number_(OpenWhatItIs(encodedPath)) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() {
    if (number_ >= 0) ::close(number_);
  }

  // -1 if it isn't an ordinary file.
  qint64 Size() const {
    struct stat about {};
    if (number_ < 0 || ::fstat(number_, &about) != 0 || !S_ISREG(about.st_mode)) return -1;
    return about.st_size;
  }

  // Not closed by this any more.
  int Take() { return std::exchange(number_, -1); }

  // How many bytes came.
  std::size_t Read(char* to, std::size_t count) const {
    std::size_t done = 0;
    while (done < count) {
      const ssize_t came = ::read(number_, to + done, count - done);
      if (came < 0 && errno == EINTR) continue;
      if (came <= 0) break;
      done += static_cast<std::size_t>(came);
    }
    return done;
  }

 private:
  int number_;
};

}  // namespace

int OpenOrdinaryFile(const QString& path) {
  Handle file(QFile::encodeName(path));
  return file.Size() < 0 ? -1 : file.Take();
}

QByteArrayView RawFile::Read(const QString& path) { return Read(QFile::encodeName(path)); }

QByteArrayView RawFile::Read(const QByteArray& encodedPath) {
  const Handle file(encodedPath);
  const qint64 size = file.Size();
  if (size < 0) return {};
  const auto wanted = static_cast<std::size_t>(std::min(size, kLongestText));
  if (buffer_.size() < wanted + 1) buffer_.resize(wanted + 1);
  const std::size_t came = file.Read(buffer_.data(), wanted);
  return {buffer_.data(), static_cast<qsizetype>(came)};
}

}  // namespace book
