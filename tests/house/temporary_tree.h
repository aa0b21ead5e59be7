// A small tree of sources in a temporary folder, to try the checks on.
#pragma once

#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>
#include <utility>

#include "tests/house/source_tree.h"

namespace house {

class TemporaryTree {
 public:
  TemporaryTree(std::initializer_list<std::pair<std::string, std::string>> files) {
    static std::atomic<int> number = 0;
    root_ = std::filesystem::temp_directory_path() /
            ("zorvand_house_" + std::to_string(::getpid()) + "_" + std::to_string(number++));
    for (const auto& [path, text] : files) {
      std::filesystem::create_directories((root_ / path).parent_path());
      std::ofstream(root_ / path, std::ios::binary) << text;
    }
  }
  TemporaryTree(const TemporaryTree&) = delete;
  TemporaryTree& operator=(const TemporaryTree&) = delete;
  ~TemporaryTree() {
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }

  SourceTree Read() const { return ReadSourceTree(root_); }

 private:
  std::filesystem::path root_;
};

}  // namespace house
