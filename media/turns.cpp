#include "media/turns.h"

namespace media {

Turns::Turn Turns::Take(std::uint64_t bytes) {
  {
    std::unique_lock lock(mutex_);
    const std::uint64_t mine = asked_++;
    changed_.wait(lock, [&] { return served_ == mine && bytes <= left_; });
    ++served_;
    left_ -= bytes;
  }
  changed_.notify_all();
  return {*this, bytes};
}

Turns::Turn::~Turn() {
  {
    const std::scoped_lock lock(turns_.mutex_);
    turns_.left_ += bytes_;
  }
  turns_.changed_.notify_all();
}

}  // namespace media
