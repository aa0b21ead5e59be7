// The table of contents of a text collection: main titles and entries, to any depth.
#pragma once

#include <QString>
#include <QStringView>
#include <vector>

#include "book/folder.h"
#include "book/index.h"

namespace book {

struct Node {
  QString label;
  QString source;  // path in the book of the page or of the gallery file; empty for a main title
  int depth = 0;
  int parent = -1;  // index of the main title around it
  bool isTitle = false;
  bool isGallery = false;
  bool hasAttachment = false;
  bool hasSound = false;
  bool hasFilm = false;
  bool attachmentIsProgram = false;
  QString attachmentExtension;  // with its dot
  QString background;           // path in the book; empty if there is none
};

struct Contents {
  std::vector<Node> nodes;  // in the order of the file
};

// Main titles that are closed once too often or never are no matter.
Contents ParseContents(QStringView text);
// Empty, with a warning, where the file isn't there.
Contents ReadContents(const Folder& book, const Collection& collection);

}  // namespace book
