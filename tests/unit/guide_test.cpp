// The delivered guide: what the help window's reader makes of it, and that it is what the source of
// the guide says.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/messages.h"
#include "platform/rtf/rtf.h"
#include "platform/text/caption.h"
#include "platform/text/text.h"
#include "support/window_catalogue.h"
#include "tests/support/known_texts.h"
#include "tests/unit/source_tree.h"
#include "workbench/marking.h"

namespace {

using platform::Text;
using platform::TextView;
using platform::rtf::Alignment;
using platform::rtf::Direction;
using platform::rtf::Document;
using platform::rtf::Paragraph;
using platform::rtf::Picture;
using platform::rtf::PictureKind;
using platform::rtf::Run;
using source_tree::Content;
using testing::Contains;
using testing::Each;
using testing::IsEmpty;
using testing::StartsWith;

// What the help window's box has beside its scroll bar, less the margins of the text.
constexpr int kWidestPictureTwips = 645 * 15;

const std::string& Rtf() {
  static const std::string kRtf = Content("Resources/Help.rtf");
  return kRtf;
}

const Document& Guide() {
  static const Document kGuide = platform::rtf::Read(Rtf());
  return kGuide;
}

std::vector<Picture> Pictures() {
  std::vector<Picture> pictures;
  for (const Paragraph& paragraph : Guide().paragraphs) {
    for (const Run& run : paragraph.runs) {
      if (const auto* picture = std::get_if<Picture>(&run.content)) pictures.push_back(*picture);
    }
  }
  return pictures;
}

std::string TextOf(const Paragraph& paragraph) {
  Text text;
  for (const Run& run : paragraph.runs) {
    if (const auto* part = std::get_if<Text>(&run.content)) text += *part;
  }
  return platform::ToUtf8(text);
}

std::vector<std::string> Paragraphs() {
  std::vector<std::string> texts;
  for (const Paragraph& paragraph : Guide().paragraphs) texts.push_back(TextOf(paragraph));
  return texts;
}

std::string Replaced(std::string text, std::string_view what, std::string_view by) {
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size())) {
    text.replace(at, what.size(), by);
  }
  return text;
}

// A line of the guide's source, by the mark that it begins with.
struct SourceLine {
  std::string mark;
  std::string text;
};

SourceLine CutMark(const std::string& line) {
  for (const char* mark : {"# ", "## ", "### ", "+ ", "- ", "! ", ";"}) {
    if (line.starts_with(mark)) return {mark, line.substr(std::string_view(mark).size())};
  }
  return {"", line};
}

std::vector<SourceLine> Source() {
  std::vector<SourceLine> lines;
  const std::string source = Content("tools/make_guide/guide.fa.txt");
  for (std::size_t at = 0; at < source.size();) {
    const std::size_t end = std::min(source.find('\n', at), source.size());
    lines.push_back(CutMark(source.substr(at, end - at)));
    at = end + 1;
  }
  return lines;
}

// The lines with that mark, as the guide shows them.
std::vector<std::string> SourceTexts(std::string_view mark) {
  std::vector<std::string> texts;
  for (const SourceLine& line : Source()) {
    if (line.mark == mark) texts.push_back(Replaced(Replaced(line.text, "**", ""), "`", ""));
  }
  return texts;
}

std::vector<std::string> Words(const std::string& text) {
  std::vector<std::string> words;
  for (std::size_t at = text.find_first_not_of(' '); at != std::string::npos;) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    words.push_back(text.substr(at, end - at));
    at = text.find_first_not_of(' ', end);
  }
  return words;
}

std::uint32_t NumberAt(std::string_view bytes, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t i = at; i < at + 4; ++i) {
    number = number << 8 | static_cast<unsigned char>(bytes.at(i));
  }
  return number;
}

// The check sum of a PNG's chunks (ISO 3309, as PNG has it).
std::uint32_t CheckSum(std::string_view bytes) {
  std::uint32_t sum = 0xFFFFFFFFU;
  for (const char byte : bytes) {
    sum ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit) sum = (sum & 1U) != 0 ? sum >> 1 ^ 0xEDB88320U : sum >> 1;
  }
  return ~sum;
}

