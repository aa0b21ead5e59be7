// Which files may be handed to the machine's own programs without a question.
#pragma once

#include <QString>

namespace viewer {

// A document, picture, sound or film by its extension, in either letter case. All else, and a name
// that ends with a dot or a blank, which some systems pass over, may be a program or start one.
bool IsKnownDocument(const QString& fileName);

// The name without the marks that turn a text around: with them "fdp.exe" reads as "exe.pdf".
QString WithoutTurns(const QString& fileName);

}  // namespace viewer
