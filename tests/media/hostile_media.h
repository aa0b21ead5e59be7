// Files that a book may hold under the name of a sound or a film and that name something else.
#pragma once

#include <string>
#include <vector>

namespace media_tests {

struct HostileMedium {
  std::string name;
  std::string bytes;
  // A sound or a film all the same, whose players must leave the name alone.
  bool isKnown = false;
};

// What they name: a file outside the book by its absolute path, and an address.
struct Lures {
  std::string file;     // "/tmp/outside.ts"
  std::string address;  // "127.0.0.1:9"
};

std::vector<HostileMedium> HostileMedia(const Lures& lures);

}  // namespace media_tests
