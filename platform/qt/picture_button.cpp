#include "platform/qt/picture_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>

#include "platform/qt/artwork.h"
#include "platform/qt/caption_font.h"

namespace platform {

PictureButton::PictureButton(Artwork artwork, QWidget* parent)
    : QPushButton(parent), artwork_(artwork) {}

void PictureButton::resizeEvent(QResizeEvent* event) {
  QPushButton::resizeEvent(event);
  FitCaption(*this);
}

void PictureButton::paintEvent(QPaintEvent* event) {
  if (artwork_ == Artwork::kNone) {
    QPushButton::paintEvent(event);
    return;
  }
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  const QString caption = option.text;
  option.text.clear();
  painter.drawControl(QStyle::CE_PushButton, option);

  constexpr int kLineHeight = 14;  // pixels
  const int captionHeight = caption.isEmpty() ? 0 : kLineHeight;
  QRect room = rect().adjusted(4, 3, -4, -3 - captionHeight);
  if (isDown()) room.translate(1, 1);
  painter.setOpacity(isEnabled() ? 1.0 : 0.4);
  const int side = std::min(room.width(), room.height());
  QRect square(0, 0, side, side);
  square.moveCenter(room.center());
  DrawArtwork(painter, artwork_, square, GroundOf(palette()));
  if (!caption.isEmpty()) {
    const QRect line(rect().left(), room.bottom(), rect().width(), captionHeight);
    QTextOption middle(Qt::AlignHCenter);
    middle.setTextDirection(layoutDirection());
    middle.setWrapMode(QTextOption::NoWrap);
    painter.setPen(palette().color(QPalette::ButtonText));
    DrawCaption(painter, QString(caption).replace(QStringLiteral("&&"), QStringLiteral("&")), line,
                middle);
  }
}

}  // namespace platform
