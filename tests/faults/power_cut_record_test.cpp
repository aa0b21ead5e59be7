// The power goes while a record is kept, at each call to the disk in turn, and takes along what
// nobody had synced: all of it, or whatever a seed says. What is left is the work as it was at the
// last sync or after one of the events since.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "recovery/keeper.h"
#include "recovery/replay.h"
#include "tests/support/recovery_work.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/volatile_disk.h"

namespace {

using recovery::Keeper;
using testing_support::Described;
using testing_support::DiskEvent;
using testing_support::DiskRecorder;
using testing_support::DiskTree;
using testing_support::RandomEditor;
using testing_support::TreeOf;
using testing_support::VolatileDisk;
using testing_support::WriteBack;

constexpr int kSteps = 24;
constexpr std::size_t kOutgrown = 60'000;

// An editor at work, and what the disk was asked for meanwhile. It is told the number of the states
// that were written, with "synced " before it where they are on the disk.
struct Course {
  DiskTree before;
  std::vector<DiskEvent> events;
  std::vector<std::string> states;  // after each event of the tool
};

const std::string kSynced = "synced ";

void Work(Course& course, platform::RecordFolder& records) {
  const auto tell = [&](const std::string& what) {
    DiskRecorder::Tell(what + std::to_string(course.states.size()));
  };
  RandomEditor editor(3);
  Keeper keeper(&records, [](platform::TextView line) { FAIL() << platform::ToUtf8(line); });
  keeper.Start(editor.Live());
  for (int step = 0; step < kSteps; ++step) {
    editor.Step();
    editor.Work().fields.title = platform::Text(kOutgrown, u'a') + editor.AnyText();
    keeper.Keep(editor.Live());
    course.states.push_back(Described(editor.Work()));
    tell("");
    if (step % 3 == 2) keeper.Sync(editor.Live());
    const bool isWhole = step % 7 == 6 && keeper.KeepWhole(editor.Live());
    if (step % 3 == 2 || isWhole) tell(kSynced);
  }
}

const Course& TheCourse() {
  static const Course kCourse = [] {
    const testing_support::TemporaryFolder folder;
    Course course{.before = TreeOf(folder.HostPath()), .events = {}, .states = {}};
    const auto records = platform::HostRecordFolder(folder.Path(u"recovery"));
    const DiskRecorder recorder(folder.HostPath());
    Work(course, *records);
    course.events = DiskRecorder::Events();
    return course;
  }();
  return kCourse;
}

std::vector<std::string> RecordsOn(const DiskTree& disk) {
  std::vector<std::string> records;
  for (const auto& [path, bytes] : disk) {
    if (path.ends_with(".record")) records.push_back(bytes);
  }
  return records;
}

class PowerCutRecord : public testing::TestWithParam<unsigned> {
 protected:
  // Before the first sync any part of it may have come, or nothing.
  static void Look(const DiskTree& disk, std::size_t synced, std::size_t written) {
    const std::vector<std::string> records = RecordsOn(disk);
    std::string back;
    for (const std::string& record : records) {
      std::optional<recovery::Work> work = recovery::ReadRecord(record);
      if (work) back = Described(*work);
    }
    if (synced == 0) return;
    ASSERT_EQ(records.size(), 1U);
    const std::vector<std::string>& states = TheCourse().states;
    const auto first = states.begin() + static_cast<std::ptrdiff_t>(synced) - 1;
    const auto end =
        states.begin() + static_cast<std::ptrdiff_t>(std::min(written + 1, states.size()));
    ASSERT_NE(std::find(first, end, back), end)
        << "neither the last that was synced nor a later one";
  }
};

INSTANTIATE_TEST_SUITE_P(Orders, PowerCutRecord, testing::Range(0U, 6U));

TEST_P(PowerCutRecord, LeavesWhatWasSyncedAndWholeEventsAfterIt) {
  const WriteBack order = GetParam() == 0 ? WriteBack{} : WriteBack{GetParam()};
  VolatileDisk disk(TheCourse().before);
  std::size_t written = 0;
  std::size_t synced = 0;
  for (const DiskEvent& event : TheCourse().events) {
    SCOPED_TRACE(event.path + ", " + std::to_string(written) + " written");
    Look(disk.AfterCut(order), synced, written);
    if (HasFatalFailure()) return;
    disk.Take(event);
    if (event.kind != DiskEvent::Kind::kTold) continue;
    if (event.path.starts_with(kSynced)) {
      synced = written;
    } else {
      written = std::stoul(event.path);
    }
  }
  Look(disk.AfterCut(order), synced, written);
  EXPECT_EQ(synced, static_cast<std::size_t>(kSteps));
}

// The record that was outgrown and the one written for good are new files in its place.
TEST(PowerCutRecordCourse, HasEveryWayOfWriting) {
  std::size_t renames = 0;
  for (const DiskEvent& event : TheCourse().events) {
    if (event.kind == DiskEvent::Kind::kRename) ++renames;
  }
  EXPECT_GT(renames, std::size_t{kSteps / 7});
}

}  // namespace
