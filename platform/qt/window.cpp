#include "platform/windows/window.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QFrame>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QWindow>
#include <algorithm>

#include "platform/qt/accessible_names.h"
#include "platform/qt/artwork.h"
#include "platform/qt/conversions.h"
#include "platform/qt/notice.h"
#include "platform/qt/peers.h"
#include "platform/qt/trampoline.h"
#include "platform/text/caption.h"
#include "platform/windows/controls.h"

namespace platform {
namespace {

// What the window on the screen tells the tool's window.
struct WindowEvents {
  std::function<void()> onResize;
  std::function<void()> onPaint;
  std::function<void()> onClose;
};

// Whether a frame that has opened in the control's window hides it.
bool IsCovered(const QWidget& control) {
  const QWidget& window = *control.window();
  const QRect place(control.mapTo(&window, QPoint()), control.size());
  const auto frames = window.findChildren<const QFrame*>(QString(), Qt::FindDirectChildrenOnly);
  return std::ranges::any_of(frames, [&](const QFrame* frame) {
    return frame->autoFillBackground() && frame->isVisible() && frame->geometry().contains(place) &&
           !frame->isAncestorOf(&control);
  });
}

class WindowWidget : public QWidget {
 public:
  explicit WindowWidget(WindowEvents events) : events_(std::move(events)) {}

  // The button that the Enter key presses from anywhere in the window.
  void SetDefaultButton(QPushButton* button) { defaultButton_ = button; }

  void SetEscapeCloses(bool closes) { escapeCloses_ = closes; }

  // Controls are being made or taken away: events of that time say nothing to the tool.
  void SetSilent(bool silent) { silent_ = silent; }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QWidget::resizeEvent(event);
    if (!silent_) FromEvent(events_.onResize);
  }

  void paintEvent(QPaintEvent* event) override {
    if (!silent_) FromEvent(events_.onPaint);
    QWidget::paintEvent(event);
  }

  // What another window has changed meanwhile shows as soon as this one is in front again, on
  // screens too where uncovering a window paints nothing.
  void changeEvent(QEvent* event) override {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange) update();
  }

  // A window that stays says so: the desktop asks before it ends the session.
  void closeEvent(QCloseEvent* event) override {
    const QPointer<WindowWidget> alive = this;
    if (!silent_) FromEvent(events_.onClose);
    event->setAccepted(alive == nullptr || !isVisible());
  }

  // The Tab key passes over what can't be seen: keys would work there without being noticed.
  bool focusNextPrevChild(bool next) override {
    const QWidget* first = nullptr;
    while (QWidget::focusNextPrevChild(next)) {
      const QWidget* now = focusWidget();
      if (now == nullptr || now == first || !IsCovered(*now)) return true;
      if (first == nullptr) first = now;
    }
    return false;
  }

  void keyPressEvent(QKeyEvent* event) override {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* focused = qobject_cast<QPushButton*>(focusWidget());
    QPushButton* pressed = focused != nullptr ? focused : defaultButton_;
    if (enter && pressed != nullptr) {
      pressed->click();
    } else if (event->key() == Qt::Key_Escape && escapeCloses_) {
      close();
    } else {
      QWidget::keyPressEvent(event);
    }
  }

 private:
  WindowEvents events_;
  QPushButton* defaultButton_ = nullptr;
  bool silent_ = true;
  bool escapeCloses_ = false;
};

WindowWidget& WidgetOf(const Window& window) {
  return static_cast<WindowWidget&>(*window.ThePeer().widget);
}

Qt::WindowFlags FlagsOf(Border border) {
  switch (border) {
    case Border::kFixed:
      return Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
             Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;
    case Border::kFixedTool:
      return Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
             Qt::WindowCloseButtonHint;
    case Border::kSizable:
      return Qt::Window;
  }
  return Qt::Window;
}

// Only the user can't change the size of a fixed window.
void Resize(QWidget& widget, const QSize& size, Border border) {
  if (border == Border::kSizable) {
    widget.resize(size);
  } else {
    widget.setFixedSize(size);
  }
}

void SetUpWidget(WindowWidget& widget, const WindowDefinition& definition) {
  widget.setObjectName(ToQString(definition.name));
  widget.setWindowTitle(ToQString(ShownCaption(definition.title)));
  widget.setLayoutDirection(Qt::RightToLeft);
  widget.setWindowFlags(FlagsOf(definition.border));
  widget.SetEscapeCloses(definition.escapeCloses);
  if (definition.hasIcon) widget.setWindowIcon(ArtworkIcon(Artwork::kWindowIcon));
  const QSize size(ToPixels(definition.width), ToPixels(definition.height));
  Resize(widget, size, definition.border);
  if (definition.border == Border::kSizable) widget.setMinimumSize(size);
}

