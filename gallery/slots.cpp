#include "gallery/slots.h"

#include <utility>

namespace gallery {

using platform::Text;
using platform::TextView;

namespace {

std::ptrdiff_t FirstWithoutPicture(const Slots& slots, std::ptrdiff_t from) {
  while (!slots.paths(from).empty() && slots.paths(from) != kRemoved) ++from;
  return from;
}

void Put(const Slots& slots, std::ptrdiff_t slot, Text path, Text title) {
  slots.paths.Set(slot, std::move(path));
  slots.titles.Set(slot, std::move(title));
}

}  // namespace

void Add(const Slots& slots, Text path, Text title) {
  Put(slots, FirstWithoutPicture(slots, 0), std::move(path), std::move(title));
}

void AddAll(const Slots& slots, std::vector<Text> paths) {
  std::ptrdiff_t slot = 0;
  for (Text& path : paths) {
    slot = FirstWithoutPicture(slots, slot);
    Put(slots, slot, std::move(path), {});
  }
}

std::ptrdiff_t Find(const Slots& slots, TextView path) {
  for (std::ptrdiff_t slot = 0; !slots.paths(slot).empty(); ++slot) {
    if (slots.paths(slot) == path) return slot;
  }
  return kNoSlot;
}

bool Remove(const Slots& slots, TextView path) {
  for (std::ptrdiff_t slot = 0; slot < slots.paths.Count(); ++slot) {
    if (slots.paths(slot).empty() || slots.paths(slot) != path) continue;
    Put(slots, slot, Text(kRemoved), {});
    return true;
  }
  return false;
}

void Clear(const Slots& slots) {
  slots.paths.Clear();
  slots.titles.Clear();
}

}  // namespace gallery
