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
  static constexpr int kUsualPixels = kListPixels;

  ContentsList(const Look& look, QWidget* parent);

  // The height of the letters.
  void SetPixels(int pixels);

  // The reader has come to this entry, with the mouse or the arrows.
  std::function<void(int node)> onSelected;
  // The reader wants to read it: a click, or Enter.
  std::function<void(int node)> onChosen;

  // With those of its parts open that were so before; none are told for the first time.
  void SetContents(book::Contents contents, const std::vector<bool>& openParts = {});
  // Shows but the entries with these words, and the titles around them; all without words.
  void Filter(const QString& words);
  const ContentsModel& Model() const { return model_; }
  // Without telling.
  void Select(int node);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  class Painter;
  Painter* painter_ = nullptr;
  void Choose(const QModelIndex& index);
  void OpenOrClose(const QModelIndex& index, bool open);

  ContentsModel model_;
  bool quiet_ = false;
};

}  // namespace viewer
