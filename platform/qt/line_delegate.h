// How the lines of lists are shown. What code and screen readers read stays as it is.
#pragma once

#include <QStyledItemDelegate>

namespace platform {

// One line a row, also for a text of several lines. Each runs in the direction of its own letters,
// whatever the direction of the list is: a file's name reads as it would in a file manager.
class LineDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QString displayText(const QVariant& value, const QLocale& locale) const override;
};

}  // namespace platform
