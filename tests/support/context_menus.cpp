#include "tests/support/context_menus.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>

#include "tests/support/robot.h"

namespace testing_support {
namespace {

bool HasLatin(const QString& text) {
  const QString words = text.section(u'\t', 0, 0);
  return std::ranges::any_of(words, [](QChar letter) {
    return letter.script() == QChar::Script_Latin && letter.isLetter();
  });
}

std::vector<QString> TextsOf(const QMenu& menu) {
  std::vector<QString> texts;
  for (const QAction* action : menu.actions()) {
    if (action->isSeparator()) continue;
    texts.push_back(action->text());
    if (action->menu() == nullptr) continue;
    for (const QString& text : TextsOf(*action->menu())) texts.push_back(text);
  }
  return texts;
}

}  // namespace

ContextMenu ContextMenuOf(QWidget& widget) {
  ContextMenu opened;
  const auto take = [&] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) return;
    opened = {TextsOf(*menu), menu->layoutDirection()};
    menu->close();
  };
  QTimer::singleShot(0, &widget, take);  // some menus run a loop of their own
  const QPoint at(3, 3);
  QContextMenuEvent click(QContextMenuEvent::Mouse, at, widget.mapToGlobal(at));
  QApplication::sendEvent(&widget, &click);
  Robot::Settle();
  return opened;
}

std::vector<QWidget*> WidgetsWithMenus(const QWidget& window) {
  std::vector<QWidget*> widgets;
  for (auto* edit : window.findChildren<QLineEdit*>()) widgets.push_back(edit);
  for (auto* bar : window.findChildren<QScrollBar*>()) widgets.push_back(bar);
  for (auto* area : window.findChildren<QAbstractScrollArea*>()) {
    widgets.push_back(area->viewport());
  }
  return widgets;
}

std::vector<std::string> LatinAmong(const std::vector<QString>& texts) {
  std::vector<std::string> latin;
  for (const QString& text : texts) {
    if (HasLatin(text)) latin.push_back(text.toStdString());
  }
  return latin;
}

}  // namespace testing_support
