// Where the lines of a large text are broken.
#pragma once

#include <QTextDocument>
#include <QTextOption>
#include <cstdint>

namespace platform {

// Between words, and anywhere in a text that holds an endless one. To break between words the
// toolkit measures the rest of the word for each of its lines, so that a word of many lines costs
// its length squared; broken anywhere, a line costs what fits into it.
enum class Wrapping : std::uint8_t { kBetweenWords, kAnywhere };

QTextOption::WrapMode ToolkitWrapping(Wrapping wrapping);

// What the paragraphs of the positions from `start` to `end` need, both counted.
Wrapping WrappingOf(const QTextDocument& document, int start, int end);
Wrapping WrappingOf(const QTextDocument& document);

}  // namespace platform
