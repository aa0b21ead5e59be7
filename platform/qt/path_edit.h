// The widget of a text box that holds a path.
#pragma once

#include <QLineEdit>

namespace platform {

// A path that was typed, pasted or set by a screen reader as this host writes it becomes one of the
// tool's as soon as it is finished: when the focus leaves it, Enter is pressed in it, or a button
// in its window. What code writes is left as it is. While it has not the focus, the end of a long
// path is seen, which tells it from its neighbours; a tip shows the whole. While another window is
// in front it is not finished.
class PathEdit : public QLineEdit {
 public:
  explicit PathEdit(QWidget* parent);

  // If the text isn't code's.
  void Finish();
  // Tells that code has written the text.
  void Written();

 protected:
  void focusOutEvent(QFocusEvent* event) override;
  bool event(QEvent* event) override;

 private:
  QString written_;  // by code
};

// Finishes the paths of the window. A screen reader sets them where the focus isn't, too.
void FinishPathsIn(const QWidget& window);

}  // namespace platform
