#include "workbench/paragraphs.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using platform::Text;
using platform::TextView;
using workbench::ParagraphRules;

// In UTF-8, so that a failing test shows what differs.
std::string Rebuilt(Text text, const ParagraphRules& rules) {
  return platform::ToUtf8(workbench::RebuildParagraphs(std::move(text), rules));
}

std::string OnlyWrapped(Text text, std::int16_t limit) {
  return Rebuilt(std::move(text), {false, false, limit});
}
std::string WithoutBreaks(Text text) { return Rebuilt(std::move(text), {true, false, 22}); }
std::string BrokenAtMarks(Text text) { return Rebuilt(std::move(text), {false, true, 22}); }

// "w1 w2 ... wN".
Text Words(int count) {
  Text words;
  for (int word = 1; word <= count; ++word) {
    if (word > 1) words += u' ';
    words += u'w' + platform::FromNumber(word);
  }
  return words;
}

TEST(RebuildParagraphs, AnEmptyTextStaysEmpty) {
  for (const bool removeBreaks : {false, true}) {
    for (const bool breakAtMarks : {false, true}) {
      EXPECT_EQ(Rebuilt(u"", {removeBreaks, breakAtMarks, 22}), "");
    }
  }
}

TEST(RebuildParagraphs, WithNothingTickedLeadingEmptyLinesVanishAndALineBreakIsAddedAtTheEnd) {
  EXPECT_EQ(OnlyWrapped(u"\r\n\r\nA  b.\r\n\r\n c!", 22), "A  b.\r\n\r\n c!\r\n");
  EXPECT_EQ(OnlyWrapped(u"A", 22), "A\r\n");
  EXPECT_EQ(OnlyWrapped(u"A\r\n", 22), "A\r\n\r\n");
}

TEST(RebuildParagraphs, LinesOfAsManyWordsAsTheLimitAndOneMoreStayWhole) {
  EXPECT_EQ(OnlyWrapped(Words(22), 22), platform::ToUtf8(Words(22)) + "\r\n");
  EXPECT_EQ(OnlyWrapped(Words(23), 22), platform::ToUtf8(Words(23)) + "\r\n");
}

TEST(RebuildParagraphs, ALineOfTwoWordsMoreThanTheLimitIsBrokenAfterTheLimit) {
  EXPECT_EQ(OnlyWrapped(Words(24), 22), platform::ToUtf8(Words(22)) + "\r\nw23 w24\r\n");
}

TEST(RebuildParagraphs, EachLineOfAParagraphGetsTheSameNumberOfWords) {
  EXPECT_EQ(OnlyWrapped(u"aaaa bbbb cccc dddd eeee ffff gggg", 3),
            "aaaa bbbb cccc\r\ndddd eeee ffff\r\ngggg\r\n");
  EXPECT_EQ(OnlyWrapped(u"aaaa bbbb cccc dddd eeee", 2), "aaaa bbbb\r\ncccc dddd\r\neeee\r\n");
}

// The last blank's position and the one reached are compared as they were before the breaks.
TEST(RebuildParagraphs, AfterKBreaksTheLastKPositionsAreNotLookedAt) {
  EXPECT_EQ(OnlyWrapped(u"a b c d e", 2), "a b\r\nc d\r\ne\r\n");
  // Three breaks: the blank at 14 is seen at 17, after the last one's 16.
  EXPECT_EQ(OnlyWrapped(u"a b c d e f g h i", 2), "a b\r\nc d\r\ne f\r\ng h i\r\n");
  EXPECT_EQ(OnlyWrapped(u"abcd          ", 1), "abcd\r\n\r\n\r\n\r\n\r\n\r\n    \r\n");
}

TEST(RebuildParagraphs, ABlankAtTheVeryStartOfALineIsPassedOver) {
  EXPECT_EQ(OnlyWrapped(u" aa bb cc dd", 1), " aa\r\nbb\r\ncc\r\ndd\r\n");
  EXPECT_EQ(OnlyWrapped(u" aa bb cc dd", 2), " aa bb\r\ncc dd\r\n");
  EXPECT_EQ(OnlyWrapped(u" ", 0), " \r\n");
  EXPECT_EQ(OnlyWrapped(u"  ", 0), " \r\n\r\n");
}

TEST(RebuildParagraphs, TwoBlanksInARowHoldAWordThatCounts) {
  EXPECT_EQ(OnlyWrapped(u"aa  bb cc dd", 3), "aa  bb\r\ncc dd\r\n");
  EXPECT_EQ(OnlyWrapped(u"aa bb cc dd", 3), "aa bb cc dd\r\n");
}

