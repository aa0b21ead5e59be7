#include "workbench/paragraphs.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <string>
#include <utility>

#include "platform/text/text_search.h"

namespace workbench {

using platform::kCrLf;
using platform::kScanBlock;
using platform::Text;
using platform::TextView;

namespace {

constexpr char16_t kBlank = u' ';
constexpr char16_t kMark = u'\u200F';
constexpr char16_t kQuestionMark = u'\u061F';
// Holds the place of a paragraph's end while line breaks are removed.
constexpr TextView kMarker = u"#0#";
constexpr TextView kTwoBreaks = u"\r\n\r\n";
constexpr TextView kOneBlank = u" ";
constexpr TextView kTwoBlanks = u"  ";
constexpr TextView kMarkAndBlank = u"\u200F ";

// What a part of the text becomes; never longer than the part.
struct Shorter {
  TextView with;
  std::size_t length;  // of the part
};

// Replaces each occurrence of `find`, left to right and in place; shorterAt(offset) says by what,
// and how much goes with it.
template <typename ShorterAt>
void Shorten(Text& text, TextView find, ShorterAt shorterAt) {
  using Traits = std::char_traits<char16_t>;
  char16_t* const start = text.data();
  char16_t* to = start;
  std::size_t taken = 0;
  const auto keepUpTo = [&](std::size_t end) {
    if (to != start + taken) Traits::move(to, start + taken, end - taken);
    to += end - taken;
  };
  platform::ForEachHit(text, find, 0, [&](std::size_t at) {
    if (at < taken) return true;
    const Shorter shorter = shorterAt(at);
    keepUpTo(at);
    to = std::copy(shorter.with.begin(), shorter.with.end(), to);
    taken = at + shorter.length;
    return true;
  });
  keepUpTo(text.size());
  text.resize(static_cast<std::size_t>(to - start));
}

// Three passes, as a marker of the text's own and one that a pass has put there can share a "#".
void RemoveBreaks(Text& text) {
  Shorten(text, kCrLf, [&text](std::size_t at) {
    const bool isPair = TextView(text).substr(at).starts_with(kTwoBreaks);
    return isPair ? Shorter{kMarker, kTwoBreaks.size()} : Shorter{kOneBlank, kCrLf.size()};
  });
  Shorten(text, kMarker, [](std::size_t) { return Shorter{kCrLf, kMarker.size()}; });
  Shorten(text, kTwoBlanks, [&text](std::size_t at) {
    const std::size_t after = std::min(text.find_first_not_of(kBlank, at), text.size());
    return Shorter{kOneBlank, after - at};
  });
}

// Bit k is set where block[k] is one of `wanted`; kScanBlock characters are read.
template <char16_t... wanted>
std::uint32_t Among(const char16_t* block) {
  return (platform::Candidates(block, block, wanted, wanted) | ...);
}

bool IsSentenceMark(char16_t c) { return c == u'.' || c == u'!' || c == kQuestionMark; }

std::uint32_t SentenceMarks(const char16_t* block) {
  return Among<u'.', u'!', kQuestionMark>(block);
}

std::size_t CountOf(std::uint32_t bits) { return static_cast<std::size_t>(std::popcount(bits)); }

// The offset of the n-th blank (n > 0) at or after `from`, npos if there are fewer.
std::size_t NthBlank(TextView text, std::size_t from, std::size_t n) {
  std::size_t at = from;
  for (; at + kScanBlock <= text.size(); at += kScanBlock) {
    std::uint32_t blanks = Among<kBlank>(text.data() + at);
    const std::size_t count = CountOf(blanks);
    if (count >= n) {
      for (; n > 1; --n) blanks &= blanks - 1;
      return at + static_cast<std::size_t>(std::countr_zero(blanks));
    }
    n -= count;
  }
  for (; at < text.size(); ++at) {
    if (text[at] == kBlank && --n == 0) return at;
  }
  return TextView::npos;
}

struct Line {
  TextView text;
  std::size_t blanks;
  bool atMark;  // it ends after a sentence mark
};

// Takes the lines from the front of a text, one at least. The breaks after sentence marks are
// never put in: a line ends there as it does at a CR LF.
class LineReader {
 public:
  LineReader(TextView text, bool breakAtMarks) : rest_(text), breakAtMarks_(breakAtMarks) {}

  bool HasMore() const { return hasMore_; }

