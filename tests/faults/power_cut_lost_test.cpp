// A disk that says no once and drops what it couldn't take: the kernel says yes at the next flush
// of the same files. The editor is told that a book is made when it is on the disk, and can get
// there.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>
#include <algorithm>
#include <regex>

#include "platform/text/encoding.h"
#include "tests/faults/road.h"
#include "tests/support/format_desk.h"
#include "tests/support/project_desk.h"
#include "tests/support/volatile_disk.h"

namespace {

using faults::Road;
using testing::IsEmpty;
using testing_support::BoxText;
using testing_support::DiskEvent;
using testing_support::DiskRecorder;
using testing_support::DiskTree;
using testing_support::Robot;
using testing_support::TreeOf;
using testing_support::VolatileDisk;

constexpr const char* kCollection = "Data/_xml/aTitle1.xml";

class LosingDisk : public testing::Test {
 protected:
  std::vector<std::string> Boxes() {
    std::vector<std::string> texts;
    for (const auto& box : road.desk.robot.TakeBoxes()) {
      const std::string text = box.text.toStdString();
      texts.push_back(text.find("aTitle1.xml") != std::string::npos ? "question" : text);
    }
    return texts;
  }
  void Build() {
    if (road.desk.Has(kCollection)) road.desk.robot.AnswerYes();
    Robot::PressKey("Form3", "matn", Qt::Key_F12);
  }
  void ExpectNotBuilt(const std::string& lost) {
    const int failures = road.desk.LoggedFailures(57);
    Build();
    EXPECT_THAT(Boxes(), testing::Not(testing::Contains(BoxText(4))));
    EXPECT_EQ(road.desk.LoggedFailures(57), failures + 1);
    EXPECT_THAT(road.desk.Log(), testing::EndsWith(lost + ": Input/output error)\r\n"));
    EXPECT_TRUE(road.desk.form3.IsVisible());
  }
  void ExpectBuilt() {
    Build();
    EXPECT_THAT(Boxes(), testing::Contains(BoxText(4)));
    const DiskTree left = AfterCut();
    for (const auto& [path, bytes] : TreeOf(road.desk.HostPath(""))) {
      if (IsOfBook(path)) {
        ASSERT_TRUE(left.contains(path)) << path;
        EXPECT_EQ(left.at(path), bytes) << path;
      }
    }
  }
  // The disk says no where the tool flushes a path that ends so.
  void RefuseWhereFlushed(const std::string& pathEnd) {
    road.desk.files.onOperation = [pathEnd](const std::string& name) {
      const bool isRefused = name.starts_with("Flush ") && name.ends_with(pathEnd);
      DiskRecorder::RefuseFlushes(isRefused ? EIO : 0);
    };
  }
  void RefuseNoMore() {
    road.desk.files.onOperation = nullptr;
    DiskRecorder::RefuseFlushes(0);
  }

  // What lies about under names that a failed build has drawn is no part of it.
  bool IsOfBook(const std::string& path) const {
    static const std::regex kStem("[0-9A-Y]{14}");
    std::smatch stem;
    if (!path.starts_with("Data/")) return false;
    if (!std::regex_search(path, stem, kStem)) return true;
    return road.desk.Read(kCollection)
               .find(platform::EncodeUtf16(platform::FromUtf8(stem.str()))) != std::string::npos;
  }
  DiskTree AfterCut() const {
    VolatileDisk disk(before);
    for (const DiskEvent& event : DiskRecorder::Events()) disk.Take(event);
    return disk.AfterCut({});
  }

  Road road{Road::Found::kNothing};
  DiskTree before = TreeOf(road.desk.HostPath(""));
  DiskRecorder recorder{road.desk.HostPath("")};
};

TEST_F(LosingDisk, ThatLostWhatNextHasSavedIsToldOfUntilItIsSavedAnew) {
  ASSERT_TRUE(road.Go(1, "second Next"));
  RefuseWhereFlushed("Data\\");
  ASSERT_TRUE(road.Go(1, "build"));
  RefuseNoMore();
  EXPECT_THAT(road.desk.LogLines(), testing::Contains("Settings saved."));
  ExpectNotBuilt("Data\\FlashIMG\\Back.jpg");
  ExpectNotBuilt("Data\\FlashIMG\\Back.jpg");
  road.desk.PressNext();
  ExpectBuilt();
}

// Of more than a few files nobody says which they were.
TEST_F(LosingDisk, ThatLostAHundredPagesIsNoneForEver) {
  ASSERT_TRUE(road.Go(1, "build"));
  for (std::ptrdiff_t row = Road::kRows; row < 120; ++row) {
    road.desk.form3.table.entryTitle.Set(row, u"One more");
    road.desk.form3.table.entryText.Set(row, u"");
  }
  RefuseWhereFlushed("Data\\");
  ExpectNotBuilt("Data\\");
  RefuseNoMore();
  ExpectNotBuilt("Data\\IMG\\aTitle1.jpg");
  road.desk.PressNext();
  ExpectBuilt();
}

// Whatever a build itself has made the next one makes good.
class LosingDiskOf : public LosingDisk, public testing::WithParamInterface<const char*> {
 protected:
  // From the moment on at which the tool makes the first such file.
  void RefuseFirst() {
    road.desk.files.onOperation = [refused = std::string()](const std::string& name) mutable {
      if (!refused.empty() || !std::regex_search(name, std::regex(GetParam()))) return;
      refused = name.substr(name.find("Data\\"));
      std::ranges::replace(refused, '\\', '/');
      DiskRecorder::RefuseFlushes(EIO, refused);
    };
  }
};

TEST_P(LosingDiskOf, AFileOfABuildIsMadeGoodByTheNext) {
  ASSERT_TRUE(road.Go(1, "build"));
  RefuseFirst();
  Build();
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_EQ(road.desk.LoggedFailures(57), 1);
  RefuseNoMore();
  ExpectBuilt();
}

INSTANTIATE_TEST_SUITE_P(Each, LosingDiskOf,
                         testing::Values("Index\\.xml", "Open .*aTitle1\\.xml", "rose\\.gif",
                                         "Open .*TXT\\\\[0-9A-Y]{14}\\.htm",
                                         "CopyFile .*[0-9A-Y]{14}\\.mp3"));

}  // namespace
