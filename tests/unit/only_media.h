// Which media hang on an entry, spelt out.
#pragma once

#include <initializer_list>

#include "core/entry_media.h"

namespace core {

inline PerMedium<bool> Only(std::initializer_list<Medium> media) {
  PerMedium<bool> flags;
  for (const Medium each : media) flags[each] = true;
  return flags;
}

}  // namespace core
