#include "platform/text/code_page.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace platform;

const CharacterTable& Characters(int page) { return FindCodePage(page)->Characters(); }
Text Decode(int page, std::string_view bytes) { return FindCodePage(page)->Decode(bytes); }

TEST(CodePage, OfOneByteHasATable) {
  for (const int page :
       {437,   708,   720,   737,   775,   819,   850,   852,   855,   857,   858,   860,   861,
        862,   863,   864,   865,   866,   869,   874,   1250,  1251,  1252,  1253,  1254,  1255,
        1256,  1257,  1258,  10000, 10004, 10005, 10006, 10007, 10021, 10029, 10081, 20127, 20866,
        21866, 28591, 28592, 28593, 28594, 28595, 28596, 28597, 28598, 28599, 28603, 28605}) {
    const CodePage* const found = FindCodePage(page);
    ASSERT_NE(found, nullptr) << page;
    EXPECT_FALSE(found->HasSeveralBytes()) << page;
    for (char16_t unit = 0; unit < 0x80; ++unit) EXPECT_EQ(found->Characters()[unit], unit) << page;
  }
  EXPECT_EQ(Characters(1251)[0xC6], u'\u0416');
  EXPECT_EQ(Characters(10000)[0x8E], u'\u00E9');
  EXPECT_EQ(Characters(437)[0x82], u'\u00E9');
}

TEST(CodePage, AByteWithoutACharacterIsTheReplacement) {
  EXPECT_EQ(Characters(1253)[0xFF], u'\uFFFD');
  EXPECT_EQ(Decode(1253, "a\xFF"), u"a\uFFFD");
}

TEST(CodePage, OfSeveralBytesHasAsciiAlone) {
  for (const int page : {932, 936, 949, 950, 1361, 54936, 57002, 65001}) {
    ASSERT_TRUE(FindCodePage(page)->HasSeveralBytes()) << page;
    EXPECT_EQ(Characters(page)[0x7F], u'\u007F') << page;
    EXPECT_EQ(Characters(page)[0x80], u'\0') << page;
  }
}

TEST(CodePage, UnknownNumbersHaveNone) {
  for (const int page : {1, 99999, -1, 0, 42, 709, 437437}) EXPECT_EQ(FindCodePage(page), nullptr);
}

TEST(CodePage, TheTableStaysWhereItIs) {
  const CodePage* const page = FindCodePage(1250);
  for (int other = 400; other < 1400; ++other) FindCodePage(other);
  EXPECT_EQ(FindCodePage(1250), page);
}

TEST(CodePage, SeveralBytesACharacter) {
  EXPECT_EQ(Decode(932, "a\x82\xA0\xB1"), u"a\u3042\uFF71");
  EXPECT_EQ(Decode(936, "\xC4\xE3"), u"\u4F60");
  EXPECT_EQ(Decode(949, "\xB0\xA1"), u"\uAC00");
  EXPECT_EQ(Decode(950, "\xA4\xA4"), u"\u4E2D");
  EXPECT_EQ(Decode(1361, "a\x88\x61z"), u"a\uAC00z");
  EXPECT_EQ(Decode(65001, "\xD9\x81"), u"\u0641");
}

TEST(CodePage, LongTextsPassTheBuffer) {
  std::string bytes;
  Text text;
  for (int i = 0; i < 2000; ++i) {
    bytes += "x\x82\xA0";
    text += u"x\u3042";
  }
  EXPECT_EQ(Decode(932, bytes), text);
}

TEST(CodePage, ACutCharacterDoesNotReachTheNextText) {
  EXPECT_EQ(Decode(932, "\x82"), u"\uFFFD");
  EXPECT_EQ(Decode(932, "a"), u"a");
}

