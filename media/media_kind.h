// What a sound or a film is, told by its bytes and by nothing else.
#pragma once

#include <cstdint>
#include <optional>

#include "media/source.h"

namespace media {

enum class MediaKind {
  kMp3,
  kAac,
  kWave,
  kOgg,
  kFlac,
  kMp4,  // and QuickTime's
  kFlv,
  kAvi,
  kMatroska,  // and WebM
  kMpeg       // program, transport and video streams
};

struct KnownMedium {
  MediaKind kind;
  std::uint64_t start;  // where it begins: after a sound's tags and junk
};

// Players judge a file by its bytes, too, but they know lists, which name other files and
// addresses, and go there. So nothing is known here but what holds sound and picture itself, whole
// in its structure, without a reference to anything outside it. The time and the memory that this
// takes don't grow with the file.
[[nodiscard]] std::optional<KnownMedium> MediumOf(const Source& source);

}  // namespace media
