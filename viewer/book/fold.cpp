#include "viewer/book/fold.h"

#include <QChar>
#include <algorithm>
#include <array>
#include <functional>
#include <memory>

namespace viewer {
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
  Same(table, u'\u06CC', u"\u064A\u0649\u0626\u06CC");  // yeh, of either keyboard, with hamza
  Same(table, u'\u06A9', u"\u0643\u06AA");              // kaf
  Same(table, u'\u0627', u"\u0622\u0623\u0625\u0671");  // alef with madda, hamza, wasla
  Same(table, u'\u0648', u"\u0624");                    // waw with hamza
  Same(table, u'\u0647', u"\u0629\u06C0\u06C1\u06C2\u06C3\u06D5");  // heh and teh marbuta
}

void PassOverMarks(Table& table) {
  PassOver(table, u'\u0610', u'\u061A');  // signs above
  PassOver(table, u'\u061C', u'\u061C');  // Arabic letter mark
  PassOver(table, u'\u0640', u'\u0640');  // tatweel
  PassOver(table, u'\u064B', u'\u065F');  // vowel signs
  PassOver(table, u'\u0670', u'\u0670');  // alef above
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

std::unique_ptr<const Table> MakeTable() {
  auto table = std::make_unique<Table>();
  for (std::size_t c = 0; c < table->size(); ++c) {
    (*table)[c] = QChar::toCaseFolded(static_cast<char32_t>(c)) & 0xFFFFU;
  }
  FoldLetters(*table);
  SameRange(*table, u'\u0660', u'\u0669', u'0');
  SameRange(*table, u'\u06F0', u'\u06F9', u'0');
  Same(*table, u' ', u"\t\r\n\u00A0\u2002\u2003\u2009\u202F\u2028\u2029");
  PassOverMarks(*table);
  return table;
}

}  // namespace

const char16_t* FoldTable() {
  static const std::unique_ptr<const Table> table = MakeTable();
  return table->data();
}

char16_t FoldedCharacter(char16_t character) { return FoldTable()[character]; }

QString Folded(QStringView text) {
  const char16_t* const table = FoldTable();
  QString folded;
  folded.reserve(text.size());
  for (const QChar character : text) {
    const char16_t as = table[character.unicode()];
    if (as != 0) folded += QChar(as);
  }
  return folded;
}

QStringList WordsOf(const QString& typed) {
  QStringList words = Folded(typed.simplified()).split(u' ', Qt::SkipEmptyParts);
  std::ranges::stable_sort(words, std::greater<>(), &QString::size);
  return words;
}

}  // namespace viewer
