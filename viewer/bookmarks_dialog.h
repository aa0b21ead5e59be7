// The reader's bookmarks: where to go, and which to drop.
#pragma once

#include <QDialog>
#include <QListWidget>
#include <functional>
#include <vector>

#include "viewer/memory.h"

namespace viewer {

class BookmarksDialog : public QDialog {
 public:
  BookmarksDialog(const std::vector<Bookmark>& bookmarks, QWidget* parent);

  std::function<void(int number)> onDropped;
  // The one that the reader wants to go to; -1 if none.
  int Chosen() const { return chosen_; }

 private:
  void Go();
  void Drop();

  QListWidget list_;
  int chosen_ = -1;
};

// A name for a new one; empty if the reader wants none.
QString AskBookmarkName(const QString& proposed, QWidget* parent);

}  // namespace viewer
