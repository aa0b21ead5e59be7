// What the process's other threads are at.
#pragma once

namespace sample {

// True if each of them waits: none decodes a picture or is about to.
bool OtherThreadsSleep();

}  // namespace sample