  Line Next() {
    std::size_t blanks = 0;
    std::size_t at = 0;
    // The character after the block is looked at, too.
    for (; at + kScanBlock < rest_.size(); at += kScanBlock) {
      const std::uint32_t ends = Ends(rest_.data() + at);
      const std::uint32_t blanksHere = Among<kBlank>(rest_.data() + at);
      if (ends != 0) {
        const std::uint32_t inFront = (ends - 1) & ~ends;
        return Take(at + static_cast<std::size_t>(std::countr_zero(ends)),
                    blanks + CountOf(blanksHere & inFront));
      }
      blanks += CountOf(blanksHere);
    }
    for (; at < rest_.size() && !IsEnd(at); ++at) blanks += rest_[at] == kBlank ? 1 : 0;
    return Take(at, blanks);
  }

 private:
  std::uint32_t Ends(const char16_t* block) const {
    const std::uint32_t breaks =
        platform::Candidates(block, block + 1, kCrLf.front(), kCrLf.back());
    return breakAtMarks_ ? breaks | SentenceMarks(block) : breaks;
  }

  bool IsEnd(std::size_t at) const {
    return (breakAtMarks_ && IsSentenceMark(rest_[at])) || rest_.substr(at).starts_with(kCrLf);
  }

  Line Take(std::size_t end, std::size_t blanks) {
    hasMore_ = end < rest_.size();
    const bool atMark = hasMore_ && IsSentenceMark(rest_[end]);
    const Line line{rest_.substr(0, atMark ? end + 1 : end), blanks, atMark};
    rest_.remove_prefix(line.text.size() + (hasMore_ && !atMark ? kCrLf.size() : 0));
    return line;
  }

  TextView rest_;
  bool breakAtMarks_;
  bool hasMore_ = true;
};

class LineWriter {
 public:
  LineWriter(std::size_t mostCharacters, std::int16_t wordLimit)
      : mostBlanks_(static_cast<std::size_t>(std::max<int>(wordLimit, 0))),
        wordsALine_(std::max<std::size_t>(mostBlanks_, 1)) {
    result_.reserve(mostCharacters);
  }

  void Add(const Line& line) {
    if (line.blanks > mostBlanks_) {
      AddBroken(line.text);
    } else {
      AddPiece(line.text);
    }
    if (line.atMark && line.text.back() != kQuestionMark) result_ += kMark;
    if (!result_.empty()) result_.append(kCrLf);
  }

  Text Take() { return std::move(result_); }

 private:
  // A break is made as long as the blank before its own lies in front of the last one. The place of
  // that blank is what the breaks before it have made of it, that of the last one what it was.
  void AddBroken(TextView line) {
    const std::size_t last = line.rfind(kBlank);
    std::size_t blank = 0;    // the one looked at; what stands at the line's very start never is
    std::size_t reached = 0;  // its place as the breaks before it have moved it
    std::size_t from = 0;
    for (std::size_t breaks = 0; reached < last; ++breaks) {
      if (wordsALine_ > 1) {
        blank = NthBlank(line, blank + 1, wordsALine_ - 1);
        if (blank == TextView::npos || blank + breaks >= last) break;
      }
      blank = NthBlank(line, blank + 1, 1);
      reached = blank + breaks;
      AddPiece(line.substr(from, blank - from));
      result_.append(kCrLf);
      from = blank + 1;
    }
    AddPiece(line.substr(from));
  }

  // A line of the result, without the pairs of mark and blank that it begins with; the very first
  // keeps them.
  void AddPiece(TextView piece) {
    if (!result_.empty()) {
      while (piece.starts_with(kMarkAndBlank)) piece.remove_prefix(kMarkAndBlank.size());
    }
    result_.append(piece);
  }

  std::size_t mostBlanks_;  // of a line that stays whole
  std::size_t wordsALine_;  // of one that is broken
  Text result_;
};

// Three more after each sentence mark, one more for each break of a line, two at the end.
std::size_t MostCharacters(TextView text, const ParagraphRules& rules) {
  const auto marks =
      rules.breakAtMarks ? std::count_if(text.begin(), text.end(), IsSentenceMark) : 0;
  const std::size_t wordsALine =
      rules.wordLimit > 1 ? static_cast<std::size_t>(rules.wordLimit) : 1;
  return text.size() + 3 * static_cast<std::size_t>(marks) + text.size() / wordsALine +
         kCrLf.size();
}

}  // namespace

Text RebuildParagraphs(Text text, const ParagraphRules& rules) {
  if (rules.removeBreaks) RemoveBreaks(text);
  LineWriter writer(MostCharacters(text, rules), rules.wordLimit);
  LineReader reader(text, rules.breakAtMarks);
  while (reader.HasMore()) writer.Add(reader.Next());
  return writer.Take();
}

}  // namespace workbench
