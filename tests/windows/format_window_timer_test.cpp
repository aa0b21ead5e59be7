// The two windows are minimised and restored together, by two timers of which one runs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QWidget>

#include "tests/support/format_desk.h"

namespace {

using platform::WindowState;
using testing_support::FormatDesk;
using testing_support::Robot;

class FormatWindowTimer : public testing::Test {
 protected:
  FormatWindowTimer() { desk.Open(); }

  bool ExactlyOneRuns() {
    return desk.form1.Timer1.TimerEnabled() != desk.form3.Timer1.TimerEnabled();
  }
  bool BothAre(WindowState state) {
    return desk.form1.State() == state && desk.form3.State() == state;
  }
  void MinimiseBoth() {
    Robot::FindWindow("Form3")->showMinimized();
    Robot::WaitUntil([&] { return BothAre(WindowState::kMinimised); });
    Robot::WaitUntil([&] { return !desk.form3.Timer1.TimerEnabled(); });
  }

  FormatDesk desk;
};

TEST_F(FormatWindowTimer, AtFirstOnlyTheFormatWindowWatches) {
  EXPECT_TRUE(desk.form3.Timer1.TimerEnabled());
  EXPECT_FALSE(desk.form1.Timer1.TimerEnabled());
  EXPECT_FALSE(desk.form3.Timer2.TimerEnabled());
}

TEST_F(FormatWindowTimer, ATickOverAnOpenWindowChangesNothing) {
  desk.form3.Timer1.onTimer();
  EXPECT_TRUE(BothAre(WindowState::kNormal));
  EXPECT_TRUE(desk.form3.Timer1.TimerEnabled());
  EXPECT_FALSE(desk.form1.Timer1.TimerEnabled());
}

TEST_F(FormatWindowTimer, MinimisingTheFormatWindowMinimisesTheProjectWindow) {
  MinimiseBoth();
  EXPECT_FALSE(desk.form3.Timer1.TimerEnabled());
  EXPECT_TRUE(desk.form1.Timer1.TimerEnabled());
}

TEST_F(FormatWindowTimer, AsLongAsTheProjectWindowStaysMinimisedNothingHappens) {
  MinimiseBoth();
  desk.form1.Timer1.onTimer();
  EXPECT_TRUE(BothAre(WindowState::kMinimised));
  EXPECT_TRUE(desk.form1.Timer1.TimerEnabled());
  EXPECT_FALSE(desk.form3.Timer1.TimerEnabled());
}

TEST_F(FormatWindowTimer, RestoringTheProjectWindowRestoresTheFormatWindow) {
  MinimiseBoth();
  Robot::FindWindow("Form1")->showNormal();
  Robot::WaitUntil([&] { return BothAre(WindowState::kNormal); });
  Robot::WaitUntil([&] { return desk.form3.Timer1.TimerEnabled(); });
  EXPECT_FALSE(desk.form1.Timer1.TimerEnabled());
}

TEST_F(FormatWindowTimer, OneTimerRunsHoweverOftenTheWindowsComeAndGo) {
  for (int round = 0; round < 3; ++round) {
    MinimiseBoth();
    EXPECT_TRUE(ExactlyOneRuns()) << round;
    Robot::FindWindow("Form1")->showNormal();
    Robot::WaitUntil([&] { return desk.form3.Timer1.TimerEnabled(); });
    EXPECT_TRUE(BothAre(WindowState::kNormal)) << round;
    EXPECT_TRUE(ExactlyOneRuns()) << round;
  }
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowTimer, ATickTouchesNothingOfTheTable) {
  desk.AddText("One.txt", u"alpha beta");
  desk.form3.FileList();
  FormatDesk::OpenBook("One.txt");
  desk.FileHeading("alpha", "beta");
  MinimiseBoth();
  Robot::FindWindow("Form1")->showNormal();
  Robot::WaitUntil([&] { return BothAre(WindowState::kNormal); });
  EXPECT_THAT(FormatDesk::Lines("bindex"), testing::ElementsAre("alpha   =>   beta"));
  EXPECT_EQ(desk.form3.entryCount, 1);
}

TEST_F(FormatWindowTimer, AFormatWindowClosedWhileMinimisedLeavesTheProjectWindowUsable) {
  MinimiseBoth();
  Robot::CloseWindow("Form3");
  Robot::FindWindow("Form1")->showNormal();
  Robot::WaitUntil([&] { return !desk.form1.Timer1.TimerEnabled(); });
  EXPECT_EQ(desk.LoggedFailures(43), 0);
  desk.PressNext();
  EXPECT_TRUE(desk.form3.IsVisible());
  EXPECT_TRUE(ExactlyOneRuns());
}

}  // namespace