// The middle of the owner, or of the screen where there is none.
void Centre(QWidget& widget, const QWidget* owner) {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (owner == nullptr && screen == nullptr) return;
  const QRect around = owner != nullptr ? owner->frameGeometry() : screen->availableGeometry();
  QPoint corner = around.center() - widget.rect().center();
  if (screen != nullptr) {
    // A title bar above the screen's edge could not be dragged back.
    const QRect room = screen->availableGeometry();
    corner.setX(std::max(corner.x(), room.left()));
    corner.setY(std::max(corner.y(), room.top()));
  }
  widget.move(corner);
}

// On the side of the owner that has room, or over its lower corner.
void PlaceBeside(QWidget& widget, const QWidget& owner) {
  const QRect around = owner.frameGeometry();
  const QScreen* screen = owner.screen();
  const QRect room = screen != nullptr ? screen->availableGeometry() : around;
  const QSize size = widget.size();
  QPoint corner(around.right() + 1, around.top());
  if (corner.x() + size.width() > room.right()) corner.setX(around.left() - size.width());
  if (corner.x() < room.left()) {
    corner = QPoint(around.left(), std::min(around.bottom(), room.bottom()) - size.height());
  }
  widget.move(corner);
}

// The function keys are commands, and Tab alone goes through one window.
constexpr auto kToOtherWindow = Qt::CTRL | Qt::Key_Tab;

// From one window to the other, as long as the second is there.
void LeadBetween(QWidget& first, QWidget& second) {
  auto* const there = new QShortcut(kToOtherWindow, &first);
  auto* const back = new QShortcut(kToOtherWindow, &second);
  QObject::connect(&second, &QObject::destroyed, there, &QObject::deleteLater);
  QObject::connect(there, &QShortcut::activated, &second, &QWidget::activateWindow);
  QObject::connect(back, &QShortcut::activated, &first, &QWidget::activateWindow);
}

// Runs `undo` at its end, unless Done was called.
class Rollback {
 public:
  explicit Rollback(std::function<void()> undo) : undo_(std::move(undo)) {}
  Rollback(const Rollback&) = delete;
  Rollback& operator=(const Rollback&) = delete;
  ~Rollback() {
    if (!done_) undo_();
  }
  void Done() { done_ = true; }

 private:
  std::function<void()> undo_;
  bool done_ = false;
};

// Runs events for as long as a window is on the screen.
class WhileShown : public QEventLoop {
 public:
  explicit WhileShown(QWidget* window) : window_(window) {
    window->installEventFilter(this);
    connect(window, &QObject::destroyed, this, &QEventLoop::quit);
  }

  // A window may be hidden and shown again within one event. The program's end ends this, too.
  void Wait() {
    while (window_ != nullptr && window_->isVisible() && exec() == kHidden) {
    }
  }

 protected:
  bool eventFilter(QObject* window, QEvent* event) override {
    // A window that is minimised is hidden by the desktop, and still visible to the toolkit.
    const bool hides = event->type() == QEvent::Hide;
    if (hides && !static_cast<const QWidget*>(window)->isVisible()) exit(kHidden);
    return false;
  }

 private:
  static constexpr int kHidden = 0;
  QPointer<QWidget> window_;
};

}  // namespace

Window::Window(const WindowDefinition& definition) : definition_(definition) {}

Window::~Window() {
  // The members, controls among them, are gone already.
  peer_.reset();
}

Window::Peer& Window::ThePeer() const {
  if (peer_ == nullptr) throw Failure(u"Object was unloaded: " + Text(definition_.name));
  return *peer_;
}

void Window::Register(Control& control) { controls_.push_back(&control); }

void Window::Unregister(Control& control) { std::erase(controls_, &control); }

void Window::BuildControls() {
  WindowWidget& window = WidgetOf(*this);
  for (const ControlRow& row : definition_.rows) {
    QWidget* parent = &window;
    if (!row.parent.empty()) {
      parent = window.findChild<QWidget*>(ObjectName(row.parent, row.parentIndex));
      if (parent == nullptr) throw Failure(u"No such frame: " + Text(row.parent));
    }
    Control* control = FindControl(row.name, row.index);
    auto made = MakePeer(row, parent, control);
    if (row.defaultButton) window.SetDefaultButton(qobject_cast<QPushButton*>(made->widget));
    (control != nullptr ? control->peer_ : ThePeer().nameless.emplace_back()) = std::move(made);
  }
  SetAccessibleNames(window, definition_);
}

