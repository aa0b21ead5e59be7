// One file operation of an export fails, and each in its turn; then each and all after it. What
// was made stays, nothing else is touched, and the next export is whole.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/faults/export_walk.h"
#include "tests/faults/places.h"

namespace {

using faults::CourseOf;
using faults::ExportPlace;
using faults::ExportWalk;
using faults::Tree;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::BoxText;

constexpr int kShards = 4;

using Numbers = std::vector<int>;

bool IsOfLog(const ExportPlace& place) { return faults::IsOfLog({"", "", place.operation}); }

bool IsOfSaving(const ExportPlace& place) {
  return !IsOfLog(place) && place.lastEntry == "Saving settings...";
}

// The project folder, written in full, has its settings looked up and the list made anew.
bool IsOfListing(const ExportPlace& place) {
  return !IsOfLog(place) &&
         (place.lastEntry == "Reading settings..." || place.lastEntry == "Making combo...");
}

// The messages when this operation fails and no other.
Numbers MessagesOf(const ExportPlace& place) {
  if (IsOfLog(place) || IsOfSaving(place) || IsOfListing(place)) return {29};
  if (place.lastEntry == "Files exported.") return {29, 28};
  if (place.lastEntry == "Exporting files...") return {28};
  return {102};
}

// The messages when it fails and all after it, too: what isn't told of one is told of the next.
Numbers MessagesFrom(const std::vector<ExportPlace>& places, std::size_t at) {
  for (; at < places.size(); ++at) {
    Numbers messages = MessagesOf(places[at]);
    if (messages != Numbers{29}) return messages;
  }
  return {29};
}

// What was made stays as far as it got; a print page that got nothing isn't there.
Tree LeftBy(const ExportPlace& place) {
  Tree left = place.made;
  const std::string& operation = place.operation;
  if (operation.starts_with("Write") && operation.ends_with(".html")) {
    std::erase_if(left, [&](const auto& entry) {
      return entry.first.ends_with(operation.substr(operation.rfind('\\') + 1));
    });
  }
  return left;
}

Tree WithoutSettings(Tree tree) {
  std::erase_if(tree, [](const auto& entry) { return faults::IsOfSettings(entry.first); });
  return tree;
}

class ExportFailingOperation : public testing::TestWithParam<std::tuple<ExportWalk::Found, int>> {
 protected:
  ExportWalk::Found Found() const { return std::get<0>(GetParam()); }
  const std::vector<ExportPlace>& Places() const { return CourseOf(Found()).places; }

  template <typename Each>
  void ForEachOfShard(Each each) {
    for (auto k = static_cast<std::size_t>(std::get<1>(GetParam())); k < Places().size();
         k += kShards) {
      SCOPED_TRACE(std::to_string(k + 1) + ", after \"" + Places()[k].lastEntry +
                   "\": " + Places()[k].operation);
      each(k);
      if (HasFatalFailure()) return;
    }
  }

  // Exports on a disk that `fail` has told when to fail, and looks at all that is left.
  template <typename Fail>
  void ExportOnFailingDisk(ExportWalk& walk, const Numbers& messages, Fail fail) {
    const std::string root = walk.NextRoot();
    const Tree around = walk.Around(root);
    fail();
    ExpectMessages(walk.desk.Export(), messages);
    EXPECT_TRUE(walk.desk.files.HasFailed());
    EXPECT_EQ(walk.Around(root), around);
    const bool isWhole = messages == Numbers{29};
    EXPECT_THAT(walk.desk.launcher.opened, SizeIs(isWhole ? 1 : 0));
  }

  // The description is kept where the button's own failure is told, and by what it sets off; a
  // failure of the pass has none.
  static void ExpectDescription(const ExportWalk& walk, const ExportPlace& place) {
    const std::string description = platform::ToUtf8(walk.desk.form1.lastErrorText);
    const bool isKept = MessagesOf(place) == Numbers{102} || IsOfListing(place);
    EXPECT_THAT(faults::WithoutFolder(description, walk.desk),
                isKept ? "Made to fail: " + place.operation : "");
  }