TEST(RebuildParagraphs, LimitsBelowOneBreakAtEachBlank) {
  for (const int limit : {1, 0, -5, static_cast<int>(std::numeric_limits<std::int16_t>::min())}) {
    EXPECT_EQ(OnlyWrapped(u"aaaa bbbb cccc", static_cast<std::int16_t>(limit)),
              "aaaa\r\nbbbb\r\ncccc\r\n")
        << limit;
  }
}

// One word more than the limit stays whole, and with a limit of 0 there is none.
TEST(RebuildParagraphs, TwoWordsAreBrokenByALimitOfZeroOnly) {
  EXPECT_EQ(OnlyWrapped(u"aa bb", 1), "aa bb\r\n");
  EXPECT_EQ(OnlyWrapped(u"aa bb", 0), "aa\r\nbb\r\n");
  EXPECT_EQ(OnlyWrapped(u"aa", -1), "aa\r\n");
}

TEST(RebuildParagraphs, TheHighestLimitLeavesItsWordsOnALine) {
  constexpr std::int16_t kHighest = std::numeric_limits<std::int16_t>::max();
  EXPECT_EQ(OnlyWrapped(Words(kHighest + 1), kHighest),
            platform::ToUtf8(Words(kHighest + 1)) + "\r\n");
  EXPECT_EQ(OnlyWrapped(Words(kHighest + 2), kHighest),
            platform::ToUtf8(Words(kHighest)) + "\r\nw32768 w32769\r\n");
}

TEST(RebuildParagraphs, ASingleLineBreakBecomesABlankAndTwoBecomeOne) {
  EXPECT_EQ(WithoutBreaks(u"A\r\nB"), "A B\r\n");
  EXPECT_EQ(WithoutBreaks(u"A\r\n\r\nB"), "A\r\nB\r\n");
}

TEST(RebuildParagraphs, TheThirdOfThreeLineBreaksBecomesABlank) {
  EXPECT_EQ(WithoutBreaks(u"A\r\n\r\n\r\nB"), "A\r\n B\r\n");
  EXPECT_EQ(WithoutBreaks(u"A\r\n\r\n\r\n\r\nB"), "A\r\n\r\nB\r\n");
}

TEST(RebuildParagraphs, RunsOfBlanksBecomeOneBlank) {
  EXPECT_EQ(WithoutBreaks(u"A  B   C    D     E"), "A B C D E\r\n");
  EXPECT_EQ(WithoutBreaks(u"A \r\n  \r\n B"), "A B\r\n");
  EXPECT_EQ(WithoutBreaks(Text(1000, u' ')), " \r\n");
}

TEST(RebuildParagraphs, TheMarkerOfALineBreakInTheTextBecomesOne) {
  EXPECT_EQ(WithoutBreaks(u"A#0#B"), "A\r\nB\r\n");
  EXPECT_EQ(OnlyWrapped(u"A#0#B", 22), "A#0#B\r\n");
}

// The marker that stands for two line breaks closes one that the text has begun, and is used up.
TEST(RebuildParagraphs, APieceOfTheMarkerInFrontOfTwoLineBreaksTakesThemApart) {
  EXPECT_EQ(WithoutBreaks(u"A#0\r\n\r\nB"), "A\r\n0#B\r\n");
  EXPECT_EQ(WithoutBreaks(u"A\r\n\r\n0#B"), "A\r\n0#B\r\n");
  EXPECT_EQ(WithoutBreaks(u"A#0\r\n\r\n0#B"), "A\r\n0\r\nB\r\n");
  EXPECT_EQ(WithoutBreaks(u"A#0\r\n#B"), "A#0 #B\r\n");
  EXPECT_EQ(WithoutBreaks(u"A#0#0#B"), "A\r\n0#B\r\n");
}

TEST(RebuildParagraphs, ALineBeginsAfterADotAndNothingStandsInFrontOfIt) {
  EXPECT_EQ(BrokenAtMarks(u"A.\u200F B"), "A.\u200F\r\nB\r\n");
  EXPECT_EQ(BrokenAtMarks(u"A!\u200F B"), "A!\u200F\r\nB\r\n");
}

TEST(RebuildParagraphs, TheLineAfterAQuestionMarkKeepsItsBlank) {
  EXPECT_EQ(BrokenAtMarks(u"A؟ B"), "A؟\r\n B\r\n");
}

TEST(RebuildParagraphs, ANumberIsBrokenAfterItsPoint) {
  EXPECT_EQ(BrokenAtMarks(u"3.14"), "3.\u200F\r\n14\r\n");
  EXPECT_EQ(BrokenAtMarks(u"3.\u200F14"), "3.\u200F\r\n\u200F14\r\n");
}

TEST(RebuildParagraphs, ThreeDotsGiveThreeLines) {
  EXPECT_EQ(BrokenAtMarks(u"A...B"), "A.\u200F\r\n.\u200F\r\n.\u200F\r\nB\r\n");
}

