// The bytes of a record's pieces: whole numbers in as few bytes as they need, and texts with their
// length in front.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/text/text.h"

namespace recovery {

void AppendNumber(std::string& bytes, std::uint64_t number);
void AppendText(std::string& bytes, platform::TextView text);

// Reads what the two above have written. Failure for anything else; nothing is made that is longer
// than what the bytes left can hold.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}

  bool IsAtEnd() const { return bytes_.empty(); }
  std::uint64_t Number();
  // A number that counts something in memory, at most `most`.
  std::ptrdiff_t Count(std::ptrdiff_t most);
  platform::Text Text();
  // How many bytes are left. An item takes one at least, so there can't be more items than these.
  std::ptrdiff_t Left() const { return static_cast<std::ptrdiff_t>(bytes_.size()); }

 private:
  std::string_view bytes_;
};

}  // namespace recovery
