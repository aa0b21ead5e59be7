// Names and titles out of a book, as they can be shown.
#pragma once

#include <QString>

namespace viewer {

// The name without the marks that turn a text around: with them "fdp.exe" reads as "exe.pdf".
QString WithoutTurns(const QString& fileName);

// With a sign in place of each line end, of each other control and of each half of a character that
// lacks its other half; as long as before.
QString WithSigns(const QString& text);

}  // namespace viewer
