#include "viewer/outside.h"

#include <QDesktopServices>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>
#include <QPrintDialog>
#include <QStandardPaths>
#include <QUrl>
#include <string>

#include "launch/launcher.h"
#include "viewer/film_window.h"
#include "viewer/media_player.h"
#include "viewer/missing_packages.h"
#include "viewer/surroundings.h"
#include "viewer/texts.h"

namespace viewer {
namespace {

// The toolkit tells the desktop that the reader has asked for it, so that it comes to the front.
bool OpenOnTheDesktop(const std::string& file, const std::string& /*folder*/) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(file.c_str())));
}

launch::Launcher& TheLauncher() {
  static launch::Launcher launcher(OpenOnTheDesktop);
  return launcher;
}

struct FileInItsFolder {
  std::string file;
  std::string folder;
};

FileInItsFolder HostsOwn(const QString& path) {
  const QFileInfo file(path);
  return {QFile::encodeName(file.absoluteFilePath()).toStdString(),
          QFile::encodeName(file.absolutePath()).toStdString()};
}

bool OpenFile(const QString& path) {
  const auto [file, folder] = HostsOwn(path);
  return TheLauncher().HandOver(file, folder);
}

bool StartProgram(const QString& path) {
  const auto [file, folder] = HostsOwn(path);
  return TheLauncher().Start(file, folder);
}

void ShowFilm(std::unique_ptr<book::Medium> medium, const QString& title, QWidget* parent,
              std::function<void()> onClosed) {
  // The toolkit's player wants a sound card for a film, too.
  if (!CanPlaySounds()) {
    const media::MediaKind kind = medium->Kind();
    const bool lacksPlugIns = !MissingPackages(kind, PlugInFolders()).isEmpty();
    Tell(parent,
         lacksPlugIns ? WithMissingPackages(texts::CantPlayFilm(), kind) : texts::NoSoundCard());
    return onClosed();
  }
  static QPointer<FilmWindow> running;  // one at a time
  if (running) running->close();
  auto* const film =
      new FilmWindow(std::move(medium), title, parent);  // deletes itself when closed
  running = film;
  film->onClosed = std::move(onClosed);
  film->show();
}

void Print(const std::function<void(QPrinter&)>& draw, QWidget* parent) {
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, parent);
  dialog.setObjectName(QStringLiteral("printDialog"));
  if (dialog.exec() == QDialog::Accepted) draw(printer);
}

QString ChooseFolder(QWidget* parent) {
  // The desktop's own dialog would speak the desktop's language.
  return QFileDialog::getExistingDirectory(
      parent, texts::ChooseBookFolder(), {},
      QFileDialog::ShowDirsOnly | QFileDialog::DontUseNativeDialog);
}

QString ChooseNewFile(QWidget* parent, const QString& name) {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
  return QFileDialog::getSaveFileName(parent, texts::SavePicture(), folder + u'/' + name, {},
                                      nullptr, QFileDialog::DontUseNativeDialog);
}

}  // namespace

Outside TheMachine() {
  const QString settings = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  return {OpenFile, StartProgram, ShowFilm,      MakeMediaPlayer,
          Print,    ChooseFolder, ChooseNewFile, settings + QStringLiteral("/zorvand-viewer")};
}

}  // namespace viewer
