// What a file gets to see through the files it includes.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "tests/house/source_tree.h"

namespace house {

// Says of an include whether it leads to one that is `sought`, itself or through files of the tree.
class Reach {
 public:
  // `sought` is asked about includes that name no file of the tree.
  Reach(const SourceTree& tree, std::function<bool(const Include&)> sought);

  bool Leads(const Include& include);

 private:
  bool FileLeads(const std::string& path);

  const SourceTree& tree_;
  std::function<bool(const Include&)> sought_;
  std::map<std::string, bool> leads_;
};

}  // namespace house
