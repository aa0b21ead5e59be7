#include "tests/viewer/paper.h"

#include <QColor>
#include <QProcess>
#include <QStandardPaths>
#include <QXmlStreamReader>
#include <cstdlib>

namespace viewer_tests {
namespace {

QByteArray Run(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  if (!process.waitForFinished(60'000) || process.exitCode() != 0) return {};
  return process.readAllStandardOutput();
}

QRectF BoxIn(const QXmlStreamAttributes& of) {
  const auto number = [&](const char* name) {
    return of.value(QLatin1String(name)).toString().toDouble();
  };
  return {QPointF(number("xMin"), number("yMin")), QPointF(number("xMax"), number("yMax"))};
}

bool IsLike(QColor a, QColor b) {
  constexpr int kNear = 24;
  return std::abs(a.red() - b.red()) < kNear && std::abs(a.green() - b.green()) < kNear &&
         std::abs(a.blue() - b.blue()) < kNear;
}

}  // namespace

bool CanReadPaper() {
  return !QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty() &&
         !QStandardPaths::findExecutable(QStringLiteral("pdftoppm")).isEmpty();
}

std::vector<std::vector<PrintedWord>> SheetsOf(const QString& pdf) {
  std::vector<std::vector<PrintedWord>> sheets;
  QXmlStreamReader xml(
      Run(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdf, QStringLiteral("-")}));
  while (!xml.atEnd()) {
    xml.readNext();
    if (!xml.isStartElement()) continue;
    if (xml.name() == u"page") sheets.emplace_back();
    if (xml.name() != u"word" || sheets.empty()) continue;
    const QRectF box = BoxIn(xml.attributes());
    sheets.back().push_back({xml.readElementText(), box});
  }
  return sheets;
}

QImage PictureOfSheet(const QString& pdf, int sheet, int resolution) {
  const QString number = QString::number(sheet);
  return QImage::fromData(
      Run(QStringLiteral("pdftoppm"),
          {QStringLiteral("-png"), QStringLiteral("-r"), QString::number(resolution),
           QStringLiteral("-f"), number, QStringLiteral("-l"), number, pdf}));
}

QRectF PlaceOf(const QImage& sheet, int resolution, QColor colour) {
  QRect place;
  for (int y = 0; y < sheet.height(); ++y) {
    for (int x = 0; x < sheet.width(); ++x) {
      if (IsLike(sheet.pixelColor(x, y), colour)) place |= QRect(x, y, 1, 1);
    }
  }
  const double points = 72.0 / resolution;
  return {QPointF(place.topLeft()) * points, QSizeF(place.size()) * points};
}

}  // namespace viewer_tests
