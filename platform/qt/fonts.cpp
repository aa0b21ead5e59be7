#include "platform/qt/fonts.h"

#include <QStringList>

namespace platform {
namespace {

QFont FontOfPixels(int pixels) {
  QFont font;
  font.setFamilies(QStringList{QStringLiteral("Tahoma"), QStringLiteral("DejaVu Sans Condensed"),
                               QStringLiteral("DejaVu Sans")});
  font.setPixelSize(pixels);
  return font;
}

}  // namespace

QFont WindowFont() { return FontOfPixels(11); }

QFont RichTextFont() { return FontOfPixels(13); }

}  // namespace platform
