#include "viewer/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>

#include "viewer/texts.h"

namespace viewer {

FindBar::FindBar(const Look& look, QWidget* parent)
    : QWidget(parent),
      previous_(QStringLiteral("findPrevious"), texts::Previous(), look, FlatButton::Place::kPage,
                this),
      next_(QStringLiteral("findNext"), texts::Next(), look, FlatButton::Place::kPage, this),
      close_(QStringLiteral("findClose"), texts::Close(), look, FlatButton::Place::kPage, this) {
  setObjectName(QStringLiteral("findBar"));
  words_.setObjectName(QStringLiteral("findWords"));
  words_.setPlaceholderText(texts::FindInPage());
  words_.setAccessibleName(texts::FindInPage());
  words_.setMaxLength(200);
  count_.setObjectName(QStringLiteral("findCount"));
  count_.setFont(ViewerFont(kCaptionPixels));
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(12, 5, 12, 5);
  row->addWidget(&words_, 1);
  row->addWidget(&count_);
  for (FlatButton* button : {&previous_, &next_, &close_}) row->addWidget(button);
  QObject::connect(&words_, &QLineEdit::textChanged, this,
                   [this](const QString& words) { onWords(words); });
  QObject::connect(&previous_, &QAbstractButton::clicked, this, [this] { onStep(-1); });
  QObject::connect(&next_, &QAbstractButton::clicked, this, [this] { onStep(1); });
  QObject::connect(&close_, &QAbstractButton::clicked, this, [this] { Close(); });
  hide();
}

void FindBar::Open() {
  show();
  words_.setFocus();
  words_.selectAll();
  if (!words_.text().isEmpty()) onWords(words_.text());
}

void FindBar::Tell(int place, int count) {
  const bool isAsked = !words_.text().trimmed().isEmpty();
  count_.setText(!isAsked     ? QString()
                 : count == 0 ? texts::NotInPage()
                              : texts::PictureOf().arg(PersianNumber(place), PersianNumber(count)));
  for (FlatButton* button : {&previous_, &next_}) button->setEnabled(count > 0);
}

// Esc closes the bar and isn't the window's.
bool FindBar::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    event->accept();
  }
  return QWidget::event(event);
}

void FindBar::keyPressEvent(QKeyEvent* event) {
  const bool isBack = (event->modifiers() & Qt::ShiftModifier) != 0;
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F3:
      return onStep(isBack ? -1 : 1);
    case Qt::Key_Escape:
      return Close();
    default:
      QWidget::keyPressEvent(event);
  }
}

void FindBar::Close() {
  hide();
  onClosed();
}

}  // namespace viewer
