// The one way in which something fails, and the two ways in which failures end.
#pragma once

#include <exception>
#include <functional>
#include <string>

#include "platform/text/text.h"

namespace platform {

// What went wrong, in English, for the log.
class [[nodiscard]] Failure : public std::exception {
 public:
  explicit Failure(Text description);
  const Text& Description() const noexcept { return description_; }
  const char* what() const noexcept override { return utf8_.c_str(); }

 private:
  Text description_;
  std::string utf8_;
};

// Runs `body`. Where it fails, `ending` gets the description, once, after the unwinding.
// Exceptions of the standard library (no memory left, a length out of range) count as failures.
void CatchingFailure(const std::function<void()>& body,
                     const std::function<void(const Text& description)>& ending);

// Runs one statement and drops its failure.
void Ignoring(const std::function<void()>& statement);

}  // namespace platform
