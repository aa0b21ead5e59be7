// Frames, labels, buttons, tick boxes and options.
#include <QButtonGroup>
#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "platform/qt/artwork.h"
#include "platform/qt/caption_font.h"
#include "platform/qt/conversions.h"
#include "platform/qt/key_watcher.h"
#include "platform/qt/path_edit.h"
#include "platform/qt/peers.h"
#include "platform/qt/picture_button.h"
#include "platform/text/caption.h"

namespace platform {
namespace {

// Buttons would take "&" for the mark of a mnemonic.
QString ButtonText(TextView caption) {
  return ToQString(Replace(ShownCaption(caption), u"&", u"&&"));
}

QAbstractButton& ButtonOf(const Control& control) {
  return static_cast<QAbstractButton&>(*control.ThePeer().widget);
}

// A tick box or option whose mark keeps away from the right edge, where another control lies.
template <typename ButtonType>
class InsetButton : public ButtonType {
 public:
  InsetButton(const ControlRow& row, QWidget* parent)
      : ButtonType(ButtonText(row.text), parent), inset_(ToPixels(row.markInset)) {}

 protected:
  void initStyleOption(QStyleOptionButton* option) const override {
    ButtonType::initStyleOption(option);
    option->rect.adjust(0, 0, -inset_, 0);
  }
  void resizeEvent(QResizeEvent* event) override {
    ButtonType::resizeEvent(event);
    Fit();
  }
  virtual void Fit() { FitCaption(*this); }

 private:
  int inset_;
};

// A tick box in whose caption another control stands. However wide its blanks are in a font, the
// words in front of them end where that control begins, and the others begin where it ends.
class GapCheckBox : public InsetButton<QCheckBox> {
 public:
  GapCheckBox(const ControlRow& row, QWidget* parent)
      : InsetButton(row, parent),
        gapLeft_(ToPixels(row.gapLeft)),
        gapRight_(ToPixels(row.gapLeft + row.gapWidth)) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const Halves halves = TheHalves();
    option.text.clear();
    painter.drawControl(QStyle::CE_CheckBox, option);
    const auto draw = [&](const Half& half) {
      painter.drawItemText(half.room, kFromRight, palette(), isEnabled(), half.words,
                           QPalette::WindowText);
    };
    draw(halves.before);
    draw(halves.after);
    if (!hasFocus() || (option.state & QStyle::State_KeyboardFocusChange) == 0) return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = halves.before.room;
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
  }
  void Fit() override {
    const Halves halves = TheHalves();
    const QFont before = CaptionFont(halves.before.words, halves.before.room.size());
    const QFont after = CaptionFont(halves.after.words, halves.after.room.size());
    setFont(before.pixelSize() < after.pixelSize() ? before : after);
  }

 private:
  struct Half {
    QString words;
    QRect room;
  };
  struct Halves {
    Half before;
    Half after;
  };
  static constexpr int kFromRight =
      Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter | Qt::TextForceRightToLeft;

  Halves TheHalves() const {
    constexpr int kSpace = 4;  // pixels between the words and the other control
    QStyleOptionButton option;
    initStyleOption(&option);
    const QRect all = style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this);
    const QStringList words = text().split(QStringLiteral("   "), Qt::SkipEmptyParts);
    QRect before = rect();
    before.setLeft(gapRight_ + kSpace);
    before.setRight(all.right());
    QRect after = rect();
    after.setRight(gapLeft_ - kSpace);
    return {{words.first().trimmed(), before}, {words.last().trimmed(), after}};
  }

  int gapLeft_;
  int gapRight_;
};

// Tick boxes and options stand on the right of their captions.
std::unique_ptr<Control::Peer> PeerOfTickable(const ControlRow& row, QAbstractButton* button) {
  auto peer = std::make_unique<Control::Peer>();
  button->setLayoutDirection(Qt::RightToLeft);
  button->setChecked(row.ticked);
  peer->caption = row.text;
  peer->widget = button;
  return peer;
}

QCheckBox* NewCheckBox(const ControlRow& row, QWidget* parent) {
  if (row.gapWidth > 0) return new GapCheckBox(row, parent);
  return new InsetButton<QCheckBox>(row, parent);
}

// Of the options of one name in one parent one is on. The toolkit's own rule would count in those
// of the frames inside the parent.
QButtonGroup& GroupOf(const ControlRow& row, QWidget* parent) {
  const QString name = ToQString(row.name);
  auto* group = parent->findChild<QButtonGroup*>(name, Qt::FindDirectChildrenOnly);
  if (group == nullptr) {
    group = new QButtonGroup(parent);
    group->setObjectName(name);
  }
  return *group;
}

// A caption whose line stands where it does in the font of the design, however much room a font
// leaves above its letters. A caption that is too wide gets smaller; a path is cut where it ends.
class CaptionLabel : public QLabel {
 public:
  CaptionLabel(const ControlRow& row, QWidget* parent)
      : QLabel(ToQString(ShownCaption(row.text)), parent), isPath_(row.leftToRight) {}
  void SetWords(const QString& words) {
    setText(words);
    Fit();
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QLabel::resizeEvent(event);
    Fit();
  }
  void paintEvent(QPaintEvent*) override {
    QTextOption option(alignment());
    option.setTextDirection(layoutDirection());
    option.setWrapMode(QTextOption::NoWrap);
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    DrawCaption(painter, text(), rect(), option);
  }

