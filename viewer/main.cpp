// main.exe [folder]: shows the book in the folder, or else that beside itself, or else that in its
// working folder, which may be another's.
#include <QApplication>
#include <QDir>

#include "viewer/book/folder.h"
#include "viewer/look.h"
#include "viewer/window.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setLayoutDirection(Qt::RightToLeft);
  QApplication::setFont(viewer::ViewerFont(viewer::kCaptionPixels));
  const QStringList arguments = QApplication::arguments();
  const QStringList candidates =
      arguments.size() > 1 ? QStringList{arguments[1]}
                           : QStringList{QApplication::applicationDirPath(), QDir::currentPath()};
  viewer::Window window(viewer::BookFolder::Find(candidates).value_or(candidates.front()));
  window.show();
  return QApplication::exec();
}
