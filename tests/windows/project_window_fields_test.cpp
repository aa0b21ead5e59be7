// The small handlers of the project window: focus, the music switch, the default button, help, the
// minimising together with the workbench.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTest>

#include "platform/failure.h"
#include "tests/support/project_desk.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::ProjectDesk;
using testing_support::Robot;

constexpr const char* kTextFields[] = {"Back",   "Mus1", "Mus2",  "Text1", "title",
                                       "shenas", "matn", "ExBox", "index", "idir"};
constexpr const char* kMusicControls[] = {"Mus1",     "Mus2",   "Command6",
                                          "Command7", "Label1", "Label10"};

class FailingHelp : public core::HelpPort {
 public:
  void ShowHelp(platform::Window&) override { throw platform::Failure(u"No help"); }
};

class ShownHelp : public core::HelpPort {
 public:
  void ShowHelp(platform::Window& owner) override { shownOver = &owner; }
  platform::Window* shownOver = nullptr;
};

class FakeWorkbench : public core::WorkbenchPort {
 public:
  void ShowWorkbench() override { throw platform::Failure(u"No workbench"); }
  void RestoreWorkbench() override {
    if (fails) throw platform::Failure(u"Nothing to restore");
    calls.emplace_back("restore");
  }
  void StartWorkbenchTimer() override { calls.emplace_back("start timer"); }
  void SetChosenImage(platform::TextView) override {}
  void RemFol(int) override {}
  void SetGalFol(platform::TextView, int) override {}
  bool fails = false;
  std::vector<std::string> calls;
};

class ProjectWindowFields : public testing::Test {
 protected:
  ProjectWindowFields() { desk.Start(); }

  static QLineEdit& Edit(const QString& field) { return Robot::FindAs<QLineEdit>("Form1", field); }
  static QWidget& Find(const QString& control) { return Robot::Find("Form1", control); }
  static void ExpectMusic(bool enabled) {
    for (const char* control : kMusicControls) {
      EXPECT_EQ(Find(control).isEnabled(), enabled) << control;
    }
  }

  ProjectDesk desk;
};

TEST_F(ProjectWindowFields, ReachingAFieldWithTheTabKeySelectsAllItsText) {
  std::size_t reached = 0;
  Find("title").setFocus();
  for (int step = 0; step < 40; ++step) {
    QWidget* focused = Robot::FindWindow("Form1")->focusWidget();
    ASSERT_NE(focused, nullptr);
    QTest::keyClick(focused, Qt::Key_Tab);
    auto* edit = qobject_cast<QLineEdit*>(Robot::FindWindow("Form1")->focusWidget());
    if (edit == nullptr) continue;
    EXPECT_EQ(edit->selectedText(), edit->text()) << edit->objectName().toStdString();
    ++reached;
  }
  EXPECT_GE(reached, std::size(kTextFields));
}

TEST_F(ProjectWindowFields, ClickingIntoAFieldSelectsAllItsText) {
  for (const char* field : kTextFields) {
    Robot::Click("Form1", field);
    EXPECT_EQ(Edit(field).selectedText(), Edit(field).text()) << field;
    EXPECT_FALSE(Edit(field).text().isEmpty()) << field;
  }
}

TEST_F(ProjectWindowFields, ASecondClickPutsTheCaretIntoTheText) {
  Robot::Click("Form1", "Text1");
  Robot::Click("Form1", "Text1");
  EXPECT_EQ(Edit("Text1").selectedText(), "");
}

TEST_F(ProjectWindowFields, WhatIsTypedThenTakesThePlaceOfAllThatStoodThere) {
  Robot::Click("Form1", "ExBox");
  QTest::keyClicks(&Edit("ExBox"), "New");
  EXPECT_EQ(desk.Field("ExBox"), "New");
}

TEST_F(ProjectWindowFields, ReturningFromAnotherWindowLeavesTheSelectionAsItWas) {
  Robot::Click("Form1", "Text1");
  Edit("Text1").setSelection(2, 3);
  desk.form3.Show();
  Robot::Settle();
  Robot::FindWindow("Form1")->activateWindow();
  Robot::Settle();
  EXPECT_EQ(Edit("Text1").selectedText(), "sou");
}

TEST_F(ProjectWindowFields, LeavingACountRebuildsTheListAndLeavingAnotherFieldDoesNot) {
  for (const char* field : kTextFields) {
    Robot::Click("Form1", field);
    Robot::Settle();
    desk.NewLines();
    Robot::PressKey("Form1", field, Qt::Key_Tab);
    const bool isCount = QStringList({"title", "matn", "shenas"}).contains(QString(field));
    EXPECT_EQ(desk.NewLines().size(), isCount ? 2U : 0U) << field;
  }
}

TEST_F(ProjectWindowFields, TheCountsAcceptAnyText) {
  for (const char* field : {"title", "matn", "shenas"}) {
    Robot::Type("Form1", field, "هر متن <any> text");
    EXPECT_EQ(desk.Field(field), "هر متن <any> text");
  }
}

TEST_F(ProjectWindowFields, AtStartTheMusicFieldsAreEnabled) { ExpectMusic(true); }

TEST_F(ProjectWindowFields, TheMouseSwitchesTheMusicOffAndOn) {
  Robot::Click("Form1", "bMus(1)");
  ExpectMusic(false);
  Robot::Click("Form1", "bMus(0)");
  ExpectMusic(true);
}

