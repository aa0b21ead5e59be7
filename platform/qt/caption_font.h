// The font of a caption whose place on a window is fixed.
#pragma once

#include <QAbstractButton>
#include <QFont>
#include <QPainter>
#include <QRect>
#include <QSize>
#include <QString>
#include <QTextOption>

namespace platform {

// That of the windows, or the same in the largest size in which the words' ink fits into the room,
// in width and in height. A family with tall lines keeps its size: what stands above and below the
// letters may be cut.
QFont CaptionFont(const QString& words, const QSize& room);

// Draws the words into a line that begins at the top of `room`. They stand where they do in the
// font of the design, however much a font leaves above and below its letters.
void DrawCaption(QPainter& painter, const QString& words, const QRect& room,
                 const QTextOption& option);

// Gives a button, tick box or option the font for the caption that it has now.
void FitCaption(QAbstractButton& button);

}  // namespace platform