// The names of a PNG's chunks, up to the first that is cut short or doesn't match its sum.
std::vector<std::string> WholeChunks(std::string_view png) {
  constexpr std::size_t kFrame = 12;  // length, name and sum
  std::vector<std::string> names;
  std::size_t at = 8;
  while (at + kFrame <= png.size()) {
    const std::size_t length = NumberAt(png, at);
    if (length > png.size() - at - kFrame) break;
    const std::string_view summed = png.substr(at + 4, 4 + length);
    if (CheckSum(summed) != NumberAt(png, at + 8 + length)) break;
    names.emplace_back(summed.substr(0, 4));
    at += kFrame + length;
  }
  if (at != png.size()) names.emplace_back("cut");
  return names;
}

TEST(Guide, IsSevenBitRichText) {
  EXPECT_THAT(Rtf(), StartsWith("{\\rtf1\\ansi"));
  EXPECT_THAT(
      Rtf(),
      Each(testing::Truly([](char byte) { return byte == '\n' || (byte >= ' ' && byte <= '~'); })));
  EXPECT_LT(Rtf().size(), 2'500'000U);
}

TEST(Guide, BeginsWithItsTitle) {
  EXPECT_THAT(platform::ToUtf8(platform::rtf::PlainText(Rtf())),
              StartsWith("راهنماي استفاده از نرم\u200Cافزار\r\n"));
}

TEST(Guide, HoldsEveryHeadingAsAParagraphOfItsOwn) {
  const std::vector<std::string> paragraphs = Paragraphs();
  for (const char* mark : {"# ", "## ", "### "}) {
    const std::vector<std::string> headings = SourceTexts(mark);
    EXPECT_THAT(headings, testing::Not(IsEmpty())) << mark;
    for (const std::string& heading : headings) EXPECT_THAT(paragraphs, Contains(heading));
  }
}

TEST(Guide, HasLargerAndBoldHeadings) {
  const Paragraph& title = Guide().paragraphs.front();
  ASSERT_EQ(title.runs.size(), 1U);
  EXPECT_TRUE(title.runs[0].format.bold);
  EXPECT_EQ(title.runs[0].format.font, u"Tahoma");
  EXPECT_EQ(title.runs[0].format.halfPoints, 44);
  EXPECT_EQ(title.alignment, Alignment::kCentre);
}

TEST(Guide, RunsFromRightToLeftThroughout) {
  for (const Paragraph& paragraph : Guide().paragraphs) {
    EXPECT_EQ(paragraph.direction, Direction::kRightToLeft) << TextOf(paragraph);
    EXPECT_THAT(paragraph.alignment, testing::AnyOf(Alignment::kRight, Alignment::kCentre))
        << TextOf(paragraph);
  }
}

TEST(Guide, HasLostNoCharacter) {
  const Text text = platform::rtf::PlainText(Rtf());
  EXPECT_EQ(text.find(u'?'), Text::npos);
  EXPECT_EQ(text.find(u'\uFFFD'), Text::npos);
  // A letter that the code page of the input texts lacks, and Persian digits.
  EXPECT_NE(text.find(u"«ی»"), Text::npos);
  EXPECT_NE(text.find(u"۱. "), Text::npos);
}

TEST(Guide, WritesThePersianLettersThatTheWindowsHave) {
  const Text text = platform::rtf::PlainText(Rtf());
  // The other ye and the other kaf are only named.
  for (auto at = text.find_first_of(u"\u06CC\u06A9"); at != Text::npos;
       at = text.find_first_of(u"\u06CC\u06A9", at + 1)) {
    EXPECT_EQ(Text(text, at - 1, 1) + Text(text, at + 1, 1), u"«»");
  }
}

