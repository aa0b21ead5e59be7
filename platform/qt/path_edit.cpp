#include "platform/qt/path_edit.h"

#include <QFocusEvent>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QStyleOptionFrame>
#include <QTextDocument>
#include <QToolTip>

#include "platform/files/paths.h"
#include "platform/qt/conversions.h"

namespace platform {
namespace {

bool Fits(const QString& text, const QLineEdit& edit) {
  QStyleOptionFrame option;
  option.initFrom(&edit);
  option.lineWidth = edit.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &edit);
  const QRect room = edit.style()->subElementRect(QStyle::SE_LineEditContents, &option, &edit);
  constexpr int kMargin = 2;  // the toolkit's own on each side of the text
  return edit.fontMetrics().horizontalAdvance(text) <= room.width() - 2 * kMargin;
}

}  // namespace

PathEdit::PathEdit(QWidget* parent) : QLineEdit(parent) {
  connect(this, &QLineEdit::returnPressed, this, [this] { Finish(); });
}

void PathEdit::Finish() {
  // A screen reader's text doesn't count as a modification to the toolkit.
  if (!isModified() && text() == written_) return;
  const QString path = ToQString(TypedPath(ToText(text())));
  if (path != text()) setText(path);  // told as if it had been typed
}

void PathEdit::Written() {
  written_ = text();
  if (hasFocus()) {
    home(false);
  } else {
    end(false);
  }
}

void PathEdit::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  const Qt::FocusReason reason = event->reason();
  if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) return;
  end(false);
  Finish();
}

bool PathEdit::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QLineEdit::event(event);
  if (Fits(text(), *this)) return true;
  const QString tip = Qt::mightBeRichText(text()) ? text().toHtmlEscaped() : text();
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), tip, this);
  return true;
}

void FinishPathsIn(const QWidget& window) {
  for (QLineEdit* edit : window.findChildren<QLineEdit*>()) {
    if (auto* path = dynamic_cast<PathEdit*>(edit)) path->Finish();
  }
}

}  // namespace platform
