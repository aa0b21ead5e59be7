// Pictures from files, decoded at the size at which they are shown.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

namespace platform {

struct DecodedPicture {
  QImage picture;  // null where the file gives none
  QString whyNot;
};

DecodedPicture DecodePicture(const QString& path, QSize size);

}  // namespace platform
