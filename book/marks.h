// Where the words of a search stand in a text.
#pragma once

#include <QString>
#include <cstddef>
#include <vector>

#include "book/query.h"

namespace book {

struct Mark {
  qsizetype start = 0;
  qsizetype length = 0;
};

// In the order of the text, without overlap; no more than `most`.
std::vector<Mark> MarksIn(const QString& text, const Query& query, std::size_t most = 100);

}  // namespace book
