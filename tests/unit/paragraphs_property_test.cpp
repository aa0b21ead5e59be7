// The rebuilding of paragraphs against its steps taken one by one, on random texts made of what the
// steps look at.
#include <gtest/gtest.h>

#include <array>
#include <random>

#include "workbench/paragraphs.h"

namespace {

using platform::kCrLf;
using platform::Position;
using platform::Replace;
using platform::Text;
using platform::TextView;
using workbench::ParagraphRules;

Text WithoutBreaks(Text text) {
  text = Replace(text, u"\r\n\r\n", u"#0#");
  text = Replace(text, u"\r\n", u" ");
  text = Replace(text, u"#0#", u"\r\n");
  while (platform::InStr(text, u"  ") != 0) text = Replace(text, u"  ", u" ");
  return text;
}

Text BrokenAtMarks(Text text) {
  text = Replace(text, u".", u".\u200F\r\n");
  text = Replace(text, u"!", u"!\u200F\r\n");
  return Replace(text, u"\u061F", u"\u061F\r\n");
}

// Each break makes a new line of text, and neither `last` nor `at` follows it.
Text BrokenByWords(Text line, int limit) {
  const Position last = platform::InStrRev(line, u" ");
  Position at = 1;
  int count = 1;
  while (last > at) {
    const Position blank = platform::InStr(line, u" ", at + 1);
    if (blank != 0) at = blank;
    if (count >= limit) {
      line = Text(platform::Left(line, at - 1)).append(kCrLf).append(platform::Mid(line, at + 1));
      count = 0;
    }
    ++count;
  }
  return line;
}

Text StepByStep(Text text, const ParagraphRules& rules) {
  if (rules.removeBreaks) text = WithoutBreaks(std::move(text));
  if (rules.breakAtMarks) text = BrokenAtMarks(std::move(text));
  Text result;
  for (const Text& line : platform::Split(text, kCrLf)) {
    const int highest = static_cast<int>(platform::Split(line, u" ").size()) - 1;
    result += highest > rules.wordLimit ? BrokenByWords(line, rules.wordLimit) : line;
    if (!result.empty()) result += kCrLf;
  }
  while (platform::InStr(result, u"\r\n\u200F ") != 0) {
    result = Replace(result, u"\r\n\u200F ", kCrLf);
  }
  return result;
}

constexpr std::array<TextView, 20> kPieces = {
    u" ",  u"  ",       u"\r\n",   u"\r\n\r\n", u"\r",    u"\n", u".",
    u"!",  u"\u061F",   u"\u200F", u"\u200F ",  u"#",     u"0",  u"#0#",
    u"#0", u".\u200F ", u"\u0633", u"x ",       u"word ", u" y"};

// Letters, so that a failing test can show what it worked on.
std::string Visible(TextView text) {
  Text visible = Replace(text, u"\r", u"<CR>");
  visible = Replace(visible, u"\n", u"<LF>");
  return platform::ToUtf8(Replace(visible, u"\u200F", u"<RLM>"));
}

class Author {
 public:
  explicit Author(std::uint32_t seed) : random_(seed) {}

  // Some texts use few of the pieces, so that long lines and long runs of one piece occur.
  Text NextText() {
    const std::size_t first = Below(kPieces.size());
    const std::size_t kinds = 1 + Below(kPieces.size());
    Text text;
    for (std::size_t pieces = Below(120); pieces > 0; --pieces) {
      text += kPieces[(first + Below(kinds)) % kPieces.size()];
    }
    return text;
  }
  // Low limits more often, as lines are short.
  std::int16_t NextLimit() {
    const std::size_t range = Below(2) == 0 ? 8 : 43;
    return static_cast<std::int16_t>(static_cast<int>(Below(range)) - 2);
  }

 private:
  // The generator's own numbers, as the library's distributions differ from one to the next.
  std::size_t Below(std::size_t count) { return random_() % count; }

  std::mt19937 random_;
};

TEST(RebuildParagraphs, IsItsStepsOneAfterTheOther) {
  constexpr int kTexts = 100000;
  Author author(1);
  for (int number = 0; number < kTexts; ++number) {
    const Text text = author.NextText();
    ParagraphRules rules;
    rules.wordLimit = author.NextLimit();
    for (const bool removeBreaks : {false, true}) {
      for (const bool breakAtMarks : {false, true}) {
        rules.removeBreaks = removeBreaks;
        rules.breakAtMarks = breakAtMarks;
        ASSERT_EQ(Visible(workbench::RebuildParagraphs(text, rules)),
                  Visible(StepByStep(text, rules)))
            << "text " << number << ": " << Visible(text) << "\nbreaks removed: " << removeBreaks
            << ", broken at marks: " << breakAtMarks << ", words: " << rules.wordLimit;
      }
    }
  }
}

// Long lines, whose end lies far after their first break.
TEST(RebuildParagraphs, IsItsStepsOneAfterTheOtherForLongLines) {
  std::mt19937 random(2);
  for (int number = 0; number < 300; ++number) {
    Text text;
    const std::size_t longest = 1 + random() % 9;
    while (text.size() < 3000) text.append(random() % longest, u'w').append(u" ");
    text.resize(text.size() - random() % 3);
    for (std::int16_t limit = -1; limit <= 40; limit = static_cast<std::int16_t>(limit + 1)) {
      const ParagraphRules rules{false, true, limit};
      ASSERT_EQ(Visible(workbench::RebuildParagraphs(text, rules)),
                Visible(StepByStep(text, rules)))
          << Visible(text) << "\nwords: " << limit;
    }
  }
}

}  // namespace
