// One picture of a gallery over the whole screen, with its title.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "book/folder.h"
#include "book/gallery.h"
#include "viewer/flat_button.h"
#include "viewer/look.h"
#include "viewer/pictures.h"

namespace viewer {

// The arrow to the left shows the next picture, as the book runs; Esc closes. Deletes itself then.
class PictureShow : public QWidget {
 public:
  PictureShow(const book::Folder& book, const Look& look, std::vector<book::Picture> gallery,
              int first, QWidget* parent);

  std::function<void(int last)> onLeft;
  int Current() const { return current_; }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void Step(int step);
  void GoTo(int number);
  void PaintTitle(QPainter& painter);

  std::vector<book::Picture> gallery_;
  int current_;
  Pictures pictures_;  // of its own: these are large
  FlatButton next_;
  FlatButton previous_;
  FlatButton close_;
};

}  // namespace viewer
