// Full-text search over all pages of a book.
#pragma once

#include <QString>
#include <functional>

#include "viewer/book/folder.h"
#include "viewer/book/index.h"
#include "viewer/book/page_search.h"

namespace viewer {

struct Hit : Match {  // of its title: the entry's where the page has none
  Collection collection;
  int node = 0;    // index into the collection's contents
  QString source;  // path in the book of the page
};

// Finds the pages in which each of the words occurs, title included; words stand between blanks.
// The hits come in the book's order. Ends when onHit returns false, and when goesOn does, which is
// asked before each page. Blocks until then: meant for a worker thread, with a BookFolder of its
// own. Pages that can't be read are passed over.
void SearchBook(const BookFolder& book, const QString& words,
                const std::function<bool(Hit&&)>& onHit, const std::function<bool()>& goesOn = {});

}  // namespace viewer
