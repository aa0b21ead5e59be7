// What the window can be told to do: each in its menu, by its keys, and in the list of all keys.
#pragma once

#include <QKeySequence>
#include <QList>
#include <QMenu>
#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

namespace viewer {

struct Command {
  QString name;  // the objectName of its action
  QString text;
  QList<QKeySequence> keys;  // the first is the one that is told
  std::function<void()> does;
  bool isInMenu = true;
};

// Makes an action of the window of each of them, and puts those of the menu there.
void TakeCommands(const std::vector<Command>& commands, QWidget& window, QMenu& menu);
// A dialog with the keys of all of them.
void ShowKeys(const std::vector<Command>& commands, QWidget* parent);

}  // namespace viewer
