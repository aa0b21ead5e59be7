#include "platform/qt/line_delegate.h"

namespace platform {
namespace {

constexpr QChar kFirstStrongIsolate(0x2068);
constexpr QChar kPopDirectionalIsolate(0x2069);

// Where the line's own words begin: after blanks, which show a folder's depth, and after signs
// that stand apart, which mark an entry. Both belong to the list's side.
qsizetype BeginOfWords(const QString& line) {
  qsizetype begin = 0;
  for (qsizetype at = 0; at < line.size() && !line[at].isLetterOrNumber(); ++at) {
    if (line[at].isSpace()) begin = at + 1;
  }
  return begin;
}

}  // namespace

QString LineDelegate::displayText(const QVariant& value, const QLocale& locale) const {
  QString text = QStyledItemDelegate::displayText(value, locale);
  text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
  // The toolkit has turned single line ends into this sign of its own.
  text.replace(QChar::LineSeparator, u' ').replace(u'\r', u' ').replace(u'\n', u' ');
  text.insert(BeginOfWords(text), kFirstStrongIsolate);
  return text.append(kPopDirectionalIsolate);
}

}  // namespace platform
