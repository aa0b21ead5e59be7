// How a page is cut up to be shown: into steps, which are laid out one at a time as the reader
// comes near to them, and a long page into sections, of which the window holds one.
#pragma once

#include <vector>

#include "book/page.h"

namespace viewer {

// A longer paragraph is cut at a blank: the toolkit lays out paragraphs as a whole.
inline constexpr qsizetype kLongestParagraph = 8'000;
// In characters, or work worth as many. What one step takes, and a section at the most.
inline constexpr qsizetype kWeightOfStep = 60'000;
inline constexpr qsizetype kWeightOfSection = 300'000;

// What makes one paragraph of the document: a picture, or a stretch of a part's text.
struct PagePiece {
  qsizetype length = 0;  // in characters
  qsizetype weight = 0;
  book::PagePlace next;  // after it; its part is the number of parts at the end of the page
};
PagePiece PieceAt(const book::Page& page, book::PagePlace place);

// Where each section starts, the end of the page after them. There is always one; they are of much
// the same weight.
std::vector<book::PagePlace> CutIntoSections(const book::Page& page);

}  // namespace viewer
