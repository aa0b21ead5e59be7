// The buttons of the window that offers what an earlier run left: what a press costs nothing of,
// what fails at it, and the keys that lead there.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <algorithm>

#include "tests/support/left_work.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::FormatDesk;
using testing_support::Robot;

class RecoveryPresses : public testing_support::LeftWorkTest {};

// The table is empty still, and what the press takes the place of is a record of its own.
TEST_F(RecoveryPresses, WhatWasTypedBeforeThePressIsOfferedAtTheNextOpening) {
  FileFive();
  const std::string held = Held();
  OpenAnew();
  Robot::Type("Form3", "bname", "typed");
  FormatDesk::OpenBook("One.txt");
  FormatDesk::Mark(Qt::Key_F11, "Head");
  const std::string typed = Held();
  ASSERT_TRUE(CanBring());
  Robot::Click("Recovery", "recoverBring");
  EXPECT_EQ(Held(), held);
  EXPECT_THAT(Records(), SizeIs(2));
  OpenAnew();
  EXPECT_EQ(Says("recoverCount"), "5");
  Robot::Click("Recovery", "recoverLater");
  ASSERT_TRUE(IsShown());
  Robot::Click("Recovery", "recoverBring");
  EXPECT_EQ(Held(), typed);
}

// It is none of what is built.
TEST_F(RecoveryPresses, ABuildLeavesWhatWasTypedBeforeThePress) {
  FileFive();
  OpenAnew();
  Robot::Type("Form3", "bname", "typed");
  Robot::Click("Recovery", "recoverBring");
  Robot::PressKey("Form3", "matn", Qt::Key_F12);
  EXPECT_THAT(Records(), SizeIs(1));
}

TEST_F(RecoveryPresses, ATextThatWasOnlyOpenedBeforeThePressLeavesNothing) {
  FileFive();
  OpenAnew();
  FormatDesk::OpenBook("One.txt");
  Robot::Click("Recovery", "recoverBring");
  EXPECT_THAT(Records(), SizeIs(1));
}

TEST_F(RecoveryPresses, WhatCantBeDroppedIsSaidAndStaysOffered) {
  FileFive();
  OpenAnew();
  desk.robot.AnswerYes();
  desk.records.FailAt(1);
  Robot::Click("Recovery", "recoverDrop");
  const auto boxes = desk.robot.TakeBoxes();
  ASSERT_THAT(boxes, SizeIs(2));
  EXPECT_EQ(boxes.front().buttons, QMessageBox::Yes | QMessageBox::No);
  EXPECT_EQ(boxes.back().buttons, QMessageBox::Ok);
  EXPECT_EQ(desk.LoggedFailures(87), 1);
  ASSERT_TRUE(IsShown());
  EXPECT_EQ(Says("recoverCount"), "5");
  EXPECT_THAT(Records(), SizeIs(1));
  desk.robot.AnswerYes();
  Robot::Click("Recovery", "recoverDrop");
  EXPECT_FALSE(IsShown());
  EXPECT_THAT(Records(), IsEmpty());
}

// The old record of what came back couldn't be removed: it is in hand, and goes with the build.
TEST_F(RecoveryPresses, ARecordThatStaysAfterThePressGoesWithTheBuild) {
  FileFive();
  OpenAnew();
  desk.records.FailAt(0);
  Robot::Click("Recovery", "recoverBring");
  const auto removal = std::ranges::find(desk.records.Names(), "Remove");
  const auto k = removal - desk.records.Names().begin() + 1;
  OpenAnew();
  desk.records.FailAt(static_cast<std::size_t>(k));
  Robot::Click("Recovery", "recoverBring");
  ASSERT_EQ(desk.records.Names()[static_cast<std::size_t>(k) - 1], "Remove");
  EXPECT_EQ(desk.LoggedFailures(87), 1);
  EXPECT_FALSE(IsShown());
  EXPECT_THAT(Records(), SizeIs(2));
  EXPECT_EQ(desk.form3.entryCount, 5);
  Robot::PressKey("Form3", "matn", Qt::Key_F12);
  EXPECT_THAT(Records(), IsEmpty());
}

TEST_F(RecoveryPresses, IsReachedByKeysInTheOrderOfItsButtons) {
  FileFive();
  OpenAnew();
  QWidget& window = *Robot::FindWindow("Recovery");
  window.activateWindow();
  Robot::Settle();
  std::vector<std::string> reached;
  Robot::Find("Recovery", "recoverBring").setFocus();
  for (int i = 0; i < 3; ++i) {
    reached.push_back(window.focusWidget()->objectName().toStdString());
    Robot::PressKey("Recovery", window.focusWidget()->objectName(), Qt::Key_Tab);
  }
  EXPECT_THAT(reached, ElementsAre("recoverBring", "recoverLater", "recoverDrop"));
  Robot::PressKey("Recovery", "recoverBring", Qt::Key_Return);
  EXPECT_EQ(desk.form3.entryCount, 5);
}

// It never takes the focus, so a key goes there, and back.
TEST_F(RecoveryPresses, AKeyLeadsThereAndBack) {
  const auto press = [](const char* window, const QString& control) {
    Robot::Find(window, control).setFocus();
    Robot::PressKey(window, control, Qt::Key_Tab, Qt::ControlModifier);
    Robot::Settle();
    const QWidget* const focus = QApplication::focusWidget();
    return (QApplication::activeWindow()->objectName() + u'.' +
            (focus != nullptr ? focus->objectName() : QString()))
        .toStdString();
  };
  FileFive();
  OpenAnew();
  EXPECT_EQ(press("Form3", "matn"), "Recovery.recoverBring");
  EXPECT_EQ(press("Recovery", "recoverBring"), "Form3.matn");
  FormatDesk::OpenBook("One.txt");
  FormatDesk::FileHeading("Head", "Text");
  EXPECT_EQ(press("Form3", "bname"), "Recovery.recoverLater") << "the table isn't empty";
  Robot::PressKey("Recovery", "recoverLater", Qt::Key_Return);
  EXPECT_FALSE(IsShown());
  EXPECT_EQ(press("Form3", "matn"), "Form3.matn") << "there is nowhere to go";
}

}  // namespace
