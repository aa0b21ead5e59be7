// The machine's player of sounds.
#pragma once

#include <memory>

#include "viewer/outside.h"

namespace viewer {

// Whether the machine's codecs can be used. Where they are missing the toolkit's player falls over
// them, so none is made.
bool CanPlayFilms();
bool CanPlaySounds();  // there is a sound card, too

// Without sounds: one for which each sound can't be played.
std::unique_ptr<Player> MakeMediaPlayer();

}  // namespace viewer
