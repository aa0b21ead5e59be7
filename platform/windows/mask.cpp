#include "platform/windows/mask.h"

#include <algorithm>

namespace platform {
namespace {

// Linear in name times mask at the worst: on a mismatch only the last "*" is tried again.
bool FitsMask(TextView name, TextView mask) {
  if (mask == u"*.*") return true;
  std::size_t n = 0;
  std::size_t m = 0;
  std::size_t starMask = TextView::npos;
  std::size_t starName = 0;
  while (n < name.size()) {
    if (m < mask.size() && (mask[m] == u'?' || mask[m] == name[n]) && mask[m] != u'*') {
      ++n;
      ++m;
    } else if (m < mask.size() && mask[m] == u'*') {
      starMask = ++m;
      starName = n;
    } else if (starMask != TextView::npos) {
      m = starMask;
      n = ++starName;
    } else {
      return false;
    }
  }
  return mask.find_first_not_of(u'*', m) == TextView::npos;
}

}  // namespace

bool FitsMasks(TextView name, TextView masks) {
  const Text folded = LCase(name);
  const std::vector<Text> pieces = Split(LCase(masks), u";");
  return std::ranges::any_of(pieces,
                             [&](const Text& mask) { return FitsMask(folded, Trim(mask)); });
}

}  // namespace platform
