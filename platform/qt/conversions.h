// Between the tool's types and the toolkit's.
#pragma once

#include <QString>

#include "platform/text/text.h"
#include "platform/windows/window_definition.h"

namespace platform {

inline QString ToQString(TextView text) {
  return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

inline Text ToText(const QString& text) {
  return Text(reinterpret_cast<const char16_t*>(text.utf16()),
              static_cast<std::size_t>(text.size()));
}

inline constexpr Twips kTwipsPerPixel = 15;

// To the nearest pixel; the toolkit itself scales pixels on a dense screen.
inline int ToPixels(Twips twips) {
  const int half = twips < 0 ? -kTwipsPerPixel / 2 : kTwipsPerPixel / 2;
  return (twips + half) / kTwipsPerPixel;
}

inline Twips ToTwips(int pixels) { return pixels * kTwipsPerPixel; }

}  // namespace platform
