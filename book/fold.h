// Persian as a reader means it when searching: whichever keyboard a letter was typed on, with or
// without its marks.
#pragma once

#include <QString>
#include <QStringView>
#include <vector>

namespace book {

enum class VowelSigns { kPassedOver, kCount };

// What stands for each of the 65,536 characters in a comparison: 0 for one that is passed over
// (vowel signs, tatweel, half-spaces and marks of direction), kSeveral for a ligature that has a
// character of its own (lam with alef, the rial).
const char16_t* FoldTable(VowelSigns signs = VowelSigns::kPassedOver);
inline constexpr char16_t kSeveral = u'\uFFFF';
// What stands for such a ligature.
QStringView SeveralFor(char16_t ligature, VowelSigns signs = VowelSigns::kPassedOver);

// It stays itself: who compares takes it for a yeh, an alef or a waw, as the word may be spelt.
inline constexpr char16_t kYehWithHamza = u'\u0626';

QString Folded(QStringView text, VowelSigns signs = VowelSigns::kPassedOver);
// The same, and for each of its characters the place in the text from which it came.
QString Folded(QStringView text, std::vector<qsizetype>& origins,
               VowelSigns signs = VowelSigns::kPassedOver);

}  // namespace book
