// Where the words of a search stand in a text.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace book {

struct Mark {
  qsizetype start = 0;
  qsizetype length = 0;
};

// Of folded words, in the order of the text, without overlap; the first 100.
std::vector<Mark> MarksIn(const QString& text, const QStringList& foldedWords);

}  // namespace book
