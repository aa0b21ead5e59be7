// The viewer's own texts stand in one header, in the Persian of today.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "platform/text/text.h"
#include "tests/unit/source_tree.h"

namespace {

using platform::Text;
using source_tree::Content;
using source_tree::Tree;

bool IsPersian(char16_t c) { return c >= u'\u0600' && c <= u'\u06FF'; }

Text Source(const std::filesystem::path& path) { return platform::FromUtf8(Content(path)); }

std::set<std::string> SourcesWithPersian() {
  std::set<std::string> found;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(Tree() / "viewer")) {
    const std::filesystem::path path = std::filesystem::relative(entry.path(), Tree());
    if (path.extension() != ".cpp" && path.extension() != ".h") continue;
    for (const char16_t c : Source(path)) {
      if (IsPersian(c)) found.insert(path.string());
    }
  }
  return found;
}

TEST(ViewerTexts, StandInOneHeaderAndTheToolkitsInOneFile) {
  EXPECT_THAT(SourcesWithPersian(),
              testing::ElementsAre("viewer/texts.h", "viewer/toolkit_texts.cpp"));
}

TEST(ViewerTexts, HaveTheLettersAndHalfSpacesOfToday) {
  for (const char* file : {"viewer/texts.h", "viewer/toolkit_texts.cpp"}) {
    const Text text = Source(file);
    for (const Text& old : {Text(u"\u064A"), Text(u"\u0643"), Text(u"\u0649"), Text(u"\\u200F"),
                            Text(u"\u200F"), Text(u"\u200C")}) {
      EXPECT_EQ(platform::InStr(text, old), 0U) << file << " " << platform::ToUtf8(old);
    }
  }
}

}  // namespace
