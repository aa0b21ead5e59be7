// A page of the book as a rich text, from right to left, in bounded steps.
#pragma once

#include <QColor>
#include <QString>
#include <QTextDocument>

#include "viewer/book/folder.h"
#include "viewer/book/page.h"

namespace viewer {

// A place in a page: a part, and a character in it.
struct PagePlace {
  std::size_t part = 0;
  qsizetype offset = 0;
};

struct PageStyle {
  int pixels = 17;
  int pictureWidth = 600;  // the widest that a picture is shown
  QColor ink = Qt::black;
};

// What one step takes from a page, so that the window lives on with a page of any size.
inline constexpr qsizetype kCharactersAtOnce = 60'000;
inline constexpr int kPicturesAtOnce = 12;
// A longer paragraph is cut at a blank: the toolkit lays out paragraphs as a whole.
inline constexpr qsizetype kLongestParagraph = 8'000;

// Empties the document and writes the title of the page.
void BeginPage(QTextDocument& document, const QString& title, const PageStyle& style);
// Appends one step from the place on, and gives the place where the next one starts; its part is
// the number of parts at the end of the page.
PagePlace AppendPage(QTextDocument& document, const BookFolder& book, const Page& page,
                     PagePlace from, const PageStyle& style);

}  // namespace viewer
