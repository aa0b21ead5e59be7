// A list of lines, all as high as the first, that tells what the user does with them.
#pragma once

#include <QListWidget>
#include <functional>

namespace platform {

// Places its lines itself. The toolkit's list places all of them anew for each one that is put in,
// so that a list of thousands grows slower and slower; lines of one height need no places kept.
class ListWidget : public QListWidget {
 public:
  explicit ListWidget(QWidget* parent);

  // The selected line, -1 for none. The toolkit's "current" line can be one that only has the
  // focus.
  int SelectedRow() const;

  std::function<void()> onChosen;   // a line was clicked, or reached by a key
  std::function<void()> onOpened;   // a line was double-clicked, or Enter pressed on it
  std::function<void()> onMouseUp;  // any button was released, wherever in the list

  QRect visualRect(const QModelIndex& line) const override;
  QModelIndex indexAt(const QPoint& point) const override;
  void scrollTo(const QModelIndex& line, ScrollHint hint) override;
  void doItemsLayout() override;

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void updateGeometries() override;
  void scrollContentsBy(int dx, int dy) override;
  int verticalOffset() const override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
  QRegion visualRegionForSelection(const QItemSelection& selection) const override;

 private:
  int LinesOnScreen() const;  // those that are wholly seen, at least one
  QStyle::State StateOf(const QModelIndex& line, QStyle::State list) const;

  int lineHeight_ = 1;  // pixels
};

}  // namespace platform
