// When an editor has painted what it was given.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QTextEdit>
#include <functional>

#include "bench/timing.h"

namespace bench {

// Sees an editor's next paint.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(QTextEdit& edit) { edit.viewport()->installEventFilter(this); }

  // Does the work, then lets events run until the editor has painted what came of it.
  double SecondsToPaint(const std::function<void()>& work) {
    hasPainted_ = false;
    return SecondsOf([&] {
      work();
      while (!hasPainted_) QCoreApplication::processEvents();
    });
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    hasPainted_ |= event->type() == QEvent::Paint;
    return false;
  }

 private:
  bool hasPainted_ = false;
};

}  // namespace bench