Control* Window::FindControl(TextView name, int index) const {
  const auto found = std::ranges::find_if(controls_, [&](const Control* control) {
    return control->Name() == name && control->Index() == index;
  });
  return found == controls_.end() ? nullptr : *found;
}

Control& Window::ControlNamed(TextView name, int index) const {
  Control* control = FindControl(name, index);
  if (control == nullptr) throw Failure(u"No such control: " + Text(name));
  return *control;
}

void Window::Load() {
  if (IsLoaded()) return;
  WindowEvents events;
  events.onResize = [this] { Form_Resize(); };
  events.onPaint = [this] { Form_Paint(); };
  events.onClose = [this] { Form_Close(); };
  Rollback halfLoaded([this] { TakeApart(); });
  peer_ = std::make_unique<Peer>();
  peer_->widget = std::make_unique<WindowWidget>(std::move(events));
  SetUpWidget(WidgetOf(*this), definition_);
  Centre(WidgetOf(*this), nullptr);
  BuildControls();
  Form_Load();
  WidgetOf(*this).SetSilent(false);
  halfLoaded.Done();
}

void Window::Show() {
  Load();
  if (ProcessHasEnded()) return;
  WindowWidget& widget = WidgetOf(*this);
  widget.show();
  widget.raise();
  widget.activateWindow();
}

void Window::ShowModal(Window* owner) {
  Load();
  if (ProcessHasEnded()) return;  // nobody could close it any more
  const QPointer<WindowWidget> widget = &WidgetOf(*this);
  const QWidget* over = owner != nullptr && owner->IsLoaded() ? &WidgetOf(*owner) : nullptr;
  widget->hide();
  widget->setWindowModality(Qt::ApplicationModal);
  // Over its owner without being its child: an owner that goes away must not take it along.
  widget->winId();
  widget->windowHandle()->setTransientParent(over != nullptr ? over->windowHandle() : nullptr);
  if (definition_.opensAt == OpensAt::kOwnerCentre) Centre(*widget, over);
  widget->show();
  WhileShown(widget).Wait();
  if (widget != nullptr) widget->setWindowModality(Qt::NonModal);
}

void Window::ShowBeside(const Window& owner) {
  Load();
  if (ProcessHasEnded()) return;
  WindowWidget& widget = WidgetOf(*this);
  WindowWidget& beside = WidgetOf(owner);
  widget.setAttribute(Qt::WA_ShowWithoutActivating);
  widget.winId();
  widget.windowHandle()->setTransientParent(beside.windowHandle());
  PlaceBeside(widget, beside);
  LeadBetween(beside, widget);
  peer_->beside = &beside;
  BecomeNotice(widget);
  widget.show();
  // Not every desktop heeds the wish.
  beside.activateWindow();
}

void Window::Announce() { AnnounceNotice(WidgetOf(*this)); }

void Window::Hide() { WidgetOf(*this).hide(); }

void Window::Unload() {
  if (!IsLoaded()) return;
  Form_Unload();
  TakeApart();
}

void Window::TakeApart() {
  if (!IsLoaded()) return;
  WidgetOf(*this).SetSilent(true);
  for (Control* control : controls_) control->peer_.reset();
  const bool hadFocus = WidgetOf(*this).isActiveWindow();
  WidgetOf(*this).hide();
  // Not every desktop gives the focus back.
  if (hadFocus && peer_->beside != nullptr) peer_->beside->activateWindow();
  // The event that led here may still run in the widget or one of its children.
  peer_->widget.release()->deleteLater();
  peer_.reset();
}

bool Window::IsVisible() const { return IsLoaded() && WidgetOf(*this).isVisible(); }

WindowState Window::State() const {
  const WindowWidget& widget = WidgetOf(*this);
  if (widget.isMinimized()) return WindowState::kMinimised;
  return widget.isMaximized() ? WindowState::kMaximised : WindowState::kNormal;
}

void Window::SetState(WindowState state) {
  WindowWidget& widget = WidgetOf(*this);
  Qt::WindowStates states = widget.windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized);
  if (state == WindowState::kMinimised) states |= Qt::WindowMinimized;
  if (state == WindowState::kMaximised) states |= Qt::WindowMaximized;
  widget.setWindowState(states);
}

Twips Window::Width() const { return ToTwips(WidgetOf(*this).width()); }
Twips Window::Height() const { return ToTwips(WidgetOf(*this).height()); }

void Window::SetWidth(Twips width) {
  WindowWidget& widget = WidgetOf(*this);
  Resize(widget, {ToPixels(width), widget.height()}, definition_.border);
}

void Window::SetHeight(Twips height) {
  WindowWidget& widget = WidgetOf(*this);
  Resize(widget, {widget.width(), ToPixels(height)}, definition_.border);
}

}  // namespace platform
