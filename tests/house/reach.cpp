#include "tests/house/reach.h"

#include <algorithm>
#include <utility>

namespace house {

Reach::Reach(const SourceTree& tree, std::function<bool(const Include&)> sought)
    : tree_(tree), sought_(std::move(sought)) {}

bool Reach::Leads(const Include& include) {
  return include.resolved.empty() ? sought_(include) : FileLeads(include.resolved);
}

bool Reach::FileLeads(const std::string& path) {
  const auto [known, isNew] = leads_.try_emplace(path, false);
  if (!isNew) return known->second;
  const bool leads = std::ranges::any_of(tree_.at(path).includes,
                                         [this](const Include& include) { return Leads(include); });
  return leads_[path] = leads;
}

}  // namespace house
