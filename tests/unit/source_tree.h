// Files of the source tree, for tests of what is delivered.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace source_tree {

inline const std::filesystem::path& Tree() {
  // This file lies in tests/unit.
  static const std::filesystem::path kTree =
      std::filesystem::path(__FILE__).parent_path().parent_path().parent_path();
  return kTree;
}

// The bytes of a file, its path from the root of the tree. Throws where there is none.
inline std::string Content(const std::filesystem::path& path) {
  std::ifstream file(Tree() / path, std::ios::binary);
  if (!file) throw std::runtime_error("no file " + path.string());
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace source_tree
