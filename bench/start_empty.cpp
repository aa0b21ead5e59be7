// bench_start_empty: shows an empty window, and ends once that is painted.
#include <QApplication>
#include <QWidget>

#include "bench/first_paint.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  bench::EndAtFirstPaint watch;
  application.installEventFilter(&watch);
  QWidget window;
  window.show();
  return QApplication::exec();
}
