// The toolkit's side of windows and controls.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

#include "platform/text/text.h"
#include "platform/windows/controls.h"
#include "platform/windows/rich_text_box.h"
#include "platform/windows/window.h"
#include "platform/windows/window_definition.h"

class QAction;
class QTimer;

namespace platform {

// Places are kept in twips as they were written; the widget has them in pixels.
struct Control::Peer {
  Peer() = default;
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;
  virtual ~Peer() = default;

  void Place() const;
  // A call of the handler as an event; nothing happens any more once this peer is gone. `handler`
  // is a member of the control, which outlives its peer.
  std::function<void()> Gate(const std::function<void()>& handler);

  QWidget* widget = nullptr;  // nullptr for a timer and a menu's item; owned by the window's widget
  QAction* action = nullptr;  // of a menu's item; owned by the menu
  Twips left = 0;
  Twips top = 0;
  Twips width = 0;
  Twips height = 0;
  Text caption;    // as the tool gave it
  QObject anchor;  // what ties events to the control hangs on this, so that it ends with it
};

struct Window::Peer {
  std::unique_ptr<QWidget> widget;
  // Controls that no code of the tool names: labels, lines, pictures.
  std::vector<std::unique_ptr<Control::Peer>> nameless;
  QPointer<QWidget> beside;  // gets the focus back from a window that was shown beside it
};

// The peer of a control as its own kind. `PeerOf<TextBoxPeer>(*this)`.
template <typename PeerType>
PeerType& PeerOf(const Control& control) {
  return static_cast<PeerType&>(control.ThePeer());
}

// "idir", or "Com(9)" for one of an array.
QString ObjectName(TextView name, int index);

// Makes the widget of a row and ties its events to the control (nullptr where no code names it).
// Failure if the control's class doesn't fit the row's kind.
std::unique_ptr<Control::Peer> MakePeer(const ControlRow& row, QWidget* parent, Control* control);

// The makers for the single kinds; MakePeer picks one.
std::unique_ptr<Control::Peer> MakeFrame(const ControlRow& row, QWidget* parent);
std::unique_ptr<Control::Peer> MakePicture(const ControlRow& row, QWidget* parent);
std::unique_ptr<Control::Peer> MakeLabel(const ControlRow& row, QWidget* parent);
std::unique_ptr<Control::Peer> MakeButton(const ControlRow& row, QWidget* parent, Button* control);
std::unique_ptr<Control::Peer> MakeCheckBox(const ControlRow& row, QWidget* parent,
                                            CheckBox* control);
std::unique_ptr<Control::Peer> MakeOption(const ControlRow& row, QWidget* parent,
                                          OptionButton* control);
std::unique_ptr<Control::Peer> MakeTextBox(const ControlRow& row, QWidget* parent,
                                           TextBox* control);
std::unique_ptr<Control::Peer> MakeRichTextBox(const ControlRow& row, QWidget* parent,
                                               RichTextBox* control);
std::unique_ptr<Control::Peer> MakeListBox(const ControlRow& row, QWidget* parent,
                                           ListBox* control);
std::unique_ptr<Control::Peer> MakeComboBox(const ControlRow& row, QWidget* parent);
std::unique_ptr<Control::Peer> MakeDriveList(const ControlRow& row, QWidget* parent,
                                             DriveList* control);
std::unique_ptr<Control::Peer> MakeFolderList(const ControlRow& row, QWidget* parent,
                                              FolderList* control);
std::unique_ptr<Control::Peer> MakeFileList(const ControlRow& row, QWidget* parent,
                                            FileList* control);
std::unique_ptr<Control::Peer> MakeImageBox(const ControlRow& row, QWidget* parent,
                                            ImageBox* control);
std::unique_ptr<Control::Peer> MakeScrollBar(const ControlRow& row, QWidget* parent,
                                             ScrollBar* control);
std::unique_ptr<Control::Peer> MakeMenu(const ControlRow& row, QWidget* parent);
std::unique_ptr<Control::Peer> MakeMenuItem(const ControlRow& row, QWidget* parent,
                                            MenuItem* control);
std::unique_ptr<Control::Peer> MakeTimer(const ControlRow& row, QWidget* parent, Timer* control);

}  // namespace platform
