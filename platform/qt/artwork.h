// The tool's own pictures: vectors, drawn anew at whatever size and density they are shown.
#pragma once

#include <QIcon>
#include <QPainter>
#include <QRect>

#include "platform/window_definition.h"

namespace platform {

// Fills `room`; nothing for kNone.
void DrawArtwork(QPainter& painter, Artwork artwork, const QRect& room);

QIcon ArtworkIcon(Artwork artwork);

}  // namespace platform
