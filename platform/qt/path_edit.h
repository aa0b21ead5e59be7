// The widget of a text box that holds a path.
#pragma once

#include <QLineEdit>

namespace platform {

// A path that was typed or pasted as this host writes it becomes one of the tool's as soon as it is
// finished: when the focus leaves it, Enter is pressed in it, or a button in its window. What code
// writes is left as it is. While it has not the focus, the end of a long path is seen, which tells
// it from its neighbours; a tip shows the whole. While another window is in front it is not
// finished.
class PathEdit : public QLineEdit {
 public:
  explicit PathEdit(QWidget* parent);

  // If one is being typed.
  void Finish();
  // Tells that code has written the text.
  void Written();

 protected:
  void focusOutEvent(QFocusEvent* event) override;
  bool event(QEvent* event) override;
};

// Finishes the path that is being typed in the window, if one is.
void FinishPathIn(const QWidget& window);

}  // namespace platform
