// How a book looks: its layout in a light, fonts, and texts drawn from right to left.
#pragma once

#include <QFont>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QRect>
#include <QString>
#include <QTextCharFormat>

#include "book/reading_text.h"
#include "viewer/colours.h"
#include "viewer/layout.h"

namespace viewer {

// A layout in one light.
struct Look : Colours {
  Layout layout;
};

// For 1 and 2, as the book's settings count them, in the light that the reader has chosen, or in
// that of the layout.
const Look& LookOf(int layout, Light light);
const Look& LookOf(int layout);
QPalette PaletteOf(const Look& look);

// The font of every text, of this height in pixels.
QFont ViewerFont(int pixels, bool bold = false);
// With a family of the reader's choice first.
QFont ViewerFont(int pixels, bool bold, const QString& family);

// How a word that was sought is marked.
QTextCharFormat FoundWord(const Look& look);

// The heights of its letters, by what they are for.
inline constexpr int kNotePixels = 13;     // below a picture, beside a title
inline constexpr int kListPixels = 14;     // lines of lists
inline constexpr int kCaptionPixels = 15;  // buttons, boxes, titles over pictures
inline constexpr int kCardPixels = 16;     // titles on cards
inline constexpr int kPicturePixels = 17;  // the title of a picture over the whole screen
inline constexpr int kHeadingPixels = 19;  // what stands alone on a page

// With Persian digits.
QString PersianNumber(qint64 number);

// A text of the book as it should read, as one line of bounded length, for lists, cards and titles
// of windows; with signs for controls.
QString AsCaption(const QString& text);
// Which digits captions have from now on.
void ShowDigits(book::Digits digits);
// The same for a tool tip, which would take signs of a mark-up language in it for such and be as
// wide as its longest word.
QString AsToolTip(const QString& text);

// A name or a path of the book amid Persian words: from left to right whatever it ends with, on one
// line, with signs for controls; a long one is cut in its middle, so that its extension is seen.
QString AsPath(const QString& path);

// Draws at most `lines` lines from right to left, the last one shortened where the text is longer.
// Qt::AlignHCenter centres the lines, Qt::AlignVCenter and Qt::AlignBottom place them in the box.
void DrawText(QPainter& painter, const QRect& box, const QString& text, int lines,
              Qt::Alignment alignment);

// Fills the box with the middle of the picture.
void DrawCovering(QPainter& painter, const QRect& box, const QPixmap& picture);

// The whole picture in the middle of the box, at this size.
void DrawInMiddle(QPainter& painter, const QRect& box, const QPixmap& picture, QSizeF size);

// What stands where a picture isn't there, or not yet: an eight-pointed star on a coloured ground.
void DrawPlaceholder(QPainter& painter, const QRect& box, const Look& look);

}  // namespace viewer
