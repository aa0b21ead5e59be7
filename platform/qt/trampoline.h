// The gate through which every event of the toolkit reaches the tool.
#pragma once

#include <functional>

namespace platform {

// Runs a handler for an event. A failure that leaves it is shown in one message box and ends the
// process with status 1, so that no exception ever crosses the toolkit. Does nothing once the
// process has been told to end.
void FromEvent(const std::function<void()>& handler);

// True from EndProcess or a failure on: nothing may wait for the user any more.
bool ProcessHasEnded();

// An event was handled, and no other is in the middle of it.
void TellEventWatches();

}  // namespace platform
