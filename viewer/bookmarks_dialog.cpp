#include "viewer/bookmarks_dialog.h"

#include <QHBoxLayout>
#include <QInputDialog>
#include <QPushButton>
#include <QVBoxLayout>

#include "viewer/look.h"
#include "viewer/texts.h"

namespace viewer {

BookmarksDialog::BookmarksDialog(const std::vector<Bookmark>& bookmarks, QWidget* parent)
    : QDialog(parent) {
  setObjectName(QStringLiteral("bookmarksDialog"));
  setWindowTitle(texts::Bookmarks());
  setLayoutDirection(Qt::RightToLeft);
  resize(420, 360);
  list_.setObjectName(QStringLiteral("bookmarks"));
  list_.setAccessibleName(texts::Bookmarks());
  for (const Bookmark& each : bookmarks) list_.addItem(AsCaption(each.name));
  list_.setCurrentRow(0);
  auto* const rows = new QVBoxLayout(this);
  rows->addWidget(&list_, 1);
  auto* const buttons = new QHBoxLayout;
  rows->addLayout(buttons);
  const auto button = [&](const char* name, const QString& caption) {
    auto* const made = new QPushButton(caption, this);
    made->setObjectName(QString::fromLatin1(name));
    made->setAutoDefault(false);
    buttons->addWidget(made);
    return made;
  };
  QPushButton* const go = button("goToBookmark", texts::GoToBookmark());
  go->setDefault(true);
  QObject::connect(go, &QPushButton::clicked, this, [this] { Go(); });
  QObject::connect(button("dropBookmark", texts::DropBookmark()), &QPushButton::clicked, this,
                   [this] { Drop(); });
  QObject::connect(button("closeBookmarks", texts::Close()), &QPushButton::clicked, this,
                   &QDialog::reject);
  QObject::connect(&list_, &QListWidget::itemDoubleClicked, this, [this] { Go(); });
}

void BookmarksDialog::Go() {
  chosen_ = list_.currentRow();
  if (chosen_ >= 0) accept();
}

void BookmarksDialog::Drop() {
  const int row = list_.currentRow();
  if (row < 0) return;
  delete list_.takeItem(row);
  if (onDropped) onDropped(row);
}

QString AskBookmarkName(const QString& proposed, QWidget* parent) {
  QInputDialog dialog(parent);
  dialog.setObjectName(QStringLiteral("bookmarkName"));
  dialog.setLayoutDirection(Qt::RightToLeft);
  dialog.setWindowTitle(texts::AddBookmark());
  dialog.setLabelText(texts::BookmarkName());
  dialog.setTextValue(proposed);
  return dialog.exec() == QDialog::Accepted ? dialog.textValue().trimmed() : QString();
}

}  // namespace viewer
