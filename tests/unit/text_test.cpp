#include "platform/text/text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "platform/failure.h"

namespace {

using namespace platform;

Text DescriptionOf(const std::function<void()>& body) {
  Text caught;
  CatchingFailure(body, [&](const Text& description) { caught = description; });
  return caught;
}

TEST(InStr, CountsFromOne) {
  EXPECT_EQ(InStr(u"abcabc", u"bc"), 2);
  EXPECT_EQ(InStr(u"abcabc", u"bc", 3), 5);
  EXPECT_EQ(InStr(u"abcabc", u"bc", 2), 2);
  EXPECT_EQ(InStr(u"abc", u"x"), 0);
  EXPECT_EQ(InStr(u"abc", u"abcd"), 0);
}

TEST(InStr, StartOutsideTheText) {
  EXPECT_EQ(InStr(u"abc", u"c", 4), 0);
  EXPECT_EQ(InStr(u"abc", u"c", 1000), 0);
  EXPECT_THROW(InStr(u"abc", u"c", 0), Failure);
  EXPECT_THROW(InStr(u"abc", u"c", -5), Failure);
}

TEST(InStr, EmptyFindStandsAtTheStartInsideTheText) {
  EXPECT_EQ(InStr(u"abc", u""), 1);
  EXPECT_EQ(InStr(u"abc", u"", 3), 3);
  EXPECT_EQ(InStr(u"abc", u"", 4), 0);
  EXPECT_EQ(InStr(u"", u""), 0);
  EXPECT_EQ(InStr(u"", u"a"), 0);
}

TEST(InStr, IsExactInCase) { EXPECT_EQ(InStr(u"<PgTitle><pgTitle>", u"<pgTitle>"), 10); }

// Every place of a hit against the blocks in which the scan goes.
TEST(InStr, FindsAtEveryOffsetOfALongText) {
  for (const Text needle : {u"x", u"xy", u"xyz", u"a needle longer than a block"}) {
    for (std::size_t length = needle.size(); length < 70; ++length) {
      for (std::size_t at = 0; at + needle.size() <= length; ++at) {
        Text text(length, u'.');
        text.replace(at, needle.size(), needle);
        ASSERT_EQ(InStr(text, needle), static_cast<Position>(at) + 1) << length;
        ASSERT_EQ(InStrRev(text, needle), static_cast<Position>(at) + 1) << length;
        ASSERT_EQ(InStr(text, needle, static_cast<Position>(at) + 2), 0) << length;
      }
    }
  }
}

TEST(InStr, UnitsThatDifferInOneByteAreDifferent) {
  const Text text(40, u'\u0641');
  EXPECT_EQ(InStr(text, u"\u0741"), 0);
  EXPECT_EQ(InStr(text, u"\u0640"), 0);
  EXPECT_EQ(InStr(Text(40, u'\u8041') + u"\uFF41", u"\uFF41"), 41);
}

TEST(InStrRev, FindsTheLast) {
  EXPECT_EQ(InStrRev(u"a.b.c", u"."), 4);
  EXPECT_EQ(InStrRev(u"abc", u"."), 0);
  EXPECT_EQ(InStrRev(u"aaa", u"aa"), 2);
  EXPECT_EQ(InStrRev(u"abc", u""), 3);
  EXPECT_EQ(InStrRev(u"", u""), 0);
}

TEST(Mid, CutsWhereTheTextEnds) {
  EXPECT_EQ(Mid(u"abc", 2), u"bc");
  EXPECT_EQ(Mid(u"abc", 4), u"");
  EXPECT_EQ(Mid(u"abc", 100), u"");
  EXPECT_EQ(Mid(u"abc", 2, 1), u"b");
  EXPECT_EQ(Mid(u"abc", 2, 100), u"bc");
  EXPECT_EQ(Mid(u"abc", 2, 0), u"");
  EXPECT_EQ(Mid(u"abc", std::numeric_limits<Position>::max(), 5), u"");
}

TEST(Mid, FromPositionZeroOrWithANegativeLengthFails) {
  EXPECT_THROW(Mid(u"abc", 0), Failure);
  EXPECT_THROW(Mid(u"abc", -1, 1), Failure);
  EXPECT_THROW(Mid(u"abc", 1, -1), Failure);
  EXPECT_EQ(DescriptionOf([] { Mid(u"abc", 0); }), u"Invalid procedure call or argument");
}

TEST(Left, CutsAndFails) {
  EXPECT_EQ(Left(u"abc", 2), u"ab");
  EXPECT_EQ(Left(u"abc", 9), u"abc");
  EXPECT_EQ(Left(u"abc", 0), u"");
  EXPECT_THROW(Left(u"abc", -1), Failure);
}

TEST(DotExtension, IsAllFromTheLastDot) {
  EXPECT_EQ(DotExtension(u"C:\\a.tar.gz"), u".gz");
  EXPECT_EQ(DotExtension(u"a."), u".");
  EXPECT_EQ(DotExtension(u"C:\\x.y\\name"), u".y\\name");
  EXPECT_THROW(DotExtension(u"name"), Failure);
  EXPECT_THROW(DotExtension(u""), Failure);
}

TEST(After, IsAllAfterTheLastMark) {
  EXPECT_EQ(After(u"C:\\a\\b.jpg", u"\\"), u"b.jpg");
  EXPECT_EQ(After(u"b.jpg", u"\\"), u"b.jpg");
  EXPECT_EQ(After(u"C:\\a\\", u"\\"), u"");
  EXPECT_EQ(After(u"abc", u""), u"abc");
}

TEST(Replace, InOneScanWithoutOverlap) {
  EXPECT_EQ(Replace(u"aaaa", u"aa", u"a"), u"aa");
  EXPECT_EQ(Replace(u"aaa", u"aa", u"b"), u"ba");
  EXPECT_EQ(Replace(u"   ", u"  ", u" "), u"  ");
  EXPECT_EQ(Replace(u"a.b.", u".", u".\u200F"), u"a.\u200Fb.\u200F");
}

TEST(Replace, EmptyPieces) {
  EXPECT_EQ(Replace(u"", u"a", u"b"), u"");
  EXPECT_EQ(Replace(u"abc", u"", u"x"), u"abc");
  EXPECT_EQ(Replace(u"abcabc", u"b", u""), u"acac");
  EXPECT_EQ(Replace(u"bbb", u"b", u""), u"");
}

TEST(Replace, OfTheSameLengthWritesOver) {
  EXPECT_EQ(Replace(Text(50, u'\u0649'), u"\u0649", u"\u064A"), Text(50, u'\u064A'));
  EXPECT_EQ(Replace(u"ababa", u"ab", u"ba"), u"babaa");
}

TEST(Replace, AgreesWithAPlainLoopOnAllSmallTexts) {
  const auto plain = [](TextView text, TextView find, TextView with) {
    Text result;
    for (std::size_t at = 0; at < text.size();) {
      const bool hit = text.substr(at, find.size()) == find;
      result += hit ? with : text.substr(at, 1);
      at += hit ? find.size() : 1;
    }
    return result;
  };
  for (unsigned bits = 0; bits < 4096; ++bits) {
    Text text(18, u'a');
    for (unsigned i = 0; i < 12; ++i) text[i + 4] = (bits >> i) & 1U ? u'b' : u'a';
    for (const Text find : {u"a", u"ab", u"aba", u"bb", u"aab"}) {
      for (const Text with : {u"", u"x", u"xy", u"xyzw"}) {
        ASSERT_EQ(Replace(text, find, with), plain(text, find, with));
      }
    }
  }
}

TEST(Replace, WhatAlmostMatchesEverywhereStaysCheap) {
  const Text text(2'000'000, u'a');
  EXPECT_EQ(Replace(text, Text(15, u'a') + u"b", u"x"), text);
  EXPECT_EQ(Replace(text, u"b" + Text(15, u'a'), u"x"), text);
}

TEST(Split, GivesOnePieceMoreThanSeparators) {
  EXPECT_EQ(Split(u"a|b||c", u"|"), (std::vector<Text>{u"a", u"b", u"", u"c"}));
  EXPECT_EQ(Split(u"", u"|"), (std::vector<Text>{u""}));
  EXPECT_EQ(Split(u"|", u"|"), (std::vector<Text>{u"", u""}));
  EXPECT_EQ(Split(u"a\r\nb\r\n", kCrLf), (std::vector<Text>{u"a", u"b", u""}));
  EXPECT_EQ(Split(u"abc", u""), (std::vector<Text>{u"abc"}));
}

TEST(Trim, TakesBlanksAndNothingElse) {
  EXPECT_EQ(Trim(u"  a b  "), u"a b");
  EXPECT_EQ(Trim(u"   "), u"");
  EXPECT_EQ(Trim(u""), u"");
  EXPECT_EQ(Trim(u"\ta\u00A0"), u"\ta\u00A0");
}

TEST(Case, OneUnitToOneUnit) {
  EXPECT_EQ(LCase(u"AZ[a\u00C9\u0416\u0641"), u"az[a\u00E9\u0436\u0641");
  EXPECT_EQ(UCase(u"az{\u00E9\u0436\u0641"), u"AZ{\u00C9\u0416\u0641");
  EXPECT_EQ(UCase(u"\u00DF"), u"\u00DF");
  EXPECT_EQ(LCase(u"\u0130"), u"i");
  EXPECT_EQ(LCase(u"\U0001F600"), u"\U0001F600");
}

// Armenian and Georgian, the neighbours of the scripts that are passed over without asking.
TEST(Case, NeighboursOfTheScriptsWithoutCaseHaveOne) {
  EXPECT_EQ(UCase(u"\u0561\u0586"), u"\u0531\u0556");
  EXPECT_EQ(LCase(u"\u10A0\u1E9E"), u"\u2D00\u00DF");
  EXPECT_EQ(UCase(u"\u05D0\u0641\u1000"), u"\u05D0\u0641\u1000");
}

TEST(Case, EqualsIgnoringCase) {
  EXPECT_TRUE(EqualsIgnoringCase(u".EXE", u".exe"));
  EXPECT_TRUE(EqualsIgnoringCase(u"", u""));
  EXPECT_FALSE(EqualsIgnoringCase(u".ex", u".exe"));
  EXPECT_FALSE(EqualsIgnoringCase(u"[", u"{"));
}

TEST(ToNumber, TakesWhatANumberHas) {
  EXPECT_EQ(ToNumber(u"2"), 2);
  EXPECT_EQ(ToNumber(u"  -2.5  "), -2.5);
  EXPECT_EQ(ToNumber(u"+.5"), 0.5);
  EXPECT_EQ(ToNumber(u"5."), 5);
  EXPECT_EQ(ToNumber(u"1e3"), 1000);
  EXPECT_EQ(ToNumber(u"1.5E-2"), 0.015);
  EXPECT_EQ(ToNumber(u"0.1"), 0.1);
  EXPECT_EQ(ToNumber(Text(5000, u'0') + u"7"), 7);
}

TEST(ToNumber, TakesPersianAndArabicDigits) {
  EXPECT_EQ(ToNumber(u"\u06F1\u06F2\u066B\u06F5"), 12.5);
  EXPECT_EQ(ToNumber(u"\u0661\u0660"), 10);
  EXPECT_EQ(ToNumber(u"-\u06F9"), -9);
}

TEST(ToNumber, AnythingElseIsATypeMismatch) {
  for (const Text text : {u"",      u" ",     u"abc", u"1 2",  u"--1",   u"1-",     u".",
                          u"e5",    u"1e",    u"1e+", u"0x10", u"&H10",  u"inf",    u"nan",
                          u"1,000", u"1.2.3", u"1d3", u"\t1",  u"1\r\n", u"\u0967", u"1\u200F"}) {
    EXPECT_EQ(DescriptionOf([&] { ToNumber(text); }), u"Type mismatch") << ToUtf8(text);
  }
  EXPECT_THROW(ToNumber(Text(u"1\0", 2)), Failure);
}

TEST(ToNumber, BeyondTheRangeIsAnOverflow) {
  EXPECT_EQ(DescriptionOf([] { ToNumber(u"1e309"); }), u"Overflow");
  EXPECT_EQ(DescriptionOf([] { ToNumber(u"-1e99999999999"); }), u"Overflow");
  EXPECT_EQ(ToNumber(u"1e-99999999999"), 0);
  EXPECT_EQ(ToNumber(u"0e99999999999"), 0);
}

TEST(ToNumber, TooSmallIsNothingHoweverItIsWritten) {
  const Text zeros(400, u'0');
  EXPECT_EQ(ToNumber(u"0." + zeros + u"1"), 0);
  EXPECT_EQ(ToNumber(zeros + u"." + zeros + u"1e+2"), 0);
  EXPECT_EQ(ToNumber(u"1" + zeros + u"e-800"), 0);
  EXPECT_EQ(ToNumber(u"-1e-999"), 0);
  EXPECT_TRUE(std::signbit(ToNumber(u"-1e-999")));
  EXPECT_EQ(ToNumber(u"5e-324"), std::numeric_limits<double>::denorm_min());
}

TEST(ToNumber, TooLargeIsAnOverflowHoweverItIsWritten) {
  const Text zeros(400, u'0');
  EXPECT_THROW(ToNumber(u"1" + zeros), Failure);
  EXPECT_THROW(ToNumber(u"+1" + zeros + u"." + zeros), Failure);
  EXPECT_THROW(ToNumber(u"0." + zeros + u"1e+999"), Failure);
  EXPECT_THROW(ToNumber(u"1" + zeros + u"e-9"), Failure);
  EXPECT_EQ(ToNumber(u"0." + zeros + u"1e401"), 1);
  EXPECT_EQ(ToNumber(u"1.7976931348623157e308"), std::numeric_limits<double>::max());
}

TEST(ToNumber, HasOneSign) {
  for (const TextView text : {u"+-5", u"-+5", u"++5", u"--5", u"+", u"-", u"5e+-2", u"5e"}) {
    EXPECT_EQ(DescriptionOf([&] { ToNumber(text); }), u"Type mismatch") << ToUtf8(text);
  }
}

TEST(ToNumber, DoesNotFollowTheProcessLocale) {
  const char* const set = setlocale(LC_NUMERIC, "de_DE.UTF-8");
  EXPECT_EQ(ToNumber(u"2.5"), 2.5) << (set != nullptr ? set : "not installed");
  setlocale(LC_NUMERIC, "C");
}

TEST(ToInt16, RoundsHalvesToTheEvenOne) {
  EXPECT_EQ(ToInt16(0.5), 0);
  EXPECT_EQ(ToInt16(1.5), 2);
  EXPECT_EQ(ToInt16(2.5), 2);
  EXPECT_EQ(ToInt16(-0.5), 0);
  EXPECT_EQ(ToInt16(-1.5), -2);
  EXPECT_EQ(ToInt16(u"2.51"), 3);
}

TEST(ToInt16, OverflowsOutsideSixteenBits) {
  EXPECT_EQ(ToInt16(32767.49), 32767);
  EXPECT_EQ(ToInt16(-32768.5), -32768);
  for (const double value : {32767.5, 32768.0, -32768.51, 1e300, std::nan("")}) {
    EXPECT_EQ(DescriptionOf([&] { ToInt16(value); }), u"Overflow") << value;
  }
  EXPECT_EQ(DescriptionOf([] { ToInt16(u"x"); }), u"Type mismatch");
}

TEST(FromNumber, ShowsAllSixtyFourBits) {
  EXPECT_EQ(FromNumber(0), u"0");
  EXPECT_EQ(FromNumber(-7), u"-7");
  EXPECT_EQ(FromNumber(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
}

TEST(WithAsciiDigits, OfAnyScript) {
  EXPECT_EQ(WithAsciiDigits(u"\u06F1\u06F4\u06F0\u06F5/\u0661/\u0967 x7"), u"1405/1/1 x7");
}

TEST(Utf8, BothWays) {
  const std::string utf8 = "a\xD9\x81\xE2\x80\x8F\xF0\x9F\x98\x80";
  EXPECT_EQ(FromUtf8(utf8), u"a\u0641\u200F\U0001F600");
  EXPECT_EQ(ToUtf8(FromUtf8(utf8)), utf8);
}

TEST(Utf8, EveryCharacterRoundTrips) {
  for (char32_t character = 0; character <= 0x10FFFF; ++character) {
    if (character >= 0xD800 && character <= 0xDFFF) continue;
    Text text;
    if (character < 0x10000) {
      text = static_cast<char16_t>(character);
    } else {
      text = {static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)),
              static_cast<char16_t>(0xDC00 + (character & 0x3FF))};
    }
    ASSERT_EQ(FromUtf8(ToUtf8(text)), text) << static_cast<unsigned>(character);
  }
}

TEST(Utf8, BadBytesBecomeTheReplacement) {
  EXPECT_EQ(FromUtf8("a\xFFz"), u"a\uFFFDz");
  EXPECT_EQ(FromUtf8("\xC0\xAF"), u"\uFFFD\uFFFD");                      // overlong
  EXPECT_EQ(FromUtf8("\xE0\x80\xAF"), u"\uFFFD\uFFFD\uFFFD");            // overlong
  EXPECT_EQ(FromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");            // a surrogate
  EXPECT_EQ(FromUtf8("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");  // past U+10FFFF
  EXPECT_EQ(FromUtf8("\xE2\x80"), u"\uFFFD\uFFFD");                      // cut short
}

TEST(Utf8, LoneSurrogatesBecomeTheReplacement) {
  EXPECT_EQ(ToUtf8(Text{u'a', 0xD800, u'b'}),
            "a\xEF\xBF\xBD"
            "b");
  EXPECT_EQ(ToUtf8(Text{0xDC00}), "\xEF\xBF\xBD");
  EXPECT_EQ(ToUtf8(Text{0xD83D}), "\xEF\xBF\xBD");
}

}  // namespace
