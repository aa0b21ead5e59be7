// No busy pointer for as long as this lives: over a box that waits for the editor.
#pragma once

namespace platform {

class PointerAtRest {
 public:
  PointerAtRest();
  PointerAtRest(const PointerAtRest&) = delete;
  PointerAtRest& operator=(const PointerAtRest&) = delete;
  ~PointerAtRest();

 private:
  int before_;  // how many busy pointers there were
};

}  // namespace platform
