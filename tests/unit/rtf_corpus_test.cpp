// A hundred rich texts of LibreOffice and AbiWord beside each program's own plain text of them
// (data/rtf_corpus/make_corpus.py).
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
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

struct Choice {
  std::string_view name;
  TextView theirs;  // what stands once in the program's own plain text
  TextView text;    // and what should
};

// It shows what a recorded change took out, which AbiWord doesn't, and leaves out the text of boxes
// in the page, where AbiWord shows that there is some.
constexpr std::array kOfLibreOffice = std::to_array<Choice>({
    {"marks1", u"خانهٔمردم مادر چشمه", u"خانهٔ چشمه"},
    {"marks2", u"آسمانکاروان مؤمن کتاب‌ها", u"آسمان کتاب‌ها"},
    {"marks3", u"آببهار داستان مادر", u"آب مادر"},
    {"boxes1", u"\nباغ آسمان گلستان", u"\nدریا قنات سفر\nباغ آسمان گلستان"},
    {"boxes2", u"\nروز پدر مردم", u"\nخانهٔ جزئی ستاره\nروز پدر مردم"},
    {"boxes3", u"\nهستی چشمه پدر", u"\nبهار راه شب\nهستی چشمه پدر"},
});

// It writes its fields without what they came to, and shows what they come to today: the pages of
// its own layout, and the date.
constexpr std::array kOfAbiWord = std::to_array<Choice>({
    {"fields1", u"مادر 1 قنات\nداستان 21/11/26 کتاب", u"مادر قنات\nداستان کتاب"},
    {"fields2", u"مادر 1 کوه\nجزئی 21/11/26 درخت", u"مادر کوه\nجزئی درخت"},
    {"fields3", u"دریا 1 نامه‌ای\nمادر 21/11/26 زمستان",
     u"دریا نامه‌ای\nمادر زمستان"},
    {"fields4", u"درخت 1 چشمه\nپدر 21/11/26 جزئی", u"درخت چشمه\nپدر جزئی"},
});

// AbiWord puts the items of a list where list labels belong, and shows no such item; neither does
// LibreOffice. It shows notes in their sentence, headers and footers after the text. So these are
// set beside what LibreOffice shows of the same texts, which it wrote itself.
constexpr std::array<std::string_view, 4> kReadElsewhere = {"lists", "headers", "notes",
                                                            "mixture3"};

Lines Chosen(const Entry& entry, std::span<const Choice> choices) {
  Text text;
  for (const Text& paragraph : Paragraphs(FromUtf8(entry.text))) text += paragraph + u'\n';
  for (const Choice& choice : choices) {
    if (choice.name != entry.name) continue;
    EXPECT_EQ(Split(text, choice.theirs).size(), 2U) << entry.name;
    text = Replace(text, choice.theirs, choice.text);
  }
  text.pop_back();
  return Split(text, u"\n");
}

bool IsReadElsewhere(const Entry& entry) {
  return std::ranges::any_of(kReadElsewhere,
                             [&](std::string_view kind) { return entry.name.starts_with(kind); });
}

TEST(RtfCorpus, LibreOfficeReadsTheSame) {
  const std::vector<Entry> entries = Corpus("libreoffice");
  ASSERT_EQ(entries.size(), 54U);
  for (const Entry& entry : entries) {
    const Lines ours = Paragraphs(PlainText(entry.rtf));
    ASSERT_GE(ours.size(), 4U) << entry.name;
    EXPECT_EQ(ours, Chosen(entry, kOfLibreOffice)) << entry.name;
  }
}

TEST(RtfCorpus, AbiWordReadsTheSame) {
  const std::vector<Entry> entries = Corpus("abiword");
  ASSERT_EQ(entries.size(), 49U);
  for (const Entry& entry : entries) {
    if (IsReadElsewhere(entry)) continue;
    const Lines ours = Paragraphs(PlainText(entry.rtf));
    ASSERT_GE(ours.size(), 4U) << entry.name;
    EXPECT_EQ(ours, Chosen(entry, kOfAbiWord)) << entry.name;
  }
}

// A blank is between a note's place and the mark after it in what LibreOffice writes alone.
TEST(RtfCorpus, WhatAbiWordDoesNotShowItselfReadsAsLibreOfficeShowsIt) {
  std::map<std::string, Lines> shown;
  for (const Entry& entry : Corpus("libreoffice")) {
    shown[entry.name] = Chosen(entry, kOfLibreOffice);
  }
  int count = 0;
  for (const Entry& entry : Corpus("abiword")) {
    if (!IsReadElsewhere(entry)) continue;
    ++count;
    Lines ours = Paragraphs(PlainText(entry.rtf));
    EXPECT_NE(ours, Paragraphs(FromUtf8(entry.text))) << entry.name;
    Lines theirs = shown.at(entry.name);
    for (Text& paragraph : theirs) paragraph = Replace(paragraph, u" .", u".");
    EXPECT_EQ(ours, theirs) << entry.name;
  }
  EXPECT_EQ(count, 12);
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
