// Pictures from outside, decoded at the size at which they are shown. Their bytes are told by
// media/ before a decoder sees them: other formats, and those that would take too much memory or
// time, aren't decoded.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>
#include <functional>

namespace platform {

struct DecodedPicture {
  QImage picture;  // null where there is none
  QString whyNot;
  QSize whole;  // upright
};

// The size of the same shape that takes no more than so many bytes, for a decoded picture.
QSize WithinMemory(QSize size, quint64 bytes);

// Stretched to the size.
DecodedPicture DecodePicture(const QString& path, QSize size);
// At the size that is found for that of the whole picture, upright.
DecodedPicture DecodePicture(QByteArray& file, const std::function<QSize(QSize whole)>& shown);

}  // namespace platform
