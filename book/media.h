// The files that belong to an entry. The contents tell the extension of the attachment alone; sound
// and film are known by the page's stem, which all files of an entry share.
#pragma once

#include <QString>
#include <QStringList>

#include "book/contents.h"
#include "book/folder.h"

namespace book {

// Absolute paths; empty where there is none.
struct Media {
  QString attachment;
  QString sound;
  QString film;
  QString background;
};

// The path in the book that they all share, up to their dots.
QString StemOf(const Node& node);
Media MediaOf(const Folder& book, const Node& node);

// By which sounds and films are known, with the dot, in lower case.
const QStringList& SoundExtensions();
const QStringList& FilmExtensions();

// The background of the entry alone.
QString BackgroundOf(const Folder& book, const Node& node);

// The page made for printing, beside the page itself; empty if there is none.
QString PrintPageOf(const Folder& book, const Node& node);

}  // namespace book
