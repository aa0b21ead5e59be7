// The power goes in the middle of a build or an export, at each call to the disk in turn, and takes
// along what nobody had flushed: all of it, or whatever a seed says.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QMessageBox>
#include <QTest>
#include <filesystem>
#include <functional>

#include "platform/text/encoding.h"
#include "tests/book/expected_book.h"
#include "tests/faults/export_walk.h"
#include "tests/faults/left_book.h"
#include "tests/faults/road.h"
#include "tests/support/project_desk.h"
#include "tests/support/volatile_disk.h"

namespace {

namespace fs = std::filesystem;

using faults::ExportWalk;
using faults::Road;
using testing_support::BoxText;
using testing_support::DiskEvent;
using testing_support::DiskRecorder;
using testing_support::DiskTree;
using testing_support::TreeOf;
using testing_support::VolatileDisk;
using testing_support::WriteBack;

constexpr int kShards = 4;
constexpr const char* kIndex = "Data/_xml/Index.xml";
constexpr const char* kCollection = "Data/_xml/aTitle1.xml";

// "Zorvand made it": the box of that number, or a press of Next that has come back.
const std::string kBuilt = BoxText(4);
const std::string kExported = BoxText(29);
const std::string kSaved = "saved";

std::string TextOf(const std::string& bytes) {
  return platform::ToUtf8(platform::DecodeUnicode(bytes));
}

// Nothing tells of these that they are on the disk.
bool IsOfLog(const std::string& path) { return path.ends_with("ZVL.txt"); }
bool IsOfSettings(const std::string& path) { return faults::IsOfSettings("/" + path); }

struct Course {
  DiskTree before;
  std::vector<DiskEvent> events;
  DiskTree after;
};

// Records what `act` does in the desk's program folder, and the boxes that it shows.
Course Recorded(testing_support::Desk& desk, const std::function<void()>& act) {
  const std::string folder = desk.HostPath("");
  Course course{TreeOf(folder), {}, {}};
  const DiskRecorder recorder(folder);
  desk.robot.onBox = [](QWidget& box) {
    DiskRecorder::Tell(dynamic_cast<QMessageBox&>(box).text().toStdString());
  };
  act();
  desk.robot.onBox = nullptr;
  course.events = DiskRecorder::Events();
  course.after = TreeOf(folder);
  return course;
}

// Over an older book, from F12 to the box.
const Course& RebuildCourse() {
  static const Course kCourse = [] {
    Road road;
    EXPECT_TRUE(road.Go(1, "build"));
    return Recorded(road.desk, [&] { EXPECT_TRUE(road.Go(1, "change")); });
  }();
  return kCourse;
}

// From an empty disk on, with both presses of Next.
const Course& FirstCourse() {
  static const Course kCourse = [] {
    Road road(Road::Found::kNothing);
    return Recorded(road.desk, [&] {
      EXPECT_TRUE(road.Go(1, "open"));
      DiskRecorder::Tell(kSaved);
      EXPECT_TRUE(road.Go(1, "change"));
    });
  }();
  return kCourse;
}

const Course& ExportCourse() {
  static const Course kCourse = [] {
    ExportWalk walk;
    return Recorded(walk.desk, [&] { walk.desk.Export(); });
  }();
  return kCourse;
}

// Each place of a course at which the power goes, and what is on the disk then.
class PowerCut : public testing::TestWithParam<int> {
 protected:
  using Look = std::function<void(const DiskTree& left, const std::set<std::string>& told)>;

  static WriteBack Order() {
    return GetParam() == 0 ? WriteBack{} : WriteBack{static_cast<unsigned>(GetParam())};
  }

  static void CutEverywhere(const Course& course, const std::string& box, const Look& look) {
    VolatileDisk disk(course.before);
    std::set<std::string> told;
    for (std::size_t i = 0; i < course.events.size(); ++i) {
      SCOPED_TRACE("behind " + std::to_string(i) + " of " + std::to_string(course.events.size()));
      look(disk.AfterCut(Order()), told);
      if (HasFailure()) return;
      disk.Take(course.events[i]);
      if (course.events[i].kind == DiskEvent::Kind::kTold) told.insert(course.events[i].path);
    }
    look(disk.AfterCut(Order()), told);
    EXPECT_TRUE(told.contains(box));
    EXPECT_EQ(disk.Seen(), course.after) << "the recording is not all";
  }

  // All that stood before but what `isReplaced` names.
  static void ExpectOldFiles(const Course& course, const DiskTree& left,
                             const std::function<bool(const std::string&)>& isReplaced) {
    for (const auto& [path, bytes] : course.before) {
      if (IsOfLog(path) || isReplaced(path)) continue;
      ASSERT_TRUE(left.contains(path)) << path << " is lost";
      ASSERT_EQ(left.at(path), bytes) << path;
    }
  }

  static void ExpectWhole(const Course& course, const DiskTree& left,
                          const std::function<bool(const std::string&)>& isOf) {
    for (const auto& [path, bytes] : course.after) {
      if (!isOf(path)) continue;
      ASSERT_TRUE(left.contains(path)) << path << " is missing";
      ASSERT_EQ(book::Shown(left.at(path)), book::Shown(bytes)) << path;
    }
  }

