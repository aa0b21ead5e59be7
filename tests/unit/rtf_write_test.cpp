#include <gtest/gtest.h>

#include <random>
#include <string>

#include "platform/rtf/rtf.h"
#include "rtf_testing.h"

namespace platform::rtf {
namespace {

Document OneParagraph(const Text& text) {
  return {{{Alignment::kRight, Direction::kRightToLeft, {{CharacterFormat{}, text}}}}};
}

std::string BodyOf(const Document& document) {
  const std::string rtf = Write(document);
  const std::size_t head = rtf.find("\r\n") + 2;
  return rtf.substr(head, rtf.size() - head - 1);
}

// Documents that keep the model's rules, from a fixed seed.
class Maker {
 public:
  explicit Maker(unsigned seed) : random_(seed) {}

  Document Make() {
    Document document;
    const unsigned count = 1 + Below(5);
    for (unsigned i = 0; i < count; ++i) document.paragraphs.push_back(MakeParagraph());
    return document;
  }

 private:
  unsigned Below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }
  bool Perhaps() { return Below(4) == 0; }

  Paragraph MakeParagraph() {
    Paragraph paragraph{static_cast<Alignment>(Below(4)), static_cast<Direction>(Below(2)), {}};
    const unsigned count = Below(6);
    for (unsigned i = 0; i < count; ++i) AddRun(paragraph.runs);
    return paragraph;
  }

  void AddRun(std::vector<Run>& runs) {
    Run run{MakeFormat(), Text()};
    if (Perhaps()) {
      run.content = MakePicture();
    } else if (runs.empty() || std::holds_alternative<Picture>(runs.back().content) ||
               runs.back().format != run.format) {
      run.content = MakeText(1 + Below(20));
    } else {
      return;
    }
    runs.push_back(std::move(run));
  }

  CharacterFormat MakeFormat() {
    static const std::vector<Text> kFonts = {u"",    u"Tahoma",       u"B Nazanin", u"a;b;", u";",
                                             u" x ", u"نستعلیق {\\}", u"7",         u"ＭＳ"};
    CharacterFormat format;
    if (Perhaps()) format.font = kFonts[Below(static_cast<unsigned>(kFonts.size()))];
    if (Perhaps()) format.halfPoints = static_cast<int>(Below(kLargestHalfPoints + 1));
    format.bold = Perhaps();
    format.italic = Perhaps();
    format.underline = Perhaps();
    format.strikeOut = Perhaps();
    if (Perhaps()) format.colour = static_cast<Colour>(Below(3) * 0x7F01);
    if (Perhaps()) format.background = static_cast<Colour>(Below(0x1000000));
    return format;
  }

  Picture MakePicture() {
    Picture picture{static_cast<PictureKind>(Below(3)), "", static_cast<int>(Below(3)),
                    static_cast<int>(Below(20000))};
    const unsigned count = Below(200);
    for (unsigned i = 0; i < count; ++i) picture.bytes += static_cast<char>(Below(256));
    return picture;
  }

  Text MakeText(unsigned length) {
    Text text;
    for (unsigned i = 0; i < length; ++i) text += MakeUnit();
    return text;
  }

  char16_t MakeUnit() {
    static constexpr TextView kAwkward =
        u"\\{};-?'*~_ \t\u2028\u00A0\u00AD\u2011\u200C\u200D\u200E\u200F\u007F\u0080\u009F\uFFFD"
        u"\uFFFF\uFEFF0aمی‌پچژگي";
    const auto any = static_cast<char16_t>(0x20 + Below(0xFFE0));
    switch (Below(4)) {
      case 0:
        return static_cast<char16_t>(0x20 + Below(0x5F));
      case 1:
        return kAwkward[Below(static_cast<unsigned>(kAwkward.size()))];
      case 2:
        return static_cast<char16_t>(0x600 + Below(0x100));
      default:
        return any == u'\u2029' ? u'x' : any;
    }
  }

