#include "recovery/work.h"

#include <algorithm>

namespace recovery {

namespace {

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

}  // namespace recovery
