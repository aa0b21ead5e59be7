#include "workbench/clean_up.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

#include "platform/failure.h"

namespace workbench {
namespace {

using platform::Failure;
using platform::Replace;
using platform::Text;
using platform::TextView;

// The ten replacements one after the other, a pass each.
Text TenReplacements(Text text) {
  text = Replace(text, u"&nbsp;", u" ");
  text = Replace(text, u"<ircMAIN>", u" ");
  text = Replace(text, u"</ircMAIN>", u"\r\n");
  text = Replace(text, u" \r\n", u"\r\n");
  text = Replace(text, u"\r\n ", u"\r\n");
  text = Replace(text, u"\r\n ", u"\r\n");
  text = Replace(text, u"\u0649", u"\u064A");
  text = Replace(text, u"!", u"!\u200F");
  text = Replace(text, u".", u".\u200F");
  return Replace(text, u":", u":\u200F");
}

constexpr std::array<TextView, 22> kPieces = {u" ",          u" ",
                                              u"  ",         u"\r\n",
                                              u"\r\n",       u"\r",
                                              u"\n",         u"&nbsp;",
                                              u"&nbsp",      u"<ircMAIN>",
                                              u"</ircMAIN>", u"<irc",
                                              u"MAIN>",      u"</",
                                              u"&",          u"<",
                                              u"\u0649",     u"!",
                                              u".",          u":",
                                              u"\u0633",     u"\u0644\u0627\u0645"};

Text RandomText(std::mt19937& random, std::size_t pieces) {
  std::uniform_int_distribution<std::size_t> which(0, kPieces.size() - 1);
  Text text;
  for (std::size_t i = 0; i < pieces; ++i) text += kPieces[which(random)];
  return text;
}

TEST(Rep, IsTheTenReplacementsInTheirOrder) {
  std::mt19937 random(1);
  for (int round = 0; round < 100000; ++round) {
    const Text text = RandomText(random, static_cast<std::size_t>(round % 60));
    ASSERT_EQ(Rep(text), TenReplacements(text)) << platform::ToUtf8(text);
  }
}

TEST(Rep, IsTheTenReplacementsForTextsOfManyBlocks) {
  std::mt19937 random(2);
  for (int round = 0; round < 20; ++round) {
    const Text text = RandomText(random, 20000);
    ASSERT_EQ(Rep(text), TenReplacements(text));
  }
}

// Line breaks and blanks at every distance from the ends of the blocks that the text goes through.
TEST(Rep, LineBreaksAnywhereInALongPlainText) {
  for (std::size_t at = 4060; at < 4140; ++at) {
    for (const TextView piece : {u" \r\n ", u"  \r\n   \r\n", u".\r\n", u"\r\n", u"&nbsp;\r\n"}) {
      const Text text = Text(at, u'\u0633') + Text(piece) + Text(at, u'\u0649');
      ASSERT_EQ(Rep(text), TenReplacements(text)) << at;
    }
  }
}

TEST(Rep, EmptyTextStaysEmpty) { EXPECT_EQ(Rep(u""), u""); }

TEST(Rep, TwoBlanksAtALinesEndLeaveOneAndTwoAfterTheLineBreakNone) {
  EXPECT_EQ(Rep(u"A  \r\n  B"), u"A \r\nB");
}

TEST(Rep, ThreeBlanksAtALinesStartLeaveOne) { EXPECT_EQ(Rep(u"A\r\n   B"), u"A\r\n B"); }

TEST(Rep, RunOfBlanksBetweenTwoLineBreaks) {
  EXPECT_EQ(Rep(u"\r\n   \r\n"), u"\r\n\r\n");
  EXPECT_EQ(Rep(u"\r\n    \r\n"), u"\r\n \r\n");
}

TEST(Rep, MarkFollowsPointAndExclamationButNoQuestionMark) {
  EXPECT_EQ(Rep(u"\u0633.\u0644\u061F\u0645!"), u"\u0633.\u200F\u0644\u061F\u0645!\u200F");
}

TEST(Rep, MarkFollowsColonAlsoInAClockTime) { EXPECT_EQ(Rep(u"12:30"), u"12:\u200F30"); }

TEST(Rep, MarkerInAnotherLetterCaseStays) {
  EXPECT_EQ(Rep(u"a<IRCmain>b<ircMAIN>c"), u"a<IRCmain>b c");
}

TEST(Rep, ClosingMarkerEndsAParagraph) {
  EXPECT_EQ(Rep(u"one </ircMAIN>&nbsp;two"), u"one\r\ntwo");
}

TEST(Rep, SingleDotlessYeBecomesYe) { EXPECT_EQ(Rep(u"\u0649"), u"\u064A"); }

TEST(Rep, PersianYeAndDigitsAreLeftAsTheyAre) {
  EXPECT_EQ(Rep(u"\u06CC \u06F1\u06F2 \u060C"), u"\u06CC \u06F1\u06F2 \u060C");
}

TEST(DelCrLf, GivesItsArgumentBack) {
  EXPECT_EQ(DelCrLf(u"\r\n\r\ntitle"), u"\r\n\r\ntitle");
  EXPECT_EQ(DelCrLf(u""), u"");
}

TEST(RemCrLf, MakesOneLine) {
  EXPECT_EQ(RemCrLf(u"\r\n one\r\ntwo \r\n"), u"one two");
  EXPECT_EQ(RemCrLf(u""), u"");
}

TEST(RemCrLf, ThreeBlanksLeaveTwo) { EXPECT_EQ(RemCrLf(u"a   b"), u"a  b"); }

TEST(RemCrLf, KeepsATabAndALoneLineFeed) { EXPECT_EQ(RemCrLf(u"\ta\nb"), u"\ta\nb"); }

TEST(BeBor, NoWordIsCut) { EXPECT_EQ(BeBor(u"abc def ghi", 5), u"abc def ..."); }

TEST(BeBor, WithoutABlankTheFirstCharactersStay) {
  EXPECT_EQ(BeBor(u"abcdefghij", 5), u"abcde...");
}

TEST(BeBor, TextOfNCharactersStays) { EXPECT_EQ(BeBor(u"abcde", 5), u"abcde"); }

TEST(BeBor, EmptyTextStays) { EXPECT_EQ(BeBor(u"", 20), u""); }

TEST(BeBor, FirstBlankExactlyAtPositionN) { EXPECT_EQ(BeBor(u"abcd efgh", 5), u"abcd ..."); }

TEST(BeBor, OneCharacterTooManyWithoutABlankGrowsByTwo) {
  EXPECT_EQ(BeBor(Text(21, u'a'), 20), Text(20, u'a') + u"...");
}

TEST(BeBor, LimitBelowOneFails) {
  EXPECT_THROW(BeBor(u"abc", 0), Failure);
  EXPECT_THROW(BeBor(u"abc", -1), Failure);
}

}  // namespace
}  // namespace workbench
