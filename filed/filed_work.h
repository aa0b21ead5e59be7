// What the editor has filed of the collection in hand, all of it: the entry table with its
// counters, and the lines of the list that shows it. No file of the book holds it until the
// collection is built.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "filed/entry_table.h"
#include "platform/column.h"
#include "platform/text/text.h"

namespace filed {

// The lines of the entry list as they are shown. They can fall out of step with the table's rows,
// so the table doesn't tell them.
class EntryLines {
 public:
  // A line that moves all after it: one that came, or one that went.
  struct Shift {
    std::ptrdiff_t row = 0;
    bool came = false;
  };

  const platform::Column<platform::Text>& Rows() const { return rows_; }
  platform::Column<platform::Text>& Rows() { return rows_; }

  void Insert(std::ptrdiff_t row, platform::Text line) {
    rows_.Insert(row, std::move(line));
    shifts_.push_back({row, true});
  }
  void Remove(std::ptrdiff_t row) {
    rows_.Remove(row);
    shifts_.push_back({row, false});
  }
  void Clear() {
    rows_.Clear();
    shifts_.clear();
  }

  // Since the last Settle, in their order.
  const std::vector<Shift>& Shifts() const { return shifts_; }
  void Settle() {
    rows_.Settle();
    shifts_.clear();
  }

 private:
  platform::Column<platform::Text> rows_;
  std::vector<Shift> shifts_;
};

struct FiledWork {
  EntryTable table;
  EntryLines lines;
  std::ptrdiff_t entryCount = 0;  // the next free row of the table
  std::ptrdiff_t mainOpen = 0;    // main titles opened and not yet closed
  platform::Text lastMainText;    // of the main title opened last
  std::ptrdiff_t imageCount = 0;  // the next free image number
  bool galleryMode = false;
};

// Whether nothing is filed. A heading that was deleted before it got its text leaves a count of -1.
inline bool IsEmpty(const FiledWork& work) {
  return work.entryCount <= 0 && work.lines.Rows().Count() == 0 &&
         work.table.entryTitle(0).empty() && work.table.galleryPic(0, 0).empty();
}

}  // namespace filed
