// Index.xml: which collections the book has.
#pragma once

#include <QChar>
#include <QString>
#include <QStringView>
#include <utility>
#include <vector>

#include "book/folder.h"

namespace book {

struct Collection {
  QChar row;  // a, b or c
  int number = 0;
  bool isGallery = false;
  QString title;
};

// Its place in the book.
std::pair<QChar, int> KeyOf(const Collection& collection);
// By their place: titles and kinds may be told otherwise.
bool AreSame(const Collection& a, const Collection& b);

struct Index {
  QString credit;
  std::vector<Collection> collections;  // by row, in it by number, each once
};

// A collection that stands there twice has the title that was written last.
Index ParseIndex(QStringView text);
// Empty, with a warning, where the file isn't there. A collection whose file lies in the book
// without a line here is the last of its row.
Index ReadIndex(const Folder& book);

// What the collection's own file holds, whatever the index says of it. The index alone counts where
// the file doesn't tell.
bool HoldsGallery(const Folder& book, const Collection& collection);

// "Data/_xml/aTitle1.xml": the contents of a text collection, the pictures of a gallery.
QString FileOf(const Collection& collection);

// The absolute path of the collection's own picture; empty if there is none.
QString PictureOf(const Folder& book, const Collection& collection);

}  // namespace book
