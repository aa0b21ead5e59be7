// What is to be done after each event that the tool has handled, and a while later.
#pragma once

#include <functional>
#include <memory>

namespace platform {

class EventWatch {
 public:
  // `afterEach` is called after each event of a loop, the nested ones of modal windows among them,
  // before the next is handled; never in the middle of one. As long as this lives.
  explicit EventWatch(std::function<void()> afterEach);
  EventWatch(const EventWatch&) = delete;
  EventWatch& operator=(const EventWatch&) = delete;
  ~EventWatch();

  // Calls `act` once, as an event of its own, so many milliseconds from now; not if this is gone.
  void After(int milliseconds, const std::function<void()>& act);

 private:
  struct Peer;  // the toolkit's side
  std::unique_ptr<Peer> peer_;
};

}  // namespace platform
