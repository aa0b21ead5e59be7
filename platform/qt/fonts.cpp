#include "platform/qt/fonts.h"

#include <QFontDatabase>
#include <QStringList>

namespace platform {
namespace {

// A family that the host lacks costs the search for a substitute at every size.
const QString& Family() {
  static const QString kFamily = [] {
    for (const char* family : {"Tahoma", "DejaVu Sans Condensed"}) {
      if (QFontDatabase::hasFamily(QLatin1String(family))) return QString(QLatin1String(family));
    }
    return QStringLiteral("DejaVu Sans");
  }();
  return kFamily;
}

QFont FontOfPixels(int pixels) {
  QFont font;
  font.setFamilies({Family()});
  font.setPixelSize(pixels);
  return font;
}

}  // namespace

QFont WindowFont() { return FontOfPixels(11); }

QFont RichTextFont() { return FontOfPixels(13); }

}  // namespace platform
