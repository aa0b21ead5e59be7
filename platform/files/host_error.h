// What the host says of one thing that it was asked for.
#pragma once

#include <cerrno>

namespace platform {

// Nothing where it went well, else the host's error number. The compiler names who leaves one
// unlooked at.
class [[nodiscard]] HostError {
 public:
  constexpr HostError() = default;
  constexpr explicit HostError(int number) : number_(number) {}
  // Of a call that tells in errno why it failed.
  static HostError Unless(bool wentWell) { return HostError(wentWell ? 0 : errno); }

  explicit operator bool() const { return number_ != 0; }
  bool operator==(const HostError&) const = default;
  int Number() const { return number_; }

 private:
  int number_ = 0;
};

}  // namespace platform
