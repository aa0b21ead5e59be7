// What a search has found.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QListView>
#include <QWidget>
#include <functional>

#include "viewer/hits_model.h"
#include "viewer/hits_painter.h"
#include "viewer/look.h"
#include "viewer/search_worker.h"

namespace viewer {

class SearchPage : public QWidget {
 public:
  SearchPage(const QString& root, const Look& look, QWidget* parent);
  SearchPage(const SearchPage&) = delete;
  SearchPage& operator=(const SearchPage&) = delete;
  ~SearchPage() override;

  std::function<void(const book::Hit&, const book::Wish& wish)> onChosen;

  // By the ticks beside the status; a tick that changes searches anew.
  void Search(const QString& words);
  void Stop();
  void FocusHits() { list_->setFocus(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  class List;
  void MakeList();
  void Take(std::vector<book::Hit>&& hits);
  void Tell(bool ended);
  void Choose(const QModelIndex& index);

  QString root_;
  const Look& look_;
  book::Wish wish_;
  QLabel* status_;
  QCheckBox* wholeWords_;
  QCheckBox* vowelSigns_;
  HitsModel* model_;
  HitsPainter* painter_;
  QListView* list_ = nullptr;
  SearchWorker worker_;
};

}  // namespace viewer
