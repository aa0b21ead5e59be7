#include "viewer/outside.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QPrintDialog>
#include <QProcess>
#include <QTranslator>
#include <QUrl>

#include "viewer/film_window.h"
#include "viewer/media_player.h"
#include "viewer/surroundings.h"

namespace viewer {
namespace {

bool OpenFile(const QString& path) { return QDesktopServices::openUrl(QUrl::fromLocalFile(path)); }

bool StartProgram(const QString& path) {
  return QProcess::startDetached(path, {}, QFileInfo(path).absolutePath());
}

void ShowFilm(const QString& path, const QString& title, QWidget* parent,
              std::function<void()> onClosed) {
  // The toolkit's player wants a sound card for a film, too.
  if (!CanPlaySounds()) {
    Tell(parent, QStringLiteral("در این رایانه نمی\u200Cتوان فیلم پخش کرد: کارت صدا پیدا نشد."));
    return onClosed();
  }
  auto* const film = new FilmWindow(path, title, parent);  // deletes itself when closed
  film->onClosed = std::move(onClosed);
  film->show();
}

// The toolkit's own dialogs speak Persian where its translations are installed.
void SpeakPersian() {
  static QTranslator translator;
  if (!translator.isEmpty()) return;
  const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  if (translator.load(QStringLiteral("qtbase_fa"), folder)) {
    QCoreApplication::installTranslator(&translator);
  }
}

void Print(const std::function<void(QPrinter&)>& draw, QWidget* parent) {
  SpeakPersian();
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, parent);
  dialog.setObjectName(QStringLiteral("printDialog"));
  if (dialog.exec() == QDialog::Accepted) draw(printer);
}

QString ChooseFolder(QWidget* parent) {
  SpeakPersian();
  return QFileDialog::getExistingDirectory(parent, QStringLiteral("پوشه\u200Cی کتاب را برگزینید"));
}

}  // namespace

Outside TheMachine() {
  return {OpenFile, StartProgram, ShowFilm, MakeMediaPlayer, Print, ChooseFolder};
}

}  // namespace viewer
