// The rooms of the house: which may include which, and what else they may see.
#pragma once

#include <span>
#include <string_view>

namespace house {

struct Room {
  std::string_view name;
  std::string_view paths;                   // what the path of each of its files starts with
  std::span<const std::string_view> below;  // the rooms it may include, besides itself
  bool toolkit = false;                     // may include Qt
  bool machine = false;  // may include the system's and ICU's headers, if others don't see them
};

// The room of a file, by its path under the root; nullptr: no room known.
const Room* RoomOf(std::string_view path);

// Whether a file of `from` may include one of `to`.
bool MaySee(const Room& from, const Room& to);

}  // namespace house
