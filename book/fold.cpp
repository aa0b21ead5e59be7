#include "book/fold.h"

#include <QChar>
#include <QHash>
#include <algorithm>
#include <array>
#include <memory>

namespace book {
namespace {

using Table = std::array<char16_t, 0x10000>;

void Same(Table& table, char16_t as, QStringView characters) {
  for (const QChar character : characters) table[character.unicode()] = as;
}

void SameRange(Table& table, char16_t first, char16_t last, char16_t asFirst) {
  for (int c = first; c <= last; ++c) {
    table[static_cast<std::size_t>(c)] = static_cast<char16_t>(asFirst + (c - first));
  }
}

void PassOver(Table& table, char16_t first, char16_t last) {
  for (int c = first; c <= last; ++c) table[static_cast<std::size_t>(c)] = 0;
}

void FoldLetters(Table& table) {
  Same(table, u'\u06CC', u"\u064A\u0649\u06CC");                    // yeh, of either keyboard
  Same(table, u'\u06A9', u"\u0643\u06AA");                          // kaf
  Same(table, u'\u0627', u"\u0622\u0623\u0625\u0671");              // alef with madda, hamza, wasla
  Same(table, u'\u0648', u"\u0624");                                // waw with hamza
  Same(table, u'\u0647', u"\u0629\u06C0\u06C1\u06C2\u06C3\u06D5");  // heh and teh marbuta
}

// Those of a hamza or a madda belong to their letter.
void PassOverVowelSigns(Table& table) {
  PassOver(table, u'\u064B', u'\u0652');
  PassOver(table, u'\u0656', u'\u065F');
  PassOver(table, u'\u0670', u'\u0670');  // alef above
}

void PassOverMarks(Table& table) {
  PassOver(table, u'\u0610', u'\u061A');  // signs above
  PassOver(table, u'\u061C', u'\u061C');  // Arabic letter mark
  PassOver(table, u'\u0640', u'\u0640');  // tatweel
  PassOver(table, u'\u0653', u'\u0655');  // madda, hamza
  PassOver(table, u'\u06D6', u'\u06DC');  // signs of recitation
  PassOver(table, u'\u06DF', u'\u06E4');
  PassOver(table, u'\u06E7', u'\u06E8');
  PassOver(table, u'\u06EA', u'\u06ED');
  PassOver(table, u'\u00AD', u'\u00AD');  // soft hyphen
  PassOver(table, u'\u00AC', u'\u00AC');  // the half-space of old Persian code pages
  PassOver(table, u'\u200B', u'\u200F');  // half-spaces, marks of direction
  PassOver(table, u'\u202A', u'\u202E');
  PassOver(table, u'\u2060', u'\u2060');
  PassOver(table, u'\u2066', u'\u2069');
  PassOver(table, u'\uFEFF', u'\uFEFF');
}

// What old programs and fonts write: a character for each shape of an Arabic letter, and for two or
// more that are joined (Unicode, Arabic Presentation Forms-A and -B).
using Ligatures = QHash<char16_t, QString>;

bool IsShape(char16_t character) {
  return (character >= u'\uFB50' && character <= u'\uFDFF') ||
         (character >= u'\uFE70' && character <= u'\uFEFC');
}

QString FoldedBy(const Table& table, const QString& letters) {
  QString folded;
  for (const QChar letter : letters) {
    const char16_t as = table[letter.unicode()];
    if (as != 0) folded += QChar(as);
  }
  return folded;
}

void FoldShapes(Table& table, Ligatures& ligatures) {
  for (std::size_t c = u'\uFB50'; c <= u'\uFEFC'; ++c) {
    const auto shape = static_cast<char16_t>(c);
    if (!IsShape(shape)) continue;
    const QString letters = QString(QChar(shape)).normalized(QString::NormalizationForm_KC);
    if (letters == QChar(shape)) continue;
    // A vowel sign's own shape stands on a blank, or on a tatweel.
    const QString folded = FoldedBy(table, letters).trimmed();
    if (folded.isEmpty()) {
      table[c] = 0;
    } else if (folded.size() == 1) {
      table[c] = folded.front().unicode();
    } else {
      table[c] = kSeveral;
      ligatures.insert(shape, folded);
    }
  }
}

struct Folding {
  Table table;
  Ligatures ligatures;
};

std::unique_ptr<const Folding> MakeFolding(VowelSigns signs) {
  auto folding = std::make_unique<Folding>();
  Table& table = folding->table;
  for (std::size_t c = 0; c < table.size(); ++c) {
    table[c] = QChar::toCaseFolded(static_cast<char32_t>(c)) & 0xFFFFU;
  }
  FoldLetters(table);
  SameRange(table, u'\u0660', u'\u0669', u'0');
  SameRange(table, u'\u06F0', u'\u06F9', u'0');
  Same(table, u' ', u"\t\r\n\u00A0\u2002\u2003\u2009\u202F\u2028\u2029");
  Same(table, u'.', u"\u066B");  // the decimal point
  Same(table, u',', u"\u066C");  // that of thousands
  PassOverMarks(table);
  if (signs == VowelSigns::kPassedOver) PassOverVowelSigns(table);
  PassOver(table, kSeveral, kSeveral);  // no character at all
  FoldShapes(table, folding->ligatures);
  return folding;
}

const Folding& FoldingOf(VowelSigns signs) {
  static const std::unique_ptr<const Folding> kPassingOver = MakeFolding(VowelSigns::kPassedOver);
  if (signs == VowelSigns::kPassedOver) return *kPassingOver;
  static const std::unique_ptr<const Folding> kCounting = MakeFolding(VowelSigns::kCount);
  return *kCounting;
}

// Calls take(folded character, place in the text).
template <typename Take>
void FoldEach(QStringView text, VowelSigns signs, const Take& take) {
  const char16_t* const table = FoldTable(signs);
  for (qsizetype i = 0; i < text.size(); ++i) {
    const char16_t as = table[text[i].unicode()];
    if (as == 0) continue;
    if (as != kSeveral) {
      take(QChar(as), i);
      continue;
    }
    for (const QChar each : SeveralFor(text[i].unicode(), signs)) take(each, i);
  }
}

}  // namespace

const char16_t* FoldTable(VowelSigns signs) { return FoldingOf(signs).table.data(); }

QStringView SeveralFor(char16_t ligature, VowelSigns signs) {
  const Ligatures& ligatures = FoldingOf(signs).ligatures;
  const auto found = ligatures.constFind(ligature);
  return found == ligatures.cend() ? QStringView() : QStringView(*found);
}

QString Folded(QStringView text, VowelSigns signs) {
  QString folded;
  folded.reserve(text.size());
  FoldEach(text, signs, [&](QChar as, qsizetype) { folded += as; });
  return folded;
}

QString Folded(QStringView text, std::vector<qsizetype>& origins, VowelSigns signs) {
  QString folded;
  folded.reserve(text.size());
  origins.clear();
  FoldEach(text, signs, [&](QChar as, qsizetype from) {
    folded += as;
    origins.push_back(from);
  });
  return folded;
}

}  // namespace book
