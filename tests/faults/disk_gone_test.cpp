// The disk goes away in the middle of a road, at each file operation in turn, and comes back. What
// is in the windows is still there then, and the editor goes on where the road has ended.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "tests/faults/left_book.h"
#include "tests/faults/places.h"
#include "tests/faults/road.h"
#include "tests/support/project_desk.h"

namespace {

using faults::Place;
using faults::Road;
using testing_support::BoxText;
using testing_support::Desk;

constexpr int kShards = 4;

class DiskGone : public testing::TestWithParam<int> {
 protected:
  // From the k-th operation on, counted from 1.
  void WalkWithoutDiskFrom(std::size_t k) {
    const Place& place = faults::PlacesOf(Road::Found::kOlderBook)[k - 1];
    SCOPED_TRACE(std::to_string(k) + ": " + place.step + ", after \"" + place.lastEntry +
                 "\": " + place.operation);
    Road road;
    Desk& desk = road.desk;
    desk.files.FailFrom(k);
    road.Go(1);
    ExpectNothingIsLost(road);
    ExpectTheToolLives(desk);

    desk.files.FailAt(testing_support::FaultyFileSystem::kNever);
    ASSERT_TRUE(road.Go(3)) << "in vain: " << road.Step();
    const std::string wrong = faults::WrongAtTheEnd(desk, "road");
    EXPECT_TRUE(wrong.empty()) << wrong;
    ExpectBoxes(desk);
    ExpectLogsGoOn(desk);
  }

  static void ExpectNothingIsLost(const Road& road) {
    const std::string wrong = faults::WrongAnyTime(road.desk);
    EXPECT_TRUE(wrong.empty()) << wrong;
    EXPECT_TRUE(road.Step() != "build" || road.TableIsWhole());
    // Each log ends where the disk went.
    for (const std::string& log : {road.desk.Log(), SecondLog(road.desk)}) {
      EXPECT_TRUE(faults::LogOf(Road::Found::kOlderBook)
                      .starts_with(faults::WithoutFolder(log, road.desk)));
    }
  }

  static void ExpectTheToolLives(Desk& desk) {
    desk.PressNext();
    desk.form1.LogMe(u"Nobody reads this.");
    EXPECT_TRUE(desk.form1.IsVisible());
    EXPECT_EQ(desk.Log().find("Nobody reads this."), std::string::npos);
  }

  static void ExpectBoxes(Desk& desk) {
    int built = 0;
    for (const auto& box : desk.robot.TakeBoxes()) {
      const std::string text = box.text.toStdString();
      built += text == BoxText(4) ? 1 : 0;
      const bool isQuestion = text.find("aTitle1.xml") != std::string::npos;
      const std::set<std::string> told = {BoxText(4), BoxText(15), BoxText(101)};
      EXPECT_TRUE(isQuestion || told.contains(text)) << text;
    }
    EXPECT_EQ(built, 1);
  }

  static void ExpectLogsGoOn(Desk& desk) {
    desk.form1.LogMe(u"Still here.");
    EXPECT_TRUE(desk.Log().ends_with(": Still here.\r\n"));
    EXPECT_TRUE(SecondLog(desk).ends_with(": Still here.\r\n"));
  }

  static std::string SecondLog(const Desk& desk) {
    const platform::TextView log = u"state\\ZVL.log";
    return desk.folder.Has(log) ? desk.folder.Read(log) : std::string();
  }
};

TEST_P(DiskGone, TakesNothingAlongAndTheEditorGoesOnWhenItIsBack) {
  const std::size_t operations = faults::PlacesOf(Road::Found::kOlderBook).size();
  for (std::size_t k = 1 + static_cast<std::size_t>(GetParam()); k <= operations; k += kShards) {
    WalkWithoutDiskFrom(k);
    if (HasFatalFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(Each, DiskGone, testing::Range(0, kShards));

}  // namespace
