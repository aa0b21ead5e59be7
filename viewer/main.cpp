// main.exe [folder]: shows the book in the folder, or else that beside itself, or else that in its
// working folder, which may be another's. Without a book it asks for a folder.
#include <QApplication>
#include <QDir>
#include <QIcon>
#include <memory>

#include "book/folder.h"
#include "viewer/look.h"
#include "viewer/toolkit_texts.h"
#include "viewer/window.h"

namespace {

class Reader : public QObject {
 public:
  void Open(const QString& root) {
    auto window = std::make_unique<viewer::Window>(root);
    // By the next event: the window that asked is still at it.
    window->onFolderChosen = [this](const QString& folder) {
      QMetaObject::invokeMethod(
          this, [this, folder] { Open(folder); }, Qt::QueuedConnection);
    };
    window->show();
    window_ = std::move(window);
  }

 private:
  std::unique_ptr<viewer::Window> window_;
};

QIcon WindowIcon() {
  QIcon icon;
  for (const int side : {32, 64, 128}) {
    icon.addFile(QStringLiteral(":/icons/%1x%1/zorvand-viewer.png").arg(side), {side, side});
  }
  return icon;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  viewer::MakeToolkitSpeakPersian(application);
  QApplication::setLayoutDirection(Qt::RightToLeft);
  QApplication::setFont(viewer::ViewerFont(viewer::kCaptionPixels));
  const QStringList arguments = QApplication::arguments();
  const QStringList candidates =
      arguments.size() > 1 ? QStringList{arguments[1]}
                           : QStringList{QApplication::applicationDirPath(), QDir::currentPath()};
  QApplication::setWindowIcon(WindowIcon());
  Reader reader;
  reader.Open(book::Folder::Find(candidates).value_or(candidates.front()));
  return QApplication::exec();
}
