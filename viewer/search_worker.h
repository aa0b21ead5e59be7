// Searches the book beside the window's thread.
#pragma once

#include <QObject>
#include <QString>
#include <QThreadPool>
#include <atomic>
#include <functional>
#include <memory>
#include <vector>

#include "book/search.h"

namespace viewer {

// All calls and all callbacks on the window's thread.
class SearchWorker : public QObject {
 public:
  static constexpr int kMostHits = 2000;

  SearchWorker();
  SearchWorker(const SearchWorker&) = delete;
  SearchWorker& operator=(const SearchWorker&) = delete;
  ~SearchWorker() override;

  std::function<void(std::vector<book::Hit>&&)> onHits;
  std::function<void()> onEnd;

  // Ends the search before.
  void Start(const QString& root, const book::Wish& wish);
  void Cancel();

 private:
  using Flag = std::shared_ptr<std::atomic<bool>>;
  void Work(const Flag& cancelled, const QString& root, const book::Wish& wish);
  void Deliver(const Flag& cancelled, std::vector<book::Hit> hits, bool end);

  Flag cancelled_;
  QThreadPool pool_;
};

}  // namespace viewer
