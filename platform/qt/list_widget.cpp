#include "platform/qt/list_widget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QStyledItemDelegate>

namespace platform {
namespace {

// Through a copy: what runs may take the list off the screen.
void Run(const std::function<void()>& handler) {
  const std::function<void()> copy = handler;
  if (copy) copy();
}

// One line a row, also for a text of several lines.
class OneLineDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QString displayText(const QVariant& value, const QLocale& locale) const override {
    QString text = QStyledItemDelegate::displayText(value, locale);
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    // The toolkit has turned single line ends into this sign of its own.
    return text.replace(QChar::LineSeparator, u' ').replace(u'\r', u' ').replace(u'\n', u' ');
  }
};

}  // namespace

ListWidget::ListWidget(QWidget* parent) : QListWidget(parent) {
  setItemDelegate(new OneLineDelegate(this));
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
