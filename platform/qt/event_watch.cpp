#include "platform/windows/event_watch.h"

#include <QObject>
#include <QTimer>
#include <utility>
#include <vector>

#include "platform/qt/trampoline.h"

namespace platform {
namespace {

std::vector<const std::function<void()>*>& Watching() {
  static std::vector<const std::function<void()>*> watching;
  return watching;
}

}  // namespace

struct EventWatch::Peer {
  std::function<void()> afterEach;
  QObject anchor;
};

EventWatch::EventWatch(std::function<void()> afterEach) : peer_(std::make_unique<Peer>()) {
  peer_->afterEach = std::move(afterEach);
  Watching().push_back(&peer_->afterEach);
}

EventWatch::~EventWatch() { std::erase(Watching(), &peer_->afterEach); }

void EventWatch::After(int milliseconds, const std::function<void()>& act) {
  QTimer::singleShot(milliseconds, &peer_->anchor, [act] { FromEvent(act); });
}

// Looks at the list anew each time, as one of them may make or end another.
void TellEventWatches() {
  std::size_t next = 0;
  while (next < Watching().size()) FromEvent(*Watching()[next++]);
}

}  // namespace platform
