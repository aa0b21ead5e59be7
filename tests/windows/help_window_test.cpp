// The help window, opened from the project window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTextEdit>
#include <filesystem>

#include "tests/support/desk.h"

namespace {

using testing::IsEmpty;
using testing_support::Desk;
using testing_support::Robot;

constexpr const char* kDesignText = "راهنماي استفاده از نرم\u200Cافزار";

class HelpWindow : public testing::Test {
 protected:
  HelpWindow() { desk.Start(); }
  // Opens the help, gives what it shows, and closes it.
  std::string OpenAndRead() {
    std::string shown;
    desk.robot.WhenShown("Form4", [&shown] {
      shown = Robot::FindAs<QTextEdit>("Form4", "Box1").toPlainText().toStdString();
      Robot::CloseWindow("Form4");
    });
    Robot::Click("Form1", "Command4");
    return shown;
  }

  Desk desk;
};

TEST_F(HelpWindow, ShowsTheGuideBesideTheProgram) {
  desk.Write("Resources/Help.rtf", "{\\rtf1\\ansi{\\b One}\\par two}");
  EXPECT_EQ(OpenAndRead(), "One\ntwo");
  EXPECT_EQ(desk.LoggedFailures(69), 0);
}

TEST_F(HelpWindow, WithTheGuideRenamedAwayShowsTheDesignLine) {
  std::filesystem::remove(desk.HostPath("Resources/Help.rtf"));
  desk.form1.Command4.SetFocus();  // leaving a count lists the collections anew
  const std::string before = desk.Log();
  EXPECT_EQ(OpenAndRead(), kDesignText);
  EXPECT_EQ(desk.Log(), before);
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

TEST_F(HelpWindow, ShowsAReplacedGuideAtTheNextOpening) {
  desk.Write("Resources/Help.rtf", "{\\rtf1 first}");
  EXPECT_EQ(OpenAndRead(), "first");
  desk.Write("Resources/Help.rtf", "{\\rtf1 second}");
  EXPECT_EQ(OpenAndRead(), "second");
}

TEST_F(HelpWindow, AGuideThatIsNoRichTextIsToldInTheLogAlone) {
  desk.Write("Resources/Help.rtf", "plain");
  EXPECT_EQ(OpenAndRead(), kDesignText);
  EXPECT_EQ(desk.LoggedFailures(69), 1);
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  EXPECT_THAT(desk.form1.lastErrorText, testing::Not(testing::IsEmpty()));
}

TEST_F(HelpWindow, IsModalAndItsTextCanBeReadButNotChanged) {
  desk.Write("Resources/Help.rtf", "{\\rtf1 guide}");
  bool modal = false;
  std::string shown;
  desk.robot.WhenShown("Form4", [&] {
    modal = Robot::FindWindow("Form4")->isModal();
    auto& box = Robot::FindAs<QTextEdit>("Form4", "Box1");
    Robot::PressKey("Form4", "Box1", Qt::Key_X);
    Robot::PressKey("Form4", "Box1", Qt::Key_A, Qt::ControlModifier);
    shown = box.textCursor().selectedText().toStdString();
    Robot::CloseWindow("Form4");
  });
  Robot::Click("Form1", "Command4");
  EXPECT_TRUE(modal);
  EXPECT_EQ(shown, "guide");
}

}  // namespace
