#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/rtf/rtf.h"
#include "rtf_testing.h"

namespace platform::rtf {
namespace {

using Lines = std::vector<Text>;

std::string Sample(const std::string& name) { return ReadSample(SampleFolder() / name); }

// The plain text that a program made of its own rich text: UTF-8, with or without a mark, a line
// end or none after the last line.
Lines LinesOf(const std::string& name) {
  Text text = Replace(FromUtf8(Sample(name)), u"\uFEFF", u"");
  if (text.ends_with(u'\n')) text.pop_back();
  return Split(text, u"\n");
}

Lines OurLines(const std::string& name) { return Split(PlainText(Sample(name)), kCrLf); }

void ForEach(Lines& lines, auto change) {
  for (Text& line : lines) line = change(line);
}

void Drop(Lines& lines, auto isUnwanted) { std::erase_if(lines, isUnwanted); }

bool IsEmpty(const Text& line) { return line.empty(); }

// Cells one below the other, as both programs write them.
Lines CellsOf(const Lines& lines) {
  Lines cells;
  for (const Text& line : lines) {
    for (const Text& cell : Split(line, u"\t")) cells.push_back(cell);
  }
  Drop(cells, IsEmpty);
  return cells;
}

Text WithSingleBlanks(Text text) {
  while (text.find(u"  ") != Text::npos) text = Replace(text, u"  ", u" ");
  return text;
}

// Without what LibreOffice has around a list's label.
Text WithPlainLabel(const Text& line) { return Text(Trim(Replace(line, u"\t", u" "))); }

std::pair<Lines, Lines> OursAndTheirsWithPlainLabels(const std::string& name) {
  Lines ours = OurLines(name + ".rtf");
  Lines theirs = LinesOf(name + ".txt");
  ForEach(ours, WithPlainLabel);
  ForEach(theirs, WithPlainLabel);
  return {ours, theirs};
}

// The paragraphs without their pictures, which both programs leave out of their text.
Lines LinesWithoutPictures(const std::string& name) {
  Lines lines;
  for (const Paragraph& paragraph : Read(Sample(name)).paragraphs) {
    Text& line = lines.emplace_back();
    for (const Run& run : paragraph.runs) {
      if (const Text* const text = std::get_if<Text>(&run.content)) line += *text;
    }
  }
  return lines;
}

std::vector<Picture> PicturesOf(const std::string& name) {
  std::vector<Picture> pictures;
  for (const Paragraph& paragraph : Read(Sample(name)).paragraphs) {
    for (const Run& run : paragraph.runs) {
      if (const auto* const picture = std::get_if<Picture>(&run.content)) {
        pictures.push_back(*picture);
      }
    }
  }
  return pictures;
}

CharacterFormat FormatOf(const std::string& name, TextView text) {
  for (const Paragraph& paragraph : Read(Sample(name)).paragraphs) {
    for (const Run& run : paragraph.runs) {
      const Text* const content = std::get_if<Text>(&run.content);
      if (content != nullptr && *content == text) return run.format;
    }
  }
  ADD_FAILURE() << "no such run in " << name;
  return {};
}

TEST(RtfSamples, LibreOfficeAgreesOnParagraphs) {
  EXPECT_EQ(OurLines("libreoffice_paragraphs.rtf"), LinesOf("libreoffice_paragraphs.txt"));
  EXPECT_EQ(OurLines("libreoffice_formats.rtf"), LinesOf("libreoffice_formats.txt"));
  EXPECT_EQ(OurLines("libreoffice_symbols.rtf"), LinesOf("libreoffice_symbols.txt"));
}

TEST(RtfSamples, AbiWordAgreesOnParagraphs) {
  EXPECT_EQ(OurLines("abiword_paragraphs.rtf"), LinesOf("abiword_paragraphs.txt"));
  EXPECT_EQ(OurLines("abiword_formats.rtf"), LinesOf("abiword_formats.txt"));
}

// AbiWord puts a mark of its own before a paragraph that doesn't begin with its direction.
TEST(RtfSamples, AbiWordAgreesOnSymbols) {
  Lines theirs = LinesOf("abiword_symbols.txt");
  ForEach(theirs,
          [](const Text& line) { return line.starts_with(u'\u200F') ? line.substr(1) : line; });
  EXPECT_EQ(OurLines("abiword_symbols.rtf"), theirs);
}

// LibreOffice indents a label and puts a blank after it where its rich text has a tab.
TEST(RtfSamples, LibreOfficeAgreesOnLists) {
  const auto [ours, theirs] = OursAndTheirsWithPlainLabels("libreoffice_lists");
  EXPECT_EQ(ours, theirs);
}

// AbiWord writes whole items as list labels, and loses them when it reads that again.
TEST(RtfSamples, AbiWordAgreesOnListsButForTheItemsThatItLoses) {
  Lines ours = OurLines("abiword_lists.rtf");
  EXPECT_EQ(ours.size(), 9U);
  EXPECT_EQ(ours.at(1), u"\tسیب");
  Drop(ours, [](const Text& line) { return line.starts_with(u'\t'); });
  EXPECT_EQ(ours, LinesOf("abiword_lists.txt"));
}

TEST(RtfSamples, BothAgreeOnTables) {
  for (const std::string name : {"libreoffice_table", "abiword_table"}) {
    const Lines ours = OurLines(name + ".rtf");
    EXPECT_EQ(ours.at(1), u"نام\tسال\tجای\t") << name;
    Lines theirs = LinesOf(name + ".txt");
    Drop(theirs, IsEmpty);
    EXPECT_EQ(CellsOf(ours), theirs) << name;
  }
}

// LibreOffice leaves notes out as we do, and has one blank more where the note's number was.
TEST(RtfSamples, LibreOfficeAgreesOnNotes) {
  Lines ours = OurLines("libreoffice_note.rtf");
  Lines theirs = LinesOf("libreoffice_note.txt");
  ForEach(ours, WithSingleBlanks);
  ForEach(theirs, WithSingleBlanks);
  EXPECT_EQ(ours, theirs);
}

// AbiWord puts the note's text into the sentence, after a line end and a tab.
TEST(RtfSamples, AbiWordAgreesOnTheTextAroundNotes) {
  const Text theirs = FromUtf8(Sample("abiword_note.txt"));
  ASSERT_NE(theirs.find(u"\n\tاین پانویس است."), Text::npos);
  EXPECT_EQ(OurLines("abiword_note.rtf"),
            Split(Replace(theirs, u"\n\tاین پانویس است.", u""), u"\n"));
}

// LibreOffice shows the note's number, a list's labels after blanks and with one after.
TEST(RtfSamples, LibreOfficeAgreesOnLinks) {
  auto [ours, theirs] = OursAndTheirsWithPlainLabels("libreoffice_links");
  ASSERT_EQ(theirs.at(1), u"see this one1, too");
  theirs.at(1) = u"see this one, too";
  EXPECT_EQ(ours, theirs);
}

// AbiWord marks a change of direction, puts a note into the text and loses the list.
TEST(RtfSamples, AbiWordAgreesOnLinksButForTheListThatItLoses) {
  Text theirs = FromUtf8(Sample("abiword_links.txt"));
  theirs = Replace(Replace(theirs, u"\n\tپانویس", u""), u"\u200F", u"");
  Lines ours = OurLines("abiword_links.rtf");
  ASSERT_EQ(ours.size(), 5U);
  EXPECT_EQ(ours.at(2), u"\tسیب");
  EXPECT_EQ(ours.at(3), u"\tانار شیرین");
  Drop(ours, [](const Text& line) { return line.starts_with(u'\t'); });
  EXPECT_EQ(ours, Split(theirs, u"\n"));
}

TEST(RtfSamples, BothAgreeOnTheTextAroundPictures) {
  for (const std::string name : {"libreoffice_pictures", "abiword_pictures"}) {
    EXPECT_EQ(LinesWithoutPictures(name + ".rtf"), LinesOf(name + ".txt")) << name;
    EXPECT_EQ(OurLines(name + ".rtf"), (Lines{u"پیش   میان   پس", u" {0}", u"پایان"})) << name;
  }
}

TEST(RtfSamples, PicturesComeWhole) {
  for (const std::string name : {"libreoffice_pictures.rtf", "abiword_pictures.rtf"}) {
    const std::vector<Picture> pictures = PicturesOf(name);
    ASSERT_EQ(pictures.size(), 3U) << name;
    EXPECT_EQ(pictures[0].kind, PictureKind::kPng);
    EXPECT_TRUE(pictures[0].bytes.starts_with("\x89PNG\r\n\x1A\n")) << name;
    EXPECT_TRUE(pictures[0].bytes.ends_with("IEND\xAE\x42\x60\x82")) << name;
    EXPECT_EQ(pictures[1].kind, PictureKind::kJpeg);
    EXPECT_TRUE(pictures[1].bytes.starts_with("\xFF\xD8")) << name;
    EXPECT_TRUE(pictures[1].bytes.ends_with("\xFF\xD9")) << name;
    for (const Picture& picture : pictures) EXPECT_NEAR(picture.widthTwips, 567, 5) << name;
    EXPECT_EQ(pictures[2], pictures[0]);
  }
}

TEST(RtfSamples, FormatsComeWithTheText) {
  for (const std::string name : {"libreoffice_formats.rtf", "abiword_formats.rtf"}) {
    EXPECT_TRUE(FormatOf(name, u"درشت").bold) << name;
    EXPECT_TRUE(FormatOf(name, u"کج").italic) << name;
    EXPECT_EQ(FormatOf(name, u"بزرگ").halfPoints, 40) << name;
    EXPECT_TRUE(FormatOf(name, u"bold").bold) << name;
    EXPECT_EQ(FormatOf(name, u"red on yellow").colour, 0xC00000) << name;
    EXPECT_EQ(FormatOf(name, u"red on yellow").background, 0xFFFF00) << name;
  }
  EXPECT_TRUE(FormatOf("abiword_formats.rtf", u"زیرخط").underline);
}

TEST(RtfSamples, ParagraphsComeWithTheirAlignmentAndDirection) {
  for (const std::string name : {"libreoffice_paragraphs.rtf", "abiword_paragraphs.rtf"}) {
    const std::vector<Paragraph> paragraphs = Read(Sample(name)).paragraphs;
    ASSERT_EQ(paragraphs.size(), 9U) << name;
    EXPECT_EQ(paragraphs[0].alignment, Alignment::kRight) << name;
    EXPECT_EQ(paragraphs[0].direction, Direction::kRightToLeft) << name;
    EXPECT_EQ(paragraphs[3].alignment, Alignment::kLeft) << name;
    EXPECT_EQ(paragraphs[3].direction, Direction::kLeftToRight) << name;
    EXPECT_EQ(paragraphs[5].alignment, Alignment::kCentre) << name;
    EXPECT_EQ(paragraphs[6].alignment, Alignment::kJustified) << name;
  }
}

TEST(RtfSamples, HandWrittenOnesReadAsTheyWereMeant) {
  for (const std::string name :
       {"hand_zero_width", "hand_associated_fonts", "hand_nested_table", "hand_pictures"}) {
    EXPECT_EQ(OurLines(name + ".rtf"), LinesOf(name + ".txt")) << name;
  }
}

TEST(RtfSamples, AssociatedFontsGiveRightToLeftRunsTheirLook) {
  const CharacterFormat format = FormatOf("hand_associated_fonts.rtf", u"سلام ");
  EXPECT_EQ(format.font, u"Tahoma (Arabic)");
  EXPECT_EQ(format.halfPoints, 28);
  EXPECT_TRUE(format.bold);
  EXPECT_EQ(FormatOf("hand_associated_fonts.rtf", u"café").colour, 0xC00000);
}

TEST(RtfSamples, PlainTextIsTheTextOfTheDocument) {
  ASSERT_GE(SamplePaths().size(), 18U);
  for (const auto& path : SamplePaths()) {
    const std::string rtf = ReadSample(path);
    const Document document = Read(rtf);
    EXPECT_EQ(PlainText(rtf), TextOf(document)) << path;
    EXPECT_EQ(PlainText(Widen(rtf)), TextOf(document)) << path;
    EXPECT_EQ(Read(Widen(rtf)), document) << path;
    EXPECT_EQ(Read(Write(document)), document) << path;
  }
}

TEST(RtfSamples, CutOffAnywhereTheyStillRead) {
  constexpr std::size_t kSignature = 5;
  constexpr std::size_t kStep = 5;
  for (const auto& path : SamplePaths()) {
    const std::string rtf = ReadSample(path);
    for (std::size_t length = kSignature; length < rtf.size(); length += kStep) {
      const std::string cut = rtf.substr(0, length);
      ASSERT_EQ(PlainText(cut), TextOf(Read(cut))) << path << " at " << length;
    }
  }
}

}  // namespace
}  // namespace platform::rtf
