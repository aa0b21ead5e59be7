// What the menus say that a right click into a widget opens, in any program of the toolkit.
#pragma once

#include <QMenu>
#include <QString>
#include <QWidget>
#include <string>
#include <vector>

namespace testing_support {

struct ContextMenu {
  std::vector<QString> texts;  // its own and those of its menus; none where no menu opens
  Qt::LayoutDirection direction = Qt::LeftToRight;
};

ContextMenu ContextMenuOf(QWidget& widget);

// The widgets of a window that the toolkit may have a menu of its own for.
std::vector<QWidget*> WidgetsWithMenus(const QWidget& window);

// Those of the texts that hold Latin letters. Names of keys, which stand after a tab, don't count.
std::vector<std::string> LatinAmong(const std::vector<QString>& texts);

}  // namespace testing_support
