// An entry on paper.
#pragma once

#include <QPrinter>
#include <functional>

#include "book/folder.h"
#include "book/page.h"

namespace viewer {

// The whole page, under its title, black on white, with numbered sheets: of them those that the
// printer is told to print. A long page takes its time: before each of its `count` sections
// `goesOn` is asked whether to go on. False where it said no, or the printer takes nothing.
[[nodiscard]] bool PrintPage(QPrinter& printer, const book::Folder& book, const book::Page& page,
                             const std::function<bool(int section, int count)>& goesOn);

}  // namespace viewer
