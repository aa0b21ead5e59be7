// The book's pictures as its windows show them, decoded beside the windows' thread.
#pragma once

#include <QCache>
#include <QHash>
#include <QMutex>
#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QRect>
#include <QSet>
#include <QSize>
#include <QString>
#include <QThreadPool>
#include <QWidget>
#include <functional>
#include <vector>

#include "book/folder.h"
#include "viewer/picture_decoder.h"

namespace viewer {

// By its path on the disk, or by that in the book, which is looked up by the thread that decodes.
struct PictureFile {
  QString path;
  bool isInBook = false;
};

struct ShownPicture {
  QPixmap pixmap;  // null while there is nothing to show; perhaps of another size for now
  QSizeF size;     // in which it is to be shown, in pixels of the widget
  QSizeF whole;    // its own, in the same
};

// A picture that is wanted: `box` in pixels of the widget, which is painted again when it is there.
struct PictureWish {
  PictureFile file;
  QSize box;
  Fit fit = Fit::kInside;
  QWidget* waiting = nullptr;
  // Where it stands in the widget by now, and whether it is seen at all; all over it, without.
  std::function<QRect()> place = nullptr;
};

// Keeps what was decoded lately. Until Start() nothing is decoded, so that the first window comes
// up without waiting for pictures. Asking takes no look at the disk.
class Pictures : public QObject {
 public:
  explicit Pictures(const book::Folder& book, quint64 largest = kLargestInWindow);
  Pictures(const Pictures&) = delete;
  Pictures& operator=(const Pictures&) = delete;
  ~Pictures() override;

  void Start();

  // What was asked last is decoded first. While a picture of the right size is decoded, the one of
  // the size before is shown; of a widget that asks for one size after the other, the last alone is
  // decoded.
  ShownPicture Get(const PictureWish& wish);
  // The words for one that isn't shown, once that is known.
  QString NoteInPlaceOf(const PictureFile& file) const;
  bool IsBroken(const PictureFile& file) const { return !NoteInPlaceOf(file).isEmpty(); }

  // How many have been decoded until now.
  int DecodedCount() const { return decoded_; }

 private:
  struct Wish {
    QString slot;  // the picture and its fit
    QString key;   // the slot and the size
    PictureFile file;
    QSize box;
    Fit fit;
    double ratio;
    QPointer<QWidget> waiting;
    std::function<QRect()> place;
  };
  // Of a slot.
  struct Known {
    QSize whole;
    QString last;    // the key of what came last, ...
    QString before;  // ... and before it
  };
  struct Taken {
    QString path;
    DecodedPicture picture;
  };
  static QString NameOf(const PictureFile& file);
  static QRect PlaceOf(const Wish& wish);
  static bool IsStale(const Wish& wish) { return PlaceOf(wish).isEmpty(); }
  ShownPicture Ready(const Wish& wish) const;
  void Ask(const Wish& wish);
  void DecodeNext();
  Taken Decode(const Wish& wish);
  void Take(const Wish& wish, const Taken& taken);
  void Keep(const Wish& wish, const DecodedPicture& picture);

  QMutex lookingUp_;  // the threads that decode take turns with the folder
  book::Folder book_;
  quint64 largest_;
  bool started_ = false;
  int running_ = 0;
  int decoded_ = 0;
  std::vector<Wish> wishes_;  // the last is the next
  QSet<QString> pending_;     // the keys of those, and of what is being decoded
  QHash<QString, QString> notes_;
  QHash<QString, Known> known_;
  QCache<QString, QPixmap> ready_;
  QThreadPool pool_;
};

// What stands in the place of a picture that isn't shown; `path` is empty where there is no file.
QString NoteInPlaceOf(const QString& path);

}  // namespace viewer
