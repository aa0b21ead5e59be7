// The pictures inside rich text: their files, and what is shown of them.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QTextDocument>
#include <QUrl>

#include "platform/rtf/document.h"

namespace platform {

// Gives the document the bytes of the picture that it calls so, as rich text has them.
void AddPictureFile(QTextDocument& document, const QString& name, rtf::PictureKind kind,
                    const QByteArray& bytes);
// A file as rich text takes it: a GIF becomes a PNG. No bytes where it can't be decoded.
rtf::Picture PictureOfFile(QByteArray file);

// Decoded in a size in which all of the document's pictures together stay within what is kept; one
// that can't be decoded is a grey box with a cross. The text has as much room for it as for the
// whole picture.
QImage ShownPicture(QTextDocument& document, const QUrl& name);

}  // namespace platform
