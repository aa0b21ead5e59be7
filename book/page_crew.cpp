#include "book/page_crew.h"

#include <algorithm>
#include <utility>

namespace book {
namespace {

constexpr std::size_t kPagesOfBatch = 16;
constexpr std::size_t kBatchesAhead = 64;
// A disk serves several readers quicker than one.
constexpr unsigned kFewestThreads = 4;
constexpr unsigned kMostThreads = 8;

unsigned ThreadsFor(std::size_t batches) {
  const unsigned wanted =
      std::clamp(std::thread::hardware_concurrency(), kFewestThreads, kMostThreads);
  return static_cast<unsigned>(std::min<std::size_t>(wanted, batches));
}

}  // namespace

PageCrew::PageCrew(const Query& query, std::vector<QByteArray> paths)
    : paths_(std::move(paths)), findings_(paths_.size()), isDone_(BatchCount()) {
  const unsigned count = ThreadsFor(BatchCount());
  for (unsigned i = 0; i < count; ++i) threads_.emplace_back([this, query] { Work(query); });
}

PageCrew::~PageCrew() {
  {
    const std::lock_guard lock(mutex_);
    isOver_ = true;
  }
  changed_.notify_all();
  threads_.clear();  // waits for them
}

std::size_t PageCrew::BatchCount() const {
  return (paths_.size() + kPagesOfBatch - 1) / kPagesOfBatch;
}

Finding PageCrew::Take(std::size_t page) {
  const std::size_t batch = page / kPagesOfBatch;
  if (page % kPagesOfBatch == 0) {
    std::unique_lock lock(mutex_);
    takenBatch_ = batch;
    changed_.notify_all();
    changed_.wait(lock, [&] { return isDone_[batch]; });
  }
  return std::move(findings_[page]);
}

void PageCrew::Work(const Query& query) {
  PageSearch search(query);
  RawFile file;
  while (const std::optional<std::size_t> batch = NextBatch()) {
    SearchBatch(search, file, *batch);
    const std::lock_guard lock(mutex_);
    isDone_[*batch] = true;
    changed_.notify_all();
  }
}

std::optional<std::size_t> PageCrew::NextBatch() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [&] {
    return isOver_ || nextBatch_ >= BatchCount() || nextBatch_ <= takenBatch_ + kBatchesAhead;
  });
  if (isOver_ || nextBatch_ >= BatchCount()) return std::nullopt;
  return nextBatch_++;
}

void PageCrew::SearchBatch(PageSearch& search, RawFile& file, std::size_t batch) {
  const std::size_t end = std::min(paths_.size(), (batch + 1) * kPagesOfBatch);
  for (std::size_t page = batch * kPagesOfBatch; page < end && !isOver_; ++page) {
    const QByteArrayView bytes = file.Read(paths_[page]);
    if (bytes.isNull()) continue;
    findings_[page] = {true, search.Find(bytes)};
  }
}

}  // namespace book
