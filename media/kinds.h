// One question for each kind, all of them asked by media_kind.cpp. Each looks at the structure as
// far as a player needs it before it is sure; a file may be cut off at its end.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "media/source.h"

namespace media {

bool IsMp3(const Source& source);  // MPEG audio of the layers II and III
bool IsAac(const Source& source);  // in ADTS frames
bool IsFlac(const Source& source);
bool IsWave(const Source& source);
bool IsAvi(const Source& source);
bool IsOgg(const Source& source);
bool IsMp4(const Source& source);
bool IsFlv(const Source& source);
bool IsMatroska(const Source& source);
bool IsMpeg(const Source& source);

// What stands before the first row of MPEG audio's frames, 64 KB at the most: players look as far.
// Nothing where there is no such row.
[[nodiscard]] std::optional<std::string> BytesBeforeMp3(const Source& source);
// Whether these are no more than that, in front of a sound: nothing that a player would take for
// something else, and no text.
bool IsJunk(std::string_view bytes);

}  // namespace media