TEST_F(ProjectWindowFields, TheArrowKeysSwitchTheMusicOffAndOn) {
  Find("bMus(0)").setFocus();
  Robot::PressKey("Form1", "bMus(0)", Qt::Key_Left);
  EXPECT_TRUE(desk.form1.bMus(1).Value());
  ExpectMusic(false);
  Robot::PressKey("Form1", "bMus(1)", Qt::Key_Right);
  EXPECT_TRUE(desk.form1.bMus(0).Value());
  ExpectMusic(true);
}

TEST_F(ProjectWindowFields, TheMusicSwitchLeavesThePatternAlone) {
  Robot::Click("Form1", "Olgoo(1)");
  Robot::Click("Form1", "bMus(1)");
  EXPECT_FALSE(desk.form1.Olgoo(0).Value());
  Robot::Click("Form1", "Olgoo(0)");
  EXPECT_TRUE(desk.form1.bMus(1).Value());
}

TEST_F(ProjectWindowFields, TheEnterKeyPressesNextFromAnyField) {
  for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
    desk.NewLines();
    Robot::PressKey("Form1", "idir", key);
    EXPECT_EQ(desk.NewLines().front(), "Saving settings...");
    EXPECT_TRUE(desk.form3.IsVisible());
  }
}

TEST_F(ProjectWindowFields, TheEnterKeyOnAnotherButtonPressesThatOne) {
  ShownHelp help;
  desk.form1.Wire({.help = &help});
  Find("Command4").setFocus();
  Robot::PressKey("Form1", "Command4", Qt::Key_Return);
  EXPECT_EQ(help.shownOver, &desk.form1);
  EXPECT_EQ(desk.LoggedTimes("Saving settings..."), 0);
}

TEST_F(ProjectWindowFields, TheHelpButtonShowsTheHelpOverTheProjectWindow) {
  ShownHelp help;
  desk.form1.Wire({.help = &help});
  Robot::Click("Form1", "Command4");
  EXPECT_EQ(help.shownOver, &desk.form1);
}

TEST_F(ProjectWindowFields, Failure33AHelpThatCannotBeShown) {
  FailingHelp help;
  desk.form1.Wire({.help = &help});
  Robot::Click("Form1", "Command4");
  EXPECT_EQ(desk.LogLines().back(), "Error occurred => Error number is 33 (No help)");
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

TEST_F(ProjectWindowFields, Failure101AWorkbenchThatCannotBeShown) {
  FakeWorkbench workbench;
  desk.form1.Wire({.workbench = &workbench});
  desk.PressNext();
  EXPECT_EQ(desk.LoggedFailures(101), 1);
  EXPECT_EQ(desk.robot.TakeBoxes().size(), 1U);
}

// The timer, whose interval the tests don't wait for where one tick is enough.

TEST_F(ProjectWindowFields, WithTheWorkbenchMinimisedTheProjectWindowFollows) {
  desk.PressNext();
  desk.form3.SetState(platform::WindowState::kMinimised);
  Robot::WaitUntil([&] { return desk.form1.State() == platform::WindowState::kMinimised; });
  Robot::WaitUntil([&] { return desk.form1.Timer1.TimerEnabled(); });
  EXPECT_FALSE(desk.form3.Timer1.TimerEnabled());
}

TEST_F(ProjectWindowFields, TheTickAfterTheProjectWindowIsRestoredRestoresTheWorkbench) {
  desk.PressNext();
  desk.form3.SetState(platform::WindowState::kMinimised);
  Robot::WaitUntil([&] { return desk.form1.Timer1.TimerEnabled(); });
  desk.form1.Timer1.onTimer();
  EXPECT_EQ(desk.form3.State(), platform::WindowState::kMinimised);
  EXPECT_TRUE(desk.form1.Timer1.TimerEnabled());
  Robot::FindWindow("Form1")->showNormal();
  EXPECT_EQ(desk.form3.State(), platform::WindowState::kMinimised);
  Robot::WaitUntil([&] { return desk.form3.State() == platform::WindowState::kNormal; });
  EXPECT_FALSE(desk.form1.Timer1.TimerEnabled());
  EXPECT_TRUE(desk.form3.Timer1.TimerEnabled());
}

TEST_F(ProjectWindowFields, ATickRestoresTheWorkbenchAndStartsItsTimerInThatOrder) {
  FakeWorkbench workbench;
  desk.form1.Wire({.workbench = &workbench});
  desk.form1.Timer1.SetTimerEnabled(true);
  desk.form1.Timer1.onTimer();
  EXPECT_THAT(workbench.calls, ElementsAre("restore", "start timer"));
  EXPECT_FALSE(desk.form1.Timer1.TimerEnabled());
}

TEST_F(ProjectWindowFields, Failure43AWorkbenchThatCannotBeRestored) {
  FakeWorkbench workbench;
  workbench.fails = true;
  desk.form1.Wire({.workbench = &workbench});
  desk.form1.Timer1.onTimer();
  EXPECT_EQ(desk.LogLines().back(), "Error occurred => Error number is 43 (Nothing to restore)");
  EXPECT_THAT(workbench.calls, IsEmpty());
}

// A project window that is off the screen but still logs.
class LoggingForm1 : public core::Form1 {
 public:
  using Form1::Form1;

 protected:
  void Form_Unload() override {}
};

TEST_F(ProjectWindowFields, Failure31AMusicSwitchWithoutItsWindow) {
  LoggingForm1 form1(desk.machine);
  form1.Load();
  form1.Unload();
  form1.bMus(0).onClick();
  EXPECT_EQ(desk.LogLines().back(),
            "Error occurred => Error number is 31 (Object was unloaded: bMus)");
}

}  // namespace