  std::mt19937 random_;
};

TEST(RtfWrite, AParagraphIsShort) {
  EXPECT_EQ(BodyOf(OneParagraph(u"سلام ab")), "\\pard\\rtlpar\\qr\\'d3\\'e1\\'c7\\'e3 ab\\par\r\n");
  EXPECT_EQ(BodyOf(OneParagraph(u"ab")), "\\pard\\rtlpar\\qr ab\\par\r\n");
}

TEST(RtfWrite, TheHeadNamesThePageTheFontsAndTheColours) {
  Document document = OneParagraph(u"a");
  document.paragraphs[0].runs[0].format = {.font = u"Tahoma", .halfPoints = 20, .colour = 0xFF0102};
  EXPECT_EQ(Write(document),
            "{\\rtf1\\ansi\\ansicpg1256\\uc1\\deff0{\\fonttbl{\\f0\\fnil\\fcharset178 ;}"
            "{\\f1\\fnil\\fcharset178 Tahoma;}}{\\colortbl;\\red255\\green1\\blue2;}\r\n"
            "\\pard\\rtlpar\\qr\\plain\\f1\\fs20\\cf1 a\\par\r\n}");
}

TEST(RtfWrite, EveryParagraphNamesItsDirection) {
  Document document = OneParagraph(u"a");
  document.paragraphs.push_back({Alignment::kLeft, Direction::kLeftToRight, {}});
  EXPECT_EQ(BodyOf(document), "\\pard\\rtlpar\\qr a\\par\r\n\\pard\\ltrpar\\ql\\par\r\n");
}

TEST(RtfWrite, LettersOutsideThePageAreUnicode) {
  EXPECT_EQ(BodyOf(OneParagraph(u"ی۱😀")),
            "\\pard\\rtlpar\\qr\\u1740?\\u1777?\\u-10179?\\u-8704?\\par\r\n");
}

TEST(RtfWrite, AFormatIsWrittenWhereItChanges) {
  Document document = OneParagraph(u"a");
  auto& runs = document.paragraphs[0].runs;
  CharacterFormat bold;
  bold.bold = true;
  runs.push_back({bold, Text(u"b")});
  runs.push_back({bold, Picture{PictureKind::kPng, "\x89P", 30, 0}});
  document.paragraphs.push_back({Alignment::kRight, Direction::kRightToLeft, {runs[1]}});
  EXPECT_EQ(BodyOf(document),
            "\\pard\\rtlpar\\qr a\\plain\\b b{\\pict\\pngblip\\picwgoal30\r\n8950}\\par\r\n"
            "\\pard\\rtlpar\\qr b\\par\r\n");
}

TEST(RtfWrite, OneParagraphAndOneMoreDiffer) {
  const Document one = OneParagraph(u"abc");
  Document two = one;
  two.paragraphs.push_back({Alignment::kRight, Direction::kRightToLeft, {}});
  EXPECT_EQ(Read(Write(one)), one);
  EXPECT_EQ(Read(Write(two)), two);
  EXPECT_NE(Write(one), Write(two));
}

TEST(RtfWrite, ReadingGivesBackWhatWasWritten) {
  for (unsigned seed = 0; seed < 5000; ++seed) {
    const Document document = Maker(seed).Make();
    const std::string rtf = Write(document);
    ASSERT_EQ(Read(rtf), document) << "seed " << seed << "\n" << rtf;
    ASSERT_EQ(Read(Widen(rtf)), document) << "seed " << seed;
    ASSERT_EQ(PlainText(rtf), TextOf(document)) << "seed " << seed << "\n" << rtf;
    const Text text = WriteText(document);
    ASSERT_EQ(Read(text), document) << "seed " << seed << "\n" << platform::ToUtf8(text);
    ASSERT_EQ(PlainText(text), TextOf(document)) << "seed " << seed;
  }
}

// What can't be a byte is no riddle: only signs of lines and paragraphs are spelt.
TEST(RtfWrite, InATextLettersStandForThemselves) {
  const Text rtf = WriteText(OneParagraph(u"سلام \u060C 1 \u00E9\u2028ی"));
  EXPECT_TRUE(rtf.ends_with(u"\\qr\u0633\u0644\u0627\u0645 \u060C 1 \\'e9\\line \u06CC\\par\r\n}"))
      << platform::ToUtf8(rtf);
}

TEST(RtfWrite, WhatIsWrittenIsSevenBit) {
  for (unsigned seed = 0; seed < 200; ++seed) {
    for (const char byte : Write(Maker(seed).Make())) {
      ASSERT_TRUE((byte >= 0x20 && byte < 0x7F) || byte == '\r' || byte == '\n') << seed;
    }
  }
}

TEST(RtfWrite, TheSameDocumentGivesTheSameBytes) {
  EXPECT_EQ(Write(Maker(7).Make()), Write(Maker(7).Make()));
}

TEST(RtfWrite, LeftToRightMayBeTurnedRoundInTheBytes) {
  Document document = OneParagraph(u"a");
  document.paragraphs[0].direction = Direction::kLeftToRight;
  const Text turned = Replace(Widen(Write(document)), u"\\ltrpar", u"\\rtlpar");
  EXPECT_EQ(Read(turned), OneParagraph(u"a"));
}

TEST(RtfWrite, AllLettersOfThePageComeBack) {
  Text text;
  for (char16_t unit = 0x20; unit < 0xD800; ++unit) {
    if (unit != u'\u2029') text += unit;
  }
  EXPECT_EQ(Read(Write(OneParagraph(text))), OneParagraph(text));
  EXPECT_EQ(Read(WriteText(OneParagraph(text))), OneParagraph(text));
}

}  // namespace
}  // namespace platform::rtf
