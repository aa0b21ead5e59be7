// A user whom the host may refuse something. Tests often run as root, who is refused nothing.
#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace testing_support {

// As long as it lives root is nobody, who owns `folder` and all that is in it. Does nothing for
// another user.
class OrdinaryUser {
 public:
  explicit OrdinaryUser(const std::string& folder) : isRoot_(geteuid() == 0) {
    if (!isRoot_) return;
    Give(folder);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
      Give(entry.path());
    }
    isNobody_ = seteuid(kNobody) == 0;
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
  ~OrdinaryUser() {
    if (isNobody_ && seteuid(0) != 0) std::abort();
  }

  // Whether refusals are to be met.
  bool IsOrdinary() const { return !isRoot_ || isNobody_; }

 private:
  static constexpr uid_t kNobody = 65534;

  void Give(const std::filesystem::path& path) {
    static_cast<void>(lchown(path.c_str(), kNobody, static_cast<gid_t>(-1)) == 0);
  }

  bool isRoot_;
  bool isNobody_ = false;
};

}  // namespace testing_support
