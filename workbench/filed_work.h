// What the editor has filed of the collection in hand, all of it: the entry table with its
// counters. It lives in the workbench's window and nowhere else until the collection is built.
#pragma once

#include <cstddef>

#include "platform/text/text.h"
#include "workbench/entry_table.h"

namespace workbench {

struct FiledWork {
  EntryTable table;
  std::ptrdiff_t entryCount = 0;  // the next free row of the table
  std::ptrdiff_t mainOpen = 0;    // main titles opened and not yet closed
  platform::Text lastMainText;    // of the main title opened last
  std::ptrdiff_t imageCount = 0;  // the next free image number
  bool galleryMode = false;
};

}  // namespace workbench
