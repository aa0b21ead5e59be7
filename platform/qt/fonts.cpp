#include "platform/qt/fonts.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QStringList>
#include <algorithm>
#include <array>

namespace platform {
namespace {

// The families that the windows are drawn for.
constexpr std::array kDesignFamilies = {"Tahoma", "DejaVu Sans Condensed"};

// A family that the host lacks costs the search for a substitute at every size.
const QString& Family() {
  static const QString kFamily = [] {
    for (const char* family : kDesignFamilies) {
      if (QFontDatabase::hasFamily(QLatin1String(family))) return QString(QLatin1String(family));
    }
    return QStringLiteral("DejaVu Sans");
  }();
  return kFamily;
}

// 8.25 and 9.75 point at 96 dots to the inch.
constexpr int kWindowPixels = 11;
constexpr int kRichTextPixels = 13;

// What these words may take: as much as in the second of those families.
constexpr int kSampleWidth = 208;

QString Sample() { return QStringLiteral("حذف تمامي پاراگراف\u200Cها و ايجاد پاراگراف بر اساس"); }

QFont FontOf(const QString& family, int pixels) {
  QFont font;
  font.setFamilies({family});
  font.setPixelSize(pixels);
  return font;
}

}  // namespace

QFont WindowFontOf(const QString& family) {
  QFont font = FontOf(family, kWindowPixels);
  if (std::ranges::find(kDesignFamilies, family) != kDesignFamilies.end()) return font;
  // A narrowed font is laid out without hints, so its width is no plain part of the full one.
  const auto isWide = [&] { return QFontMetrics(font).horizontalAdvance(Sample()) > kSampleWidth; };
  int stretch = QFont::Unstretched;
  while (stretch > QFont::ExtraCondensed && isWide()) font.setStretch(--stretch);
  return font;
}

QFont WindowFont() {
  static const QFont kFont = WindowFontOf(Family());
  return kFont;
}

QFont RichTextFont() { return FontOf(Family(), kRichTextPixels); }

}  // namespace platform
