// Persian as a reader means it when searching: whichever keyboard a letter was typed on, with or
// without its marks.
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

namespace viewer {

// What stands for the character in a comparison; 0 for one that is passed over: vowel signs,
// tatweel, half-spaces and marks of direction.
char16_t FoldedCharacter(char16_t character);

// FoldedCharacter of all 65,536, for loops that can't afford the call.
const char16_t* FoldTable();

QString Folded(QStringView text);

// The words of what a reader typed, folded, the longest first: it is the rarest. A word that is
// nothing but marks is none.
QStringList WordsOf(const QString& typed);

}  // namespace viewer
