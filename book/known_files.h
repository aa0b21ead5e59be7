// Which files may be handed to the machine's own programs without a question.
#pragma once

#include <QString>

namespace book {

// A document, picture, sound or film by its extension, in either letter case. All else may be a
// program, hold one or start one; so may a name that ends with a dot or a blank, which some systems
// pass over.
bool IsKnownDocument(const QString& fileName);
// A sound or a film by its extension, in either letter case.
bool IsCalledMedium(const QString& fileName);

}  // namespace book
