// The sample texts: that they are what their sources say, and clean enough to be shown off.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/text/encoding.h"
#include "platform/text/text.h"
#include "tests/unit/source_tree.h"
#include "workbench/clean_up.h"

namespace {

using platform::Text;
using source_tree::Content;
using source_tree::Tree;

std::vector<std::string> Names() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(Tree() / "Resources")) {
    if (entry.path().extension() == ".txt") names.push_back(entry.path().stem().string());
  }
  std::ranges::sort(names);
  return names;
}

Text Sample(const std::string& name) {
  return platform::DecodeMachineCodePage(Content("Resources/" + name + ".txt"));
}

TEST(DeliveredTexts, AreWhatTheirSourcesSay) {
  EXPECT_THAT(Names(), testing::SizeIs(7));
  for (const std::string& name : Names()) {
    const Text source =
        platform::FromUtf8(Content("tools/make_resources/texts/" + name + ".utf8.txt"));
    EXPECT_EQ(platform::ToUtf8(Sample(name)),
              platform::ToUtf8(platform::Replace(source, u"\n", platform::kCrLf)))
        << name;
  }
}

// The clean-up leaves two blanks within a line as they are, and the book would show them.
TEST(DeliveredTexts, HoldNoDoubledBlanks) {
  for (const std::string& name : Names()) {
    const Text text = Sample(name);
    EXPECT_EQ(platform::InStr(text, u"  "), 0) << name;
    EXPECT_EQ(platform::InStr(workbench::Rep(text), u"  "), 0) << name << ", cleaned up";
  }
}

// What the clean-up is there for has something to show.
TEST(DeliveredTexts, HaveLeftoversThatTheCleanUpTakesAway) {
  for (const char16_t* leftover : {u"&nbsp;", u"\u0649"}) {
    for (const std::string& name : Names()) {
      EXPECT_GT(platform::InStr(Sample(name), leftover), 0) << name;
      EXPECT_EQ(platform::InStr(workbench::Rep(Sample(name)), leftover), 0) << name;
    }
  }
}

}  // namespace
