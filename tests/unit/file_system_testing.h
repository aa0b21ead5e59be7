// What the tests of the host's file system share.
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <functional>
#include <string>
#include <string_view>

#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "tests/support/temporary_folder.h"

namespace testing_support {

inline constexpr std::string_view kOldText = "the old text, longer than a mark";

// What a failure of `body` says; empty if there was none.
inline std::string FailureOf(const std::function<void()>& body) {
  std::string caught;
  platform::CatchingFailure(
      body, [&](const platform::Text& description) { caught = platform::ToUtf8(description); });
  return caught;
}

inline mode_t ModeOf(const std::string& hostPath) {
  struct stat known {};
  EXPECT_EQ(stat(hostPath.c_str(), &known), 0);
  return known.st_mode & 07777;
}

class FileSystemTest : public testing::Test {
 protected:
  platform::Text Path(platform::TextView name) const { return folder_.Path(name); }
  void WriteWhole(platform::TextView name, platform::OpenMode mode, std::string_view bytes,
                  bool create = true) {
    const auto file = files_.Open(Path(name), mode, create);
    file->Write(bytes);
    file->Close();
  }
  std::string ReadWhole(platform::TextView name) {
    return files_.Open(Path(name), platform::OpenMode::kRead, false)->ReadAll();
  }

  TemporaryFolder folder_;
  platform::FileSystem& files_ = platform::HostFileSystem();
};

}  // namespace testing_support
