// A hundred rich texts of LibreOffice and AbiWord beside each program's own plain text of them
// (data/rtf_corpus/make_corpus.py).
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/rtf/rtf.h"
#include "rtf_testing.h"

namespace platform::rtf {
namespace {

using Lines = std::vector<Text>;

struct Entry {
  std::string name;
  std::string rtf;
  std::string text;
};

std::string Bytes(std::istream& in, std::size_t count) {
  std::string bytes(count, '\0');
  in.read(bytes.data(), static_cast<std::streamsize>(count));
  return bytes;
}

std::vector<Entry> Corpus(const std::string& program) {
  std::istringstream in(
      ReadSample(SampleFolder().parent_path() / "rtf_corpus" / (program + ".corpus")));
  std::vector<Entry> entries;
  std::string name;
  std::size_t rtfSize = 0;
  std::size_t textSize = 0;
  while (in >> name >> rtfSize >> textSize) {
    in.get();
    std::string rtf = Bytes(in, rtfSize);
    entries.push_back({name, std::move(rtf), Bytes(in, textSize)});
  }
  return entries;
}

bool IsLabel(TextView word) {
  return word == u"\u2022" ||
         (word.size() == 2 && word[0] >= u'1' && word[0] <= u'9' && word[1] == u'.');
}

// What the programs don't write alike, whatever the text: how a list's labels look and count, how
// cells follow one another, how many blanks a picture or a note's place leaves. AbiWord adds marks
// of direction and keeps a page's end as a form feed.
Text WithoutLayout(Text line) {
  for (const char16_t* const mark : {u"\u200F", u"\u200E", u"\f"}) line = Replace(line, mark, u"");
  Text words;
  for (const Text& word : Split(line, u" ")) {
    const bool label = words.empty() && IsLabel(word);
    if (!word.empty() && !label) words += (words.empty() ? u"" : u" ") + word;
  }
  return words;
}

// Paragraphs, list items and cells one below the other, but for the empty ones.
Lines Paragraphs(Text text) {
  text = Replace(Replace(text, u"\uFEFF", u""), u"\r", u"");
  Lines paragraphs;
  for (const Text& line : Split(Replace(text, u"\t", u"\n"), u"\n")) {
    Text words = WithoutLayout(line);
    if (!words.empty()) paragraphs.push_back(std::move(words));
  }
  return paragraphs;
}

// The words, with the marks after them apart: a note stands between a word and its mark.
Lines Words(const Lines& paragraphs) {
  Lines words;
  for (const Text& paragraph : paragraphs) {
    for (Text word : Split(paragraph, u" ")) {
      while (!word.empty() && TextView(u".،؟!؛:").find(word.back()) != TextView::npos)
        word.pop_back();
      if (!word.empty()) words.push_back(std::move(word));
    }
  }
  return words;
}

// Whether all of `few` stands in `many` in the same order, whatever stands between; a word may
// stand at another one's end, where a hidden or a deleted text is left out without a blank.
bool StandsIn(const Lines& few, const Lines& many) {
  auto at = few.begin();
  for (auto word = many.begin(); at != few.end() && word != many.end(); ++word) {
    if (*word == *at || word->ends_with(*at) || word->starts_with(*at)) ++at;
  }
  return at == few.end();
}

bool IsOneOf(const std::string& name, const auto& kinds) {
  return std::ranges::any_of(kinds, [&](std::string_view kind) {
    return name.starts_with(kind) && name.size() == kind.size() + 1;
  });
}

// Where a program's plain text holds by its own choice more than the body, or less.
struct Choices {
  std::vector<std::string_view> more;
  std::vector<std::string_view> less;
};

void CompareAll(const std::string& program, const Choices& choices) {
  const std::vector<Entry> entries = Corpus(program);
  ASSERT_GE(entries.size(), 49U);
  for (const Entry& entry : entries) {
    const Lines ours = Paragraphs(PlainText(entry.rtf));
    const Lines theirs = Paragraphs(FromUtf8(entry.text));
    ASSERT_GE(ours.size(), 4U) << entry.name;
    if (IsOneOf(entry.name, choices.more)) {
      EXPECT_TRUE(StandsIn(Words(ours), Words(theirs))) << entry.name;
      EXPECT_NE(ours, theirs) << entry.name;
    } else if (IsOneOf(entry.name, choices.less)) {
      EXPECT_TRUE(StandsIn(Words(theirs), Words(ours))) << entry.name;
      EXPECT_NE(ours, theirs) << entry.name;
    } else {
      EXPECT_EQ(ours, theirs) << entry.name;
    }
  }
}

// It shows text that a recorded change took out, and leaves out text boxes.
TEST(RtfCorpus, LibreOfficeReadsTheSame) { CompareAll("libreoffice", {{"marks"}, {"boxes"}}); }

// It shows notes in their sentence, headers and footers after the text, hidden text, and fields by
// what they come to today; and it loses the items of lists that it has written itself.
TEST(RtfCorpus, AbiWordReadsTheSame) {
  CompareAll("abiword", {{"notes", "headers", "hidden", "fields", "mixture"}, {"lists"}});
}

TEST(RtfCorpus, BothReadersAgree) {
  for (const std::string program : {"libreoffice", "abiword"}) {
    for (const Entry& entry : Corpus(program)) {
      const Document document = Read(entry.rtf);
      EXPECT_EQ(PlainText(entry.rtf), TextOf(document)) << entry.name;
      EXPECT_EQ(Read(Write(document)), document) << entry.name;
    }
  }
}

}  // namespace
}  // namespace platform::rtf
