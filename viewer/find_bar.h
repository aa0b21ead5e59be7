// The search in the page that is read.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QWidget>
#include <functional>

#include "viewer/flat_button.h"

namespace viewer {

class FindBar : public QWidget {
 public:
  FindBar(const Look& look, QWidget* parent);

  // As the reader types.
  std::function<void(const QString& words)> onWords;
  std::function<void(int step)> onStep;
  std::function<void()> onClosed;

  void Open();
  // Of so many places the reader is at this one, counted from 1.
  void Tell(int place, int count);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void Close();

  QLineEdit words_;
  QLabel count_;
  FlatButton previous_;
  FlatButton next_;
  FlatButton close_;
};

}  // namespace viewer
