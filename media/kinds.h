// One question for each kind, all of them asked by media_kind.cpp. Each looks at the structure as
// far as a player needs it before it is sure; a file may be cut off at its end.
#pragma once

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

}  // namespace media
