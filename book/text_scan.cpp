#include "book/text_scan.h"

namespace book {

Line LineAt(QStringView text, qsizetype start) {
  const qsizetype feed = text.indexOf(u'\n', start);
  Line line{start, feed < 0 ? text.size() : feed, feed < 0 ? text.size() : feed + 1};
  if (line.end > start && text[line.end - 1] == u'\r') --line.end;
  return line;
}

QStringView Between(QStringView text, QStringView open, QStringView close) {
  const qsizetype at = text.indexOf(open);
  if (at < 0) return {};
  const qsizetype start = at + open.size();
  const qsizetype end = text.indexOf(close, start);
  return end < 0 ? QStringView() : text.sliced(start, end - start);
}

QStringView AttributeOf(QStringView text, QStringView open) { return Between(text, open, u"\""); }

}  // namespace book
