// The book's pictures, decoded at the size in which they are shown, beside the window's thread.
#pragma once

#include <QCache>
#include <QImage>
#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QSet>
#include <QSize>
#include <QString>
#include <QThreadPool>
#include <QWidget>
#include <vector>

#include "media/picture_plan.h"

namespace viewer {

enum class Fit {
  kInside,   // the whole picture, never larger than it is
  kCovering  // fills the box
};

// What is kept to be shown, of all that a process may keep: the window's pictures, as much of those
// over the whole screen, and those of a section that is printed.
inline constexpr quint64 kKeptByWindow = media::kKeptMemory / 4;
inline constexpr quint64 kKeptForPaper = media::kKeptMemory / 2;

// Of one picture: several are seen at a time, or one over the whole screen.
inline constexpr quint64 kLargestInWindow = kKeptByWindow / 4;
inline constexpr quint64 kLargestOnScreen = kKeptByWindow / 8 * 7;

// A null image, with a warning, where the file is no picture or would take too much of a decoder,
// which is told before (media/picture_plan.h). Waits while other threads decode in the memory that
// it needs. One of more than `most` bytes is coarser, by its device's pixel ratio.
QImage DecodePicture(const QString& path, QSize box, Fit fit, quint64 most);

// How large the picture is inside the box, by the beginning of its file: decoding it may fail
// nonetheless. An empty size, with a warning, where it is known already that it can't be shown.
QSize SizeOfPicture(const QString& path, QSize box);

// What stands in the place of a picture that isn't shown; `path` is empty where there is no file.
QString NoteInPlaceOf(const QString& path);

// Keeps what was decoded lately. Until Start() nothing is decoded, so that the first window comes
// up without waiting for pictures.
class Pictures : public QObject {
 public:
  explicit Pictures(quint64 largest = kLargestInWindow);
  Pictures(const Pictures&) = delete;
  Pictures& operator=(const Pictures&) = delete;
  ~Pictures() override;

  void Start();

  // Null while the picture isn't there: `waiting` is painted again when it is. `box` in pixels of
  // the widget.
  QPixmap Get(const QString& path, QSize box, Fit fit, QWidget* waiting);
  // Once it is known that there is nothing to show.
  bool IsBroken(const QString& path) const { return broken_.contains(path); }

 private:
  struct Wish {
    QString key;
    QString path;
    QSize box;
    Fit fit;
    double ratio;
    QPointer<QWidget> waiting;
  };
  void Decode(const Wish& wish);
  void Take(const Wish& wish, const QImage& image);

  quint64 largest_;
  bool started_ = false;
  int asked_ = 0;
  std::vector<Wish> early_;
  QSet<QString> pending_;
  QSet<QString> broken_;
  QCache<QString, QPixmap> ready_;
  QThreadPool pool_;
};

}  // namespace viewer
