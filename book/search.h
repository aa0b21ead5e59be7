// Full-text search over all pages of a book.
#pragma once

#include <QString>
#include <functional>

#include "book/folder.h"
#include "book/index.h"
#include "book/page_search.h"

namespace book {

struct Hit : Match {  // of its title: the entry's where the page has none
  Collection collection;
  int node = 0;    // index into the collection's contents
  QString source;  // path in the book of the page
};

// Finds the pages in which each of the words and phrases occurs, title included. The hits come in
// the book's order. Ends when onHit returns false, and when goesOn does, which is asked before each
// page. Blocks until then: meant for a worker thread, with a Folder of its own; reads on threads of
// its own. Pages that can't be read are passed over.
void SearchBook(const Folder& book, const Wish& wish, const std::function<bool(Hit&&)>& onHit,
                const std::function<bool()>& goesOn = {});

}  // namespace book
