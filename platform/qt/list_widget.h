// A list of lines that tells what the user does with them.
#pragma once

#include <QListWidget>
#include <functional>

namespace platform {

class ListWidget : public QListWidget {
 public:
  explicit ListWidget(QWidget* parent);

  // The selected line, -1 for none. The toolkit's "current" line can be one that only has the
  // focus.
  int SelectedRow() const;

  std::function<void()> onChosen;   // a line was clicked, or reached by a key
  std::function<void()> onOpened;   // a line was double-clicked, or Enter pressed on it
  std::function<void()> onMouseUp;  // any button was released, wherever in the list

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace platform
