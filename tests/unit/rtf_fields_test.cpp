#include "platform/rtf/fields.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/rtf/rtf.h"
#include "rtf_testing.h"

namespace platform::rtf {
namespace {

std::string Field(const std::string& instruction, const std::string& result = "{\\fldrslt}") {
  return "a {\\field{\\*\\fldinst " + instruction + "}" + result + "} b";
}

Text Plain(const std::string& body) {
  EXPECT_EQ(PlainText(Rich(body)), TextOf(Read(Rich(body))));
  return PlainText(Rich(body));
}

CharacterFormat FormatOf(const std::string& body) {
  const Document document = Read(Rich(body));
  for (const auto& run : document.paragraphs[0].runs) {
    const Text* const text = std::get_if<Text>(&run.content);
    if (text != nullptr && *text != u"a " && *text != u" b") return run.format;
  }
  ADD_FAILURE() << "nothing stands between a and b";
  return {};
}

TEST(RtfSymbol, AFieldWithoutAResultShowsItsCharacter) {
  EXPECT_EQ(Plain(Field("SYMBOL 211")), u"a س b");
  EXPECT_EQ(Plain(Field("SYMBOL 211", "")), u"a س b");
  EXPECT_EQ(Plain(Field("SYMBOL 211", "{\\*\\fldrslt\\b }")), u"a س b");
  EXPECT_EQ(Plain(Field("{\\b SYM}{BOL 2}11", "{\\fldrslt{\\f1\\fs20}}")), u"a س b");
  EXPECT_EQ(Plain("a {\\field{\\fldinst{symbol 0xD3}}{\\fldrslt}} b"), u"a س b");
}

TEST(RtfSymbol, AResultThatShowsSomethingStandsForIt) {
  EXPECT_EQ(Plain(Field("SYMBOL 211", "{\\fldrslt Z}")), u"a Z b");
  EXPECT_EQ(Plain(Field("SYMBOL 211", "{\\fldrslt{\\pict\\pngblip 00}}")), u"a   b");
  EXPECT_EQ(Plain(Field("SYMBOL 211", "{\\fldrslt{\\deleted Z}}")), u"a س b");
}

TEST(RtfSymbol, TheFontNamesThePage) {
  EXPECT_EQ(Plain(Field("SYMBOL 211 \\\\f Tahoma")), u"a س b");
  EXPECT_EQ(Plain(Field("SYMBOL 211 \\\\f \"Arial\" \\\\s 12")), u"a Ó b");
  EXPECT_EQ(Plain(Field("SYMBOL 211 \\\\f\"ARIAL\"")), u"a Ó b");
  EXPECT_EQ(Plain(Field("SYMBOL 183 \\\\f Symbol \\\\s 10")), u"a \u2022 b");
  EXPECT_EQ(Plain(Field("SYMBOL 252 \\\\f \"Symbol\"")), u"a \uF0FC b");
  EXPECT_EQ(Plain(Field("SYMBOL 61692 \\\\f \"Symbol\"")), u"a \uF0FC b");
  EXPECT_EQ(Plain(Field("SYMBOL 37882 \\\\f \"MS Mincho\"")), u"a 日 b");
  EXPECT_EQ(Plain(Field("SYMBOL 177 \\\\f \"MS Mincho\"")), u"a \uFF71 b");
  EXPECT_EQ(Plain("\\f1 " + Field("SYMBOL 211")), u"a Ó b");
}

TEST(RtfSymbol, AFontThatNoTableHasIsKnownByItsName) {
  EXPECT_EQ(Plain(Field("SYMBOL 252 \\\\f Wingdings")), u"a \uF0FC b");
  EXPECT_EQ(Plain(Field("SYMBOL 252 \\\\f \"wingdings 2\"")), u"a \uF0FC b");
  EXPECT_EQ(Plain(Field("SYMBOL 211 \\\\f Nazanin")), u"a س b");
  EXPECT_EQ(FormatOf(Field("SYMBOL 211 \\\\f Nazanin")).font, u"Nazanin");
  EXPECT_EQ(Plain(Field("SYMBOL 65 \\\\f Nazanin") + Field("SYMBOL 66 \\\\f NAZANIN")),
            u"a A ba B b");
}

TEST(RtfSymbol, SwitchesSayWhatTheNumberMeans) {
  EXPECT_EQ(Plain(Field("SYMBOL 8364 \\\\u")), u"a € b");
  EXPECT_EQ(Plain(Field("SYMBOL 0x1F600 \\\\u \\\\f Arial")), u"a 😀 b");
  EXPECT_EQ(Plain(Field("SYMBOL 233 \\\\u \\\\f Tahoma")), u"a é b");
  EXPECT_EQ(Plain(Field("SYMBOL 233 \\\\a")), u"a é b");
  EXPECT_EQ(Plain(Field("SYMBOL 233 \\\\A \\\\f Tahoma \\\\h")), u"a é b");
  EXPECT_EQ(Plain(Field("SYMBOL 37882 \\\\j")), u"a 日 b");
  EXPECT_EQ(Plain(Field("SYMBOL 8364")), u"a € b");  // no page of one byte has it
  EXPECT_EQ(Plain(Field("SYMBOL 211 \\\\* MERGEFORMAT")), u"a س b");
}

TEST(RtfSymbol, ItStandsInItsFontAndSize) {
  const CharacterFormat format = FormatOf("\\b " + Field("SYMBOL 183 \\\\f Symbol \\\\s 10"));
  EXPECT_EQ(format.font, u"Symbol");
  EXPECT_EQ(format.halfPoints, 20);
  EXPECT_TRUE(format.bold);
  EXPECT_EQ(FormatOf(Field("SYMBOL 183 \\\\s 10.5")).halfPoints, 21);
  EXPECT_EQ(FormatOf("\\fs30 " + Field("SYMBOL 183 \\\\s x")).halfPoints, 30);
  EXPECT_EQ(FormatOf("\\rtlch\\af0\\afs40 " + Field("SYMBOL 65 \\\\f Arial \\\\s 10")).font,
            u"Arial");
  const auto runs = Read(Rich(Field("SYMBOL 65 \\\\f Arial \\\\s 10"))).paragraphs[0].runs;
  ASSERT_EQ(runs.size(), 3U);
  EXPECT_EQ(runs[0].format, runs[2].format);
}

TEST(RtfSymbol, WhatIsNoSymbolShowsItsResultAlone) {
  EXPECT_EQ(Plain(Field("PAGE 65")), u"a  b");
  EXPECT_EQ(Plain(Field("SYMBOLS 65")), u"a  b");
  EXPECT_EQ(Plain(Field("SYMBOL")), u"a  b");
  EXPECT_EQ(Plain(Field("SYMBOL e")), u"a  b");
  EXPECT_EQ(Plain(Field("SYMBOL 0")), u"a  b");
  EXPECT_EQ(Plain(Field("SYMBOL -65")), u"a  b");
  EXPECT_EQ(Plain(Field("SYMBOL 65x")), u"a  b");
  EXPECT_EQ(Plain(Field("SYMBOL 1114112 \\\\u")), u"a  b");
  EXPECT_EQ(Plain(Field("SYMBOL 99999999999999999999")), u"a  b");
}

TEST(RtfSymbol, FieldsOutsideOfTheBodyShowNothing) {
  EXPECT_EQ(Plain("{\\deleted " + Field("SYMBOL 65") + "}c"), u"c");
  EXPECT_EQ(Plain("{\\header " + Field("SYMBOL 65") + "}c"), u"c");
}

TEST(RtfSymbol, FieldsNest) {
  EXPECT_EQ(Plain(Field("IF x", "{\\fldrslt{\\field{\\*\\fldinst SYMBOL 65}{\\fldrslt}}}")),
            u"a A b");
  EXPECT_EQ(Plain(Field("IF {\\field{\\*\\fldinst SYMBOL 65}{\\fldrslt}}")), u"a  b");
  EXPECT_EQ(Plain(Field("SYMBOL 65") + Field("SYMBOL 66")), u"a A ba B b");
}

// Nothing inside an instruction is text of the body.
TEST(RtfSymbol, AnInstructionHoldsNoText) {
  EXPECT_EQ(
      Plain(Field(
          "x{\\object{\\result y}}{\\shp{\\*\\shpinst{\\shptxt z}}}\\par\\tab{\\pict 00}\\page")),
      u"a  b");
  EXPECT_EQ(Plain(Field("x{\\field{\\*\\fldinst y}{\\fldrslt z}}\\'d3\\u1587?\\~")), u"a  b");
  EXPECT_EQ(Plain(Field("{\\*\\datafield 00}SYMBOL 65")), u"a A b");
}

TEST(RtfSymbol, BrokenFieldsEndWhereTheyEnd) {
  EXPECT_EQ(PlainText("{\\rtf1 a{\\field{\\*\\fldinst SYMBOL 65"), u"a");
  EXPECT_EQ(PlainText("{\\rtf1 a{\\field{\\*\\fldinst SYMBOL 65}"), u"a");
  EXPECT_EQ(PlainText("{\\rtf1 a{\\*\\fldinst SYMBOL 65}b}"), u"ab");
  EXPECT_EQ(Plain(Field("SYMBOL 65 \\\\")), u"a A b");
  EXPECT_EQ(Plain(Field("SYMBOL 65 \\\\f")), u"a A b");
  EXPECT_EQ(Plain(Field("SYMBOL 65 \\\\f \"Arial")), u"a A b");
  EXPECT_EQ(Plain(Field("SYMBOL 65 \\\\s \\\\\\\\ \"\" \\\\u")), u"a A b");
  EXPECT_EQ(Plain(Field("SYMBOL 65 " + std::string(1'000'000, 'x'))), u"a A b");
}

TEST(RtfSymbol, InstructionsAreReadWordByWord) {
  const auto is = [](TextView instruction, const Symbol& symbol) {
    return ReadSymbol(instruction) == std::optional<Symbol>(symbol);
  };
  using Code = Symbol::Code;
  EXPECT_TRUE(is(u"  SYMBOL   183   \\f   \"Times New Roman\"  \\s  \"9\"  ",
                 {183, Code::kFont, u"Times New Roman", 18}));
  EXPECT_TRUE(is(u"SYMBOL 183\\fA\\s9\\u", {183, Code::kUnicode, u"A", 18}));
  EXPECT_TRUE(is(u"SYMBOL 0X41 \\j \\h", {0x41, Code::kShiftJis, u"", 0}));
  EXPECT_TRUE(is(u"SYMBOL 1114111", {0x10FFFF, Code::kFont, u"", 0}));
  EXPECT_TRUE(is(u"SYMBOL 65 \\s 16384", {65, Code::kFont, u"", 0}));
  EXPECT_TRUE(is(u"SYMBOL 65 \\s 16383", {65, Code::kFont, u"", 32766}));
  EXPECT_TRUE(is(u"SYMBOL 65 \\s -1", {65, Code::kFont, u"", 0}));
  EXPECT_FALSE(ReadSymbol(u""));
  EXPECT_FALSE(ReadSymbol(u"\\u SYMBOL 65"));
}

}  // namespace
}  // namespace platform::rtf
