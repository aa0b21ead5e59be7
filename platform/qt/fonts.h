// The two fonts of the windows.
#pragma once

#include <QFont>

namespace platform {

// 8.25 point Tahoma at 96 dots to the inch, or the nearest font with good Persian letters. The size
// is in pixels, as the controls' places are: a screen with other dots to the inch must not cut
// captions.
QFont WindowFont();
// The same in a family of that name, narrower where its letters take more room.
QFont WindowFontOf(const QString& family);
// The same at 9.75 point, for rich text boxes.
QFont RichTextFont();

}  // namespace platform
