#include <gtest/gtest.h>

#include <string>

#include "platform/rtf/rtf.h"
#include "rtf_testing.h"

namespace platform::rtf {
namespace {

std::vector<Run> Runs(const std::string& body) { return Read(Rich(body)).paragraphs.front().runs; }

CharacterFormat FormatOf(const std::string& words) { return Runs(words + " x").back().format; }

Picture PictureOf(const std::string& inside) {
  return std::get<Picture>(Runs("{\\pict" + inside + "}").at(0).content);
}

TEST(RtfRead, TextIsARunOfTheDefaultFont) {
  const Document document = Read(Rich("abc"));
  ASSERT_EQ(document.paragraphs.size(), 1U);
  ASSERT_EQ(document.paragraphs[0].runs.size(), 1U);
  EXPECT_EQ(std::get<Text>(document.paragraphs[0].runs[0].content), u"abc");
  EXPECT_EQ(document.paragraphs[0].runs[0].format, CharacterFormat{.font = u"Tahoma"});
}

TEST(RtfRead, AnEmptyTextIsOneEmptyParagraph) {
  EXPECT_EQ(Read("{\\rtf1}").paragraphs.size(), 1U);
  EXPECT_EQ(Read("{\\rtf1\\par}").paragraphs.size(), 1U);
  EXPECT_EQ(Read("{\\rtf1\\par\\par}").paragraphs.size(), 2U);
}

TEST(RtfRead, CharacterFormats) {
  EXPECT_TRUE(FormatOf("\\b").bold);
  EXPECT_FALSE(FormatOf("\\b\\b0").bold);
  EXPECT_TRUE(FormatOf("\\i").italic);
  EXPECT_TRUE(FormatOf("\\uldb").underline);
  EXPECT_FALSE(FormatOf("\\ul\\ulnone").underline);
  EXPECT_FALSE(FormatOf("\\ul\\ul0").underline);
  EXPECT_TRUE(FormatOf("\\strike").strikeOut);
  EXPECT_TRUE(FormatOf("\\striked1").strikeOut);
  EXPECT_EQ(FormatOf("\\fs28").halfPoints, 28);
  EXPECT_EQ(FormatOf("\\fs-5").halfPoints, 0);
  EXPECT_EQ(FormatOf("\\f1").font, u"Arial");
  EXPECT_EQ(FormatOf("\\f99").font, u"");
  EXPECT_EQ(FormatOf("\\b\\i\\ul\\strike\\fs50\\f1\\cf1\\highlight2\\plain"),
            CharacterFormat{.font = u"Tahoma"});
}

TEST(RtfRead, Colours) {
  EXPECT_EQ(FormatOf("\\cf1").colour, 0xFF0000);
  EXPECT_EQ(FormatOf("\\cf2").colour, 0x010203);
  EXPECT_EQ(FormatOf("\\cf0").colour, kAutomatic);
  EXPECT_EQ(FormatOf("\\cf3").colour, kAutomatic);
  EXPECT_EQ(FormatOf("\\cf-1").colour, kAutomatic);
  EXPECT_EQ(FormatOf("\\highlight2").background, 0x010203);
  EXPECT_EQ(FormatOf("\\chcbpat1").background, 0xFF0000);
  EXPECT_EQ(FormatOf("\\cb1\\highlight0").background, kAutomatic);
}

TEST(RtfRead, RightToLeftRunsUseTheAssociatedFormat) {
  const CharacterFormat format = FormatOf("\\ltrch\\f1\\fs20\\b\\rtlch\\af0\\afs28\\ab0\\ai");
  EXPECT_EQ(format.font, u"Tahoma");
  EXPECT_EQ(format.halfPoints, 28);
  EXPECT_FALSE(format.bold);
  EXPECT_TRUE(format.italic);
  const CharacterFormat latin = FormatOf("\\rtlch\\af0\\afs28\\ab\\ltrch\\f1\\fs20");
  EXPECT_EQ(latin, (CharacterFormat{.font = u"Arial", .halfPoints = 20}));
  EXPECT_TRUE(FormatOf("\\b\\rtlch").bold);
}

TEST(RtfRead, FormatsEndWithTheirGroup) {
  const auto runs = Runs("a{\\b b{\\i c}d}e");
  ASSERT_EQ(runs.size(), 5U);
  EXPECT_TRUE(runs[2].format.bold && runs[2].format.italic);
  EXPECT_TRUE(runs[3].format.bold && !runs[3].format.italic);
  EXPECT_FALSE(runs[4].format.bold);
}

TEST(RtfRead, NeighboursOfOneFormatAreOneRun) {
  EXPECT_EQ(Runs("a{\\b0 b}\\i\\i0 c{\\*\\x}{\\b{}}d").size(), 1U);
}

TEST(RtfRead, ParagraphFormats) {
  const Document document = Read(
      Rich("\\pard\\rtlpar\\qr a\\par b\\par\\pard c\\par\\ltrpar\\qc d\\par\\qj e\\par\\ql f"));
  ASSERT_EQ(document.paragraphs.size(), 6U);
  const auto is = [&](std::size_t index, Alignment alignment, Direction direction) {
    return document.paragraphs[index].alignment == alignment &&
           document.paragraphs[index].direction == direction;
  };
  EXPECT_TRUE(is(0, Alignment::kRight, Direction::kRightToLeft));
  EXPECT_TRUE(is(1, Alignment::kRight, Direction::kRightToLeft));
  EXPECT_TRUE(is(2, Alignment::kLeft, Direction::kLeftToRight));
  EXPECT_TRUE(is(3, Alignment::kCentre, Direction::kLeftToRight));
  EXPECT_TRUE(is(4, Alignment::kJustified, Direction::kLeftToRight));
  EXPECT_TRUE(is(5, Alignment::kLeft, Direction::kLeftToRight));
}

TEST(RtfRead, AnUnclosedLastParagraphKeepsItsFormat) {
  const Document document = Read("{\\rtf1\\pard\\rtlpar\\qc a}");
  EXPECT_EQ(document.paragraphs[0].alignment, Alignment::kCentre);
  EXPECT_EQ(document.paragraphs[0].direction, Direction::kRightToLeft);
}

TEST(RtfRead, ALineBreakStaysInItsParagraph) {
  const Document document = Read(Rich("a\\line b"));
  ASSERT_EQ(document.paragraphs.size(), 1U);
  EXPECT_EQ(TextOf(document), u"a\r\nb");
  EXPECT_EQ(std::get<Text>(document.paragraphs[0].runs[0].content), u"a\u2028b");
}

TEST(RtfRead, PicturesByKind) {
  EXPECT_EQ(PictureOf("\\pngblip\\picwgoal300\\pichgoal200 8950\r\n4e47"),
            (Picture{PictureKind::kPng, "\x89PNG", 300, 200}));
  EXPECT_EQ(PictureOf("\\jpegblip FFd8"), (Picture{PictureKind::kJpeg, "\xFF\xD8", 0, 0}));
  EXPECT_EQ(PictureOf("\\dibitmap0 2800"),
            (Picture{PictureKind::kBitmap, std::string("\x28\0", 2), 0, 0}));
}

TEST(RtfRead, BinaryPicturesHoldAnyByte) {
  EXPECT_EQ(PictureOf("\\pngblip\\bin5 }{\\\n ").bytes, "}{\\\n ");
  EXPECT_EQ(
      std::get<Picture>(
          Read(TextView(u"{\\rtf1{\\pict\\pngblip\\bin2 \u00FF}}}")).paragraphs[0].runs[0].content)
          .bytes,
      "\xFF}");
}

TEST(RtfRead, GroupsInsideAPictureAreNoPartOfItsData) {
  EXPECT_EQ(
      PictureOf("\\pngblip 89{\\*\\blipuid 01}{\\*\\unheard 02}{\\*\\b 03}{\\sp{\\sn 04}}4e").bytes,
      "\x89N");
}

TEST(RtfRead, PictureScalesCountInItsGoalSize) {
  const Picture picture =
      PictureOf("\\picscalex50\\picscaley200\\picwgoal300\\pichgoal200\\pngblip 00");
  EXPECT_EQ(picture.widthTwips, 150);
  EXPECT_EQ(picture.heightTwips, 400);
  EXPECT_EQ(PictureOf("\\pngblip\\picwgoal2147483647\\picscalex2147483647").widthTwips, 2147483647);
}

TEST(RtfRead, APictureThatCannotBeShownKeepsItsPlace) {
  EXPECT_EQ(PictureOf("\\wmetafile8\\picwgoal300\\pichgoal200 0102"),
            (Picture{PictureKind::kPng, "", 300, 200}));
  EXPECT_EQ(PictureOf("\\emfblip 0102"), Picture{});
}

TEST(RtfRead, PicturesStandBetweenTheRunsOfTheirParagraph) {
  const auto runs = Runs("a{\\pict\\pngblip 00}b{\\b{\\pict\\pngblip 00}{\\pict 00}}");
  ASSERT_EQ(runs.size(), 5U);
  EXPECT_TRUE(std::holds_alternative<Picture>(runs[1].content));
  EXPECT_TRUE(runs[4].format.bold);
}

TEST(RtfRead, FontNamesInAnyWriting) {
  const auto fontOf = [](const std::string& table) {
    return Read("{\\rtf1{\\fonttbl" + table + "}\\f1 a}").paragraphs[0].runs[0].format.font;
  };
  EXPECT_EQ(fontOf("\\f0\\fnil A;\\f1\\froman B C;"), u"B C");
  EXPECT_EQ(fontOf("{\\f1\\fcharset178 {\\*\\panose 0102}\\'d3;{\\*\\falt X}}"), u"س");
  EXPECT_EQ(fontOf("{\\f1\\fcharset128 \\'82\\'6c\\'82r;}"), u"\uFF2D\uFF33");
  EXPECT_EQ(fontOf("{\\f1 \\u1587?a}"), u"سa");
  EXPECT_EQ(fontOf("{\\f0 A;}"), u"");
}

}  // namespace
}  // namespace platform::rtf
