// The colours in which a book can be read: one row for each light.
#pragma once

#include <QColor>

namespace viewer {

enum class Light { kDay, kPaper, kNight };

struct Colours {
  QColor ground;     // behind everything
  QColor veil;       // over the book's backdrop, so that texts stay readable
  QColor bar;        // the bar at the top
  QColor onBar;      // texts on it
  QColor barButton;  // over the bar
  QColor barButtonEdge;
  QColor barPointed;    // a button of the bar that is pointed at
  QColor onBarPointed;  // texts on it
  QColor panel;         // shelves, lists
  QColor card;          // a collection
  QColor edge;          // thin lines
  QColor ink;           // texts
  QColor faint;         // lesser texts
  QColor accent;        // what is chosen
  QColor onAccent;      // texts on it
  QColor pointed;       // over a line of a list that is pointed at
  QColor paper;         // behind the text of a page
  QColor paperVeil;     // over a page's own picture
  QColor mark;          // behind the words that were searched for
  QColor onMark;
  QColor control;      // of the toolkit's own: scroll bars, dialogs
  QColor placeholder;  // where a picture isn't there
};

const Colours& ColoursOf(Light light);

// What lies over pictures looks alike in every light.
inline constexpr QColor kOnPicture(255, 255, 255);
inline constexpr QColor kFaintOnPicture(190, 190, 190);
inline constexpr QColor kAccentOnPicture(0xe0, 0xae, 0x55);
inline constexpr QColor kShade(8, 11, 17);  // below texts
inline constexpr QColor kPictureShadow(0, 0, 0, 45);
inline constexpr QColor kPictureEdge(0, 0, 0, 70);
inline constexpr QColor kStar(0xf0, 0xd9, 0x9c, 200);  // on a placeholder
inline constexpr QColor kDarkRoom(10, 11, 14);         // around a picture over the whole screen

}  // namespace viewer