 private:
  void Fit() {
    if (!isPath_) setFont(CaptionFont(text(), size()));
  }
  bool isPath_;
};

// An artwork, drawn anew at whatever size and density it is shown.
class PictureWidget : public QWidget {
 public:
  PictureWidget(Artwork artwork, QWidget* parent) : QWidget(parent), artwork_(artwork) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    DrawArtwork(painter, artwork_, rect(), GroundOf(palette()));
  }

 private:
  Artwork artwork_;
};

}  // namespace

std::unique_ptr<Control::Peer> MakeFrame(const ControlRow& row, QWidget* parent) {
  auto peer = std::make_unique<Control::Peer>();
  auto* frame = new QFrame(parent);
  if (row.kind == ControlKind::kLine) {
    frame->setFrameStyle(static_cast<int>(QFrame::HLine) | static_cast<int>(QFrame::Sunken));
  }
  // A frame that opens over other controls hides what lies under it.
  frame->setAutoFillBackground(row.hidden);
  if (row.hidden) frame->raise();
  peer->widget = frame;
  return peer;
}

std::unique_ptr<Control::Peer> MakePicture(const ControlRow& row, QWidget* parent) {
  auto peer = std::make_unique<Control::Peer>();
  peer->widget = new PictureWidget(row.artwork, parent);
  return peer;
}

std::unique_ptr<Control::Peer> MakeLabel(const ControlRow& row, QWidget* parent) {
  auto peer = std::make_unique<Control::Peer>();
  auto* label = new CaptionLabel(row, parent);
  label->setTextFormat(Qt::PlainText);
  label->setAttribute(Qt::WA_TransparentForMouseEvents);
  label->setAlignment((row.rightAligned ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignTop |
                      Qt::AlignAbsolute);
  label->setLayoutDirection(row.leftToRight ? Qt::LeftToRight : Qt::RightToLeft);
  peer->caption = row.text;
  peer->widget = label;
  return peer;
}

std::unique_ptr<Control::Peer> MakeButton(const ControlRow& row, QWidget* parent, Button* control) {
  auto peer = std::make_unique<Control::Peer>();
  auto* button = new PictureButton(row.artwork, parent);
  button->setText(ButtonText(row.text));
  button->setLayoutDirection(row.leftToRight ? Qt::LeftToRight : Qt::RightToLeft);
  peer->caption = row.text;
  peer->widget = button;
  if (control != nullptr) {
    QObject::connect(button, &QPushButton::clicked, &peer->anchor,
                     [button, click = peer->Gate(control->onClick)] {
                       FinishPathsIn(*button->window());
                       click();
                     });
  }
  return peer;
}

std::unique_ptr<Control::Peer> MakeCheckBox(const ControlRow& row, QWidget* parent,
                                            CheckBox* control) {
  auto peer = PeerOfTickable(row, NewCheckBox(row, parent));
  if (control != nullptr) {
    auto* box = static_cast<QCheckBox*>(peer->widget);
    QObject::connect(box, &QCheckBox::clicked, &peer->anchor,
                     [click = peer->Gate(control->onClick), up = peer->Gate(control->onMouseUp)] {
                       click();
                       up();
                     });
  }
  return peer;
}

std::unique_ptr<Control::Peer> MakeOption(const ControlRow& row, QWidget* parent,
                                          OptionButton* control) {
  auto peer = PeerOfTickable(row, new InsetButton<QRadioButton>(row, parent));
  GroupOf(row, parent).addButton(static_cast<QRadioButton*>(peer->widget));
  if (control != nullptr) {
    auto* option = static_cast<QRadioButton*>(peer->widget);
    QObject::connect(option, &QRadioButton::toggled, &peer->anchor,
                     [click = peer->Gate(control->onClick)](bool on) {
                       if (on) click();
                     });
    WatchKeyUp(*peer, peer->Gate(control->onKeyUp));
  }
  return peer;
}

Text Label::Caption() const { return ThePeer().caption; }

void Label::SetCaption(TextView caption) {
  ThePeer().caption = caption;
  const QString shown = ToQString(ShownCaption(caption));
  static_cast<CaptionLabel*>(ThePeer().widget)->SetWords(shown);
  ThePeer().widget->setAccessibleName(shown);
}

Text Button::Caption() const { return ThePeer().caption; }

void Button::SetCaption(TextView caption) {
  ThePeer().caption = caption;
  ButtonOf(*this).setText(ButtonText(caption));
  FitCaption(ButtonOf(*this));
  ThePeer().widget->setAccessibleName(ToQString(ShownCaption(caption)));
}

bool CheckBox::Value() const { return ButtonOf(*this).isChecked(); }
void CheckBox::SetValue(bool on) { ButtonOf(*this).setChecked(on); }

bool OptionButton::Value() const { return ButtonOf(*this).isChecked(); }

void OptionButton::SetValue(bool on) {
  QAbstractButton& button = ButtonOf(*this);
  const bool wasOn = button.isChecked();
  {
    const QSignalBlocker quiet(button);
    // The toolkit keeps one of a group on.
    button.group()->setExclusive(on);
    button.setChecked(on);
    button.group()->setExclusive(true);
  }
  if (on && !wasOn && onClick) onClick();
}

}  // namespace platform
