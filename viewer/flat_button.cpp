#include "viewer/flat_button.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>

namespace viewer {

FlatButton::FlatButton(const QString& name, const QString& caption, const Look& look, Place place,
                       QWidget* parent)
    : QAbstractButton(parent), look_(look), place_(place) {
  setObjectName(name);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  SetCaption(caption);
}

void FlatButton::SetCaption(const QString& caption) {
  caption_ = caption;
  setAccessibleName(caption);
  updateGeometry();
  update();
}

QSize FlatButton::sizeHint() const {
  const QFontMetrics metrics(ViewerFont(kCaptionPixels));
  return {metrics.horizontalAdvance(caption_) + 26, metrics.height() + 14};
}

void FlatButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setFont(ViewerFont(kCaptionPixels));
  const bool onBar = place_ == Place::kBar;
  QColor ground = onBar ? look_.barButton : look_.card;
  QColor text = onBar ? look_.onBar : look_.ink;
  if (isEnabled() && (isDown() || underMouse() || isChecked())) {
    ground = onBar ? look_.barPointed : look_.accent;
    text = onBar ? look_.onBarPointed : look_.onAccent;
  }
  if (!isEnabled()) text.setAlpha(95);
  painter.setBrush(ground);
  painter.setPen(hasFocus() ? QPen(onBar ? look_.onBar : look_.accent, 2)
                            : QPen(onBar ? look_.barButtonEdge : look_.edge, 1));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 7, 7);
  painter.setPen(text);
  DrawText(painter, rect().adjusted(6, 0, -6, 0), caption_, 1, Qt::AlignHCenter | Qt::AlignVCenter);
}

void FlatButton::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  update();
}

void FlatButton::leaveEvent(QEvent* event) {
  QAbstractButton::leaveEvent(event);
  update();
}

// Enter presses a button, as the space bar does.
void FlatButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

}  // namespace viewer
