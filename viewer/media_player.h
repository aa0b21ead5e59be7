// The machine's player of sounds.
#pragma once

#include <QUrl>
#include <memory>

#include "viewer/outside.h"

namespace viewer {

// Whether the machine's codecs can be used. Where they are missing the toolkit's player falls over
// them, so none is made.
bool CanPlayFilms();
bool CanPlaySounds();  // there is a sound card, too

// What a player is told of the place of a medium: nothing. One that gets an empty address for it
// doesn't begin.
QUrl NoAddress();

// Without sounds: one for which each sound can't be played.
std::unique_ptr<Player> MakeMediaPlayer();

}  // namespace viewer
