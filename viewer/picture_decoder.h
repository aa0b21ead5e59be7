// The book's pictures out of their files, at the size in which they are shown.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

#include "media/picture_plan.h"

namespace viewer {

enum class Fit {
  kInside,   // the whole picture, never larger than it is
  kCovering  // fills the box
};

// What is kept to be shown, of all that a process may keep: the window's pictures, as much of those
// over the whole screen, and those of a section that is printed.
inline constexpr quint64 kKeptByWindow = media::kKeptMemory / 4;
inline constexpr quint64 kKeptForPaper = media::kKeptMemory / 2;

// Of one picture: several are seen at a time, or one over the whole screen.
inline constexpr quint64 kLargestInWindow = kKeptByWindow / 4;
inline constexpr quint64 kLargestOnScreen = kKeptByWindow / 8 * 7;

struct DecodedPicture {
  QImage image;  // as a window paints it; coarser than asked, by its device's pixel ratio, where it
                 // would take too much
  QSize whole;   // the size of the picture itself, upright
};

// A null image, with a warning, where the file is no picture or would take too much of a decoder,
// which is told before (media/picture_plan.h). Waits while other threads decode in the memory that
// it needs. The image takes no more than `most` bytes.
DecodedPicture DecodePicture(const QString& path, QSize box, Fit fit, quint64 most);

// The same on a thread beside that of the windows, which are painted meanwhile, but take no input.
DecodedPicture DecodeBeside(const QString& path, QSize box, Fit fit, quint64 most);

// How large a picture of this size is in the box.
QSize SizeInBox(QSize whole, QSize box, Fit fit);

// How large the picture is inside the box, by the beginning of its file: decoding it may fail
// nonetheless. An empty size, with a warning, where it is known already that it can't be shown.
QSize SizeOfPicture(const QString& path, QSize box);

}  // namespace viewer
