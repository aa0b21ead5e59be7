// The pictures of a gallery collection or of a gallery entry, with their titles.
#pragma once

#include <QString>
#include <QStringView>
#include <vector>

#include "book/folder.h"

namespace book {

struct Picture {
  QString title;  // may hold line breaks
  QString path;   // path in the book, for Folder::Resolve
};

std::vector<Picture> ParseGallery(QStringView text);
// Empty, with a warning, where the file isn't there.
std::vector<Picture> ReadGallery(const Folder& book, const QString& sourceInBook);

}  // namespace book