// The ends of the ranges, as Microsoft publishes its pages and KS X 1001 has Johab.
TEST(CodePage, LeadAndTrailBytes) {
  struct Ends {
    int page;
    std::string leads;    // first and last of each range
    std::string noLeads;  // right outside
    std::string trails;
    std::string noTrails;
  };
  const Ends ends[] = {
      {932, "\x81\x9F\xE0\xFC", "\x80\xA0\xDF\xFD", "\x40\x7E\x80\xFC", "\x3F\x7F\xFD"},
      {936, "\x81\xFE", "\x80\xFF", "\x40\x7E\x80\xFE", "\x3F\x7F\xFF"},
      {949, "\x81\xFE", "\x80\xFF", "\x41\x5A\x61\x7A\x81\xFE", "\x40\x5B\x60\x7B\x80\xFF"},
      {950, "\x81\xFE", "\x80\xFF", "\x40\x7E\xA1\xFE", "\x3F\x7F\xA0\xFF"},
      {1361, "\x84\xD3\xD8\xDE\xE0\xF9", "\x83\xD4\xD7\xDF\xFA", "\x31\x7E\x81\xFE",
       "\x30\x7F\x80\xFF"},
      {1256, "", "\x81\xFE", "", "\x40\xFE"},
      {65001, "", "\xC2\xF4", "", "\x80\xBF"},
  };
  for (const auto& [number, leads, noLeads, trails, noTrails] : ends) {
    const CodePage& page = *FindCodePage(number);
    const auto isLead = [&](char byte) { return page.IsLead(static_cast<unsigned char>(byte)); };
    const auto isTrail = [&](char byte) { return page.IsTrail(static_cast<unsigned char>(byte)); };
    for (const char byte : leads) EXPECT_TRUE(isLead(byte)) << number;
    for (const char byte : noLeads) EXPECT_FALSE(isLead(byte)) << number;
    for (const char byte : trails) EXPECT_TRUE(isTrail(byte)) << number;
    for (const char byte : noTrails) EXPECT_FALSE(isTrail(byte)) << number;
  }
}

// Every syllable stands where its three parts put it, in the order of Unicode.
TEST(CodePage, JohabHasEverySyllableOnce) {
  Text syllables;
  for (int lead = 0x88; lead <= 0xD3; ++lead) {
    for (int trail = 0x41; trail <= 0xFD; ++trail) {
      const std::string bytes = {static_cast<char>(lead), static_cast<char>(trail)};
      const Text text = Decode(1361, bytes);
      if (text.size() == 1 && text[0] >= 0xAC00 && text[0] < 0xAC00 + 11172) syllables += text;
    }
  }
  ASSERT_EQ(syllables.size(), 11172U);
  for (std::size_t i = 0; i < syllables.size(); ++i) EXPECT_EQ(syllables[i], 0xAC00 + i);
}

TEST(CodePage, JohabHasSingleLettersSignsAndChineseCharacters) {
  EXPECT_EQ(Decode(1361, "\x88\x41\xD0\x41\x84\x61\x87\xA1\x84\x42\x84\x5D"), u"ㄱㅎㅏㅣㄱㅎ");
  EXPECT_EQ(Decode(1361, "\xD9\x31\xD9\x7E\xD9\x91\xDE\x31"), u"\u3000√∽ァ");
  EXPECT_EQ(Decode(1361, "\xE0\x31\xF9\xFE"), u"伽詰");
}

// One half of a syllable is a mistake; so are bytes outside the code.
TEST(CodePage, JohabReplacesWhatIsNoCharacter) {
  EXPECT_EQ(Decode(1361, "\x88\x42"), u"\uFFFD");
  EXPECT_EQ(Decode(1361, "\x84\x62"), u"\uFFFD");
  EXPECT_EQ(Decode(1361, "\x84\x52"), u"\uFFFD");
  EXPECT_EQ(Decode(1361, "\xD0"), u"\uFFFD");
  EXPECT_EQ(Decode(1361, "\xD0 a"), u"\uFFFD a");
  EXPECT_EQ(Decode(1361, "\xFF\xFE"), u"\uFFFD\uFFFD");
  EXPECT_EQ(Decode(1361, "\xD8\x31"), u"\uFFFD");
  EXPECT_EQ(Decode(1361, "\xD9\x85"), u"\uFFFD");
}

}  // namespace
