// A disk that has filled up, as far as a process can be made to see one.
#pragma once

#include <sys/resource.h>

#include <csignal>

namespace testing_support {

// As long as it lives no file of this process can grow past a size, in bytes: a write reaches it in
// part, the next one not at all.
class FullDisk {
 public:
  explicit FullDisk(rlim_t largest) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &limit_);
    rlimit full = limit_;
    full.rlim_cur = largest;
    setrlimit(RLIMIT_FSIZE, &full);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &limit_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  rlimit limit_{};
  void (*handler_)(int);
};

}  // namespace testing_support
