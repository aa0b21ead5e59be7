// Keys that a control's widget gets.
#pragma once

#include <functional>

#include "platform/qt/peers.h"

namespace platform {

// Runs `handler` whenever a key was released on the widget, once the widget has had it.
void WatchKeyUp(Control::Peer& peer, std::function<void()> handler);

}  // namespace platform
