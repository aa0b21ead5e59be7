#include <QCursor>
#include <QMenu>

#include "platform/qt/conversions.h"
#include "platform/qt/peers.h"
#include "platform/text/caption.h"

namespace platform {
namespace {

// Where the user looks: at the pointer if it is over the window, else at the focus.
QPoint Place(const QWidget& window) {
  const QPoint pointer = QCursor::pos();
  if (window.rect().contains(window.mapFromGlobal(pointer))) return pointer;
  const QWidget* focused = window.focusWidget();
  const QWidget& at = focused != nullptr ? *focused : window;
  return at.mapToGlobal(at.rect().center());
}

}  // namespace

std::unique_ptr<Control::Peer> MakeMenu(const ControlRow&, QWidget* parent) {
  auto peer = std::make_unique<Control::Peer>();
  peer->widget = new QMenu(parent);
  return peer;
}

std::unique_ptr<Control::Peer> MakeMenuItem(const ControlRow& row, QWidget* parent,
                                            MenuItem* control) {
  auto* menu = qobject_cast<QMenu*>(parent);
  if (menu == nullptr) throw Failure(u"No menu: " + Text(row.parent));
  auto peer = std::make_unique<Control::Peer>();
  peer->action = menu->addAction(ToQString(ShownCaption(row.text)));
  peer->action->setObjectName(ObjectName(row.name, row.index));
  peer->action->setEnabled(row.enabled);
  peer->caption = row.text;
  if (control != nullptr) {
    QObject::connect(peer->action, &QAction::triggered, &peer->anchor,
                     peer->Gate(control->onClick));
  }
  return peer;
}

void PopupMenu::Show() {
  auto& menu = static_cast<QMenu&>(*ThePeer().widget);
  menu.popup(Place(*menu.parentWidget()));
}

}  // namespace platform
