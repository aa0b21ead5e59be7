// The power goes in the middle of a build or an export, at each call to the disk in turn, and takes
// along what nobody had flushed: all of it, or whatever a seed says.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QMessageBox>
#include <QTest>
#include <filesystem>
#include <functional>
#include <span>

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

// How many lines of the collection the index has.
std::ptrdiff_t LinesOf(const std::string& index) {
  const std::string text = TextOf(index);
  std::ptrdiff_t lines = 0;
  for (std::size_t at = 0; (at = text.find("\t<aTitle1 vol=", at)) != std::string::npos; ++at) {
    ++lines;
  }
  return lines;
}

// The new line comes before the collection's file is made anew: whether the power goes between the
// line's writing and the flush of the file, which comes at once.
bool IsBetweenLineAndFile(const Course& course, std::size_t cut) {
  const auto all = std::span(course.events);
  const auto isLine = [](const DiskEvent& event) {
    return event.kind == DiskEvent::Kind::kWrite && event.path == kIndex &&
           LinesOf(event.bytes) == 1;
  };
  const auto isMade = [](const DiskEvent& event) {
    return event.kind == DiskEvent::Kind::kMake && event.path == kCollection;
  };
  const auto line = std::ranges::find_if(all, isLine);
  const auto made = std::find_if(line, all.end(), isMade);
  constexpr std::ptrdiff_t kHeadAndFlushes = 3;  // of the file and of its name
  const auto at = static_cast<std::ptrdiff_t>(cut);
  return at > line - all.begin() && at <= made - all.begin() + kHeadAndFlushes;
}

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
  struct Cut {
    std::size_t place;  // so many events went before
    DiskTree left;
    std::set<std::string> told;
  };
  using Look = std::function<void(const Cut& cut)>;

  static WriteBack Order() {
    return GetParam() == 0 ? WriteBack{} : WriteBack{static_cast<unsigned>(GetParam())};
  }

  static void CutEverywhere(const Course& course, const std::string& box, const Look& look) {
    VolatileDisk disk(course.before);
    std::set<std::string> told;
    for (std::size_t i = 0; i < course.events.size(); ++i) {
      SCOPED_TRACE("after " + std::to_string(i) + " of " + std::to_string(course.events.size()));
      look({i, disk.AfterCut(Order()), told});
      if (HasFailure()) return;
      disk.Take(course.events[i]);
      if (course.events[i].kind == DiskEvent::Kind::kTold) told.insert(course.events[i].path);
    }
    look({course.events.size(), disk.AfterCut(Order()), told});
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

  // Whoever has the collection's file finds it by its line, and the other way round.
  static void ExpectLineOfCollection(const Course& course, const Cut& cut) {
    const std::ptrdiff_t lines = cut.left.contains(kIndex) ? LinesOf(cut.left.at(kIndex)) : 0;
    if (cut.left.contains(kCollection)) {
      ASSERT_GE(lines, 1);
    } else if (!IsBetweenLineAndFile(course, cut.place)) {
      ASSERT_EQ(lines, 0);
    }
    const bool hasOlder = course.before.contains(kCollection);
    ASSERT_LE(lines, hasOlder && IsBetweenLineAndFile(course, cut.place) ? 2 : 1);
  }
};

TEST_P(PowerCut, InABuildLeavesTheOlderBookAndAfterItsBoxTheNewOne) {
  const Course& course = RebuildCourse();
  CutEverywhere(course, kBuilt, [&](const Cut& cut) {
    ExpectOldFiles(course, cut.left,
                   [](const std::string& path) { return path == kIndex || path == kCollection; });
    if (HasFailure()) return;
    const std::string& index = cut.left.at(kIndex);
    ASSERT_TRUE(index.starts_with(course.before.at(kIndex)) || index == course.after.at(kIndex));
    ExpectLineOfCollection(course, cut);
    if (cut.told.contains(kBuilt)) ExpectWhole(course, cut.left, IsOfBook);
  });
}

TEST_P(PowerCut, InAFirstBuildLeavesWhatTheBoxAndNextHaveTold) {
  const Course& course = FirstCourse();
  CutEverywhere(course, kBuilt, [&](const Cut& cut) {
    ExpectOldFiles(course, cut.left, [](const std::string&) { return false; });
    ExpectLineOfCollection(course, cut);
    if (cut.told.contains(kSaved)) ExpectWhole(course, cut.left, IsOfSettings);
    if (cut.told.contains(kBuilt)) ExpectWhole(course, cut.left, IsOfBook);
  });
}

TEST_P(PowerCut, InAnExportLeavesTheBookAndAfterItsBoxTheExport) {
  const Course& course = ExportCourse();
  CutEverywhere(course, kExported, [&](const Cut& cut) {
    ExpectOldFiles(course, cut.left, IsOfSettings);
    if (!cut.told.contains(kExported)) return;
    ExpectWhole(course, cut.left, [](const std::string& path) {
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
      SCOPED_TRACE("after " + std::to_string(i));
      const std::ptrdiff_t lines = ExpectBookAfter(disk.AfterCut({static_cast<unsigned>(i)}),
                                                   TextOf(course.after.at(kCollection)).size());
      // A line without its file counts for nothing: the next build adds its own.
      const std::ptrdiff_t older = course.before.contains(kCollection) ? 1 : 0;
      EXPECT_LE(lines, IsBetweenLineAndFile(course, i + 1) ? older + 2 : 1);
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

  // Gives the collection's lines.
  static std::ptrdiff_t ExpectBookAfter(const DiskTree& left, std::size_t lengthOfCollection) {
    Road road(Road::Found::kNothing);
    EXPECT_TRUE(road.Go(1, "build"));
    Lay(left, road);
    road.desk.PressNext();
    EXPECT_TRUE(road.Go(3, "change")) << road.Step();
    const std::string index = TextOf(road.desk.Read(kIndex));
    EXPECT_THAT(index, testing::StartsWith("<strings>\r\n\t<aTitle0>Designed by"));
    EXPECT_THAT(index, testing::HasSubstr("\r\n\t<aTitle1 vol=\"txt\">Name</aTitle1>\r\n"));
    EXPECT_EQ(index.find('\0'), std::string::npos);
    const std::string collection = TextOf(road.desk.Read(kCollection));
    EXPECT_EQ(collection.size(), lengthOfCollection);
    EXPECT_TRUE(collection.ends_with("</Tree>\r\n"));
    return LinesOf(road.desk.Read(kIndex));
  }
};

TEST_P(BuildAfterPowerCut, OverAnOlderBookIsWhole) { BuildAfterEach(RebuildCourse()); }

TEST_P(BuildAfterPowerCut, OfAFirstBookIsWhole) { BuildAfterEach(FirstCourse()); }

INSTANTIATE_TEST_SUITE_P(Shards, BuildAfterPowerCut, testing::Range(0, kShards));

}  // namespace
