#include "platform/qt/caption_font.h"

#include <QApplication>
#include <QCheckBox>
#include <QFontMetricsF>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTextLayout>
#include <algorithm>

namespace platform {
namespace {

// Below this nobody reads it, cut or not.
constexpr int kSmallestPixels = 7;

bool Fits(const QString& words, const QSize& room, const QFont& font) {
  const QFontMetricsF metrics(font);
  return metrics.horizontalAdvance(words) <= room.width() &&
         metrics.tightBoundingRect(words).height() <= room.height();
}

QStyle::SubElement ContentsOf(const QAbstractButton& button) {
  if (qobject_cast<const QCheckBox*>(&button) != nullptr) return QStyle::SE_CheckBoxContents;
  if (qobject_cast<const QRadioButton*>(&button) != nullptr) return QStyle::SE_RadioButtonContents;
  return QStyle::SE_PushButtonContents;
}

}  // namespace

QFont CaptionFont(const QString& words, const QSize& room) {
  QFont font = QApplication::font();
  int pixels = font.pixelSize();
  while (pixels > kSmallestPixels && !Fits(words, room, font)) font.setPixelSize(--pixels);
  return font;
}

void DrawCaption(QPainter& painter, const QString& words, const QRect& room,
                 const QTextOption& option) {
  // Pixels below the top. What stands above a field lies under it from the second on.
  constexpr double kBaseline = 11;
  constexpr double kLowest = 15;
  QTextLayout layout(words, painter.font());
  layout.setTextOption(option);
  layout.beginLayout();
  QTextLine line = layout.createLine();
  line.setLineWidth(room.width());
  layout.endLayout();
  const double below = QFontMetricsF(painter.font()).tightBoundingRect(words).bottom();
  const double baseline = std::min(kBaseline, kLowest - below);
  layout.draw(&painter, room.topLeft() + QPointF(0, baseline - line.ascent()));
}

void FitCaption(QAbstractButton& button) {
  QStyleOptionButton option;
  option.initFrom(&button);
  const QStyle& style = *button.style();
  const QRect contents = style.subElementRect(ContentsOf(button), &option, &button);
  const int frame = style.pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &button);
  const QSize inside = button.size() - QSize(2 * frame, 2 * frame);
  const QString words = button.text().replace(QStringLiteral("&&"), QStringLiteral("&"));
  button.setFont(CaptionFont(words, {std::max(contents.width(), 0), inside.height()}));
}

}  // namespace platform
