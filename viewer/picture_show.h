// One picture of a gallery over the whole screen, with its title.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "book/gallery.h"
#include "viewer/flat_button.h"
#include "viewer/look.h"
#include "viewer/picture_pose.h"
#include "viewer/pictures.h"
#include "viewer/surroundings.h"

namespace viewer {

// The arrow to the left shows the next picture, as the book runs; where the picture reaches beyond
// the screen the arrows move it. R turns it, + and - and F make it larger, smaller and fitting,
// Ctrl+C and Ctrl+S copy and save it, Esc closes. Deletes itself then.
class PictureShow : public QWidget {
 public:
  PictureShow(const Surroundings& surroundings, std::vector<book::Picture> gallery, int first,
              QWidget* parent);

  std::function<void(int last)> onLeft;
  int Current() const { return current_; }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  class Title;
  void MakeBand();
  void Step(int step);
  void GoTo(int number);
  [[nodiscard]] bool Press(int key, bool control);
  [[nodiscard]] bool Pan(int key);
  void Turn(bool right);
  void ZoomBy(double factor);
  void SwitchFit();
  void TellFit();
  void Copy();
  void Save();
  QRect Box() const;
  PictureFile File() const;
  void PaintPicture(QPainter& painter, const ShownPicture& shown) const;

  const Surroundings& surroundings_;
  std::vector<book::Picture> gallery_;
  int current_;
  Pictures pictures_;  // of its own: these are large
  PicturePose pose_;
  QPointF held_;  // where the mouse holds the picture
  FlatButton next_;
  FlatButton previous_;
  Title* title_;
  FlatButton turn_;
  FlatButton fit_;
  FlatButton copy_;
  FlatButton save_;
  FlatButton close_;
};

}  // namespace viewer