TEST(Guide, SaysWhatItsSourceSays) {
  std::string guide = platform::ToUtf8(platform::rtf::PlainText(Rtf()));
  guide = Replaced(Replaced(guide, "\u200E", ""), "\u00A0", " ");
  std::size_t at = 0;
  for (const SourceLine& line : Source()) {
    if (line.mark == ";") continue;
    std::vector<std::string> words = Words(Replaced(Replaced(line.text, "**", ""), "`", ""));
    if (line.mark == "! ") words.erase(words.begin());  // the picture's name
    for (const std::string& word : words) {
      const std::size_t found = guide.find(word, at);
      ASSERT_NE(found, std::string::npos) << word << " of " << line.text;
      ASSERT_LT(found - at, 40U) << word << " of " << line.text;
      at = found + word.size();
    }
  }
}

TEST(Guide, ShowsThePicturesThatItsSourceNames) {
  const std::vector<std::string> named = SourceTexts("! ");
  const std::vector<Picture> pictures = Pictures();
  ASSERT_EQ(pictures.size(), named.size());
  for (std::size_t i = 0; i < named.size(); ++i) {
    const std::string name = Words(named[i]).front() + ".png";
    EXPECT_TRUE(pictures[i].bytes == Content("tools/make_guide/pictures/" + name)) << name;
  }
}

TEST(Guide, HasPicturesThatDecodeAndFitTheBox) {
  for (const Picture& picture : Pictures()) {
    ASSERT_EQ(picture.kind, PictureKind::kPng);
    ASSERT_THAT(picture.bytes, StartsWith("\x89PNG\r\n\x1A\n"));
    const std::vector<std::string> chunks = WholeChunks(picture.bytes);
    EXPECT_EQ(chunks.front(), "IHDR");
    EXPECT_THAT(chunks, Contains("IDAT"));
    EXPECT_EQ(chunks.back(), "IEND");
    // One pixel of a picture is one of the window.
    EXPECT_EQ(picture.widthTwips, 15 * static_cast<int>(NumberAt(picture.bytes, 16)));
    EXPECT_EQ(picture.heightTwips, 15 * static_cast<int>(NumberAt(picture.bytes, 20)));
    EXPECT_LE(picture.widthTwips, kWidestPictureTwips);
  }
}

TEST(Guide, NumbersItsSteps) {
  const std::vector<std::string> paragraphs = Paragraphs();
  std::size_t steps = 0;
  for (const std::string& text : paragraphs) steps += text.starts_with("۱. ") ? 1U : 0U;
  EXPECT_GT(steps, 5U);
  EXPECT_THAT(paragraphs, Contains(StartsWith("۱۰. ")));
}

// A caption or message as the guide quotes it: as the screen shows it, less the marks that can't be
// seen and the count of open main titles.
std::string Shown(TextView caption) {
  const Text shown = platform::Replace(platform::ShownCaption(caption), u" (0)", u"");
  return platform::ToUtf8(platform::Replace(shown, u"\u200F", u""));
}

// What a reader takes for the same words.
std::string Loose(std::string words) {
  for (const char* sign : {"\u200C", "\u200F", " ", ":", "!"}) words = Replaced(words, sign, "");
  return Replaced(Replaced(words, "ی", "ي"), "ک", "ك");
}

// Everything that the windows and the numbered messages show, by its loose form.
std::multimap<std::string, std::string> WordsOfTheScreen() {
  std::multimap<std::string, std::string> words;
  const auto add = [&](TextView text) { words.emplace(Loose(Shown(text)), Shown(text)); };
  for (const auto* window :
       {&support::Form1Definition(), &support::Form2Definition(), &support::Form3Definition(),
        &support::Form4Definition(), &support::Form5Definition(), &support::Form6Definition(),
        &support::RecoveryDefinition()}) {
    for (const platform::ControlRow& row : window->rows) add(row.text);
  }
  for (std::int16_t number = 1; number <= 29; ++number) add(core::MessageText(number));
  return words;
}

// What stands in the text between two signs.
std::vector<std::string> Between(const std::string& text, std::string_view open,
                                 std::string_view close) {
  std::vector<std::string> found;
  for (auto at = text.find(open); at != std::string::npos; at = text.find(open, at)) {
    at += open.size();
    const auto end = std::min(text.find(close, at), text.size());
    found.push_back(text.substr(at, end - at));
    at = end + close.size();
  }
  return found;
}

