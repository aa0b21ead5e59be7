#include "platform/window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

#include "platform/caption.h"
#include "platform/controls.h"
#include "platform/qt/accessible_names.h"
#include "platform/qt/artwork.h"
#include "platform/qt/conversions.h"
#include "platform/qt/peers.h"
#include "platform/qt/trampoline.h"

namespace platform {
namespace {

// What the window on the screen tells the tool's window.
struct WindowEvents {
  std::function<void()> onResize;
  std::function<void()> onPaint;
  std::function<void()> onClose;
};

class WindowWidget : public QWidget {
 public:
  explicit WindowWidget(WindowEvents events) : events_(std::move(events)) {}

  // The button that the Enter key presses from anywhere in the window.
  void SetDefaultButton(QPushButton* button) { defaultButton_ = button; }

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

  void closeEvent(QCloseEvent* event) override {
    event->ignore();
    if (!silent_) FromEvent(events_.onClose);
  }

  void keyPressEvent(QKeyEvent* event) override {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* focused = qobject_cast<QPushButton*>(focusWidget());
    QPushButton* pressed = focused != nullptr ? focused : defaultButton_;
    if (enter && pressed != nullptr) {
      pressed->click();
    } else {
      QWidget::keyPressEvent(event);
    }
  }

 private:
  WindowEvents events_;
  QPushButton* defaultButton_ = nullptr;
  bool silent_ = true;
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

void SetUpWidget(WindowWidget& widget, const WindowDefinition& definition) {
  widget.setObjectName(ToQString(definition.name));
  widget.setWindowTitle(ToQString(ShownCaption(definition.title)));
  widget.setLayoutDirection(Qt::RightToLeft);
  widget.setWindowFlags(FlagsOf(definition.border));
  if (definition.hasIcon) widget.setWindowIcon(ArtworkIcon(Artwork::kWindowIcon));
  const QSize size(ToPixels(definition.width), ToPixels(definition.height));
  if (definition.border == Border::kSizable) {
    widget.resize(size);
    widget.setMinimumSize(size);
  } else {
    widget.setFixedSize(size);
  }
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

bool Matches(const Control& control, const ControlRow& row) {
  return control.Name() == row.name && control.Index() == row.index;
}

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
    const auto found = std::ranges::find_if(
        controls_, [&](const Control* control) { return Matches(*control, row); });
    Control* control = found == controls_.end() ? nullptr : *found;
    auto made = MakePeer(row, parent, control);
    if (row.defaultButton) window.SetDefaultButton(qobject_cast<QPushButton*>(made->widget));
    (control != nullptr ? control->peer_ : ThePeer().nameless.emplace_back()) = std::move(made);
  }
  SetAccessibleNames(window, definition_);
}

void Window::Load() {
  if (IsLoaded()) return;
  WindowEvents events;
  events.onResize = [this] { Form_Resize(); };
  events.onPaint = [this] { Form_Paint(); };
  events.onClose = [this] { CloseHides() ? Hide() : Unload(); };
  peer_ = std::make_unique<Peer>();
  peer_->widget = std::make_unique<WindowWidget>(std::move(events));
  SetUpWidget(WidgetOf(*this), definition_);
  BuildControls();
  Form_Load();
  WidgetOf(*this).SetSilent(false);
}

void Window::Show() {
  Load();
  WindowWidget& widget = WidgetOf(*this);
  if (!widget.isVisible()) Centre(widget, nullptr);
  widget.show();
  widget.raise();
  widget.activateWindow();
}

void Window::ShowModal(Window* owner) {
  Load();
  QPointer<WindowWidget> widget = &WidgetOf(*this);
  QWidget* over = owner != nullptr && owner->IsLoaded() ? &WidgetOf(*owner) : nullptr;
  widget->setParent(over, widget->windowFlags());
  widget->setWindowModality(Qt::ApplicationModal);
  Centre(*widget, definition_.opensAt == OpensAt::kOwnerCentre ? over : nullptr);
  widget->show();
  while (widget != nullptr && widget->isVisible()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  // An owner that goes away must not take this window with it.
  if (widget != nullptr) widget->setParent(nullptr, widget->windowFlags());
}

void Window::Hide() { WidgetOf(*this).hide(); }

void Window::Unload() {
  if (!IsLoaded()) return;
  Form_Unload();
  if (!IsLoaded()) return;
  WidgetOf(*this).SetSilent(true);
  for (Control* control : controls_) control->peer_.reset();
  WidgetOf(*this).hide();
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
  WidgetOf(*this).resize(ToPixels(width), WidgetOf(*this).height());
}

void Window::SetHeight(Twips height) {
  WidgetOf(*this).resize(WidgetOf(*this).width(), ToPixels(height));
}

}  // namespace platform
