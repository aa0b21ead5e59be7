// The page that was made for printing in a browser, read back as a page.
#pragma once

#include <optional>

#include "book/contents.h"
#include "book/folder.h"
#include "book/page.h"

namespace viewer {

// For a book that has lost the page itself: its texts and pictures, without the button and without
// the look that its template gives it. Nothing where there is none, or one too long to be taken
// apart.
[[nodiscard]] std::optional<book::Page> ReadMadePage(const book::Folder& book,
                                                     const book::Node& node);

}  // namespace viewer
