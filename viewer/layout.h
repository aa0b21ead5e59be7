// The two layouts that a book's settings can name (`Olgoo`): where they place what they show.
#pragma once

#include "viewer/colours.h"

namespace viewer {

// Pixels, of a card's width: so many, and so many tenths of its height.
struct CardWidth {
  int pixels = 0;
  int tenthsOfHeight = 0;
  int For(int height) const { return pixels + height * tenthsOfHeight / 10; }
};

struct Layout {
  enum class Cards { kBesidePicture, kOverPicture };  // where the title of a collection stands
  enum class Contents { kBesidePage, kApart };        // apart: a page of their own, before the text

  Light light;  // the book's own, as long as its reader wants no other
  Cards cards;
  Contents contents;
  bool hasShelves;  // the cards of a row stand on a ground of their own
  int betweenRows;
  int aboveCards;  // what a third of the view leaves free of a card, beside its shelf's own edge
  int lowestCard;
  int highestCard;
  CardWidth narrowestCard;
  CardWidth widestCard;
  int collectionPixels;  // the letters of a collection's title above its contents
};

// For 1 and 2, as the book's settings count them; 1 for any other number.
const Layout& LayoutOf(int number);

}  // namespace viewer
