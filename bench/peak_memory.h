// The process's own highest memory so far.
#pragma once

namespace bench {

// VmHWM of /proc/self/status in kB, to the standard output. Returns the exit status for main.
int PrintPeakMemory();

}  // namespace bench
