// A page: the text of one entry.
#pragma once

#include <QString>
#include <QStringView>
#include <compare>
#include <cstddef>
#include <optional>
#include <tuple>
#include <vector>

#include "book/folder.h"
#include "book/reading_text.h"

namespace book {

struct PagePart {
  enum class Kind { kParagraph, kPicture };
  Kind kind = Kind::kParagraph;
  QString text;  // of a picture: its path in the book, for Folder::Resolve
};

struct Page {
  QString title;
  std::vector<PagePart> parts;  // without the blank paragraphs at both ends; plain text, no markup
};

// A place in a page: a part, and a character in it.
struct PagePlace {
  std::size_t part = 0;
  qsizetype offset = 0;

  // Spelt out: clang-tidy 14 takes the zero of a default one for a null pointer.
  auto operator<=>(const PagePlace& other) const {
    return std::tie(part, offset) <=> std::tie(other.part, other.offset);
  }
  bool operator==(const PagePlace&) const = default;
};

// Lines outside all elements are paragraphs, too; in a page of many thousands of them a paragraph
// is some hundred lines.
Page ParsePage(QStringView text);
// The page as readers are shown it: its title and its texts as ReadingText has them.
Page ForReaders(Page page, Digits digits = Digits::kAsTheyAre);
// Nothing, with a warning, where the file isn't there.
[[nodiscard]] std::optional<Page> ReadPage(const Folder& book, const QString& sourceInBook);

}  // namespace book
