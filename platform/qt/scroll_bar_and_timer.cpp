#include <QScrollBar>
#include <QTimer>

#include "platform/qt/peers.h"

namespace platform {
namespace {

struct TimerPeer : Control::Peer {
  QTimer timer;
};

QScrollBar& BarOf(const Control& control) {
  return static_cast<QScrollBar&>(*control.ThePeer().widget);
}

// Runs `change` without events; a changed value then runs the handler as part of the write.
template <typename Change>
void WriteBar(const ScrollBar& bar, Change change) {
  QScrollBar& widget = BarOf(bar);
  const int before = widget.value();
  {
    const QSignalBlocker quiet(widget);
    change(widget);
  }
  if (widget.value() != before && bar.onChange) bar.onChange();
}

}  // namespace

std::unique_ptr<Control::Peer> MakeScrollBar(const ControlRow&, QWidget* parent,
                                             ScrollBar* control) {
  auto peer = std::make_unique<Control::Peer>();
  auto* bar = new QScrollBar(Qt::Vertical, parent);
  bar->setRange(1, 1);
  bar->setTracking(false);  // a drag is one change, told where it ends
  bar->setFocusPolicy(Qt::StrongFocus);
  peer->widget = bar;
  if (control != nullptr) {
    QObject::connect(bar, &QScrollBar::valueChanged, &peer->anchor, peer->Gate(control->onChange));
  }
  return peer;
}

int ScrollBar::Value() const { return BarOf(*this).value(); }

void ScrollBar::SetValue(int value) {
  WriteBar(*this, [value](QScrollBar& bar) { bar.setValue(value); });
}

void ScrollBar::SetMax(int maximum) {
  WriteBar(*this, [maximum](QScrollBar& bar) { bar.setMaximum(maximum); });
}

void ScrollBar::SetSmallChange(int step) { BarOf(*this).setSingleStep(step); }
void ScrollBar::SetLargeChange(int step) { BarOf(*this).setPageStep(step); }

std::unique_ptr<Control::Peer> MakeTimer(const ControlRow& row, QWidget*, Timer* control) {
  auto peer = std::make_unique<TimerPeer>();
  peer->timer.setInterval(row.interval);
  if (control != nullptr) {
    QObject::connect(&peer->timer, &QTimer::timeout, &peer->anchor, peer->Gate(control->onTimer));
  }
  if (row.enabled) peer->timer.start();
  return peer;
}

bool Timer::TimerEnabled() const { return PeerOf<TimerPeer>(*this).timer.isActive(); }

void Timer::SetTimerEnabled(bool enabled) {
  QTimer& timer = PeerOf<TimerPeer>(*this).timer;
  enabled ? timer.start() : timer.stop();
}

}  // namespace platform