  static void ExpectMessages(const std::vector<std::string>& boxes, const Numbers& messages) {
    std::vector<std::string> texts;
    for (const int message : messages) texts.push_back(BoxText(message));
    EXPECT_EQ(boxes, texts);
  }

  void ExpectRoot(const Tree& root, std::size_t k, const Numbers& messages) {
    const ExportPlace& place = Places()[k];
    if (messages == Numbers{28}) {
      EXPECT_EQ(root, LeftBy(place));
    } else if (messages == Numbers{102}) {
      EXPECT_THAT(root, IsEmpty());
    } else if (IsOfSaving(place)) {
      EXPECT_EQ(WithoutSettings(root), WithoutSettings(CourseOf(Found()).whole));
    } else {
      EXPECT_EQ(root, CourseOf(Found()).whole);
    }
  }

  void ExpectTheNextIsWhole(ExportWalk& walk) {
    const std::string root = walk.NextRoot();
    walk.desk.launcher.opened.clear();
    ExpectMessages(walk.desk.Export(), {29});
    EXPECT_EQ(walk.TreeOf(root), CourseOf(Found()).whole);
    EXPECT_THAT(walk.desk.launcher.opened, SizeIs(1));
  }
};

TEST_P(ExportFailingOperation, IsToldLeavesWhatWasMadeAndTheNextExportIsWhole) {
  ForEachOfShard([this](std::size_t k) {
    ExportWalk walk(Found());
    const std::string root = walk.NextRoot();
    const Numbers messages = MessagesOf(Places()[k]);
    ExportOnFailingDisk(walk, messages, [&] { walk.desk.files.FailAt(k + 1); });
    ASSERT_EQ(faults::WithoutFolder(walk.desk.files.Names().at(k), walk.desk),
              Places()[k].operation);
    ExpectDescription(walk, Places()[k]);
    ExpectRoot(walk.TreeOf(root), k, messages);
    ExpectTheNextIsWhole(walk);
  });
}

// A disk that was pulled out, and is back for the next export.
TEST_P(ExportFailingOperation, AndAllAfterItEndsTheExportOnce) {
  ForEachOfShard([this](std::size_t k) {
    if (IsOfLog(Places()[k])) return;
    ExportWalk walk(Found());
    const std::string root = walk.NextRoot();
    const Numbers messages = MessagesFrom(Places(), k);
    ExportOnFailingDisk(walk, messages, [&] { walk.desk.files.FailFrom(k + 1); });
    ExpectRoot(walk.TreeOf(root), k, messages);
    walk.desk.files.FailAt(testing_support::FaultyFileSystem::kNever);
    ExpectTheNextIsWhole(walk);
  });
}

INSTANTIATE_TEST_SUITE_P(Each, ExportFailingOperation,
                         testing::Combine(testing::Values(ExportWalk::Found::kNoTarget,
                                                          ExportWalk::Found::kOlderExports),
                                          testing::Range(0, kShards)));

TEST(ExportWalk, OnWhichNothingFailsMakesTheWholeExport) {
  std::vector<std::string> names;
  for (const auto& [path, bytes] : CourseOf(ExportWalk::Found::kNoTarget).whole) {
    names.push_back(path);
  }
  EXPECT_THAT(names,
              testing::ElementsAre("Data", "Data/FlashIMG", "Data/FlashIMG/Back.jpg",
                                   "Data/FlashIMG/Sound1.mp3", "Data/FlashIMG/Sound2.mp3",
                                   "Data/IMG", "Data/IMG/picture.jpg", "Data/More", "Data/TXT",
                                   "Data/TXT/A.htm", "Data/TXT/A.html", "Data/TXT/B.htm",
                                   "Data/TXT/B.html", "Data/TXT/CDProperty.xml", "Data/_xml",
                                   "Data/_xml/Index.xml", "Data/img.bin", "main.exe"));
  EXPECT_EQ(CourseOf(ExportWalk::Found::kNoTarget).whole,
            CourseOf(ExportWalk::Found::kOlderExports).whole);
}

}  // namespace
