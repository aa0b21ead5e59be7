// The tool's own pictures: vectors, drawn anew at whatever size and density they are shown.
#pragma once

#include <QIcon>
#include <QPainter>
#include <QPalette>
#include <QRect>

#include "platform/windows/window_definition.h"

namespace platform {

// What a picture stands on: its outlines are light on a dark desktop.
enum class Ground { kLight, kDark };

Ground GroundOf(const QPalette& palette);

// Fills `room`; nothing for kNone.
void DrawArtwork(QPainter& painter, Artwork artwork, const QRect& room, Ground ground);

QIcon ArtworkIcon(Artwork artwork);

}  // namespace platform
