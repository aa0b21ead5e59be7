// A page of the book as a rich text, from right to left, in bounded steps.
#pragma once

#include <QColor>
#include <QSize>
#include <QString>
#include <QTextDocument>
#include <QTextFormat>

#include "book/folder.h"
#include "book/page.h"
#include "viewer/page_sections.h"

namespace viewer {

struct PageStyle {
  int pixels = 17;       // the height of the letters
  QString letters;       // a font's family before those of the viewer
  int lineHeight = 165;  // per cent
  bool justified = false;
  double pictureScale = 1;      // pixels of the document to one of a picture
  QSize pictureBox{600, 1200};  // the most that a picture takes, in pixels of the document
  QSize decodeBox{600, 1200};   // larger pictures are made as small as this
  bool picturesComeLater =
      false;  // there is room for them, and a handler of the document draws them
  QColor ink = Qt::black;
};

// Where in the page a place of the document comes from.
book::PagePlace PlaceInPage(const QTextDocument& document, int position);
// The other way round, as far as the document is laid out.
int PositionOf(const QTextDocument& document, book::PagePlace place);

// The path of the file of a picture in the document.
QString PathOfPicture(const QTextFormat& format);
// Puts words in the place of each picture of that path, which can't be shown.
void ReplaceByWords(QTextDocument& document, const QString& path, const PageStyle& style);

// Makes the pictures as large as the style wants them, where it wants them otherwise by now.
void FitPictures(QTextDocument& document, const PageStyle& style);

// Empties the document and writes the title of the page.
void BeginPage(QTextDocument& document, const QString& title, const PageStyle& style);
// Appends one step of what stands between the places, and gives the place where the next one
// starts.
book::PagePlace AppendStep(QTextDocument& document, const book::Folder& book,
                           const book::Page& page, book::PagePlace from, book::PagePlace until,
                           const PageStyle& style);

}  // namespace viewer
