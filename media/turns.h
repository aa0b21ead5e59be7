// Memory that several threads decode in: who asks for more than is left waits until others are
// done. They have their turn in the order in which they asked, so a large one isn't passed over.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace media {

class Turns {
 public:
  explicit Turns(std::uint64_t bytes) : left_(bytes) {}

  // The memory of one decoding, given back at the end.
  class Turn {
   public:
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn();

   private:
    friend class Turns;
    Turn(Turns& turns, std::uint64_t bytes) : turns_(turns), bytes_(bytes) {}
    Turns& turns_;
    std::uint64_t bytes_;
  };

  // Waits. `bytes` are no more than there are at all.
  Turn Take(std::uint64_t bytes);

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::uint64_t left_;
  std::uint64_t asked_ = 0;
  std::uint64_t served_ = 0;
};

}  // namespace media
