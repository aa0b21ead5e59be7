#include "recovery/work.h"

namespace recovery {

namespace {

bool NothingFiled(const filed::FiledWork& filed, const Fields& fields) {
  return filed::IsEmpty(filed) && filed.imageCount == 0 && !filed.galleryMode &&
         fields.title.empty();
}

}  // namespace

bool HoldsNothing(const LiveWork& work) {
  return NothingFiled(work.filed, work.fields) && work.restLength == 0;
}

bool HoldsNothing(const Work& work) {
  return NothingFiled(work.filed, work.fields) && work.rest.empty();
}

}  // namespace recovery
