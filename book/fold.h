// Persian as a reader means it when searching: whichever keyboard a letter was typed on, with or
// without its marks.
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>
#include <vector>

namespace book {

// What stands for each of the 65,536 characters in a comparison: 0 for one that is passed over
// (vowel signs, tatweel, half-spaces and marks of direction), kSeveral for a ligature that has a
// character of its own (lam with alef, the rial).
const char16_t* FoldTable();
inline constexpr char16_t kSeveral = u'\uFFFF';
// What stands for such a ligature.
QStringView SeveralFor(char16_t ligature);

QString Folded(QStringView text);
// The same, and for each of its characters the place in the text from which it came.
QString Folded(QStringView text, std::vector<qsizetype>& origins);
// Where the character stands in the text that gave the folded one at `place`.
qsizetype OriginOf(QStringView text, qsizetype place);

// The words of what a reader typed, folded, the longest first: it is the rarest. A word that is
// nothing but marks is none.
QStringList WordsOf(const QString& typed);

}  // namespace book
