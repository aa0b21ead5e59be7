// The checksum that tells damaged bytes from whole ones.
#pragma once

#include <cstdint>
#include <string_view>

namespace platform {

// CRC-32 as in ISO 3309.
std::uint32_t Crc32(std::string_view bytes);

}  // namespace platform