// What the text quotes; a quotation within another belongs to that.
std::vector<std::string> Quotations(const std::string& text) {
  constexpr std::string_view kOpen = "«";
  constexpr std::string_view kClose = "»";
  std::vector<std::string> found;
  int depth = 0;
  std::size_t start = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text.compare(at, kOpen.size(), kOpen) == 0 && depth++ == 0) start = at + kOpen.size();
    if (text.compare(at, kClose.size(), kClose) == 0 && --depth == 0) {
      found.push_back(text.substr(start, at - start));
    }
  }
  return found;
}

TEST(Guide, QuotesCaptionsAndMessagesToTheLetter) {
  const auto screen = WordsOfTheScreen();
  int quoted = 0;
  for (const std::string& text : Quotations(Content("tools/make_guide/guide.fa.txt"))) {
    const auto [first, last] = screen.equal_range(Loose(text));
    if (first == last) continue;
    ++quoted;
    EXPECT_TRUE(std::any_of(first, last, [&](const auto& each) { return each.second == text; }))
        << text << " is " << first->second;
  }
  EXPECT_GT(quoted, 100);
}

TEST(Guide, ExplainsNothingThatTheScreenDoesNotShow) {
  // In no table: buttons of a box, and a box of a command's own.
  const platform::Text notice = testing_support::KnownText("notice");
  const std::set<std::string> boxes = {
      "بله", "خير", platform::ToUtf8(platform::Replace(notice, platform::kRightToLeftMark, u""))};
  const auto screen = WordsOfTheScreen();
  for (const std::string& bold : Between(Content("tools/make_guide/guide.fa.txt"), "**", "**")) {
    for (const std::string& text : Quotations(bold)) {
      EXPECT_TRUE(boxes.contains(text) || screen.contains(Loose(text))) << text;
    }
  }
}

TEST(Guide, PointsToSectionsThatItHas) {
  std::vector<std::string> headings = SourceTexts("## ");
  std::ranges::copy(SourceTexts("### "), std::back_inserter(headings));
  const auto named = Between(Content("tools/make_guide/guide.fa.txt"), "بخش «", "»");
  EXPECT_THAT(named, testing::SizeIs(testing::Gt(2U)));
  for (const std::string& heading : named) EXPECT_THAT(headings, Contains(heading));
}

// What the guide's list says of a function key; empty if it has no item of its own.
std::string ItemOfKey(int number) {
  const std::string start = "• F" + std::to_string(number) + " ";
  for (const std::string& text : Paragraphs()) {
    if (text.starts_with(start)) return text;
  }
  return {};
}

Text CaptionOf(TextView name, int index) {
  const auto rows = support::Form3Definition().rows;
  const auto row = std::ranges::find_if(rows, [&](const platform::ControlRow& each) {
    return each.name == name && each.index == index;
  });
  return Text(row->text);
}

TEST(Guide, TellsOfEachKeyOfTheWorkbenchWithTheCaptionOfItsCommand) {
  constexpr int kF1 = 112;
  int keys = 0;
  for (int number = 1; number <= 12; ++number) {
    const auto key = workbench::KeyMeaning(kF1 - 1 + number);
    if (!key) continue;
    ++keys;
    const bool isTick = key->action == workbench::MarkingKey::Action::kToggleRemoval;
    const Text caption = isTick ? CaptionOf(u"Chek", platform::kNoIndex)
                                : CaptionOf(u"Com", static_cast<int>(key->command));
    EXPECT_THAT(ItemOfKey(number), testing::HasSubstr("«" + Shown(caption) + "»")) << "F" << number;
  }
  EXPECT_EQ(keys, 9);
}

TEST(Guide, NamesTheKeysThatDoNothing) {
  for (int number = 1; number <= 12; ++number) {
    const bool isTold = !ItemOfKey(number).empty();
    EXPECT_EQ(isTold, workbench::KeyMeaning(111 + number).has_value()) << "F" << number;
  }
}

}  // namespace
