#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>
#include <limits>

#include "platform/failure.h"
#include "platform/qt/conversions.h"
#include "platform/qt/path_edit.h"
#include "platform/qt/peers.h"
#include "platform/qt/trampoline.h"

namespace platform {
namespace {

struct TextBoxPeer : Control::Peer {
  QLineEdit& Edit() const { return static_cast<QLineEdit&>(*widget); }
};

// After code has written the text.
void PutCaret(QLineEdit& edit) {
  if (auto* path = dynamic_cast<PathEdit*>(&edit)) return path->Written();
  edit.setCursorPosition(0);
}

// Tells a text box of the characters typed into it, before they go in.
class KeyPressWatcher : public QObject {
 public:
  KeyPressWatcher(Control::Peer& peer, TextBox* control) : QObject(&peer.anchor), box_(control) {
    peer.widget->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::KeyPress || !box_->onKeyPress) return false;
    const QString typed = static_cast<QKeyEvent*>(event)->text();
    if (typed.isEmpty()) return false;
    const int code = typed.front().unicode();
    const TextBox* box = box_;
    FromEvent([box, code] { box->onKeyPress(code); });
    return false;
  }

 private:
  TextBox* box_;
};

// The toolkit's own grey of a box that is off is too pale to read; this one can be read on light
// and dark desktops.
QPalette ReadableWhenOff() {
  QPalette palette;
  palette.setColor(QPalette::Disabled, QPalette::Text, Qt::darkGray);
  return palette;
}

// Absolute, since the toolkit turns sides by the text in the box (Qt 6.4, QLineEdit) and a Latin
// title would jump to the left.
Qt::Alignment AlignmentOf(const ControlRow& row) {
  if (row.centred) return Qt::AlignCenter;
  return (row.leftToRight ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignAbsolute | Qt::AlignVCenter;
}

int Bounded(Position value, qsizetype highest) {
  if (value < 0) throw Failure(u"Invalid property value");
  return static_cast<int>(std::min<Position>(value, highest));
}

}  // namespace

std::unique_ptr<Control::Peer> MakeTextBox(const ControlRow& row, QWidget* parent,
                                           TextBox* control) {
  auto peer = std::make_unique<TextBoxPeer>();
  QLineEdit* edit = row.path ? new PathEdit(parent) : new QLineEdit(parent);
  edit->setPalette(ReadableWhenOff());
  edit->setMaxLength(std::numeric_limits<int>::max());
  edit->setText(ToQString(row.text));
  edit->setLayoutDirection(row.leftToRight ? Qt::LeftToRight : Qt::RightToLeft);
  edit->setAlignment(AlignmentOf(row));
  peer->widget = edit;
  PutCaret(*edit);
  if (control != nullptr) {
    QObject::connect(edit, &QLineEdit::textChanged, &peer->anchor, peer->Gate(control->onChange));
    new KeyPressWatcher(*peer, control);
  }
  return peer;
}

Text TextBox::Text() const { return ToText(PeerOf<TextBoxPeer>(*this).Edit().text()); }

void TextBox::SetText(TextView text) {
  QLineEdit& edit = PeerOf<TextBoxPeer>(*this).Edit();
  const QString wanted = ToQString(text);
  if (edit.text() == wanted) return;
  {
    // The change handler's failure belongs to the writer, so it doesn't run as an event.
    const QSignalBlocker quiet(edit);
    edit.setText(wanted);
    PutCaret(edit);
  }
  if (onChange) onChange();
}

Position TextBox::SelStart() const {
  const QLineEdit& edit = PeerOf<TextBoxPeer>(*this).Edit();
  return edit.hasSelectedText() ? edit.selectionStart() : edit.cursorPosition();
}

Position TextBox::SelLength() const {
  return PeerOf<TextBoxPeer>(*this).Edit().selectedText().size();
}

void TextBox::SetSelStart(Position start) {
  QLineEdit& edit = PeerOf<TextBoxPeer>(*this).Edit();
  const int at = Bounded(start, edit.text().size());
  edit.deselect();
  edit.setCursorPosition(at);
}

void TextBox::SelectAll() {
  SetSelStart(0);
  SetSelLength(std::numeric_limits<int>::max());
}

void TextBox::SetSelLength(Position length) {
  QLineEdit& edit = PeerOf<TextBoxPeer>(*this).Edit();
  const auto start = static_cast<int>(SelStart());
  const int bounded = Bounded(length, edit.text().size() - start);
  if (bounded == 0) {
    edit.deselect();
    edit.setCursorPosition(start);
  } else {
    edit.setSelection(start, bounded);
  }
}

// What can't be changed stands on the window's own ground.
void TextBox::SetLocked(bool locked) {
  QLineEdit& edit = PeerOf<TextBoxPeer>(*this).Edit();
  edit.setReadOnly(locked);
  QPalette palette = edit.palette();
  const QPalette ofWindow = edit.window()->palette();
  palette.setColor(QPalette::Base, ofWindow.color(locked ? QPalette::Window : QPalette::Base));
  edit.setPalette(palette);
}

}  // namespace platform
