#include "core/joined.h"

#include <cstddef>

namespace core {

platform::Text Joined(std::initializer_list<platform::TextView> pieces) {
  std::size_t length = 0;
  for (const platform::TextView piece : pieces) length += piece.size();
  platform::Text text;
  text.reserve(length);
  for (const platform::TextView piece : pieces) text += piece;
  return text;
}

}  // namespace core
