#include <QAction>
#include <QEvent>
#include <QFocusEvent>
#include <QPointer>
#include <QTimer>

#include "platform/qt/conversions.h"
#include "platform/qt/edges.h"
#include "platform/qt/peers.h"
#include "platform/qt/trampoline.h"
#include "platform/text/caption.h"
#include "platform/windows/controls.h"
#include "platform/windows/rich_text_box.h"

namespace platform {
namespace {

// Tells a control of its gain and loss of the focus.
class FocusWatcher : public QObject {
 public:
  FocusWatcher(Control::Peer& peer, Control* control)
      : QObject(&peer.anchor), widget_(peer.widget), control_(control) {
    peer.widget->installEventFilter(this);
  }

 protected:
  // A handler may unload the window and this watcher with it, so nothing follows it.
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::FocusIn && event->type() != QEvent::FocusOut) return false;
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    const bool gained = event->type() == QEvent::FocusIn;
    // While another window or a menu is in front, the focus stays where it is among the controls.
    if (IsOfWindows(reason) && IsHolder()) return false;
    SetHolder(gained);
    if (gained) {
      GotFocus(reason);
    } else {
      FromEvent(control_->onLostFocus);
    }
    return false;
  }

 private:
  static bool IsOfWindows(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
  }

  // Which control of a window holds the focus is kept with the window: code may move it while
  // another window is in front, of which the control that loses it hears nothing.
  bool IsHolder() const { return widget_->window()->property(kHolder).value<QObject*>() == this; }
  void SetHolder(bool holds) {
    QObject* const holder = holds ? this : nullptr;
    widget_->window()->setProperty(kHolder, QVariant::fromValue(holder));
  }

  void GotFocus(Qt::FocusReason reason) {
    if (!control_->onGotFocus) return;
    // The press that brought the focus would undo what the handler selects, so it goes first.
    if (reason == Qt::MouseFocusReason) {
      QTimer::singleShot(0, this, [this] { FromEvent(control_->onGotFocus); });
    } else {
      FromEvent(control_->onGotFocus);
    }
  }

  static constexpr const char* kHolder = "holderOfFocus";
  QWidget* widget_;
  Control* control_;
};

template <typename ControlType>
ControlType* As(Control* control) {
  if (control == nullptr) return nullptr;
  auto* typed = dynamic_cast<ControlType*>(control);
  if (typed == nullptr) throw Failure(u"Control of another kind: " + Text(control->Name()));
  return typed;
}

std::unique_ptr<Control::Peer> MakeOfKind(const ControlRow& row, QWidget* parent,
                                          Control* control) {
  switch (row.kind) {
    case ControlKind::kFrame:
    case ControlKind::kLine:
      return MakeFrame(row, parent);
    case ControlKind::kPicture:
      return MakePicture(row, parent);
    case ControlKind::kLabel:
      return MakeLabel(row, parent);
    case ControlKind::kTextBox:
      return MakeTextBox(row, parent, As<TextBox>(control));
    case ControlKind::kRichTextBox:
      return MakeRichTextBox(row, parent, As<RichTextBox>(control));
    case ControlKind::kButton:
      return MakeButton(row, parent, As<Button>(control));
    case ControlKind::kCheckBox:
      return MakeCheckBox(row, parent, As<CheckBox>(control));
    case ControlKind::kOption:
      return MakeOption(row, parent, As<OptionButton>(control));
    case ControlKind::kListBox:
      return MakeListBox(row, parent, As<ListBox>(control));
    case ControlKind::kComboBox:
      return MakeComboBox(row, parent);
    case ControlKind::kDriveList:
      return MakeDriveList(row, parent, As<DriveList>(control));
    case ControlKind::kFolderList:
      return MakeFolderList(row, parent, As<FolderList>(control));
    case ControlKind::kFileList:
      return MakeFileList(row, parent, As<FileList>(control));
    case ControlKind::kImage:
      return MakeImageBox(row, parent, As<ImageBox>(control));
    case ControlKind::kScrollBar:
      return MakeScrollBar(row, parent, As<ScrollBar>(control));
    case ControlKind::kTimer:
      return MakeTimer(row, parent, As<Timer>(control));
    case ControlKind::kMenu:
      return MakeMenu(row, parent);
    case ControlKind::kMenuItem:
      return MakeMenuItem(row, parent, As<MenuItem>(control));
  }
  throw Failure(u"Unknown kind of control");
}

