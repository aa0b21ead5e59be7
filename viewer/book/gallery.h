// The pictures of a gallery collection or of a gallery entry, with their titles.
#pragma once

#include <QString>
#include <QStringView>
#include <vector>

#include "viewer/book/folder.h"

namespace viewer {

struct Picture {
  QString title;  // may hold line breaks
  QString path;   // path in the book, for BookFolder::Resolve
};

std::vector<Picture> ParseGallery(QStringView text);
// Empty, with a warning, where the file isn't there.
std::vector<Picture> ReadGallery(const BookFolder& book, const QString& sourceInBook);

}  // namespace viewer
