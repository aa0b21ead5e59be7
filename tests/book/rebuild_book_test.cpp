// A collection that is built anew over what a build that failed has left.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/book/book_desk.h"

namespace {

using book::BookDesk;
using testing::SizeIs;
using testing_support::Robot;

class RebuildBook : public testing::Test {
 protected:
  // One entry, whose sound isn't there.
  RebuildBook() {
    desk.AddTextFile("leaf.txt");
    desk.Open();
    BookDesk::OpenBook("leaf.txt");
    BookDesk::FileHeading("برگ", "برگ سبز است");
    desk.Table().entrySound.Set(0, desk.Path(u"media\\song.mp3"));
    BuildAs("نام نخست");
    EXPECT_EQ(desk.LoggedFailures(57), 1);
    EXPECT_TRUE(desk.IsBook("rebuild-1_failed", kCollection));
  }
  static void BuildAs(const QString& title) {
    Robot::Type("Form3", "bname", title);
    BookDesk::Build();
  }

  const std::vector<std::string> kCollection = {"_xml/aTitle1.xml"};
  BookDesk desk;
};

TEST_F(RebuildBook, YesTakesTheOldLineOutAndLeavesAnEmptyOne) {
  desk.AddMedium("media/song.mp3");
  desk.robot.AnswerYes();
  BuildAs("نام دوم");
  EXPECT_THAT(desk.robot.TakeBoxes(), SizeIs(2));
  EXPECT_TRUE(desk.IsBook("rebuild-yes", kCollection));
}

TEST_F(RebuildBook, NoLeavesASecondLineAndAYesTakesTheFirstOneOut) {
  desk.AddMedium("media/song.mp3");
  desk.robot.AnswerNo();
  BuildAs("نام دوم");
  EXPECT_THAT(desk.robot.TakeBoxes(), SizeIs(1));
  EXPECT_TRUE(desk.IsBook("rebuild-2_no", kCollection));
  EXPECT_TRUE(desk.form3.IsVisible());

  desk.robot.AnswerYes();
  BuildAs("نام سوم");
  EXPECT_THAT(desk.robot.TakeBoxes(), SizeIs(2));
  EXPECT_TRUE(desk.IsBook("rebuild-3_yes_after_no", kCollection));
  EXPECT_FALSE(desk.form3.IsVisible());
}

}  // namespace
