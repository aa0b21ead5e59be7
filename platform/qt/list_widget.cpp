#include "platform/qt/list_widget.h"

#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <algorithm>

#include "platform/qt/line_delegate.h"

namespace platform {
namespace {

// Through a copy: what runs may take the list off the screen.
void Run(const std::function<void()>& handler) {
  const std::function<void()> copy = handler;
  if (copy) copy();
}

}  // namespace

ListWidget::ListWidget(QWidget* parent) : QListWidget(parent) {
  setItemDelegate(new LineDelegate(this));
  setVerticalScrollMode(ScrollPerItem);
  setTextElideMode(Qt::ElideRight);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

int ListWidget::SelectedRow() const {
  const QListWidgetItem* item = currentItem();
  return item != nullptr && item->isSelected() ? currentRow() : -1;
}

void ListWidget::mouseReleaseEvent(QMouseEvent* event) {
  QListWidget::mouseReleaseEvent(event);
  const bool onLine = event->button() == Qt::LeftButton && itemAt(event->pos()) != nullptr;
  const QPointer<ListWidget> alive = this;
  if (onLine) Run(onChosen);
  if (alive != nullptr) Run(onMouseUp);
}

void ListWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  QListWidget::mouseDoubleClickEvent(event);
  if (itemAt(event->pos()) != nullptr) Run(onOpened);
}

void ListWidget::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && SelectedRow() >= 0 && onOpened) {
    Run(onOpened);
    return;
  }
  const int before = SelectedRow();
  QListWidget::keyPressEvent(event);
  if (SelectedRow() != before) Run(onChosen);
}

QRect ListWidget::visualRect(const QModelIndex& line) const {
  if (!line.isValid()) return {};
  return {0, line.row() * lineHeight_ - verticalOffset(), viewport()->width(), lineHeight_};
}

QModelIndex ListWidget::indexAt(const QPoint& point) const {
  const int y = point.y() + verticalOffset();
  return y < 0 ? QModelIndex() : model()->index(y / lineHeight_, 0);
}

void ListWidget::scrollTo(const QModelIndex& line, ScrollHint hint) {
  if (!line.isValid()) return;
  executeDelayedItemsLayout();
  QScrollBar& bar = *verticalScrollBar();
  const int atBottom = line.row() - LinesOnScreen() + 1;
  switch (hint) {
    case EnsureVisible:
      return bar.setValue(std::clamp(bar.value(), atBottom, line.row()));
    case PositionAtTop:
      return bar.setValue(line.row());
    case PositionAtBottom:
      return bar.setValue(atBottom);
    case PositionAtCenter:
      return bar.setValue(line.row() - LinesOnScreen() / 2);
  }
}

void ListWidget::doItemsLayout() {
  if (count() > 0) lineHeight_ = std::max(1, sizeHintForRow(0));
  updateGeometries();
  viewport()->update();
}

int ListWidget::LinesOnScreen() const { return std::max(1, viewport()->height() / lineHeight_); }

int ListWidget::verticalOffset() const { return verticalScrollBar()->value() * lineHeight_; }

void ListWidget::updateGeometries() {
  QScrollBar& bar = *verticalScrollBar();
  bar.setSingleStep(1);
  bar.setPageStep(LinesOnScreen());
  bar.setRange(0, std::max(0, count() - LinesOnScreen()));
}

void ListWidget::scrollContentsBy(int, int) { viewport()->update(); }

// The toolkit's way up and down asks for no places.
QModelIndex ListWidget::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  const int now = currentRow();
  const int page = std::max(1, LinesOnScreen() - 1);
  const auto line = [this](int row) {
    return model()->index(std::clamp(row, 0, std::max(0, count() - 1)), 0);
  };
  switch (action) {
    case MoveHome:
      return line(0);
    case MoveEnd:
      return line(count() - 1);
    case MovePageUp:
      return line(now - page);
    case MovePageDown:
      return line(now + page);
    case MoveLeft:
    case MoveRight:
      return currentIndex();
    default:
      return QListWidget::moveCursor(action, modifiers);
  }
}

void ListWidget::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
  const QModelIndex first = indexAt(rect.topLeft());
  const QModelIndex last = indexAt(rect.bottomRight());
  QItemSelection selection;
  if (first.isValid() && last.isValid()) selection.select(first, last);
  selectionModel()->select(selection, command);
}

QRegion ListWidget::visualRegionForSelection(const QItemSelection& selection) const {
  QRegion region;
  for (const QItemSelectionRange& range : selection) {
    region += visualRect(range.topLeft()) | visualRect(range.bottomRight());
  }
  return region & viewport()->rect();
}

QStyle::State ListWidget::StateOf(const QModelIndex& line, QStyle::State list) const {
  QStyle::State state = list;
  state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(line));
  state.setFlag(QStyle::State_HasFocus, hasFocus() && line == currentIndex());
  const QPoint pointer = viewport()->mapFromGlobal(QCursor::pos());
  state.setFlag(QStyle::State_MouseOver,
                viewport()->underMouse() && visualRect(line).contains(pointer));
  return state;
}

void ListWidget::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  const QStyle::State list = option.state;
  QModelIndex line = indexAt({0, std::max(0, event->rect().top())});
  for (; line.isValid(); line = line.siblingAtRow(line.row() + 1)) {
    option.rect = visualRect(line);
    if (option.rect.top() > event->rect().bottom()) return;
    option.state = StateOf(line, list);
    itemDelegate()->paint(&painter, option, line);
  }
}

}  // namespace platform
