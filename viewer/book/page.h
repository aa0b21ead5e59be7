// A page: the text of one entry.
#pragma once

#include <QString>
#include <QStringView>
#include <optional>
#include <vector>

#include "viewer/book/folder.h"

namespace viewer {

struct PagePart {
  enum class Kind { kParagraph, kPicture };
  Kind kind = Kind::kParagraph;
  QString text;  // of a picture: its path in the book, for BookFolder::Resolve
};

struct Page {
  QString title;
  std::vector<PagePart> parts;  // without the blank paragraphs at both ends; plain text, no markup
};

Page ParsePage(QStringView text);
// Nothing, with a warning, where the file isn't there.
std::optional<Page> ReadPage(const BookFolder& book, const QString& sourceInBook);

}  // namespace viewer
