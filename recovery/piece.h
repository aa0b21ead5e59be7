// What a record's file is made of: a head, and pieces that are only ever added after each other.
// A piece is four bytes of length, four of checksum over length and content, and its content, all
// numbers with the lowest byte first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace recovery {

// Raised where an older tool would misread what is written from then on.
inline constexpr std::uint32_t kVersion = 2;

enum class Head : std::uint8_t {
  kReadable,
  kNewer,  // of a newer tool: neither to be read nor to be removed
  kNone,   // no record, or one that got no further than into its head
};

std::string HeadBytes();
Head HeadOf(std::string_view file);
inline constexpr std::size_t kHeadLength = 12;

// How much longer a piece is than its content.
inline constexpr std::size_t kPieceFrame = 8;

void AppendPiece(std::string& file, std::string_view content);
// Takes the first piece off what is left of a file; gives its content. Nothing where none stands
// there whole: what follows was torn off or damaged.
[[nodiscard]] std::optional<std::string_view> TakePiece(std::string_view& file);
// Whether nothing can come of a file: no piece of it is whole, and no more of it is there than one,
// or what a power cut has left of it is zeros. Never so for a newer tool's.
bool IsStillborn(std::string_view file);
// Whether whole pieces are all that stands after the head, up to the file's end.
bool IsWhole(std::string_view file);

}  // namespace recovery
