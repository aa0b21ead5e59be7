// A page of the book as a rich text, from right to left, in bounded steps.
#pragma once

#include <QColor>
#include <QString>
#include <QTextDocument>

#include "viewer/book/folder.h"
#include "viewer/book/page.h"
#include "viewer/page_sections.h"

namespace viewer {

struct PageStyle {
  int pixels = 17;
  int pictureWidth = 600;  // the widest that a picture is shown
  QColor ink = Qt::black;
};

// Empties the document and writes the title of the page.
void BeginPage(QTextDocument& document, const QString& title, const PageStyle& style);
// Appends one step of what stands between the places, and gives the place where the next one
// starts.
PagePlace AppendStep(QTextDocument& document, const BookFolder& book, const Page& page,
                     PagePlace from, PagePlace until, const PageStyle& style);

}  // namespace viewer