TEST(RebuildParagraphs, AMarkAtTheEndIsFollowedByAnEmptyLine) {
  EXPECT_EQ(BrokenAtMarks(u"A."), "A.\u200F\r\n\r\n");
  EXPECT_EQ(BrokenAtMarks(u"A.\u200F"), "A.\u200F\r\n\u200F\r\n");
}

TEST(RebuildParagraphs, EveryPairOfMarkAndBlankAtALinesStartGoes) {
  EXPECT_EQ(OnlyWrapped(u"A\r\n\u200F \u200F \u200F  B", 22), "A\r\n B\r\n");
  EXPECT_EQ(OnlyWrapped(u"A\r\n\u200F\u200F B", 22), "A\r\n\u200F\u200F B\r\n");
  EXPECT_EQ(OnlyWrapped(u"A\r\n\u200F \r\nB", 22), "A\r\n\r\nB\r\n");
}

TEST(RebuildParagraphs, APairOfMarkAndBlankAtTheStartOfTheWholeTextStays) {
  EXPECT_EQ(OnlyWrapped(u"\u200F A", 22), "\u200F A\r\n");
  EXPECT_EQ(OnlyWrapped(u"\r\n\u200F A", 22), "\u200F A\r\n");
}

TEST(RebuildParagraphs, ThePairAtAWrappedLinesStartCountsAsAWordBeforeItGoes) {
  EXPECT_EQ(OnlyWrapped(u"aaaa bbbb \u200F cccc dddd eeee", 2),
            "aaaa bbbb\r\ncccc\r\ndddd eeee\r\n");
  // Here the blank of the pair is the one that is broken at.
  EXPECT_EQ(OnlyWrapped(u"aaaa \u200F bbbb cccc", 1), "aaaa\r\n\u200F\r\nbbbb\r\ncccc\r\n");
}

TEST(RebuildParagraphs, ATextOfLineBreaksOnly) {
  EXPECT_EQ(OnlyWrapped(u"\r\n\r\n\r\n\r\n", 22), "");
  EXPECT_EQ(WithoutBreaks(u"\r\n\r\n\r\n\r\n"), "");
  EXPECT_EQ(WithoutBreaks(u"\r\n\r\n"), "");
  // A blank is left of the odd one.
  EXPECT_EQ(WithoutBreaks(u"\r\n"), " \r\n");
  EXPECT_EQ(WithoutBreaks(u"\r\n\r\n\r\n"), " \r\n");
}

TEST(RebuildParagraphs, HalvesOfALineBreakAreCharactersLikeOthers) {
  EXPECT_EQ(Rebuilt(u"A\r \nB\n\rC\r\r\n\nD", {true, true, 22}), "A\r \nB\n\rC\r \nD\r\n");
  EXPECT_EQ(OnlyWrapped(u"A\r \nB c", 0), "A\r\r\n\nB\r\nc\r\n");
}

TEST(RebuildParagraphs, AllTogether) {
  EXPECT_EQ(Rebuilt(u"one two\r\nthree.\u200F four  five six seven\r\n\r\neight؟ nine!\u200F ten",
                    {true, true, 2}),
            "one two three.\u200F\r\n"       // a word more than the limit
            "four\r\nfive six\r\nseven\r\n"  // the pair in front counted as a word
            "eight؟\r\n nine!\u200F\r\nten\r\n");
}

// Copying a line for each of its breaks would take hours.
TEST(RebuildParagraphs, ALineOfAMillionWordsIsBrokenInOnePass) {
  constexpr std::size_t kWords = 1000000;
  Text line;
  Text broken;
  for (std::size_t word = 0; word < kWords; ++word) {
    line.append(u"word ");
    broken.append(u"word\r\n");
  }
  const Text tail(2 * kWords, u'x');  // so long that the breaks stay in front of the last blank
  EXPECT_TRUE(workbench::RebuildParagraphs(line + tail + u" y", {true, true, 1}) ==
              broken + tail + u"\r\ny\r\n");
}

TEST(RebuildParagraphs, AMillionMarksAndLineBreaksAreSeenInOnePass) {
  constexpr std::size_t kTimes = 1000000;
  Text text;
  Text rebuilt;
  for (std::size_t time = 0; time < kTimes; ++time) {
    text.append(u"a.\r\n\r\n");
    rebuilt.append(u"a.\u200F\r\n\r\n");
  }
  EXPECT_TRUE(workbench::RebuildParagraphs(text, {true, true, 22}) == rebuilt + u"\r\n");
  EXPECT_TRUE(workbench::RebuildParagraphs(Text(kTimes, u' '), {true, true, 22}) == u" \r\n");
}

}  // namespace
