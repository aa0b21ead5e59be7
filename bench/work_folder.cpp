#include "bench/work_folder.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace bench {

namespace fs = std::filesystem;

WorkFolder::WorkFolder(const std::string& place)
    : path_(place + "/zorvand-bench-" + std::to_string(::getpid())) {
  fs::create_directories(path_);
}

WorkFolder::~WorkFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::string WorkFolder::NewFolder(const std::string& name) {
  const std::string folder = path_ + "/" + name + "-" + std::to_string(++count_);
  fs::create_directory(folder);
  return folder;
}

void WriteFile(const std::string& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) throw std::runtime_error("can't write " + path);
}

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("can't read " + path);
  std::string bytes(fs::file_size(path), '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file) throw std::runtime_error("can't read " + path);
  return bytes;
}

}  // namespace bench
