#include "viewer/layout.h"

namespace viewer {
namespace {

// Shelves in a light room; the contents stand at the page's side.
constexpr Layout kShelves = {
    .light = Light::kPaper,
    .cards = Layout::Cards::kBesidePicture,
    .contents = Layout::Contents::kBesidePage,
    .hasShelves = true,
    .betweenRows = 16,
    .aboveCards = 16,
    .lowestCard = 158,
    .highestCard = 236,
    .narrowestCard = {.pixels = 270},
    .widestCard = {.pixels = 470},
    .collectionPixels = 16,
};

// Walls of pictures in a dark one; the contents are a page of their own.
constexpr Layout kWalls = {
    .light = Light::kNight,
    .cards = Layout::Cards::kOverPicture,
    .contents = Layout::Contents::kApart,
    .hasShelves = false,
    .betweenRows = 0,
    .aboveCards = 0,
    .lowestCard = 172,
    .highestCard = 320,
    .narrowestCard = {.tenthsOfHeight = 10},
    .widestCard = {.tenthsOfHeight = 17},
    .collectionPixels = 20,
};

}  // namespace

const Layout& LayoutOf(int number) { return number == 2 ? kWalls : kShelves; }

}  // namespace viewer
