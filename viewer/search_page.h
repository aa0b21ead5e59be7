// What a search has found.
#pragma once

#include <QLabel>
#include <QListView>
#include <QWidget>
#include <functional>

#include "viewer/look.h"
#include "viewer/search_worker.h"

namespace viewer {

class SearchPage : public QWidget {
 public:
  SearchPage(const QString& root, const Look& look, QWidget* parent);
  SearchPage(const SearchPage&) = delete;
  SearchPage& operator=(const SearchPage&) = delete;
  ~SearchPage() override;

  std::function<void(const book::Hit&, const QString& words)> onChosen;

  void Search(const QString& words);
  void Stop();
  void FocusHits() { list_->setFocus(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  class Model;
  class Painter;
  class List;
  void Tell(bool ended);
  void Choose(const QModelIndex& index);

  QString root_;
  const Look& look_;
  QString words_;
  QLabel* status_;
  Model* model_;
  QListView* list_;
  SearchWorker worker_;
};

}  // namespace viewer
