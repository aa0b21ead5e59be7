#include "platform/qt/list_widget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

namespace platform {
namespace {

// Through a copy: what runs may take the list off the screen.
void Run(const std::function<void()>& handler) {
  const std::function<void()> copy = handler;
  if (copy) copy();
}

}  // namespace

ListWidget::ListWidget(QWidget* parent) : QListWidget(parent) {
  setUniformItemSizes(true);
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

}  // namespace platform
