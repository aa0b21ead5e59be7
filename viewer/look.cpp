#include "viewer/look.h"

#include <QFontDatabase>
#include <QLinearGradient>
#include <QPolygonF>
#include <QTextLayout>
#include <QTextOption>
#include <QtMath>
#include <algorithm>
#include <array>
#include <vector>

#include "book/shown_name.h"

namespace viewer {
namespace {

constexpr std::array<Light, 3> kLights = {Light::kDay, Light::kPaper, Light::kNight};
constexpr int kLongestCaption = 400;
constexpr qsizetype kLongestTipWord = 40;
constexpr qsizetype kLongestEnding = 12;
constexpr int kWidestPath = 300;  // pixels before its ending, so that it stays on one line of a box
constexpr QChar kDots(0x2026);
constexpr qreal kLineSpacing = 1.12;  // marks above and below letters need their room

// The lines of the text in this width; more than `lines` are never laid out.
std::vector<QTextLine> LayOut(QTextLayout& layout, int width, int lines) {
  std::vector<QTextLine> made;
  layout.beginLayout();
  qreal y = 0;
  while (static_cast<int>(made.size()) < lines) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) break;
    line.setLineWidth(width);
    line.setPosition({0, y});
    y += line.height() * kLineSpacing;
    made.push_back(line);
  }
  layout.endLayout();
  return made;
}

QTextOption OptionOf(Qt::Alignment alignment) {
  const bool centred = (alignment & Qt::AlignHCenter) != 0;
  QTextOption option(centred ? Qt::AlignHCenter : Qt::AlignRight);
  option.setTextDirection(Qt::RightToLeft);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  return option;
}

bool IsWhole(const std::vector<QTextLine>& lines, const QString& text) {
  return lines.empty() || lines.back().textStart() + lines.back().textLength() >= text.size();
}

// The text with its last line cut to fit.
QString Shortened(const QFont& font, const QString& text, const QTextLine& last, int width) {
  const int start = last.textStart();
  return text.left(start) +
         QFontMetrics(font).elidedText(text.mid(start), Qt::ElideRight, width - 2);
}

// With a place to break the line in each long word: a tip would be as wide as the longest one.
QString WithBreaks(const QString& text) {
  QString broken;
  qsizetype run = 0;
  for (const QChar character : text) {
    run = character.isSpace() ? 0 : run + 1;
    if (run > kLongestTipWord && !character.isLowSurrogate()) {
      broken += QChar(0x200B);
      run = 1;
    }
    broken += character;
  }
  return broken;
}

// Of a path without end, as much as could ever be seen.
QString EndsOf(const QString& path) {
  constexpr qsizetype kEnd = 300;
  return path.size() <= 2 * kEnd ? path : path.first(kEnd) + kDots + path.last(kEnd);
}

// A family that isn't there, first in the list, makes the toolkit sort all of the machine's fonts,
// a tenth of the work of the start.
const QStringList& Families() {
  static const QStringList kFamilies = [] {
    const QString wanted = QStringLiteral("Tahoma");
    const QString other = QStringLiteral("DejaVu Sans");
    return QFontDatabase::hasFamily(wanted) ? QStringList{wanted, other} : QStringList{other};
  }();
  return kFamilies;
}

book::Digits& DigitsOfCaptions() {
  static book::Digits digits = book::Digits::kAsTheyAre;
  return digits;
}

}  // namespace

const Look& LookOf(int layout, Light light) {
  static const std::vector<Look> kLooks = [] {
    std::vector<Look> looks;
    for (const int number : {1, 2}) {
      for (const Light each : kLights) looks.push_back({ColoursOf(each), LayoutOf(number)});
    }
    return looks;
  }();
  const std::size_t first = layout == 2 ? kLights.size() : 0;
  return kLooks[first +
                static_cast<std::size_t>(std::ranges::find(kLights, light) - kLights.begin())];
}

const Look& LookOf(int layout) { return LookOf(layout, LayoutOf(layout).light); }

QPalette PaletteOf(const Look& look) {
  QPalette palette(look.control);
  palette.setColor(QPalette::Window, look.ground);
  palette.setColor(QPalette::WindowText, look.ink);
  palette.setColor(QPalette::Base, look.paper);
  palette.setColor(QPalette::AlternateBase, look.card);
  palette.setColor(QPalette::Text, look.ink);
  palette.setColor(QPalette::ButtonText, look.ink);
  palette.setColor(QPalette::PlaceholderText, look.faint);
  palette.setColor(QPalette::Highlight, look.accent);
  palette.setColor(QPalette::HighlightedText, look.onAccent);
  palette.setColor(QPalette::ToolTipBase, look.card);
  palette.setColor(QPalette::ToolTipText, look.ink);
  return palette;
}

