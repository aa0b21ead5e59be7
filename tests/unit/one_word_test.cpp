// One word for one thing, in all that an editor or a reader gets to see: the guide, the windows,
// the delivered files, the pages about the project.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "platform/text/text.h"
#include "tests/unit/source_tree.h"

namespace {

using platform::Text;
using platform::TextView;
using source_tree::Content;
using source_tree::Tree;

struct Avoided {
  TextView word;
  TextView instead;
};

constexpr std::array kAvoided = std::to_array<Avoided>({
    {u"پيوست", u"ضميمه"},
    {u"پيوستها", u"ضميمه"},
    {u"پيوستهاي", u"ضميمه"},
    {u"نگارخانه", u"گالري"},
    {u"پرونده", u"فايل"},
    {u"دگمه", u"دكمه"},
    {u"تكمه", u"دكمه"},
    {u"عكس", u"تصوير"},
    {u"ليست", u"فهرست"},
    {u"رونوشت", u"كپي"},
    {u"كامپيوتر", u"رايانه"},
    {u"موشواره", u"ماوس"},
    {u"آدرس", u"نشاني"},
    {u"ويديو", u"فيلم"},
    {u"ويدئو", u"فيلم"},
    {u"تاييد", u"تأييد"},
    {u"آنها", u"آن\u200Cها"},
    {u"اينها", u"اين\u200Cها"},
});

// What a button says is the whole of its text: within a sentence these are plain words.
constexpr std::array kAvoidedOnButtons = std::to_array<Avoided>({
    {u"نه", u"خير"},
    {u"آري", u"بله"},
    {u"بسيار خوب", u"تأييد"},
    {u"باشد", u"تأييد"},
    {u"لغو", u"انصراف"},
});

// The text that the workbench opens with writes it so, once.
constexpr TextView kOpeningText = u"فشردن دگمه";

bool IsPersian(char16_t c) { return (c >= u'\u0620' && c <= u'\u065F') || c == u'\u0670'; }

// One spelling of the letters that have two, and half-spaces within words as the texts of windows
// are written in sources and elsewhere.
Text Normal(TextView text) {
  Text normal(text);
  for (const auto& [from, to] :
       {std::pair{u"ی", u"ي"}, std::pair{u"ک", u"ك"}, std::pair{u"\\u200F", u"\u200C"},
        std::pair{u"\\u200C", u"\u200C"}, std::pair{u"\u200F", u"\u200C"}}) {
    normal = platform::Replace(normal, from, to);
  }
  return platform::Replace(normal, kOpeningText, u"");
}

// Words end at a half-space, too: «فايل‌ها» holds «فايل».
std::map<Text, int> WordsOf(TextView text) {
  std::map<Text, int> words;
  Text word;
  for (const char16_t c : Text(text) + u' ') {
    if (c == u'گ' || c == u'پ' || c == u'چ' || c == u'ژ' || IsPersian(c)) {
      word += c;
    } else if (!word.empty()) {
      ++words[word];
      word.clear();
    }
  }
  return words;
}

std::vector<std::string> AvoidedIn(TextView text) {
  const std::map<Text, int> words = WordsOf(Normal(text));
  std::vector<std::string> found;
  for (const Avoided& each : kAvoided) {
    if (words.contains(Text(each.word)))
      found.push_back(platform::ToUtf8(each.word) + ", which is " + platform::ToUtf8(each.instead));
  }
  return found;
}

std::vector<std::string> AvoidedOnButtonsIn(TextView source) {
  std::vector<std::string> found;
  for (const Avoided& each : kAvoidedOnButtons) {
    const Text quoted = u"\"" + Text(each.word) + u"\"";
    if (platform::InStr(Normal(source), quoted) == 0) continue;
    found.push_back(platform::ToUtf8(each.word) + ", which is " + platform::ToUtf8(each.instead));
  }
  return found;
}

// The sources in which texts of windows stand, the tool's and the viewer's.
std::vector<std::string> Sources() {
  std::vector<std::string> sources;
  for (const char* room : {"core", "editor", "export", "filed", "gallery", "platform", "recovery",
                           "support", "viewer", "workbench"}) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(Tree() / room)) {
      const auto kind = entry.path().extension();
      if (kind == ".cpp" || kind == ".h")
        sources.push_back(std::filesystem::relative(entry.path(), Tree()).string());
    }
  }
  std::ranges::sort(sources);
  return sources;
}

std::vector<std::string> DeliveredTexts() {
  return {"tools/make_guide/guide.fa.txt",
          "tools/make_resources/export/Export.utf8.inf",
          "tools/make_resources/export/Default.utf8.html",
          "packaging/zorvand/READ-ME.txt",
          "packaging/zorvand/org.zorvand.Zorvand.desktop",
          "packaging/zorvand/org.zorvand.Zorvand.metainfo.xml",
          "packaging/viewer/READ-ME.txt",
          "packaging/viewer/org.zorvand.Viewer.desktop",
          "packaging/viewer/org.zorvand.Viewer.metainfo.xml",
          "README.md",
          "CHANGELOG.md",
          "docs/ARCHITECTURE.md",
          "docs/BOOK-FORMAT.md"};
}

TEST(OneWord, StandsForOneThingInWhatIsDelivered) {
  for (const std::string& name : DeliveredTexts()) {
    const Text text = platform::FromUtf8(Content(name));
    EXPECT_THAT(AvoidedIn(text), testing::IsEmpty()) << name;
    EXPECT_FALSE(WordsOf(text).empty()) << name;
  }
}

TEST(OneWord, StandsForOneThingInTheWindows) {
  std::size_t words = 0;
  for (const std::string& name : Sources()) {
    const Text text = platform::FromUtf8(Content(name));
    EXPECT_THAT(AvoidedIn(text), testing::IsEmpty()) << name;
    EXPECT_THAT(AvoidedOnButtonsIn(text), testing::IsEmpty()) << name;
    words += WordsOf(text).size();
  }
  EXPECT_GT(words, 300U);
}

TEST(OneWord, IsFoundInEverySpelling) {
  EXPECT_THAT(AvoidedIn(u"اين پرونده"), testing::SizeIs(1));
  EXPECT_THAT(AvoidedIn(u"پرونده‌های"), testing::SizeIs(1));
  EXPECT_THAT(AvoidedIn(u"u\"نوع پرونده\\u200Fها:\""), testing::SizeIs(1));
  EXPECT_THAT(AvoidedIn(u"به هم پيوستند"), testing::IsEmpty());
  EXPECT_THAT(AvoidedOnButtonsIn(u"{\"No\", u\"نه\"}"), testing::SizeIs(1));
  EXPECT_THAT(AvoidedOnButtonsIn(u"QStringLiteral(\"نه\")"), testing::SizeIs(1));
}

}  // namespace
