// A disk that fills up: what stood on it stays whole, and what had no room comes with the next try.
#include "tests/support/full_disk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>
#include <functional>
#include <optional>

#include "tests/faults/left_book.h"
#include "tests/faults/road.h"

namespace {

using faults::Road;
using testing::EndsWith;
using testing::IsEmpty;
using testing_support::FullDisk;
using testing_support::Robot;

class FullDiskOnTheRoad : public testing::Test {
 protected:
  // The editor's next step, on a disk on which no file can grow past that size, in bytes.
  void StepOn(std::size_t largest, const std::function<void()>& step) {
    const FullDisk full(largest);
    step();
  }
  static void Build(Road& road) {
    road.desk.robot.AnswerYes();
    Robot::PressKey("Form3", "matn", Qt::Key_F12);
  }
  void ExpectNothingHalf() {
    const std::string wrong = faults::WrongAnyTime(road.desk);
    EXPECT_TRUE(wrong.empty()) << wrong;
  }
  std::size_t SizeOf(const std::string& below) { return road.desk.Read(below).size(); }
  std::string LastError() { return platform::ToUtf8(road.desk.form1.lastErrorText); }
  void ExpectTheRoadGoesOn() {
    ASSERT_TRUE(road.Go(3)) << road.Step();
    const std::string wrong = faults::WrongAtTheEnd(road.desk, "road");
    EXPECT_TRUE(wrong.empty()) << wrong;
  }

  Road road;
};

TEST_F(FullDiskOnTheRoad, LeavesTheSettingsAsTheyWereSaved) {
  ASSERT_TRUE(road.Go(1, "third Next"));
  const std::string saved = road.desk.Read("Data/TXT/CDProperty.xml");
  road.desk.robot.TakeBoxes();
  StepOn(saved.size() - 10, [&] { road.desk.PressNext(); });
  EXPECT_EQ(road.desk.Read("Data/TXT/CDProperty.xml"), saved);
  EXPECT_THAT(road.desk.robot.TakeBoxes(), IsEmpty());
  ExpectNothingHalf();
  ExpectTheRoadGoesOn();
  EXPECT_NE(road.desk.Read("Data/TXT/CDProperty.xml"), saved);
}

TEST_F(FullDiskOnTheRoad, LeavesNoSettingsWhereThereWereNone) {
  ASSERT_TRUE(road.Go(1, "second Next"));
  StepOn(40, [&] { road.desk.PressNext(); });
  EXPECT_FALSE(road.desk.Has("Data/TXT/CDProperty.xml"));
  ExpectTheRoadGoesOn();
}

TEST_F(FullDiskOnTheRoad, LeavesTheIndexWithoutHalfALine) {
  ASSERT_TRUE(road.Go(1, "build"));
  const std::string index = road.desk.Read("Data/_xml/Index.xml");
  StepOn(index.size() + 20, [&] { Build(road); });
  EXPECT_EQ(road.desk.Read("Data/_xml/Index.xml"), index);
  EXPECT_THAT(LastError(), EndsWith("Index.xml: File too large"));
  EXPECT_TRUE(road.desk.form3.IsVisible());
  EXPECT_TRUE(road.TableIsWhole());
  ExpectNothingHalf();
  ExpectTheRoadGoesOn();
}

TEST_F(FullDiskOnTheRoad, LeavesTheIndexWholeWhoseOldLineWasToBeTakenOut) {
  ASSERT_TRUE(road.Go(1, "build"));
  const std::string index = road.desk.Read("Data/_xml/Index.xml");
  // The new line has room when it is added; the disk fills up while the question is asked.
  std::optional<FullDisk> full;
  road.desk.robot.onBox = [&](QWidget&) { full.emplace(index.size() - 10); };
  Build(road);
  full.reset();
  road.desk.robot.onBox = nullptr;
  EXPECT_THAT(road.desk.Read("Data/_xml/Index.xml"), testing::StartsWith(index));
  EXPECT_THAT(LastError(), EndsWith("Index.xml: File too large"));
  EXPECT_TRUE(road.TableIsWhole());
  ExpectNothingHalf();
  ExpectTheRoadGoesOn();
}

TEST_F(FullDiskOnTheRoad, LeavesNoHalfPage) {
  ASSERT_TRUE(road.Go(1, "build"));
  constexpr std::size_t kLessThanAPageWithAPicture = 2000;
  StepOn(kLessThanAPageWithAPicture, [&] { Build(road); });
  EXPECT_THAT(LastError(), EndsWith(".htm: File too large"));
  EXPECT_TRUE(road.TableIsWhole());
  ExpectNothingHalf();
  ExpectTheRoadGoesOn();
}

// A medium is larger than what the disk still takes: it isn't there, rather than cut.
TEST_F(FullDiskOnTheRoad, LeavesNoHalfMedium) {
  ASSERT_TRUE(road.Go(1, "build"));
  const std::string song(100'000, 's');
  road.desk.Write("media/song.mp3", song);
  StepOn(50'000, [&] { Build(road); });
  EXPECT_THAT(LastError(), EndsWith(".mp3: File too large"));
  EXPECT_TRUE(road.TableIsWhole());
  ExpectNothingHalf();
}

}  // namespace
