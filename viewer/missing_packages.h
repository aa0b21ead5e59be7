// Which of Debian's packages a machine lacks to play a sound or a film.
#pragma once

#include <QString>
#include <QStringList>

#include "media/media_kind.h"

namespace viewer {

// In those of the toolkit's backend that Debian 12 chooses, GStreamer: none where the reader has
// chosen another. `folders` are where its plug-ins may lie.
QStringList MissingPackages(media::MediaKind kind, const QStringList& folders);
QStringList PlugInFolders();

// The words, and after them what must be installed, if anything.
QString WithMissingPackages(const QString& words, media::MediaKind kind);

}  // namespace viewer
