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

namespace viewer {

enum class Fit {
  kInside,   // the whole picture, never larger than it is
  kCovering  // fills the box
};

// A null image, with a warning, where the file is no picture or too large to be decoded. Reads the
// size before it decodes.
QImage DecodePicture(const QString& path, QSize box, Fit fit);

// Keeps what was decoded lately. Until Start() nothing is decoded, so that the first window comes
// up without waiting for pictures.
class Pictures : public QObject {
 public:
  Pictures();
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

  bool started_ = false;
  int asked_ = 0;
  std::vector<Wish> early_;
  QSet<QString> pending_;
  QSet<QString> broken_;
  QCache<QString, QPixmap> ready_;
  QThreadPool pool_;
};

}  // namespace viewer
