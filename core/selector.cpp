#include "core/selector.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "core/joined.h"
#include "platform/failure.h"

namespace core {

namespace {

using platform::Position;
using platform::Text;
using platform::TextView;

// Far above any count that could be listed, and still a whole number for sure.
constexpr double kLargestCount = 1e15;

}  // namespace

TextView Ordinal(Position position) {
  if (position < 0 || position >= static_cast<Position>(kOrdinals.size())) {
    throw platform::Failure(u"Subscript out of range");
  }
  return kOrdinals[static_cast<std::size_t>(position)];
}

Position CollectionCount(TextView count) {
  const double whole = std::floor(platform::ToNumber(count));
  return static_cast<Position>(std::clamp(whole, 0.0, kLargestCount));
}

Text SelectorEntry(const CollectionRow& row, Position position) {
  return Joined({row.prefix, Ordinal(position), u"  (", row.letter,
                 platform::FromNumber(position + 1), u")"});
}

void ListWaiting(const CollectionRow& row, TextView count,
                 const std::function<bool(TextView digit)>& isBuilt,
                 const std::function<void(TextView entry)>& add) {
  const Position collections = CollectionCount(count);
  for (Position i = 0; i < collections; ++i) {
    if (!isBuilt(platform::FromNumber(i + 1))) add(SelectorEntry(row, i));
  }
}

CollectionKey ReadKey(TextView entry) {
  const Position open = platform::InStr(entry, u"(");
  const Position close = platform::InStr(entry, u")");
  if (open == 0 || close <= open) return {};
  const TextView key = platform::Mid(entry, open + 1, close - open - 1);
  return {Text(key.substr(0, 1)), key.empty() ? Text() : Text(key.substr(1))};
}

}  // namespace core
