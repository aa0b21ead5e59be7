#include "viewer/commands.h"

#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>

#include "viewer/texts.h"

namespace viewer {
namespace {

QString KeysOf(const Command& command) {
  // From left to right, as they stand on the keyboard.
  return QChar(0x2066) + command.keys.front().toString(QKeySequence::NativeText) + QChar(0x2069);
}

}  // namespace

void TakeCommands(const std::vector<Command>& commands, QWidget& window, QMenu& menu) {
  for (const Command& command : commands) {
    auto* const action = new QAction(command.text, &window);
    action->setObjectName(command.name);
    action->setShortcuts(command.keys);
    QObject::connect(action, &QAction::triggered, &window, command.does);
    window.addAction(action);
    if (command.isInMenu) menu.addAction(action);
  }
}

void ShowKeys(const std::vector<Command>& commands, QWidget* parent) {
  QDialog dialog(parent);
  dialog.setObjectName(QStringLiteral("keys"));
  dialog.setWindowTitle(texts::AllKeys());
  dialog.setLayoutDirection(Qt::RightToLeft);
  QFormLayout form(&dialog);
  for (const Command& command : commands) {
    form.addRow(new QLabel(command.text, &dialog), new QLabel(KeysOf(command), &dialog));
  }
  QDialogButtonBox buttons(QDialogButtonBox::Close);
  QObject::connect(&buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  form.addRow(&buttons);
  dialog.exec();
}

}  // namespace viewer
