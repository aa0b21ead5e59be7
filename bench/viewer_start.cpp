// bench_viewer_start FOLDER: starts as the viewer does with the book in the folder, and ends once
// its index is painted.
#include <QApplication>

#include "bench/first_paint.h"
#include "viewer/look.h"
#include "viewer/window.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  bench::EndAtFirstPaint watch;
  application.installEventFilter(&watch);
  QApplication::setLayoutDirection(Qt::RightToLeft);
  QApplication::setFont(viewer::ViewerFont(viewer::kCaptionPixels));
  viewer::Window window(QApplication::arguments().value(1));
  // A window that says that there is no book would come up too soon.
  if (!window.HasBook()) return 1;
  window.show();
  return QApplication::exec();
}
