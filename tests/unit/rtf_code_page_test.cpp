// The code pages that rich text names: RTF 1.9.1, \ansicpg, \cpg and \fcharset.
#include <gtest/gtest.h>

#include <string>

#include "platform/rtf/rtf.h"
#include "rtf_testing.h"

namespace platform::rtf {
namespace {

struct Page {
  int number;
  const char* bytes;  // as "\'hh"
  const char16_t* text;
};

void PrintTo(const Page& page, std::ostream* out) { *out << page.number; }

std::string NameOf(const testing::TestParamInfo<Page>& page) {
  return std::to_string(page.param.number);
}

std::string InPage(int number, const std::string& body) {
  return "{\\rtf1\\ansi\\ansicpg" + std::to_string(number) + " " + body + "}";
}

// The same as bare bytes, with a backslash before what RTF itself uses.
std::string Bare(const std::string& hex) {
  std::string bytes;
  for (std::size_t at = 2; at < hex.size(); at += 4) {
    if (hex.substr(at, 2) == "5c" || hex.substr(at, 2) == "7b") bytes += '\\';
    bytes += static_cast<char>(std::stoi(hex.substr(at, 2), nullptr, 16));
  }
  return bytes;
}

class RtfCodePage : public testing::TestWithParam<Page> {};

TEST_P(RtfCodePage, IsReadAsItsPublisherHasIt) {
  const auto& [number, bytes, text] = GetParam();
  EXPECT_EQ(PlainText(InPage(number, bytes)), text);
  EXPECT_EQ(PlainText(InPage(number, Bare(bytes))), text);
  EXPECT_EQ(TextOf(Read(InPage(number, bytes))), text);
  EXPECT_EQ(PlainText("{\\rtf1\\ansi{\\fonttbl{\\f0\\cpg" + std::to_string(number) + " A;}}\\f0 " +
                      bytes + "}"),
            text);
}

TEST_P(RtfCodePage, KeepsAscii) {
  const int number = GetParam().number;
  EXPECT_EQ(PlainText(InPage(number, "Az09 %~\\'41\\'7a\\'5c\\'7e")), u"Az09 %~Az\\~");
  EXPECT_EQ(PlainText(InPage(number, "a\\'1ab\\'1cc\\'7fd")), u"abc\u007Fd");
}

// What each publisher's own table has at 80, 9B, A1, C7, D7, E6, F3 and FE, as far as it has
// anything there.
const auto kSingleBytePages = testing::ValuesIn(std::to_array<Page>({
    {437, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u00C7\u00A2\u00ED\u255F\u256B\u00B5\u2264\u25A0"},
    {708, "\\'c7\\'d7\\'e6", u"\u0627\u0637\u0646"},
    {720, "\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe", u"\u0624\u0629\u255F\u256B\u00B5\u064D\u25A0"},
    {737, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u0391\u03B4\u03BA\u255F\u256B\u03CC\u2264\u25A0"},
    {775, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u0106\u00F8\u012A\u016A\u016B\u00B5\u00BE\u25A0"},
    {819, "\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe", u"\u00A1\u00C7\u00D7\u00E6\u00F3\u00FE"},
    {850, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u00C7\u00F8\u00ED\u00C3\u00CE\u00B5\u00BE\u25A0"},
    {852, "\\'80\\'9b\\'a1\\'aa\\'c7\\'d7\\'e6\\'fe",
     u"\u00C7\u0164\u00ED\u00AC\u0103\u00CE\u0160\u25A0"},
    {855, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u0452\u040F\u0410\u041A\u041E\u0422\u0437\u25A0"},
    {857, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u00C7\u00F8\u00ED\u00C3\u00CE\u00B5\u00BE\u25A0"},
    {858, "\\'80\\'9b\\'a1\\'c7\\'d5\\'e6\\'f3\\'fe",
     u"\u00C7\u00F8\u00ED\u00C3\u20AC\u00B5\u00BE\u25A0"},
    {860, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u00C7\u00A2\u00ED\u255F\u256B\u00B5\u2264\u25A0"},
    {861, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u00C7\u00F8\u00ED\u255F\u256B\u00B5\u2264\u25A0"},
    {862, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u05D0\u00A2\u00ED\u255F\u256B\u00B5\u2264\u25A0"},
    {863, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u00C7\u00A2\u00B4\u255F\u256B\u00B5\u2264\u25A0"},
    {864, "\\'80\\'a1\\'c7\\'d7\\'d8\\'e6\\'f3\\'fe",
     u"\u00B0\u00AD\uFE8D\uFEC1\uFEC5\uFEE7\uFEE9\u25A0"},
    {865, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u00C7\u00F8\u00ED\u255F\u256B\u00B5\u2264\u25A0"},
    {866, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u0410\u042B\u0431\u255F\u256B\u0446\u0454\u25A0"},
    {869, "\\'88\\'9b\\'a1\\'c7\\'d7\\'e6\\'ef\\'fe",
     u"\u00B7\u03AC\u0390\u03A1\u03B2\u03BC\u0384\u25A0"},
    {874, "\\'80\\'a1\\'c7\\'d7\\'e6\\'f3", u"\u20AC\u0E01\u0E27\u0E37\u0E46\u0E53"},
    {1250, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u20AC\u203A\u02C7\u00C7\u00D7\u0107\u00F3\u0163"},
    {1251, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u0402\u203A\u040E\u0417\u0427\u0436\u0443\u044E"},
    {1252, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u20AC\u203A\u00A1\u00C7\u00D7\u00E6\u00F3\u00FE"},
    {1253, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u20AC\u203A\u0385\u0397\u03A7\u03B6\u03C3\u03CE"},
    {1254, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u20AC\u203A\u00A1\u00C7\u00D7\u00E6\u00F3\u015F"},
    {1255, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u20AC\u203A\u00A1\u05B7\u05F3\u05D6\u05E3\u200F"},
    {1256, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u20AC\u203A\u060C\u0627\u00D7\u0648\u064E\u200F"},
    {1257, "\\'80\\'9b\\'c7\\'d7\\'e6\\'f3\\'fe", u"\u20AC\u203A\u0112\u00D7\u0119\u00F3\u017E"},
    {1258, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u20AC\u203A\u00A1\u00C7\u00D7\u00E6\u00F3\u20AB"},
    {10000, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u00C4\u00F5\u00B0\u00AB\u25CA\u00CA\u00DB\u02DB"},
    {10004, "\\'80\\'9b\\'ac\\'b3\\'c7\\'e6\\'f3\\'fe",
     u"\u00C4\u00F7\u060C\u0663\u0627\u0646\u067E\u0698"},
    {10005, "\\'80\\'9b\\'a6\\'c9\\'d8\\'e0\\'f3\\'fa",
     u"\u00C4\u00F5\u20AA\u2026\u05BF\u05D0\u05E3\u05EA"},
    {10006, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u00C4\u00A6\u0393\u00AB\u0389\u03C6\u03C3\u03B0"},
    {10007, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u0410\u042B\u00B0\u00AB\u201E\u0436\u0443\u044E"},
    {10021, "\\'a1\\'c7\\'d7\\'e6\\'f3", u"\u0E01\u0E27\u0E37\u0E46\u0E53"},
    {10029, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u00C4\u00F5\u00B0\u00AB\u25CA\u015B\u016F\u0122"},
    {10081, "\\'80\\'9b\\'a1\\'c7\\'d7\\'da\\'dc\\'fe",
     u"\u00C4\u00F5\u00B0\u00AB\u25CA\u011E\u0130\u02DB"},
    {20866, "\\'80\\'9b\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u2500\u2321\u2551\u0433\u0432\u0424\u0421\u0427"},
    {21866, "\\'80\\'9b\\'a4\\'c7\\'d7\\'e6\\'f3\\'fe",
     u"\u2500\u2321\u0454\u0433\u0432\u0424\u0421\u0427"},
    {28592, "\\'a1\\'c7\\'d7\\'e6\\'f3\\'fe", u"\u0104\u00C7\u00D7\u0107\u00F3\u0163"},
    {28596, "\\'c7\\'d7\\'e6", u"\u0627\u0637\u0646"},
}));
INSTANTIATE_TEST_SUITE_P(OneByte, RtfCodePage, kSingleBytePages, NameOf);

const auto kWidePages = testing::ValuesIn(std::to_array<Page>({
    {932, "\\'93\\'fa\\'96\\'7b\\'83\\'5c\\'95\\'5c\\'b1", u"日本ソ表ｱ"},
    {936, "\\'d6\\'d0\\'ce\\'c4\\'c4\\'e3\\'81\\'5c", u"中文你乗"},
    {949, "\\'c7\\'d1\\'b1\\'b9\\'be\\'ee\\'94\\'ee", u"한국어뷁"},
    {950, "\\'a4\\'a4\\'a4\\'e5\\'a5\\'5c\\'b3\\'5c", u"中文功許"},
    {1361, "\\'d0\\'65\\'8a\\'82\\'88\\'41\\'84\\'61\\'84\\'42\\'d9\\'33\\'f7\\'d3",
     u"한국ㄱㅏㄱ。漢"},
    {10001, "\\'93\\'fa\\'96\\'7b", u"日本"},
    {10002, "\\'a4\\'a4\\'a4\\'e5", u"中文"},
    {10003, "\\'c7\\'d1\\'b1\\'b9", u"한국"},
    {10008, "\\'d6\\'d0\\'ce\\'c4", u"中文"},
    {54936, "\\'d6\\'d0\\'ce\\'c4\\'a8\\'a6", u"中文é"},
    {57002, "\\'b3\\'e1", u"के"},
    {65001, "\\'d8\\'b3\\'e6\\'bc\\'a2\\'f0\\'9f\\'98\\'80", u"س漢😀"},
}));
INSTANTIATE_TEST_SUITE_P(SeveralBytes, RtfCodePage, kWidePages, NameOf);

struct Charset {
  int number;
  const char* bytes;
  const char16_t* text;
};

void PrintTo(const Charset& charset, std::ostream* out) { *out << charset.number; }

class RtfCharset : public testing::TestWithParam<Charset> {};

TEST_P(RtfCharset, NamesThePageOfItsFont) {
  const auto& [number, bytes, text] = GetParam();
  EXPECT_EQ(PlainText("{\\rtf1\\ansi\\ansicpg1251{\\fonttbl{\\f0\\fcharset" +
                      std::to_string(number) + " A;}}\\f0 " + bytes + "}"),
            text);
}

const auto kCharsets = testing::ValuesIn(std::to_array<Charset>({
    {0, "\\'e9", u"é"},         {1, "\\'e9", u"й"},         {2, "a\\'a1", u"a\uF0A1"},
    {3, "\\'e9", u"й"},         {77, "\\'8e", u"é"},        {78, "\\'93\\'fa", u"日"},
    {79, "\\'c7\\'d1", u"한"},  {80, "\\'d6\\'d0", u"中"},  {81, "\\'a4\\'a4", u"中"},
    {83, "\\'e0", u"א"},        {84, "\\'c7", u"ا"},        {85, "\\'a1", u"Γ"},
    {86, "\\'da", u"Ğ"},        {87, "\\'a1", u"ก"},        {88, "\\'e6", u"ś"},
    {89, "\\'80", u"А"},        {128, "\\'93\\'fa", u"日"}, {129, "\\'c7\\'d1", u"한"},
    {130, "\\'d0\\'65", u"한"}, {134, "\\'d6\\'d0", u"中"}, {136, "\\'a4\\'a4", u"中"},
    {161, "\\'e1", u"α"},       {162, "\\'f0", u"ğ"},       {163, "\\'fe", u"₫"},
    {177, "\\'e0", u"א"},       {178, "\\'d3", u"س"},       {179, "\\'d3", u"س"},
    {180, "\\'d3", u"س"},       {181, "\\'e0", u"א"},       {186, "\\'e0", u"ą"},
    {204, "\\'e0", u"а"},       {222, "\\'a1", u"ก"},       {238, "\\'b3", u"ł"},
    {254, "\\'82", u"é"},       {255, "\\'82", u"é"},
}));
INSTANTIATE_TEST_SUITE_P(Fonts, RtfCharset, kCharsets,
                         [](const auto& charset) { return std::to_string(charset.param.number); });

TEST(RtfUnknownPage, CountsAsTheWesternOne) {
  for (const int number : {-3, 1, 709, 710, 711, 4711, 65002}) {
    EXPECT_EQ(PlainText(InPage(number, "\\'80\\'e9")), u"€é") << number;
  }
}

// A lead byte, and a byte that may stand after it, in every page that has them.
struct Half {
  int number;
  const char* lead;
  const char* noTrail;  // a byte that can't be the second one, and its own character
  const char16_t* itsCharacter;
};

void PrintTo(const Half& half, std::ostream* out) { *out << half.number; }

class RtfHalfCharacter : public testing::TestWithParam<Half> {
 protected:
  static Text Plain(const std::string& body) {
    const std::string rtf = InPage(GetParam().number, body);
    EXPECT_EQ(PlainText(rtf), TextOf(Read(rtf)));
    return PlainText(rtf);
  }
  static std::string Lead() { return GetParam().lead; }
};

TEST_P(RtfHalfCharacter, IsOneSubstituteAndTakesNothingThatFollows) {
  EXPECT_EQ(Plain("a" + Lead() + " b"), u"a\uFFFD b");
  EXPECT_EQ(Plain("a" + Lead() + "\\'20b"), u"a\uFFFD b");
  EXPECT_EQ(Plain("a" + Bare(Lead()) + "!b"), u"a\uFFFD!b");
  EXPECT_EQ(Plain("a" + Lead() + "0b"), u"a\uFFFD0b");
  EXPECT_EQ(Plain("a" + Lead() + GetParam().noTrail + "b"),
            u"a\uFFFD" + Text(GetParam().itsCharacter) + u"b");
}

TEST_P(RtfHalfCharacter, EndsBeforeAControlWordAGroupAndTheEnd) {
  EXPECT_EQ(Plain("a" + Lead() + "\\b b"), u"a\uFFFDb");
  EXPECT_EQ(Plain("a" + Lead() + "\\b\\'7bx"), u"a\uFFFD{x");
  EXPECT_EQ(Plain("a" + Lead() + "{b}"), u"a\uFFFDb");
  EXPECT_EQ(Plain("{a" + Lead() + "}b"), u"a\uFFFDb");
  EXPECT_EQ(Plain("a" + Lead() + "\\par b"), u"a\uFFFD\r\nb");
  EXPECT_EQ(Plain("a" + Lead() + "\\~b"), u"a\uFFFD\u00A0b");
  EXPECT_EQ(Plain("a" + Lead() + "\\u1587?b"), u"a\uFFFDسb");
  EXPECT_EQ(Plain("a" + Lead()), u"a\uFFFD");
}

const auto kHalves = testing::ValuesIn(std::to_array<Half>({
    {932, "\\'96", "\\'fd", u"\uFFFD"},
    {936, "\\'96", "\\'7f", u"\u007F"},
    {949, "\\'b1", "\\'7f", u"\u007F"},
    {950, "\\'a4", "\\'7f", u"\u007F"},
    {1361, "\\'d0", "\\'7f", u"\u007F"},
    {10001, "\\'96", "\\'fd", u"\uFFFD"},
}));
INSTANTIATE_TEST_SUITE_P(Pages, RtfHalfCharacter, kHalves,
                         [](const auto& half) { return std::to_string(half.param.number); });

TEST(RtfHalfCharacter, InAJapaneseFontADashOfAnotherPageIsSeen) {
  EXPECT_EQ(PlainText(Rich("\\f3 1\\'96 2")), u"1\uFFFD 2");
}

TEST(RtfHalfCharacter, APairThatNamesNothingIsOneSubstitute) {
  EXPECT_EQ(PlainText(InPage(932, "a\\'85\\'9fb")), u"a\uFFFDb");
  EXPECT_EQ(PlainText(InPage(932, "a\\'80b\\'a0c\\'ffd")), u"a\uFFFDb\uFFFDc\uFFFDd");
  EXPECT_EQ(PlainText(InPage(1361, "a\\'84\\'7eb\\'80c")), u"a\uFFFDb\uFFFDc");
}

// The second byte of a character may be one of RTF's own signs.
TEST(RtfHalfCharacter, ASignOfRtfCanBeTheSecondByte) {
  EXPECT_EQ(PlainText(InPage(932, "\\'83\\\\x\\'83\\{y\\'83\\}z")), u"ソxボyマz");
}

}  // namespace
}  // namespace platform::rtf
