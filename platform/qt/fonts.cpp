#include "platform/qt/fonts.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QStringList>
#include <algorithm>

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

// 8.25 and 9.75 point at 96 dots to the inch.
constexpr int kWindowPixels = 11;
constexpr int kRichTextPixels = 13;

// What a line of the window's letters may take, and these words of it: as much as in the
// font that is nearest to Tahoma.
constexpr int kLineHeight = 14;
constexpr int kSampleWidth = 209;

QString Sample() { return QStringLiteral("انتخاب كنيد همراه با درج متن پس از علائم نگارشي"); }

QFont FontOf(const QString& family, int pixels) {
  QFont font;
  font.setFamilies({family});
  font.setPixelSize(pixels);
  return font;
}

}  // namespace

QFont WindowFontOf(const QString& family) {
  int pixels = kWindowPixels;
  QFont font = FontOf(family, pixels);
  while (pixels > 1 && QFontMetrics(font).height() > kLineHeight) font.setPixelSize(--pixels);
  const int width = std::max(QFontMetrics(font).horizontalAdvance(Sample()), 1);
  if (width > kSampleWidth) font.setStretch(QFont::Unstretched * kSampleWidth / width);
  return font;
}

QFont WindowFont() {
  static const QFont kFont = WindowFontOf(Family());
  return kFont;
}

QFont RichTextFont() { return FontOf(Family(), kRichTextPixels); }

}  // namespace platform
