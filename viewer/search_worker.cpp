#include "viewer/search_worker.h"

#include <QElapsedTimer>

namespace viewer {
namespace {

constexpr qint64 kMillisecondsBetweenSteps = 60;

}  // namespace

SearchWorker::SearchWorker() { pool_.setMaxThreadCount(1); }

SearchWorker::~SearchWorker() {
  Cancel();
  pool_.waitForDone();
}

void SearchWorker::Cancel() {
  if (cancelled_) *cancelled_ = true;
  cancelled_.reset();
  pool_.clear();
}

void SearchWorker::Start(const QString& root, const book::Wish& wish) {
  Cancel();
  cancelled_ = std::make_shared<std::atomic<bool>>(false);
  pool_.start([this, flag = cancelled_, root, wish] { Work(flag, root, wish); });
}

void SearchWorker::Work(const Flag& cancelled, const QString& root, const book::Wish& wish) {
  const book::Folder book(root);
  std::vector<book::Hit> found;
  int count = 0;
  QElapsedTimer sinceStep;
  sinceStep.start();
  const auto deliverInSteps = [&] {
    if (!found.empty() && (count <= 20 || sinceStep.elapsed() > kMillisecondsBetweenSteps)) {
      Deliver(cancelled, std::exchange(found, {}), false);
      sinceStep.restart();
    }
    return !*cancelled;
  };
  const auto take = [&](book::Hit&& hit) {
    found.push_back(std::move(hit));
    return ++count < kMostHits && deliverInSteps();
  };
  book::SearchBook(book, wish, take, deliverInSteps);
  Deliver(cancelled, std::move(found), true);
}

void SearchWorker::Deliver(const Flag& cancelled, std::vector<book::Hit> hits, bool end) {
  const auto deliver = [this, cancelled, end, taken = std::move(hits)]() mutable {
    if (*cancelled) return;
    if (!taken.empty() && onHits) onHits(std::move(taken));
    if (end && onEnd) onEnd();
  };
  QMetaObject::invokeMethod(this, std::move(deliver), Qt::QueuedConnection);
}

}  // namespace viewer
