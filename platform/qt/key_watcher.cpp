#include "platform/qt/key_watcher.h"

#include <QEvent>
#include <QTimer>
#include <utility>

namespace platform {
namespace {

class KeyUpWatcher : public QObject {
 public:
  KeyUpWatcher(Control::Peer& peer, std::function<void()> handler)
      : QObject(&peer.anchor), handler_(std::move(handler)) {
    peer.widget->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::KeyRelease) QTimer::singleShot(0, this, handler_);
    return false;
  }

 private:
  std::function<void()> handler_;
};

}  // namespace

void WatchKeyUp(Control::Peer& peer, std::function<void()> handler) {
  new KeyUpWatcher(peer, std::move(handler));
}

}  // namespace platform
