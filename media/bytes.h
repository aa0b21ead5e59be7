// Numbers and words at a place in bytes from outside.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace media {

// The `count` bytes (8 at most) at `at` as a number, the most or the least significant byte first.
// What lies past the end counts as 0.
std::uint64_t BigEndian(std::string_view bytes, std::size_t at, std::size_t count);
std::uint64_t LittleEndian(std::string_view bytes, std::size_t at, std::size_t count);

// Whether the word stands at `at`, whole.
bool HasWord(std::string_view bytes, std::size_t at, std::string_view word);

}  // namespace media
