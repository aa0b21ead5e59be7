// A fresh folder of the host for one test, gone with all it holds when the test ends.
#pragma once

#include <unistd.h>

#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/files/paths.h"
#include "platform/text/text.h"

namespace testing_support {

class TemporaryFolder {
 public:
  TemporaryFolder() : hostPath_((std::filesystem::temp_directory_path() / "zorvand-XXXXXX")) {
    if (mkdtemp(hostPath_.data()) == nullptr) throw std::runtime_error("no temporary folder");
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(hostPath_, ignored);
  }

  // As the tool writes it, without a final "\".
  platform::Text Path() const { return platform::ToolPath(hostPath_); }
  // Of something inside; `name` may have several levels.
  platform::Text Path(platform::TextView name) const { return (Path() + u"\\").append(name); }
  const std::string& HostPath() const { return hostPath_; }
  std::string HostPath(std::string_view name) const { return (hostPath_ + "/").append(name); }

  // All bytes of a file, and back. Made and read without the file system that is under test.
  void Write(platform::TextView name, std::string_view bytes) const {
    std::ofstream file(platform::HostPath(Path(name)), std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush()) throw std::runtime_error("a test's file can't be written");
  }
  std::string Read(platform::TextView name) const {
    std::ifstream file(platform::HostPath(Path(name)), std::ios::binary);
    if (!file) throw std::runtime_error("a test's file can't be read");
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }
  bool Has(platform::TextView name) const {
    std::error_code ignored;
    return std::filesystem::exists(platform::HostPath(Path(name)), ignored);
  }
  void MakeFolder(platform::TextView name) const {
    std::filesystem::create_directories(platform::HostPath(Path(name)));
  }
  // How many files and folders lie directly inside.
  std::ptrdiff_t Count() const {
    return std::distance(std::filesystem::directory_iterator(hostPath_),
                         std::filesystem::directory_iterator());
  }

 private:
  std::string hostPath_;
};

}  // namespace testing_support