QFont ViewerFont(int pixels, bool bold) {
  QFont font;
  font.setFamilies(Families());
  font.setPixelSize(pixels);
  font.setBold(bold);
  return font;
}

QFont ViewerFont(int pixels, bool bold, const QString& family) {
  QFont font = ViewerFont(pixels, bold);
  if (!family.isEmpty()) font.setFamilies(QStringList{family} + Families());
  return font;
}

QTextCharFormat FoundWord(const Look& look) {
  QTextCharFormat format;
  format.setBackground(look.mark);
  format.setForeground(look.onMark);
  return format;
}

QString PersianNumber(qint64 number) {
  QString digits = QString::number(number);
  for (QChar& digit : digits) {
    if (digit.isDigit()) digit = QChar(0x06F0 + digit.digitValue());
  }
  return digits;
}

void ShowDigits(book::Digits digits) { DigitsOfCaptions() = digits; }

QString AsCaption(const QString& text) {
  const QString read =
      book::ReadingText(QStringView(text).left(kLongestCaption), DigitsOfCaptions());
  QString caption = book::WithSigns(read.simplified());
  if (text.size() > kLongestCaption) caption += kDots;
  return caption;
}

QString AsToolTip(const QString& text) {
  return QStringLiteral("<qt>%1</qt>").arg(WithBreaks(AsCaption(text)).toHtmlEscaped());
}

QString AsPath(const QString& path) {
  const QFontMetrics metrics(ViewerFont(kCaptionPixels));
  const QString name = book::NameWithSigns(EndsOf(path));
  // What the file is stays in sight, however wide the letters before it are.
  const qsizetype dot = name.lastIndexOf(u'.');
  const QString ending =
      dot < 0 || name.size() - dot > kLongestEnding ? QString() : name.sliced(dot);
  const QString rest = name.chopped(ending.size());
  return QChar(0x2066) + metrics.elidedText(rest, Qt::ElideMiddle, kWidestPath) + ending +
         QChar(0x2069);
}

void DrawText(QPainter& painter, const QRect& box, const QString& text, int lines,
              Qt::Alignment alignment) {
  if (box.width() <= 0 || text.isEmpty()) return;
  QTextLayout layout(text, painter.font());
  layout.setTextOption(OptionOf(alignment));
  std::vector<QTextLine> made = LayOut(layout, box.width(), lines);
  if (!IsWhole(made, text)) {
    layout.setText(Shortened(painter.font(), text, made.back(), box.width()));
    made = LayOut(layout, box.width(), lines);
  }
  if (made.empty()) return;
  const qreal height = made.back().y() + made.back().height();
  qreal top = box.top();
  if ((alignment & Qt::AlignVCenter) != 0) top += (box.height() - height) / 2;
  if ((alignment & Qt::AlignBottom) != 0) top += box.height() - height;
  for (const QTextLine& line : made) line.draw(&painter, {qreal(box.left()), top});
}

void DrawCovering(QPainter& painter, const QRect& box, const QPixmap& picture) {
  if (picture.isNull() || box.isEmpty()) return;
  const QSizeF whole = picture.size();
  const QSizeF part =
      QSizeF(box.size()).scaled(whole, Qt::KeepAspectRatio);  // the most that has the box's shape
  const QRectF source(
      QPointF((whole.width() - part.width()) / 2, (whole.height() - part.height()) / 2), part);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(QRectF(box), picture, source);
}

void DrawInMiddle(QPainter& painter, const QRect& box, const QPixmap& picture, QSizeF size) {
  const QPointF corner = QRectF(box).center() - QPointF(size.width() / 2, size.height() / 2);
  // As it is, it stays as sharp as it is.
  if (picture.deviceIndependentSize() == size) return painter.drawPixmap(corner, picture);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(QRectF(corner, size), picture, picture.rect());
}

void DrawPlaceholder(QPainter& painter, const QRect& box, const Look& look) {
  QLinearGradient ground(box.topRight(), box.bottomLeft());
  ground.setColorAt(0, look.placeholder);
  ground.setColorAt(1, look.placeholder.darker(150));
  painter.fillRect(box, ground);
  const QPointF middle = QRectF(box).center();
  const double radius = std::min(box.width(), box.height()) * 0.28;
  QPolygonF star;
  for (int i = 0; i < 16; ++i) {
    const double angle = i * M_PI / 8;
    const double reach = i % 2 == 0 ? radius : radius * 0.765;
    star << middle + QPointF(reach * qCos(angle), reach * qSin(angle));
  }
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(kStar, 1.5));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolygon(star);
  painter.restore();
}

}  // namespace viewer
