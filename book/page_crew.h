// Searches many pages on a few threads: most of the time goes by in waiting for the disk.
#pragma once

#include <QByteArray>
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "book/page_search.h"
#include "book/raw_file.h"

namespace book {

// What was found in a page.
struct Finding {
  bool isRead = false;
  std::optional<Match> match;
};

// The threads work until this goes; they stay but a bounded number of pages ahead.
class PageCrew {
 public:
  // The pages' paths as the file system has them. No link is followed.
  PageCrew(const Query& query, std::vector<QByteArray> paths);
  PageCrew(const PageCrew&) = delete;
  PageCrew& operator=(const PageCrew&) = delete;
  ~PageCrew();

  // Of the pages in their order, each asked for once.
  Finding Take(std::size_t page);

 private:
  void Work(const Query& query);
  [[nodiscard]] std::optional<std::size_t> NextBatch();
  void SearchBatch(PageSearch& search, RawFile& file, std::size_t batch);
  std::size_t BatchCount() const;

  const std::vector<QByteArray> paths_;
  std::vector<Finding> findings_;
  std::vector<bool> isDone_;  // by batch
  std::size_t nextBatch_ = 0;
  std::size_t takenBatch_ = 0;
  std::atomic<bool> isOver_ = false;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::jthread> threads_;
};

}  // namespace book
