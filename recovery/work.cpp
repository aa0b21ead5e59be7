#include "recovery/work.h"

#include <algorithm>

namespace recovery {

namespace {

std::uint64_t CharactersIn(const platform::Text& text) { return text.size(); }
std::uint64_t CharactersIn(char) { return 1; }
template <typename T>
std::uint64_t CharactersIn(const platform::Column<T>& column) {
  std::uint64_t characters = 0;
  for (std::ptrdiff_t row = 0; row < column.Count(); ++row) characters += CharactersIn(column(row));
  return characters;
}

bool NothingFiled(const filed::FiledWork& filed, const Fields& fields) {
  return filed::IsEmpty(filed) && filed.imageCount == 0 && filed.mainOpen == 0 &&
         fields.title.empty();
}

}  // namespace

bool HoldsNothing(const LiveWork& work) {
  return NothingFiled(work.filed, work.fields) &&
         (work.fields.restIsUntouched || work.restLength == 0);
}

bool HoldsNothing(const Work& work) {
  return NothingFiled(work.filed, work.fields) &&
         (work.fields.restIsUntouched || work.rest.empty());
}

std::ptrdiff_t LongestColumn(filed::FiledWork& filed) {
  std::ptrdiff_t longest = 0;
  ForEachColumn(filed, [&](int, auto& column) { longest = std::max(longest, column.Count()); });
  return longest;
}

std::uint64_t CharactersOf(LiveWork& work) {
  auto characters = static_cast<std::uint64_t>(work.restLength);
  ForEachColumn(work.filed, [&](int, auto& column) { characters += CharactersIn(column); });
  return characters;
}

}  // namespace recovery
