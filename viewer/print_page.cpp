#include "viewer/print_page.h"

#include <QAbstractTextDocumentLayout>
#include <QDebug>
#include <QPageLayout>
#include <QPainter>
#include <QTextDocument>
#include <algorithm>
#include <cmath>

#include "viewer/look.h"
#include "viewer/page_document.h"
#include "viewer/page_sections.h"

namespace viewer {
namespace {

constexpr double kMargin = 20;           // millimetres
constexpr double kLetters = 12;          // points
constexpr double kNumberLetters = 9;     // points
constexpr double kNumberHeight = 24;     // points, with the room above it
constexpr double kPictureDots = 96;      // to the inch, of a picture that needn't be made smaller
constexpr double kFinestPicture = 150;   // dots to the inch
constexpr double kHighestPicture = 0.8;  // of the sheet

double Pixels(const QPrinter& printer, double points) {
  return points * printer.logicalDpiY() / 72;
}

// At least two centimetres, but never more than a sixth of a small sheet.
void SetMargins(QPrinter& printer) {
  const QPageLayout layout = printer.pageLayout();
  const QSizeF sheet = layout.fullRect(QPageLayout::Millimeter).size();
  const double least = std::min(kMargin, std::min(sheet.width(), sheet.height()) / 6);
  const QMarginsF own = layout.margins(QPageLayout::Millimeter);
  printer.setPageMargins({std::max(own.left(), least), std::max(own.top(), least),
                          std::max(own.right(), least), std::max(own.bottom(), least)},
                         QPageLayout::Millimeter);
}

// All in the printer's own pixels.
PageStyle StyleFor(const QPrinter& printer, QSizeF body) {
  PageStyle style;
  style.pixels = qRound(Pixels(printer, kLetters));
  style.pictureScale = printer.logicalDpiY() / kPictureDots;
  style.pictureBox = QSizeF(body.width(), body.height() * kHighestPicture).toSize();
  style.decodeBox = (QSizeF(style.pictureBox) * kFinestPicture / printer.logicalDpiY()).toSize();
  return style;
}

// What is drawn, sheet for sheet.
class Sheets {
 public:
  explicit Sheets(QPrinter& printer) : printer_(printer) {
    SetMargins(printer);
    isReady_ = painter_.begin(&printer);
    const QSizeF paper = printer.pageRect(QPrinter::DevicePixel).size();
    body_ = {std::floor(paper.width()),
             std::floor(paper.height() - Pixels(printer, kNumberHeight))};
  }

  bool IsReady() const { return isReady_; }
  QSizeF Body() const { return body_; }

  // From the top of a sheet on.
  void Draw(QTextDocument& document) {
    document.setDocumentMargin(0);
    document.setPageSize(body_);
    const int count = document.pageCount();
    for (int sheet = 0; sheet < count; ++sheet) {
      if (IsWanted(++number_)) DrawSheet(document, sheet);
    }
  }

 private:
  // No range is one of zeros.
  bool IsWanted(int number) const {
    const int last = printer_.toPage() > 0 ? printer_.toPage() : number;
    return number >= printer_.fromPage() && number <= last;
  }

  void DrawSheet(QTextDocument& document, int sheet) {
    if (hasDrawn_) printer_.newPage();
    hasDrawn_ = true;
    // A picture that starts the next sheet would leave a thin line at the foot of this one.
    const QRectF seen(0, sheet * body_.height(), body_.width(), body_.height() - 1);
    painter_.save();
    painter_.translate(0, -seen.top());
    document.drawContents(&painter_, seen);
    painter_.restore();
    QFont letters = ViewerFont(qRound(Pixels(printer_, kNumberLetters)));
    painter_.setFont(letters);
    painter_.drawText(QRectF(0, body_.height(), body_.width(), Pixels(printer_, kNumberHeight)),
                      Qt::AlignHCenter | Qt::AlignBottom, PersianNumber(number_));
  }

  QPrinter& printer_;
  QPainter painter_;
  QSizeF body_;
  int number_ = 0;
  bool isReady_ = false;
  bool hasDrawn_ = false;
};

}  // namespace

bool PrintPage(QPrinter& printer, const book::Folder& book, const book::Page& page,
               const std::function<bool(int section, int count)>& goesOn) {
  Sheets sheets(printer);
  if (!sheets.IsReady()) {
    qWarning() << "the printer takes nothing:" << printer.printerName() << printer.outputFileName();
    return false;
  }
  const PageStyle style = StyleFor(printer, sheets.Body());
  const std::vector<book::PagePlace> sections = CutIntoSections(page);
  const int count = static_cast<int>(sections.size()) - 1;
  for (int section = 0; section < count; ++section) {
    if (!goesOn(section, count)) {
      printer.abort();
      return false;
    }
    QTextDocument document;
    BeginPage(document, section == 0 ? page.title : QString(), style);
    book::PagePlace place = sections[static_cast<std::size_t>(section)];
    const book::PagePlace end = sections[static_cast<std::size_t>(section) + 1];
    while (place < end) place = AppendStep(document, book, page, place, end, style);
    sheets.Draw(document);
  }
  return true;
}

}  // namespace viewer
