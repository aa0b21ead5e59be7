// List boxes and drop-down lists.
#include <QAbstractItemView>
#include <QComboBox>
#include <QStylePainter>
#include <QWheelEvent>

#include "platform/failure.h"
#include "platform/qt/conversions.h"
#include "platform/qt/line_delegate.h"
#include "platform/qt/list_widget.h"
#include "platform/qt/peers.h"

namespace platform {
namespace {

ListWidget& ListOf(const Control& control) {
  return static_cast<ListWidget&>(*control.ThePeer().widget);
}

QComboBox& ComboOf(const Control& control) {
  return static_cast<QComboBox&>(*control.ThePeer().widget);
}

// The row as the toolkit counts it. Failure outside 0 to `highest`.
int Row(Position index, int highest) {
  if (index < 0 || index > highest) throw Failure(u"Invalid property array index");
  return static_cast<int>(index);
}

}  // namespace

std::unique_ptr<Control::Peer> MakeListBox(const ControlRow& row, QWidget* parent,
                                           ListBox* control) {
  auto peer = std::make_unique<Control::Peer>();
  auto* list = new ListWidget(parent);
  if (row.leftToRight) list->setLayoutDirection(Qt::LeftToRight);
  peer->widget = list;
  if (control != nullptr) {
    list->onChosen = peer->Gate(control->onClick);
    list->onMouseUp = peer->Gate(control->onMouseUp);
  }
  return peer;
}

Position ListBox::ListCount() const { return ListOf(*this).count(); }
Position ListBox::ListIndex() const { return ListOf(*this).SelectedRow(); }

void ListBox::SetListIndex(Position index) {
  ListWidget& list = ListOf(*this);
  list.setCurrentRow(index == -1 ? -1 : Row(index, list.count() - 1));
}

Text ListBox::List(Position index) const {
  ListWidget& list = ListOf(*this);
  return ToText(list.item(Row(index, list.count() - 1))->text());
}

void ListBox::SetList(Position index, TextView text) {
  ListWidget& list = ListOf(*this);
  list.item(Row(index, list.count() - 1))->setText(ToQString(text));
}

void ListBox::AddItem(TextView text) { ListOf(*this).addItem(ToQString(text)); }

void ListBox::InsertItem(Position index, TextView text) {
  ListWidget& list = ListOf(*this);
  list.insertItem(Row(index, list.count()), ToQString(text));
}

void ListBox::RemoveItem(Position index) {
  ListWidget& list = ListOf(*this);
  const int row = Row(index, list.count() - 1);
  // The toolkit would select a neighbour, which nobody has chosen.
  if (row == list.SelectedRow()) list.setCurrentRow(-1);
  delete list.takeItem(row);
}

void ListBox::Clear() { ListOf(*this).clear(); }

namespace {

// The wheel of a mouse that merely passes over the list must not choose something else.
class DropDown : public QComboBox {
 public:
  explicit DropDown(QWidget* parent) : QComboBox(parent) { setFocusPolicy(Qt::StrongFocus); }

 protected:
  // The toolkit would order the words of its text by the program's direction, not the list's.
  void paintEvent(QPaintEvent*) override {
    QStylePainter painter(this);
    painter.setLayoutDirection(layoutDirection());
    painter.setPen(palette().color(QPalette::Text));
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
  }

  void wheelEvent(QWheelEvent* event) override {
    if (hasFocus()) {
      QComboBox::wheelEvent(event);
    } else {
      event->ignore();
    }
  }
};

}  // namespace

std::unique_ptr<Control::Peer> MakeComboBox(const ControlRow&, QWidget* parent) {
  auto peer = std::make_unique<Control::Peer>();
  auto* combo = new DropDown(parent);
  combo->setLayoutDirection(Qt::RightToLeft);
  // What opens is a window of its own, and asks nobody for its direction.
  combo->view()->setLayoutDirection(Qt::RightToLeft);
  combo->setItemDelegate(new LineDelegate(combo));
  peer->widget = combo;
  return peer;
}

Position ComboBox::ListCount() const { return ComboOf(*this).count(); }
Position ComboBox::ListIndex() const { return ComboOf(*this).currentIndex(); }

void ComboBox::SetListIndex(Position index) {
  QComboBox& combo = ComboOf(*this);
  combo.setCurrentIndex(index == -1 ? -1 : Row(index, combo.count() - 1));
}

Text ComboBox::List(Position index) const {
  QComboBox& combo = ComboOf(*this);
  return ToText(combo.itemText(Row(index, combo.count() - 1)));
}

Text ComboBox::Text() const { return ToText(ComboOf(*this).currentText()); }

void ComboBox::AddItem(TextView text) {
  QComboBox& combo = ComboOf(*this);
  const int selected = combo.currentIndex();
  combo.addItem(ToQString(text));
  // The toolkit selects the first line that comes; here nothing is selected until code or user do.
  combo.setCurrentIndex(selected);
}

void ComboBox::Clear() { ComboOf(*this).clear(); }

}  // namespace platform
