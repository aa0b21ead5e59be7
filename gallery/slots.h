// The chosen pictures of one gallery: slots from 0 upward, each with a picture's path and its
// title, without an end. A slot is free while its path is empty; one whose picture was taken out
// again holds kRemoved until another picture takes it, so that filled slots stay packed.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/column.h"
#include "platform/text/text.h"

namespace gallery {

// The path of a slot whose picture was taken out.
inline constexpr platform::TextView kRemoved = u"Removed";

// Where nothing was found.
inline constexpr std::ptrdiff_t kNoSlot = -1;

struct Slots {
  platform::Column<platform::Text>& paths;
  platform::Column<platform::Text>& titles;
};

// Puts a picture into the first slot that holds none.
void Add(const Slots& chosen, platform::Text path, platform::Text title);
// The same for many without titles, in their order, whether the gallery has them already or not.
// Linear in slots and pictures.
void AddAll(const Slots& chosen, std::vector<platform::Text> paths);
// The first slot with that path, as far as the first free one; kNoSlot if there is none.
std::ptrdiff_t Find(const Slots& chosen, platform::TextView path);
// Takes the first picture of that path out, wherever it stands; false if there is none.
[[nodiscard]] bool Remove(const Slots& chosen, platform::TextView path);
void Clear(const Slots& chosen);

}  // namespace gallery
