// Search in the bytes of one page.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <optional>
#include <string_view>
#include <vector>

namespace book {

// The first place in a page where one of the words stands.
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
  // Each of the words must occur, title included; words stand between blanks.
  explicit PageSearch(const QString& words);

  bool HasWords() const { return !words_.isEmpty(); }
  // In a page file as it stands on disk. Quick where a word isn't in the page.
  [[nodiscard]] std::optional<Match> Find(QByteArrayView bytes);

 private:
  std::u16string_view Fold(QByteArrayView bytes);
  std::u16string_view FoldWithLigatures(QByteArrayView bytes);
  [[nodiscard]] bool MayHoldAll(QByteArrayView bytes);

  QStringList words_;
  std::vector<char16_t> folded_;  // room for a page, kept from one to the next
};

}  // namespace book
