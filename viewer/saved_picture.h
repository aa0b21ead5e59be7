// A picture of the book as a file of the reader's own.
#pragma once

#include <QString>

#include "book/folder.h"

namespace viewer {

enum class Saved { kYes, kNot, kIntoTheBook };

// The file as it is, byte for byte, whole or not at all. Nothing is written into the book: it says
// so instead.
[[nodiscard]] Saved SavePicture(const book::Folder& book, const QString& from, const QString& to);

// A name for it without a path.
QString NameForSaving(const QString& path);

}  // namespace viewer
