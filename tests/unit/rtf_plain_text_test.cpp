#include <gtest/gtest.h>

#include <string>

#include "platform/failure.h"
#include "platform/rtf/rtf.h"
#include "rtf_testing.h"

namespace platform::rtf {
namespace {

Text Plain(const std::string& body) { return PlainText(Rich(body)); }

std::string Repeated(std::string_view piece, std::size_t count) {
  std::string text;
  text.reserve(piece.size() * count);
  for (std::size_t i = 0; i < count; ++i) text += piece;
  return text;
}

TEST(RtfPlainText, WhatIsNoRichTextFails) {
  EXPECT_THROW(PlainText(""), Failure);
  EXPECT_THROW(PlainText("plain"), Failure);
  EXPECT_THROW(PlainText("{\\rt"), Failure);
  EXPECT_THROW(PlainText(u"x{\\rtf1 y}"), Failure);
  EXPECT_THROW(Read("{\\html}"), Failure);
}

TEST(RtfPlainText, BlanksAndLineBreaksMayStandInFront) {
  EXPECT_EQ(PlainText(" \r\n\t{\\rtf1 a}"), u"a");
}

TEST(RtfPlainText, LettersComeByThePageOfTheFont) {
  EXPECT_EQ(Plain("\\f0\\'d3\\'e1\\'c7\\'e3"), u"سلام");
  EXPECT_EQ(Plain("\\f1 caf\\'e9 \\'80"), u"café €");
  EXPECT_EQ(Plain("\\'d3{\\f1\\'d3}\\'d3"), u"سÓس");
}

TEST(RtfPlainText, TheDocumentsPageServesFontsThatNameNone) {
  EXPECT_EQ(PlainText("{\\rtf1\\ansi\\ansicpg1256 \\'d3}"), u"س");
  EXPECT_EQ(
      PlainText(
          "{\\rtf1\\ansi\\ansicpg1256{\\fonttbl{\\f0 A;}{\\f1\\fcharset1 B;}}\\'d3\\f1\\'d3}"),
      u"سس");
  EXPECT_EQ(PlainText("{\\rtf1\\ansi \\'d3}"), u"Ó");
  EXPECT_EQ(PlainText("{\\rtf1\\pc \\'81}"), u"ü");
  EXPECT_EQ(PlainText("{\\rtf1\\mac \\'8e}"), u"é");
  EXPECT_EQ(PlainText("{\\rtf1\\ansi{\\fonttbl{\\f0\\cpg1251 A;}}\\f0\\'e4}"), u"д");
}

TEST(RtfPlainText, TheDefaultFontsPageHoldsBeforeAnyFontIsNamed) {
  EXPECT_EQ(
      PlainText("{\\rtf1\\ansi\\deff1{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset178 B;}}\\'d3"
                "\\f0\\'d3\\plain\\'d3}"),
      u"سÓس");
}

TEST(RtfPlainText, EightBitBytesAreReadAsTheirHexadecimalForms) {
  EXPECT_EQ(Plain("\xD3\xE1\xC7\xE3 a"), u"سلام a");
  EXPECT_EQ(PlainText(Widen(Rich("\xD3\xE1\xC7\xE3 a"))), u"سلام a");
}

TEST(RtfPlainText, UnitsAboveAByteStandForThemselves) {
  EXPECT_EQ(PlainText(u"{\\rtf1 سلام\u2028و\u2029😀}"), u"سلام\r\nو\r\n😀");
}

TEST(RtfPlainText, RightToLeftRunsUseTheAssociatedFont) {
  EXPECT_EQ(Plain("{\\ltrch\\fcs0\\f1\\rtlch\\fcs1\\af0\\'d3}"), u"س");
  EXPECT_EQ(Plain("{\\rtlch\\fcs1\\af0\\ltrch\\fcs0\\f1\\'d3}"), u"Ó");
  EXPECT_EQ(Plain("\\f0\\rtlch\\'d3\\f1\\ltrch\\'d3\\f0\\rtlch\\'d3"), u"سÓس");
  EXPECT_EQ(Plain("{\\ltrch\\af1\\rtlch\\f0\\'d3}"), u"س");
  EXPECT_EQ(Plain("{\\f1\\hich\\af1\\dbch\\af3\\loch\\f1 \\'e9}"), u"é");
  EXPECT_EQ(Plain("{\\f1\\loch\\af1\\hich\\af1\\dbch\\af3 \\'93\\'fa}"), u"日");
  EXPECT_EQ(Plain("{\\f1\\rtlch\\af0\\loch\\hich\\dbch\\'d3}"), u"س");
}

TEST(RtfPlainText, CharactersOfTwoBytesMayBeWrittenInPieces) {
  EXPECT_EQ(Plain("\\f3\\'93\\'fa\\'96\\'7b"), u"日本");
  EXPECT_EQ(Plain("\\f3 A\\'96{B"), u"A\uFFFDB");  // the second byte is missing
  EXPECT_EQ(Plain("\\f3\\'83A x"), u"ア x");       // the second byte as a letter
  EXPECT_EQ(Plain("\\f3\\'83\\\\x"), u"ソx");      // the second byte is a backslash
  EXPECT_EQ(Plain("\\f3\x93\xFA\x83\x41z"), u"日アz");
  EXPECT_EQ(PlainText("{\\rtf1\\ansicpg65001 \\'d8\\'b3\xD9\x84}"), u"سل");
  EXPECT_EQ(Plain("\\f3\\'93"), u"\uFFFD");
}

TEST(RtfPlainText, SignsOfASymbolFontGoToThePrivateArea) {
  EXPECT_EQ(Plain("\\f2 a\\'fc\\'b7"), u"a\uF0FC\u2022");
}

TEST(RtfPlainText, UnicodeSkipsItsSubstitutes) {
  EXPECT_EQ(Plain("\\u1587?\\u1604?."), u"سل.");
  EXPECT_EQ(Plain("\\u1587 ?x"), u"سx");
  EXPECT_EQ(Plain("\\u1587\\'3f\\u1604\\'d3 x"), u"سل x");
  EXPECT_EQ(Plain("\\uc0\\u1587\\u1604 x"), u"سلx");
  EXPECT_EQ(Plain("\\uc2\\u1587 ab\\u1604\\'d3\\'d3c"), u"سلc");
  EXPECT_EQ(Plain("\\uc2\\u1587 a\r\nbc"), u"سc");
  EXPECT_EQ(Plain("{\\uc3\\u1587 a}b"), u"سb");
  EXPECT_EQ(Plain("\\uc3\\u1587 a{b}c"), u"سbc");
  EXPECT_EQ(Plain("\\uc2\\u1587\\emdash\\~c"), u"سc");
  EXPECT_EQ(Plain("\\uc1\\u1587\\bin3 }}}c"), u"سc");
  EXPECT_EQ(Plain("\\uc0\\uc\\u1587 ab"), u"سb");
  EXPECT_EQ(Plain("{\\uc0 {\\uc2\\u1587 abc}\\u1604 d}"), u"سcلd");
  EXPECT_EQ(Plain("\\u1587?\\uc1000000000\\u1604?abc\\par}"), u"سل");
}

TEST(RtfPlainText, UnicodeNumbersAreSignedAndMayBePairs) {
  EXPECT_EQ(Plain("\\u-1424?"), u"\uFA70");
  EXPECT_EQ(Plain("\\u64112?"), u"\uFA70");
  EXPECT_EQ(Plain("\\u-10179?\\u-8704?"), u"😀");
  EXPECT_EQ(Plain("\\u55357?{\\b\\u56832?}"), u"😀");
  EXPECT_EQ(Plain("\\u128512?"), u"😀");
  EXPECT_EQ(Plain("\\u99999999?a"), u"\uFFFDa");
  EXPECT_EQ(Plain("\\u-99999999?a"), u"\uFFFDa");
  EXPECT_EQ(Plain("\\u0?a\\u?b"), u"ab");
  EXPECT_EQ(Plain("\\u1114111?\\u1114112?"), u"\U0010FFFF\uFFFD");
}

TEST(RtfPlainText, SpecialCharacters) {
  EXPECT_EQ(Plain("a\\~b\\_c\\-d\\\\\\{\\}"), u"a\u00A0b\u2011c\u00ADd\\{}");
  EXPECT_EQ(Plain("\\emdash\\endash\\bullet\\lquote\\rquote\\ldblquote\\rdblquote x"), u"—–•‘’“”x");
  EXPECT_EQ(Plain("\\zwj\\zwnj\\zwbo\\zwnbo\\ltrmark\\rtlmark x"),
            u"\u200D\u200C\u200B\u2060\u200E\u200Fx");
  EXPECT_EQ(Plain("\\emspace\\enspace\\qmspace x\\tab y\tz"), u"\u2003\u2002\u2005x\ty\tz");
}

TEST(RtfPlainText, ParagraphsAndLinesEndInCrLf) {
  EXPECT_EQ(Plain("a\\par b\\line c"), u"a\r\nb\r\nc");
  EXPECT_EQ(Plain("a\r\nb\\\nc\\\r\nd"), u"ab\r\nc\r\nd");
  EXPECT_EQ(Plain("a\\u8232?b\\u8233?c\\'0dd"), u"a\r\nb\r\nc\r\nd");
}

TEST(RtfPlainText, ALastParagraphEndOpensNoOtherParagraph) {
  EXPECT_EQ(Plain("a\\par"), u"a");
  EXPECT_EQ(Plain("a\\par\\par"), u"a\r\n");
  EXPECT_EQ(Plain("\\par"), u"");
  EXPECT_EQ(Plain("a\\line"), u"a\r\n");
  EXPECT_EQ(Plain("a\\par\\line"), u"a\r\n\r\n");
  EXPECT_EQ(Plain(""), u"");
}

TEST(RtfPlainText, PagesAndSectionsEndAParagraphThatHoldsSomething) {
  EXPECT_EQ(Plain("a\\par\\page b\\sect c\\column d"), u"a\r\nb\r\nc\r\nd");
}

TEST(RtfPlainText, TablesAreTabsAndParagraphs) {
  EXPECT_EQ(Plain("\\trowd\\intbl a\\cell b\\cell\\row\\trowd c\\par d\\cell\\row\\pard e"),
            u"a\tb\t\r\nc\r\nd\t\r\ne");
  EXPECT_EQ(
      Plain("a\\nestcell{\\*\\nesttableprops\\trowd\\nestrow}{\\nonesttables\\par}b\\cell\\row"),
      u"a\t\r\nb\t");
}

TEST(RtfPlainText, APictureIsOneBlank) {
  EXPECT_EQ(Plain("a{\\pict\\pngblip 8950}b"), u"a b");
  EXPECT_EQ(Plain("a{\\pict\\wmetafile8\\bin4 }}}}}b"), u"a b");
  EXPECT_EQ(Plain("{\\*\\shppict{\\pict\\pngblip 89}}{\\nonshppict{\\pict\\wmetafile8 01}}\\{0\\}"),
            u" {0}");
  EXPECT_EQ(Plain("{\\nonshppict{\\pict\\wmetafile8 01}}"), u" ");
  EXPECT_EQ(
      Plain(
          "{\\*\\shppict{\\pict\\pngblip 89}}{\\nonshppict{\\pict 01}}a{\\nonshppict{\\pict 01}}"),
      u" a ");
  EXPECT_EQ(Plain("{\\pict{\\*\\blipuid 0102}{\\*\\picprop{\\sp{\\sn a}{\\sv b}}}\\pngblip 89}"),
            u" ");
}

TEST(RtfPlainText, ObjectsShowTheirResult) {
  EXPECT_EQ(Plain("a{\\object\\objemb{\\*\\objclass X}{\\*\\objdata 0102}{\\result{\\pict 01}}}b"),
            u"a b");
  EXPECT_EQ(Plain("a{\\object x{\\result text}y}b"), u"atextb");
}

TEST(RtfPlainText, FieldsShowTheirResult) {
  EXPECT_EQ(Plain("{\\field{\\*\\fldinst{HYPERLINK \"x\"}}{\\fldrslt{\\ul link}}}."), u"link.");
  EXPECT_EQ(Plain("{\\field{\\fldinst PAGE}{\\fldrslt 3}}"), u"3");
}

// As AbiWord writes every link.
TEST(RtfPlainText, AFieldsResultMayStandAfterAStar) {
  EXPECT_EQ(Plain("a {\\field{\\*\\fldinst{HYPERLINK \"x\"}}{\\*\\fldrslt{\\ul res}}} b"),
            u"a res b");
}

TEST(RtfPlainText, AFormatAfterAStarHidesNothing) {
  EXPECT_EQ(PlainText("{\\rtf1 a {\\loch\\f1\\*\\cs7\\cf0 LINK} b}"), u"a LINK b");
  for (const std::string word :
       {"cs7", "ds3", "ts11", "s5", "b", "fs24", "lang1065", "langfe1033", "rtlch", "insrsid123",
        "charrsid9", "nosupersub", "expnd4", "kerning2", "li720"}) {
    EXPECT_EQ(Plain("a {\\b\\*\\" + word + " LINK} b"), u"a LINK b") << word;
    EXPECT_EQ(Plain("a {\\*\\" + word + " LINK} b"), u"a LINK b") << word;
    EXPECT_EQ(Plain("a \\*\\" + word + " LINK b"), u"a LINK b") << word;
  }
  EXPECT_EQ(Plain("{\\stylesheet{\\s0 Normal;}{\\*\\cs7\\additive Link;}}a"), u"a");
}

// Only a group's first word can open a destination.
TEST(RtfPlainText, AnUnknownWordAfterAStarHidesItsGroupWhereItStandsFirst) {
  EXPECT_EQ(Plain("a{\\*\\unheard of}b"), u"ab");
  EXPECT_EQ(Plain("a{\r\n\\*\r\n\\unheard of}b"), u"ab");
  EXPECT_EQ(Plain("a{ \\* \\unheard of}b"), u"a  b");
  EXPECT_EQ(Plain("a{{\\b x}\\*\\unheard of}b"), u"axofb");
  EXPECT_EQ(Plain("a{\\b\\*\\unheard of}b"), u"aofb");
  EXPECT_EQ(Plain("a{x\\*\\unheard of}b"), u"axofb");
  EXPECT_EQ(Plain("a\\*\\unheard of b"), u"aof b");
  EXPECT_EQ(Plain("a\\{\\*\\unheard of b"), u"a{of b");
  EXPECT_EQ(Plain("a{\\* text \\unheard of}b"), u"a text ofb");
  EXPECT_EQ(Plain("a{\\*{\\b text}\\unheard of}b"), u"atextofb");
}

TEST(RtfPlainText, AKnownDestinationHidesItsTextWhereverItStands) {
  EXPECT_EQ(Plain("a{\\b\\*\\bkmkstart of}b"), u"ab");
  EXPECT_EQ(Plain("a{x\\footnote of}b"), u"axb");
}

TEST(RtfPlainText, ShapesShowTheirTextAndPicture) {
  EXPECT_EQ(Plain("a{\\shp{\\*\\shpinst\\shpleft0{\\sp{\\sn shapeType}{\\sv 202}}{\\shptxt box}}"
                  "{\\shprslt{\\*\\do box}}}b"),
            u"aboxb");
  EXPECT_EQ(Plain("a{\\shp{\\*\\shpinst{\\sp{\\sn pib}{\\sv{\\pict\\pngblip 89}}}}}b"), u"a b");
  EXPECT_EQ(Plain("a{\\shp{\\*\\shpinst{\\sp{\\sn fillBlip}{\\sv{\\pict\\pngblip 89}}}}}b"), u"ab");
}

TEST(RtfPlainText, OnlyAPropertyOfTheWholeNameShowsThePictureOfAShape) {
  for (const std::string name : {"pi", "pibName", "pibFlags", "pibNameOfAPicture", "Xpib"}) {
    EXPECT_EQ(Plain("a{\\shp{\\*\\shpinst{\\sp{\\sn " + name + "}{\\sv{\\pict\\pngblip 89}}}}}b"),
              u"ab")
        << name;
  }
}

TEST(RtfPlainText, UnicodeAlternativesTakeThePlaceOfTheirEightBitForm) {
  EXPECT_EQ(Plain("a{\\upr{x\\'d3}{\\*\\ud{\\u1587?}}}b"), u"aسb");
}

TEST(RtfPlainText, WhatIsNotTheBodyIsLeftOut) {
  EXPECT_EQ(Plain("{\\stylesheet{\\s0 Normal;}}{\\info{\\title T}}{\\*\\generator G;}a"), u"a");
  EXPECT_EQ(Plain("{\\header h\\par}{\\footerl f}a{\\super\\chftn{\\footnote note}}b"), u"ab");
  EXPECT_EQ(Plain("{\\*\\unheard of{\\b it}\\bin2 }}}a"), u"a");
  EXPECT_EQ(Plain("{\\*\\unheard of\\binder3 }abc"), u"abc");
  EXPECT_EQ(Plain("{\\*\\bkmkstart x}a{\\*\\bkmkend x}{\\xe\\v index}"), u"a");
  EXPECT_EQ(Plain("a{\\deleted out\\'d3\\u1587?{\\pict 00}}b\\deleted c\\deleted0 d"), u"abd");
}

TEST(RtfPlainText, HiddenTextIsText) {
  EXPECT_EQ(Plain("a{\\v hidden\\'d3\\u1587?}b\\v c\\v0 d"), u"ahiddenسسbcd");
}

TEST(RtfPlainText, UnknownWordsAreNothing) {
  EXPECT_EQ(Plain("a\\foo12 b{\\bar-3 c}\\;\\:d"), u"abcd");
}

TEST(RtfPlainText, ListLabelsStayAsText) {
  EXPECT_EQ(
      Plain("{\\listtext\\pard\\plain 1.\\tab}one\\par{\\pntext\\f2\\'B7\\tab}{\\*\\pn\\pnlvlblt"
            "{\\pntxtb\\'B7}}two"),
      u"1.\tone\r\n\u2022\ttwo");
}

// Broken input.

TEST(RtfPlainText, ReadingEndsWithTheOutermostGroup) {
  EXPECT_EQ(PlainText("{\\rtf1 a}b}{\\rtf1 c}"), u"a");
  EXPECT_EQ(PlainText("{\\rtf1 a}}}}"), u"a");
}

TEST(RtfPlainText, CutOffInputGivesWhatStandsThere) {
  EXPECT_EQ(PlainText("{\\rtf1 a{\\b b"), u"ab");
  EXPECT_EQ(PlainText("{\\rtf1 a\\"), u"a");
  EXPECT_EQ(PlainText("{\\rtf1 a\\'"), u"a");
  EXPECT_EQ(PlainText("{\\rtf1 a\\'e"), u"a");
  EXPECT_EQ(PlainText("{\\rtf1 a\\u"), u"a");
  EXPECT_EQ(PlainText("{\\rtf1 a\\u-"), u"a");
  EXPECT_EQ(PlainText("{\\rtf1 a{\\pict\\pngblip 89"), u"a ");
  EXPECT_EQ(PlainText("{\\rtf1 a{\\*\\x y"), u"a");
  EXPECT_EQ(PlainText("{\\rtf"), u"");
}

TEST(RtfPlainText, WrongHexadecimalDigitsAreSteppedOver) {
  EXPECT_EQ(Plain("a\\'zzb\\'4"), u"azzb4");
  EXPECT_EQ(PlainText(u"{\\rtf1 a\\'\u06434b}"), u"a\u06434b");
  for (char16_t unit = 0x100; unit < 0x800; ++unit) {
    const Text two(2, unit);
    EXPECT_EQ(PlainText(u"{\\rtf1 a\\'" + two + u"b}"), u"a" + two + u"b");
  }
  EXPECT_EQ(PlainText(u"{\\rtf1 a\\'4\u0134b}"), u"a4\u0134b");
}

TEST(RtfPlainText, NulsAreNothing) {
  EXPECT_EQ(PlainText(std::string("{\\rtf1 a\0b\\b\0c\\'00}", 19)), u"abc");
}

TEST(RtfPlainText, BinaryDataNeverReachesPastTheInput) {
  EXPECT_EQ(Plain("a{\\pict\\bin4294967295 xx}}"), u"a ");
  EXPECT_EQ(Plain("a{\\pict\\bin-1 00}b"), u"a b");
  EXPECT_EQ(Plain("a\\bin99999999999999999999 b"), u"a");
  EXPECT_EQ(Read(Rich("a{\\pict\\pngblip\\bin4294967295 xx}}")).paragraphs.size(), 1U);
}

TEST(RtfPlainText, NumbersOfAnyLengthAreRead) {
  const std::string digits(400, '9');
  EXPECT_EQ(
      Plain("a\\fs" + digits + " b\\f-" + digits + " c\\cf" + digits + "\\uc" + digits + " d"),
      u"abcd");
  EXPECT_EQ(Plain("a\\u" + digits + "?b"), u"a\uFFFDb");
}

TEST(RtfPlainText, GroupsNestAsDeepAsTheyLike) {
  constexpr std::size_t kDepth = 1'000'000;
  const std::string open(kDepth, '{');
  EXPECT_EQ(Plain(open + "a" + std::string(kDepth, '}') + "b"), u"ab");
  EXPECT_EQ(Plain(open + "a"), u"a");
  EXPECT_EQ(Plain(Repeated("{\\v", kDepth) + "a" + std::string(kDepth, '}') + "b"), u"b");
  EXPECT_EQ(Plain("{\\*\\x" + open + std::string(kDepth, '}') + "}b"), u"b");
  EXPECT_EQ(TextOf(Read(Rich(Repeated("{\\b", kDepth) + " a"))), u"a");
}

TEST(RtfPlainText, AControlWordMayBeMegabytesLong) {
  EXPECT_EQ(Plain("a\\" + Repeated("b", 10'000'000) + " c"), u"ac");
}

TEST(RtfPlainText, PicturesMayBeMegabytesLong) {
  const std::string rtf = Rich("a{\\pict\\pngblip " + Repeated("89ab\r\n", 1'000'000) + "}b");
  EXPECT_EQ(PlainText(rtf), u"a b");
  const Document document = Read(rtf);
  EXPECT_EQ(std::get<Picture>(document.paragraphs[0].runs[1].content).bytes.size(), 2'000'000U);
}

TEST(RtfPlainText, ALongFontNameIsKeptOnlyInPart) {
  const std::string rtf = "{\\rtf1{\\fonttbl{\\f0 " + std::string(1'000'000, 'n') + ";}}" +
                          Repeated("\\b a\\b0 b", 10'000) + "}";
  const Document document = Read(rtf);
  EXPECT_EQ(document.paragraphs[0].runs.size(), 20'000U);
  EXPECT_EQ(document.paragraphs[0].runs[0].format.font.size(), kLongestFontName);
}

TEST(RtfPlainText, TextLongerThanAChunkStaysWhole) {
  for (const std::size_t count : {8'191U, 8'192U, 8'193U, 50'000U}) {
    EXPECT_EQ(Plain(std::string(count, 'x')), Text(count, u'x'));
    EXPECT_EQ(Plain(Repeated("\\'d3", count)), Text(count, u'س'));
    EXPECT_EQ(Plain(Repeated("\\u1587?", count)), Text(count, u'س'));
    EXPECT_EQ(TextOf(Read(Rich(Repeated("\\'d3", count)))), Text(count, u'س'));
  }
}

TEST(RtfPlainText, ASubstituteWithoutDigitsTakesNothingThatFollows) {
  const std::string rtf = Rich("{\\pict\\b\\u8\\'}\\{");
  EXPECT_EQ(PlainText(rtf), u" {");
  EXPECT_EQ(TextOf(Read(rtf)), u" {");
  EXPECT_EQ(Plain("\\u1587\\'g12"), u"سg12");
  EXPECT_EQ(Plain("\\u1587\\'1g2"), u"س1g2");
  EXPECT_EQ(Plain("\\u1587\\'3fg"), u"سg");
}

TEST(RtfPlainText, ControlCharactersWrittenAsNumbersAreThatAndNoParagraphs) {
  EXPECT_EQ(Plain("a\\u12?b\\u11?c\\u26?d"),
            u"a\fb\vc\x1A"
            u"d");
  const Text text =
      u"a\fb\vc\x1A"
      u"d\x01";
  Document document;
  document.paragraphs.push_back({.runs = {{{}, text}}});
  EXPECT_EQ(Read(Write(document)), document);
  EXPECT_EQ(PlainText(Write(document)), text);
}

}  // namespace
}  // namespace platform::rtf
