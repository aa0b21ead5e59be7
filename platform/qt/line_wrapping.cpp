#include "platform/qt/line_wrapping.h"

#include <QTextBlock>
#include <QTextBoundaryFinder>

namespace platform {
namespace {

// Characters: longer than any word or address, and short enough that looking for its end again and
// again costs next to nothing.
constexpr int kLongestWord = 2000;

bool IsBlank(QChar unit) { return unit.isSpace() && unit.decompositionTag() != QChar::NoBreak; }

// Of a stretch without a blank: a hyphen or a picture ends a word too.
bool IsEndless(QStringView stretch) {
  if (stretch.size() <= kLongestWord) return false;
  QTextBoundaryFinder breaks(QTextBoundaryFinder::Line, stretch);
  qsizetype before = 0;
  for (qsizetype at = breaks.toNextBoundary(); at >= 0; at = breaks.toNextBoundary()) {
    if (at - before > kLongestWord) return true;
    before = at;
  }
  return false;
}

bool HoldsEndlessWord(QStringView text) {
  qsizetype start = 0;
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (!IsBlank(text[at])) continue;
    if (IsEndless(text.sliced(start, at - start))) return true;
    start = at + 1;
  }
  return IsEndless(text.sliced(start));
}

}  // namespace

QTextOption::WrapMode ToolkitWrapping(Wrapping wrapping) {
  return wrapping == Wrapping::kAnywhere ? QTextOption::WrapAnywhere
                                         : QTextOption::WrapAtWordBoundaryOrAnywhere;
}

Wrapping WrappingOf(const QTextDocument& document, int start, int end) {
  QTextBlock block = document.findBlock(start);
  for (; block.isValid() && block.position() <= end; block = block.next()) {
    if (block.length() > kLongestWord && HoldsEndlessWord(block.text())) return Wrapping::kAnywhere;
  }
  return Wrapping::kBetweenWords;
}

Wrapping WrappingOf(const QTextDocument& document) {
  return WrappingOf(document, 0, document.characterCount());
}

}  // namespace platform
