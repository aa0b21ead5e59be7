// The table of contents beside (or before) the text.
#pragma once

#include <QListView>
#include <functional>

#include "viewer/contents_model.h"
#include "viewer/look.h"

namespace viewer {

// A click on a title opens or closes it, so do the arrows to the left and to the right.
class ContentsList : public QListView {
 public:
  ContentsList(const Look& look, QWidget* parent);

  // The reader has come to this entry, with the mouse or the arrows.
  std::function<void(int node)> onSelected;
  // The reader wants to read it: a click, or Enter.
  std::function<void(int node)> onChosen;

  void SetContents(book::Contents contents);
  ContentsModel& Model() { return model_; }
  // Without telling.
  void Select(int node);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  class Painter;
  void Choose(const QModelIndex& index);
  void OpenOrClose(const QModelIndex& index, bool open);

  ContentsModel model_;
  bool quiet_ = false;
};

}  // namespace viewer
