// What the tests of the viewer's windows share: an application, books to show, and a machine in
// which nothing is started.
#pragma once

#include <QAbstractButton>
#include <QListView>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QWidget>
#include <functional>
#include <memory>

#include "tests/viewer/book_maker.h"
#include "viewer/outside.h"

namespace viewer_tests {

// What the viewer has asked of the machine.
struct Asked {
  QStringList opened;
  QStringList started;
  QStringList films;
  std::function<void()> closeLastFilm;
  QStringList printed;  // the files that a printer made of them
  QStringList sounds;   // "play x.mp3", "pause", "resume", "stop"
  std::function<void(bool)> endOfLastSound;
  std::function<void(QPrinter&)> chosenInDialog;  // what the reader sets up before printing
  QString chosenFolder;                           // what the reader names for a book
  QString newFile;                                // the same for a picture to be saved
  QString nameOfNewFile;                          // what was proposed
  QTemporaryDir folder;
};
viewer::Outside MachineOf(const std::shared_ptr<Asked>& asked);

struct BookPlan {
  int layout = 1;
  bool music = false;
  bool print = false;
};
// A book of three rows: a1 a text collection with main titles, media and a gallery entry, a2 an
// ordinary one, b1 a gallery of three pictures, c1 a collection of one page.
void MakeBook(const BookMaker& maker, const BookPlan& plan = {});
// A picture of one colour.
void MakePicture(const BookMaker& maker, const QString& pathInBook, QSize size = {60, 80});

// By its objectName; a test ends where it isn't there.
QWidget& Find(const QWidget& window, const QString& name);
void Click(const QWidget& window, const QString& name);
QListView& ListOf(const QWidget& window, const QString& name = QStringLiteral("contents"));
void ClickRow(QListView& list, int row);
QStringList RowsOf(const QListView& list);
QString PageText(const QWidget& window);
bool IsSeen(const QWidget& window, const QString& name);
// A window of its own, as the picture over the whole screen; null if it isn't open.
QWidget* TopLevel(const QString& name);
// Presses the button of the next message box, or Esc where no name is given; gives its text.
std::shared_ptr<QString> AnswerNextBox(const QString& buttonName);
// Bytes that are no sound and no film, but name another file.
inline constexpr const char* kPlaylist = "#EXTM3U\n#EXTINF:1,\nfile:///etc/hostname\n";
// Runs the loop until it holds; false if it doesn't in half a minute.
bool Await(const std::function<bool()>& holds);
// Every file below with its size, time of change and contents.
QStringList TreeOf(const QString& root);

}  // namespace viewer_tests
