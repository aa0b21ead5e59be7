#include "tests/support/robot.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>
#include <QTimer>
#include <stdexcept>

namespace testing_support {
namespace {

[[noreturn]] void Complain(const QString& what) { throw std::runtime_error(what.toStdString()); }

// What takes the clicks: of what scrolls only the part that shows it.
QWidget& Clickable(QWidget& widget) {
  auto* area = qobject_cast<QAbstractScrollArea*>(&widget);
  return area == nullptr ? widget : *area->viewport();
}

QPoint ClickPoint(const QWidget& widget) {
  // Tick boxes and options react on their mark and caption, which stand on the right.
  const bool tickable = widget.inherits("QCheckBox") || widget.inherits("QRadioButton");
  return tickable ? QPoint(widget.width() - 8, widget.height() / 2) : widget.rect().center();
}

QListWidget& ListOf(const QString& window, const QString& list) {
  return Robot::FindAs<QListWidget>(window, list);
}

QPoint LinePoint(QListWidget& list, int line) {
  if (line < 0 || line >= list.count()) Complain(QStringLiteral("No line %1").arg(line));
  list.scrollTo(list.model()->index(line, 0));
  return list.visualItemRect(list.item(line)).center();
}

int LineOf(const QListWidget& list, const QString& text) {
  for (int i = 0; i < list.count(); ++i) {
    if (list.item(i)->text().trimmed() == text) return i;
  }
  Complain(QStringLiteral("No line \"%1\" in %2").arg(text, list.objectName()));
}

}  // namespace

Robot::Robot() { qApp->installEventFilter(this); }

Robot::~Robot() { qApp->removeEventFilter(this); }

QWidget* Robot::FindWindow(const QString& window) {
  for (QWidget* widget : QApplication::allWidgets()) {
    if (widget->isWindow() && widget->objectName() == window) return widget;
  }
  return nullptr;
}

QWidget& Robot::Find(const QString& window, const QString& control) {
  QWidget* top = FindWindow(window);
  if (top == nullptr) Complain(QStringLiteral("No window %1").arg(window));
  auto* found = top->findChild<QWidget*>(control);
  if (found == nullptr) Complain(QStringLiteral("No control %1 in %2").arg(control, window));
  return *found;
}

void Robot::Click(const QString& window, const QString& control) {
  QWidget& widget = Find(window, control);
  if (!widget.isVisible() || !widget.isEnabled()) {
    Complain(QStringLiteral("Can't click %1 of %2").arg(control, window));
  }
  QWidget& clicked = Clickable(widget);
  QTest::mouseClick(&clicked, Qt::LeftButton, Qt::NoModifier, ClickPoint(clicked));
  Settle();
}

void Robot::RightClick(const QString& window, const QString& control) {
  QWidget& clicked = Clickable(Find(window, control));
  QTest::mouseClick(&clicked, Qt::RightButton, Qt::NoModifier, clicked.rect().center());
  Settle();
}

void Robot::ChooseFromMenu(const QString& menu, const QString& item) {
  auto* shown = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  if (shown == nullptr || shown->objectName() != menu) Complain(QStringLiteral("No menu ") + menu);
  auto* action = shown->findChild<QAction*>(item);
  if (action == nullptr || !action->isEnabled()) Complain(QStringLiteral("Can't choose ") + item);
  QTest::mouseClick(shown, Qt::LeftButton, Qt::NoModifier, shown->actionGeometry(action).center());
  Settle();
}

void Robot::Type(const QString& window, const QString& control, const QString& text) {
  auto& edit = FindAs<QLineEdit>(window, control);
  Click(window, control);
  QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
  if (text.isEmpty()) {
    QTest::keyClick(&edit, Qt::Key_Delete);
  } else if (edit.testAttribute(Qt::WA_InputMethodEnabled)) {
    // Letters outside Latin-1 have no key of their own; an input method hands over the text. A
    // locked field gets none.
    QInputMethodEvent typed(QString(), {});
    typed.setCommitString(text);
    QApplication::sendEvent(&edit, &typed);
  }
  Settle();
}

void Robot::PressKey(const QString& window, const QString& control, int key,
                     Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(&Find(window, control), static_cast<Qt::Key>(key), modifiers);
  Settle();
}

std::vector<std::string> Robot::Lines(const QString& window, const QString& list) {
  const auto& widget = FindAs<QListWidget>(window, list);
  std::vector<std::string> lines(static_cast<std::size_t>(widget.count()));
  for (int i = 0; i < widget.count(); ++i) {
    lines[static_cast<std::size_t>(i)] = widget.item(i)->text().toStdString();
  }
  return lines;
}

std::string Robot::BoldLine(const QString& window, const QString& list) {
  const QListWidget& widget = ListOf(window, list);
  for (int i = 0; i < widget.count(); ++i) {
    if (widget.item(i)->font().bold()) return widget.item(i)->text().trimmed().toStdString();
  }
  Complain(QStringLiteral("No bold line in ") + list);
}

void Robot::ClickLine(const QString& window, const QString& list, int line) {
  QListWidget& widget = ListOf(window, list);
  QTest::mouseClick(widget.viewport(), Qt::LeftButton, Qt::NoModifier, LinePoint(widget, line));
  Settle();
}

void Robot::ClickLine(const QString& window, const QString& list, const QString& text) {
  ClickLine(window, list, LineOf(ListOf(window, list), text));
}

void Robot::DoubleClickLine(const QString& window, const QString& list, const QString& text) {
  QListWidget& widget = ListOf(window, list);
  const QPoint point = LinePoint(widget, LineOf(widget, text));
  QTest::mouseClick(widget.viewport(), Qt::LeftButton, Qt::NoModifier, point);
  QTest::mouseDClick(widget.viewport(), Qt::LeftButton, Qt::NoModifier, point);
  Settle();
}

void Robot::Choose(const QString& window, const QString& combo, int entry) {
  auto& box = FindAs<QComboBox>(window, combo);
  if (entry < 0 || entry >= box.count()) Complain(QStringLiteral("No entry %1").arg(entry));
  box.setFocus();
  while (box.currentIndex() < entry) QTest::keyClick(&box, Qt::Key_Down);
  while (box.currentIndex() > entry) QTest::keyClick(&box, Qt::Key_Up);
  Settle();
}

void Robot::Select(const QString& window, const QString& box, int start, int length) {
  auto& edit = FindAs<QTextEdit>(window, box);
  QTextCursor cursor = edit.textCursor();
  cursor.setPosition(start);
  cursor.setPosition(start + length, QTextCursor::KeepAnchor);
  edit.setFocus();
  edit.setTextCursor(cursor);
  Settle();
}

void Robot::Select(const QString& window, const QString& box, const QString& text) {
  const QString whole = FindAs<QTextEdit>(window, box).document()->toRawText();
  QString wanted = text;
  wanted.replace(u'\n', QChar::ParagraphSeparator);
  const qsizetype at = whole.indexOf(wanted);
  if (at < 0) Complain(QStringLiteral("Not in %1: %2").arg(box, text));
  Select(window, box, static_cast<int>(at), static_cast<int>(wanted.size()));
}

void Robot::CloseWindow(const QString& window) {
  QWidget* widget = FindWindow(window);
  if (widget == nullptr) Complain(QStringLiteral("No window %1").arg(window));
  widget->close();
  Settle();
}

void Robot::Settle() {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QCoreApplication::processEvents();
}

void Robot::WaitUntil(const std::function<bool()>& holds, int milliseconds) {
  QElapsedTimer waited;
  waited.start();
  while (!holds()) {
    if (waited.hasExpired(milliseconds)) Complain(QStringLiteral("Waited in vain"));
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
  }
}

void Robot::WhenShown(const QString& window, std::function<void()> act) {
  waiting_[window].push_back(std::move(act));
}

std::vector<Robot::Box> Robot::TakeBoxes() { return std::exchange(boxes_, {}); }

bool Robot::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Show) return false;
  if (auto* box = qobject_cast<QMessageBox*>(watched)) {
    QTimer::singleShot(0, this, [this, alive = QPointer<QObject>(box)] { AnswerBox(alive); });
  } else if (auto found = waiting_.find(watched->objectName());
             found != waiting_.end() && !found->second.empty()) {
    const std::function<void()> act = found->second.front();
    found->second.pop_front();
    QTimer::singleShot(0, this, act);
  }
  return false;
}

void Robot::AnswerBox(QObject* object) {
  auto* box = qobject_cast<QMessageBox*>(object);
  if (box == nullptr) return;
  boxes_.push_back({box->windowTitle(), box->text(), static_cast<int>(box->standardButtons())});
  if (onBox) onBox(*box);
  QAbstractButton* button = box->button(QMessageBox::Ok);
  if (button == nullptr) {
    const bool yes = !answers_.empty() && answers_.front();
    if (!answers_.empty()) answers_.pop_front();
    button = box->button(yes ? QMessageBox::Yes : QMessageBox::No);
  }
  QTest::mouseClick(button, Qt::LeftButton);
}

}  // namespace testing_support
