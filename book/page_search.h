// Search in the bytes of one page.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <optional>
#include <string_view>
#include <vector>

#include "book/query.h"

namespace book {

// The first place in a page, as readers are shown it, where one of the words stands.
struct Match {
  QString title;             // of the page
  QString snippet;           // the text around the word
  qsizetype matchStart = 0;  // of the word, in the snippet
  qsizetype matchLength = 0;
  int part = -1;         // index into the page's parts; -1: the title
  qsizetype offset = 0;  // of the word, in the part's text
};

class PageSearch {
 public:
  // Each of the words and phrases must occur, title included.
  explicit PageSearch(Query query);

  // In a page file as it stands on disk. Quick where a word isn't in the page.
  [[nodiscard]] std::optional<Match> Find(QByteArrayView bytes);

 private:
  std::u16string_view Fold(QByteArrayView bytes);
  std::u16string_view FoldWithLigatures(QByteArrayView bytes);
  [[nodiscard]] bool MayHoldAll(QByteArrayView bytes);

  Query query_;
  std::vector<Term> words_;       // those of its phrases, too, each by itself
  std::vector<char16_t> folded_;  // room for a page, kept from one to the next
};

}  // namespace book
