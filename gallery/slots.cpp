#include "gallery/slots.h"

#include <utility>

namespace gallery {

using platform::Text;
using platform::TextView;

namespace {

std::ptrdiff_t FirstWithoutPicture(const Slots& chosen, std::ptrdiff_t from) {
  while (!chosen.paths(from).empty() && chosen.paths(from) != kRemoved) ++from;
  return from;
}

void Put(const Slots& chosen, std::ptrdiff_t slot, Text path, Text title) {
  chosen.paths.Set(slot, std::move(path));
  chosen.titles.Set(slot, std::move(title));
}

}  // namespace

void Add(const Slots& chosen, Text path, Text title) {
  Put(chosen, FirstWithoutPicture(chosen, 0), std::move(path), std::move(title));
}

void AddAll(const Slots& chosen, std::vector<Text> paths) {
  std::ptrdiff_t slot = 0;
  for (Text& path : paths) {
    slot = FirstWithoutPicture(chosen, slot);
    Put(chosen, slot, std::move(path), {});
  }
}

std::ptrdiff_t Find(const Slots& chosen, TextView path) {
  for (std::ptrdiff_t slot = 0; !chosen.paths(slot).empty(); ++slot) {
    if (chosen.paths(slot) == path) return slot;
  }
  return kNoSlot;
}

bool Remove(const Slots& chosen, TextView path) {
  for (std::ptrdiff_t slot = 0; slot < chosen.paths.Count(); ++slot) {
    if (chosen.paths(slot).empty() || chosen.paths(slot) != path) continue;
    Put(chosen, slot, Text(kRemoved), {});
    return true;
  }
  return false;
}

void Clear(const Slots& chosen) {
  chosen.paths.Clear();
  chosen.titles.Clear();
}

}  // namespace gallery
