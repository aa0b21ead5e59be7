// What the viewer remembers of a book for its reader: never in the book, but in the reader's own
// folder for settings.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>
#include <vector>

#include "book/folder.h"
#include "book/page.h"
#include "viewer/reading_style.h"

namespace viewer {

// A place in the book, as it stands in files: "a1", "DATA/TXT/x.htm" (empty: the collection
// itself), a place in that page.
struct BookPlace {
  QString collection;
  QString source;
  book::PagePlace place;
};

struct Bookmark {
  QString name;
  BookPlace place;
};

struct Remembered {
  std::optional<BookPlace> last;
  ReadingStyle style;
  bool music = true;
  std::vector<Bookmark> bookmarks;
};

class Memory {
 public:
  static constexpr std::size_t kMostBookmarks = 1'000;

  // In the folder, which is made when something is written; without one nothing is remembered. A
  // book is known by what its index holds, wherever it lies.
  Memory(const QString& folder, const book::Folder& book);

  // As from the start, with a warning, where the file can't be read or is none of ours.
  Remembered Read() const;
  // Beside the file that is there, and renamed over it. Where nothing can be written nothing is
  // remembered.
  void Write(const Remembered& remembered) const;

 private:
  QString path_;
};

}  // namespace viewer
