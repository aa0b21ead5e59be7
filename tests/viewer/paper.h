// What a printer made of a page, read from its PDF with Poppler's programs.
#pragma once

#include <QImage>
#include <QRectF>
#include <QString>
#include <vector>

namespace viewer_tests {

struct PrintedWord {
  QString text;  // of Persian letters the shapes, in the order of the sheet
  QRectF box;    // in points
};

// Whether Poppler is installed.
bool CanReadPaper();
// Of each sheet its words.
std::vector<std::vector<PrintedWord>> SheetsOf(const QString& pdf);
// In dots to the inch.
QImage PictureOfSheet(const QString& pdf, int sheet, int resolution);
// Where dots of this colour, or nearly, lie; in points.
QRectF PlaceOf(const QImage& sheet, int resolution, QColor colour);

}  // namespace viewer_tests
