// The books' files look like XML and aren't: nothing in them is escaped. So an element is found by
// where its line begins and ends, and what stands between is taken as it is.
#pragma once

#include <QStringView>

namespace book {

struct Line {
  qsizetype start = 0;
  qsizetype end = 0;   // without the line end
  qsizetype next = 0;  // where the next line starts
};

// The line that starts at `start`; ends at LF, with or without a CR before it, or at the text's
// end.
Line LineAt(QStringView text, qsizetype start);

// What stands between the first `open` and the first `close` after it; a null view if either is
// missing.
QStringView Between(QStringView text, QStringView open, QStringView close);

// The value of the attribute that stands as NAME="VALUE", `open` being the name up to and with the
// first quote. Null if it isn't there.
QStringView AttributeOf(QStringView text, QStringView open);

}  // namespace book
