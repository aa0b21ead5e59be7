// The lines of Index.xml, as the file comes.
#pragma once

#include <QString>
#include <QStringView>
#include <optional>

#include "book/index.h"

namespace book {

// Holds no more of the text than the element that has begun: an index may have many megabytes, and
// fresh memory for all of them takes longer than reading them. Linear in the text, however it is
// cut.
class IndexReader {
 public:
  // NULs are left out: they stand where a power cut took a line. `toCome` is how many characters
  // are still left of the text, if that is known.
  void Feed(QStringView piece, qsizetype toCome = 0);
  // What was found. Nothing is fed any more.
  Index Finish();

 private:
  // <aTitle1 vol="txt">, or <aTitle0> of the credit. Places are those in what is held.
  struct Open {
    Collection collection;
    qsizetype start = 0;
    qsizetype nameLength = 0;  // of "aTitle1", as it stands there
    qsizetype end = 0;         // just after it
  };
  void TakeLines();
  void TakeLine(qsizetype end);
  [[nodiscard]] std::optional<Open> OpenAt(qsizetype at, qsizetype lineEnd) const;
  void Close(qsizetype end);
  void MakeRoom(qsizetype lengthOfElement);
  void DropWhatIsDone();

  QString held_;
  qsizetype line_ = 0;      // where the next one starts
  qsizetype searched_ = 0;  // no line ends before it
  qsizetype toCome_ = 0;
  std::optional<Open> open_;
  Index index_;
};

}  // namespace book
