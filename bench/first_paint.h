// Ends the process, with status 0, as soon as a window is painted.
#pragma once

#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <cstdlib>

namespace bench {

// To be installed as a filter of the application's events.
class EndAtFirstPaint : public QObject {
 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && watched->isWidgetType() && !ending_) {
      ending_ = true;
      // By then the whole window is painted and on the screen.
      QTimer::singleShot(0, [] { std::_Exit(0); });
    }
    return false;
  }

 private:
  bool ending_ = false;
};

}  // namespace bench