  static bool IsOfBook(const std::string& path) { return path.starts_with("Data/"); }

  // Whoever has the collection's file finds it by its line.
  static void ExpectLineOfCollection(const DiskTree& left) {
    if (!left.contains(kCollection)) return;
    ASSERT_TRUE(left.contains(kIndex));
    ASSERT_NE(TextOf(left.at(kIndex)).find("\t<aTitle1 vol=\"txt\">"), std::string::npos);
  }
};

TEST_P(PowerCut, InABuildLeavesTheOlderBookAndBehindItsBoxTheNewOne) {
  const Course& course = RebuildCourse();
  CutEverywhere(course, kBuilt, [&](const DiskTree& left, const std::set<std::string>& told) {
    ExpectOldFiles(course, left,
                   [](const std::string& path) { return path == kIndex || path == kCollection; });
    if (HasFailure()) return;
    const std::string& index = left.at(kIndex);
    ASSERT_TRUE(index.starts_with(course.before.at(kIndex)) || index == course.after.at(kIndex));
    ExpectLineOfCollection(left);
    if (told.contains(kBuilt)) ExpectWhole(course, left, IsOfBook);
  });
}

TEST_P(PowerCut, InAFirstBuildLeavesWhatTheBoxAndNextHaveTold) {
  const Course& course = FirstCourse();
  CutEverywhere(course, kBuilt, [&](const DiskTree& left, const std::set<std::string>& told) {
    ExpectOldFiles(course, left, [](const std::string&) { return false; });
    ExpectLineOfCollection(left);
    if (told.contains(kSaved)) ExpectWhole(course, left, IsOfSettings);
    if (told.contains(kBuilt)) ExpectWhole(course, left, IsOfBook);
  });
}

TEST_P(PowerCut, InAnExportLeavesTheBookAndBehindItsBoxTheExport) {
  const Course& course = ExportCourse();
  CutEverywhere(course, kExported, [&](const DiskTree& left, const std::set<std::string>& told) {
    ExpectOldFiles(course, left, IsOfSettings);
    if (!told.contains(kExported)) return;
    ExpectWhole(course, left, [](const std::string& path) {
      return path.starts_with("Export/Export 2") || IsOfSettings(path);
    });
  });
}

INSTANTIATE_TEST_SUITE_P(Orders, PowerCut, testing::Range(0, 16));

// The editor who starts again on what a cut has left ends with the book.
class BuildAfterPowerCut : public testing::TestWithParam<int> {
 protected:
  // Every place of the course belongs to one of the numbers, and has an order of its own.
  static void BuildAfterEach(const Course& course) {
    VolatileDisk disk(course.before);
    for (std::size_t i = 0; i < course.events.size(); ++i) {
      disk.Take(course.events[i]);
      if (i % kShards != static_cast<std::size_t>(GetParam())) continue;
      SCOPED_TRACE("behind " + std::to_string(i));
      ExpectBookAfter(disk.AfterCut({static_cast<unsigned>(i)}),
                      TextOf(course.after.at(kCollection)).size());
      if (HasFailure()) return;
    }
  }

  static void Lay(const DiskTree& left, const Road& road) {
    fs::remove_all(road.desk.HostPath("Data"));
    for (const auto& [path, bytes] : left) {
      if (path != "Data" && !path.starts_with("Data/")) continue;
      if (bytes == "/") {
        road.desk.MakeFolders(path);
      } else {
        road.desk.Write(path, bytes);
      }
    }
    road.desk.MakeFolders("Data");
  }

  static void ExpectBookAfter(const DiskTree& left, std::size_t lengthOfCollection) {
    Road road(Road::Found::kNothing);
    ASSERT_TRUE(road.Go(1, "build"));
    Lay(left, road);
    road.desk.PressNext();
    ASSERT_TRUE(road.Go(3, "change")) << road.Step();
    const std::string index = TextOf(road.desk.Read(kIndex));
    EXPECT_THAT(index, testing::StartsWith("<strings>\r\n\t<aTitle0>Designed by"));
    EXPECT_THAT(index, testing::HasSubstr("\r\n\t<aTitle1 vol=\"txt\">Name</aTitle1>\r\n"));
    EXPECT_EQ(index.find('\0'), std::string::npos);
    const std::string collection = TextOf(road.desk.Read(kCollection));
    EXPECT_EQ(collection.size(), lengthOfCollection);
    EXPECT_TRUE(collection.ends_with("</Tree>\r\n"));
  }
};

TEST_P(BuildAfterPowerCut, OverAnOlderBookIsWhole) { BuildAfterEach(RebuildCourse()); }

TEST_P(BuildAfterPowerCut, OfAFirstBookIsWhole) { BuildAfterEach(FirstCourse()); }

INSTANTIATE_TEST_SUITE_P(Shards, BuildAfterPowerCut, testing::Range(0, kShards));

}  // namespace
