#include "platform/windows/busy_pointer.h"

#include <QCursor>
#include <QGuiApplication>
#include <utility>

#include "platform/qt/pointer_at_rest.h"

namespace platform {
namespace {

int busyPointers = 0;

// The toolkit has one pointer over all windows or none; how many wish for it is counted here.
void Count(int wishes) {
  const bool wasBusy = std::exchange(busyPointers, wishes) > 0;
  if (wasBusy == (wishes > 0)) return;
  wasBusy ? QGuiApplication::restoreOverrideCursor()
          : QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

}  // namespace

BusyPointer::BusyPointer() { Count(busyPointers + 1); }
BusyPointer::~BusyPointer() { Count(busyPointers - 1); }

PointerAtRest::PointerAtRest() : before_(busyPointers) { Count(0); }
PointerAtRest::~PointerAtRest() { Count(before_); }

}  // namespace platform
