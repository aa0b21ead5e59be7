#include "platform/checksum.h"

#include <zlib.h>

namespace platform {

std::uint32_t Crc32(std::string_view bytes) {
  const auto* const first = reinterpret_cast<const Bytef*>(bytes.data());
  return static_cast<std::uint32_t>(crc32_z(crc32_z(0, nullptr, 0), first, bytes.size()));
}

}  // namespace platform
