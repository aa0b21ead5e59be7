// The pointer that says that the tool is at work and takes no input.
#pragma once

namespace platform {

// From its making to its end, over all windows; away while a message box is open, since that takes
// input. They may lie within one another.
class BusyPointer {
 public:
  BusyPointer();
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
  ~BusyPointer();
};

}  // namespace platform
