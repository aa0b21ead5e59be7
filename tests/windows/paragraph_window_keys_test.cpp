// The paragraph window without a mouse.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>
#include <QTextEdit>

#include "tests/support/gallery_desk.h"

namespace {

using testing::ElementsAre;
using testing::IsSupersetOf;
using testing_support::FormatDesk;
using testing_support::GalleryDesk;
using testing_support::Robot;

class ParagraphKeys : public testing::Test {
 protected:
  ParagraphKeys() {
    desk.AddPicture("back.jpg");
    desk.OpenOn(u"Head\r\nText");
    FormatDesk::FileHeading("Head", "Text");
  }
  void InEntry(const std::function<void()>& act) { desk.InEntry(0, act); }
  static std::string Focused() {
    const QWidget* widget = Robot::FindWindow("Form6")->focusWidget();
    return widget == nullptr ? "" : widget->objectName().toStdString();
  }
  // What Tab comes to from the title on until it is there again.
  static std::vector<std::string> Round() {
    Robot::Find("Form6", "bname").setFocus();
    std::vector<std::string> round{"bname"};
    for (int presses = 0; presses < 60; ++presses) {
      Robot::PressKey("Form6", QString::fromStdString(Focused()), Qt::Key_Tab);
      if (Focused() == round.front()) break;
      round.push_back(Focused());
    }
    return round;
  }
  static std::string Tag() {
    return Robot::Find("Form6", "Image1").property("tag").toString().toStdString();
  }

  GalleryDesk desk;
};

TEST_F(ParagraphKeys, TabReachesEverythingInTheOrderInWhichItStands) {
  InEntry([] {
    EXPECT_THAT(Round(), ElementsAre("bname", "btn(5)", "btn(0)", "matn", "btn(1)", "picB",
                                     "Command5", "btn(2)", "soutB", "Command1", "btn(3)", "filmB",
                                     "Command2", "Image1", "btn(4)"));
  });
}

TEST_F(ParagraphKeys, TabReachesThePartsOfTheGallery) {
  InEntry([this] {
    Robot::Click("Form6", "btn(5)");
    desk.OpenFolder("Form6");
    EXPECT_THAT(Round(), IsSupersetOf({"Command3", "IMN(0)", "IMC(0)", "btn(4)"}));
  });
}

TEST_F(ParagraphKeys, EscapeClosesNothingWhereverTheFocusIs) {
  InEntry([this] {
    Robot::Type("Form6", "bname", "Heading");
    for (const std::string& control : Round()) {
      Robot::PressKey("Form6", QString::fromStdString(control), Qt::Key_Escape);
      ASSERT_TRUE(desk.form6.IsVisible()) << control;
    }
    Robot::Click("Form6", "btn(4)");
  });
  EXPECT_EQ(desk.form3.table.entryTitle(0), u"Heading");
}

TEST_F(ParagraphKeys, EnterInAFieldKeepsNothingAndClosesNothing) {
  InEntry([this] {
    Robot::Type("Form6", "bname", "Heading");
    Robot::PressKey("Form6", "bname", Qt::Key_Return);
    EXPECT_TRUE(desk.form6.IsVisible());
  });
  EXPECT_EQ(desk.form3.table.entryTitle(0), u"Head");
}

TEST_F(ParagraphKeys, SpaceOnTheBackgroundIsAClickOnIt) {
  InEntry([this] {
    Robot::Find("Form6", "Image1").setFocus(Qt::TabFocusReason);
    desk.robot.WhenShown("Form5", [] {
      Robot::DoubleClickLine("Form5", "Dir1", "Pictures");
      Robot::ClickLine("Form5", "File1", "back.jpg");
      Robot::Click("Form5", "btn(0)");
    });
    Robot::PressKey("Form6", "Image1", Qt::Key_Space);
    EXPECT_THAT(Tag(), testing::EndsWith("back.jpg"));
    Robot::PressKey("Form6", "Image1", Qt::Key_Return);
    EXPECT_EQ(Tag(), "");
  });
}

// Where the focus was it stays: the text goes on being typed where the editor was.
TEST_F(ParagraphKeys, AClickOnTheBackgroundLeavesTheFocusWhereItIs) {
  desk.form3.table.entryBack.Set(0, desk.Picture(u"back.jpg"));
  InEntry([] {
    Robot::Find("Form6", "matn").setFocus();
    Robot::Click("Form6", "Image1");
    EXPECT_EQ(Focused(), "matn");
    EXPECT_EQ(Tag(), "");
  });
}

TEST_F(ParagraphKeys, TheMenuIsOpenedAndChosenFromWithKeysAndTheTextHasTheFocusAgain) {
  InEntry([] {
    Robot::Select("Form6", "matn", "ex");
    auto& box = Robot::FindAs<QTextEdit>("Form6", "matn");
    QContextMenuEvent pressed(QContextMenuEvent::Keyboard, {5, 5}, box.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(box.viewport(), &pressed);
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    QTest::keyClick(menu, Qt::Key_Up);
    QTest::keyClick(menu, Qt::Key_Return);
    Robot::Settle();
    EXPECT_EQ(box.toPlainText(), "Tt");
    EXPECT_EQ(Focused(), "matn");
  });
}

}  // namespace