// Failure for what has no widget of its own.
QWidget& WidgetOf(const Control& control) {
  QWidget* widget = control.ThePeer().widget;
  if (widget == nullptr) {
    throw Failure(u"Object doesn't support this property: " + Text(control.Name()));
  }
  return *widget;
}

bool HasEdge(ControlKind kind) {
  return kind == ControlKind::kTextBox || kind == ControlKind::kCheckBox ||
         kind == ControlKind::kOption || kind == ControlKind::kListBox ||
         kind == ControlKind::kFolderList || kind == ControlKind::kFileList;
}

void SetDesign(const ControlRow& row, Control::Peer& peer) {
  QWidget& widget = *peer.widget;
  widget.setObjectName(ObjectName(row.name, row.index));
  if (!row.hint.empty()) widget.setToolTip(ToQString(ShownCaption(row.hint)));
  if (HasEdge(row.kind)) MakeEdgeVisible(widget);
  if (!row.tabStop) widget.setFocusPolicy(Qt::NoFocus);
  if (!row.enabled) widget.setEnabled(false);
  if (row.hidden) widget.hide();
  if (IsPlaced(row.kind)) peer.Place();
}

}  // namespace

QString ObjectName(TextView name, int index) {
  const QString plain = ToQString(name);
  return index == kNoIndex ? plain : QStringLiteral("%1(%2)").arg(plain).arg(index);
}

std::unique_ptr<Control::Peer> MakePeer(const ControlRow& row, QWidget* parent, Control* control) {
  auto peer = MakeOfKind(row, parent, control);
  peer->left = row.left;
  peer->top = row.top;
  peer->width = row.width;
  peer->height = row.height;
  if (peer->widget == nullptr) return peer;
  SetDesign(row, *peer);
  if (row.kind == ControlKind::kMenu) return peer;
  if (control != nullptr) new FocusWatcher(*peer, control);
  return peer;
}

void Control::Peer::Place() const {
  // Both edges are rounded, so that what touches in twips touches in pixels.
  const int x = ToPixels(left);
  const int y = ToPixels(top);
  widget->setGeometry(x, y, ToPixels(left + width) - x, ToPixels(top + height) - y);
}

std::function<void()> Control::Peer::Gate(const std::function<void()>& handler) {
  return [alive = QPointer<QObject>(&anchor), &handler] {
    if (alive != nullptr) FromEvent(handler);
  };
}

Control::Control(Window& window, TextView name, int index)
    : window_(window), name_(name), index_(index) {
  window_.Register(*this);
}

Control::~Control() { window_.Unregister(*this); }

Control::Peer& Control::ThePeer() const {
  if (peer_ == nullptr) throw Failure(u"Object was unloaded: " + Text(name_));
  return *peer_;
}

Twips Control::Left() const { return ThePeer().left; }
Twips Control::Top() const { return ThePeer().top; }
Twips Control::Width() const { return ThePeer().width; }
Twips Control::Height() const { return ThePeer().height; }

void Control::SetLeft(Twips left) {
  WidgetOf(*this);
  ThePeer().left = left;
  ThePeer().Place();
}

void Control::SetTop(Twips top) {
  WidgetOf(*this);
  ThePeer().top = top;
  ThePeer().Place();
}

void Control::SetWidth(Twips width) {
  if (width < 0) throw Failure(u"Invalid property value");
  WidgetOf(*this);
  ThePeer().width = width;
  ThePeer().Place();
}

void Control::SetHeight(Twips height) {
  if (height < 0) throw Failure(u"Invalid property value");
  WidgetOf(*this);
  ThePeer().height = height;
  ThePeer().Place();
}

bool Control::Visible() const { return !WidgetOf(*this).isHidden(); }
void Control::SetVisible(bool visible) { WidgetOf(*this).setVisible(visible); }

void Control::SetEnabled(bool enabled) {
  if (QAction* action = ThePeer().action; action != nullptr) {
    action->setEnabled(enabled);
  } else {
    WidgetOf(*this).setEnabled(enabled);
  }
}

Text Control::ToolTip() const { return ToText(WidgetOf(*this).toolTip()); }
void Control::SetToolTip(TextView tip) { WidgetOf(*this).setToolTip(ToQString(ShownCaption(tip))); }

void Control::SetFocus() {
  QWidget& widget = WidgetOf(*this);
  // Within a window that isn't in front the control would get the focus without any key.
  widget.activateWindow();
  widget.setFocus(Qt::OtherFocusReason);
}

}  // namespace platform
