// The way through the sections of a long page.
#pragma once

#include <QLabel>
#include <QSlider>
#include <QWidget>
#include <functional>

#include "viewer/flat_button.h"
#include "viewer/look.h"

namespace viewer {

class SectionBar : public QWidget {
 public:
  SectionBar(const Look& look, QWidget* parent);

  std::function<void(int section)> onChosen;

  // Counted from 0. With one section alone the bar isn't seen.
  void Show(int section, int count);

 private:
  FlatButton previous_;
  QLabel label_;
  QSlider slider_;
  FlatButton next_;
};

}  // namespace viewer
