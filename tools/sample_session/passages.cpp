#include "tools/sample_session/passages.h"

#include <QStringList>

namespace sample {
namespace {

constexpr qsizetype kLongestHeading = 60;

bool EndsLikeProse(const QString& line) {
  static const QString kMarks = QStringLiteral(".!؟:؛،»\u200F");
  return kMarks.contains(line.back());
}

// A short line of its own, with an empty one before and after it.
bool IsHeading(const QStringList& lines, qsizetype at) {
  const QString line = lines[at].trimmed();
  const bool alone = at > 0 && lines[at - 1].trimmed().isEmpty() && at + 1 < lines.size() &&
                     lines[at + 1].trimmed().isEmpty();
  return alone && !line.isEmpty() && line.size() <= kLongestHeading && !EndsLikeProse(line);
}

QString Joined(const QStringList& lines, qsizetype from, qsizetype to) {
  while (from < to && lines[from].trimmed().isEmpty()) ++from;
  while (to > from && lines[to - 1].trimmed().isEmpty()) --to;
  return lines.mid(from, to - from).join(u'\n');
}

}  // namespace

Reading ReadText(const QString& text) {
  const QStringList lines = text.split(u'\n');
  Reading reading;
  qsizetype at = 0;
  reading.title = lines.value(at++);
  if (!lines.value(at).trimmed().isEmpty()) reading.subtitle = lines.value(at);
  std::vector<qsizetype> headings;
  for (; at < lines.size(); ++at) {
    if (IsHeading(lines, at)) headings.push_back(at);
  }
  for (std::size_t i = 0; i < headings.size(); ++i) {
    const qsizetype end = i + 1 < headings.size() ? headings[i + 1] : lines.size();
    const Passage passage{lines[headings[i]], Joined(lines, headings[i] + 1, end)};
    if (!passage.text.isEmpty()) reading.passages.push_back(passage);
  }
  return reading;
}

}  // namespace sample
