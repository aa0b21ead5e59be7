// Menus that open over a window, and their items.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QCursor>
#include <QImage>
#include <QMenu>
#include <QTest>
#include <array>

#include "platform/windows/controls.h"
#include "tests/support/small_window.h"

namespace {

using platform::Button;
using platform::ControlKind;
using platform::ControlRow;
using platform::MenuItem;
using platform::PopupMenu;
using platform::WindowDefinition;
using testing::ElementsAre;
using testing_support::FailureOf;
using testing_support::Robot;
using testing_support::SmallWindow;

constexpr ControlRow Item(platform::TextView name, platform::TextView text, bool enabled = true) {
  return {.name = name,
          .kind = ControlKind::kMenuItem,
          .text = text,
          .parent = u"menu",
          .enabled = enabled};
}

constexpr std::array kRows = {
    ControlRow{.name = u"go",
               .kind = ControlKind::kButton,
               .left = 1500,
               .top = 3000,
               .width = 1200,
               .height = 390},
    ControlRow{.name = u"menu", .kind = ControlKind::kMenu},
    Item(u"first", u"درج فايل\u200Fها در متن"),
    Item(u"second", u"كپي"),
    Item(u"third", u"حذف", false),
};
constexpr WindowDefinition kWindow = {
    .name = u"Menus", .title = u"", .width = 4500, .height = 4500, .rows = kRows};

class MenuWindow : public SmallWindow {
 public:
  MenuWindow() : SmallWindow(kWindow) {}

  Button go{*this, u"go"};
  PopupMenu menu{*this, u"menu"};
  MenuItem first{*this, u"first"};
  MenuItem second{*this, u"second"};
  MenuItem third{*this, u"third"};
};

class PopupMenuTest : public testing::Test {
 protected:
  PopupMenuTest() {
    window.first.onClick = [this] { ++firstChosen; };
    window.second.onClick = [this] { ++secondChosen; };
    window.ShowActive();
  }
  // The pointer is not over the window.
  void Open() {
    QCursor::setPos(window.OnScreen().geometry().topLeft() - QPoint(5, 5));
    window.menu.Show();
    Robot::Settle();
  }
  static QMenu* Shown() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
  // The columns of a shown item in which there is any ink, from the left.
  static std::pair<int, int> Ink(int item) {
    const QImage all = Shown()->grab().toImage();
    const QRect place = Shown()->actionGeometry(Shown()->actions().at(item));
    const QRgb paper = all.pixel(place.left() + 4, place.center().y());
    std::pair<int, int> ink{place.right(), place.left()};
    for (int x = place.left() + 3; x < place.right() - 3; ++x) {
      for (int y = place.top() + 3; y < place.bottom() - 3; ++y) {
        if (all.pixel(x, y) == paper) continue;
        ink = {std::min(ink.first, x), std::max(ink.second, x)};
      }
    }
    return ink;
  }

  MenuWindow window;
  int firstChosen = 0;
  int secondChosen = 0;
};

TEST_F(PopupMenuTest, ShowsItsItemsInTheOrderOfTheirRowsWithAHalfSpaceForTheMark) {
  Open();
  ASSERT_NE(Shown(), nullptr);
  std::vector<std::string> texts;
  for (const QAction* item : Shown()->actions()) texts.push_back(item->text().toStdString());
  EXPECT_THAT(texts, ElementsAre("درج فايل\u200Cها در متن", "كپي", "حذف"));
  EXPECT_EQ(Shown()->objectName(), "menu");
  EXPECT_EQ(Shown()->actions().at(0)->objectName(), "first");
}

TEST_F(PopupMenuTest, ItsTextsBeginOnTheRight) {
  Open();
  ASSERT_NE(Shown(), nullptr);
  EXPECT_EQ(Shown()->layoutDirection(), Qt::RightToLeft);
  const auto longText = Ink(0);
  const auto shortText = Ink(1);
  EXPECT_NEAR(longText.second, shortText.second, 4);
  EXPECT_GT(shortText.first, longText.first + 10);
}

TEST_F(PopupMenuTest, AChoiceRunsItsHandlerOnceAndTheMenuIsGone) {
  Open();
  Robot::ChooseFromMenu("menu", "second");
  EXPECT_EQ(firstChosen, 0);
  EXPECT_EQ(secondChosen, 1);
  EXPECT_EQ(Shown(), nullptr);
}

TEST_F(PopupMenuTest, AnItemThatIsSwitchedOffCanNotBeChosen) {
  Open();
  EXPECT_FALSE(Shown()->actions().at(2)->isEnabled());
  EXPECT_TRUE(Shown()->actions().at(0)->isEnabled());
  Shown()->close();
  window.first.SetEnabled(false);
  Open();
  EXPECT_ANY_THROW(Robot::ChooseFromMenu("menu", "first"));
  EXPECT_FALSE(Shown()->actions().at(0)->isEnabled());
  Shown()->close();
  window.first.SetEnabled(true);
  Open();
  Robot::ChooseFromMenu("menu", "first");
  EXPECT_EQ(firstChosen, 1);
}

TEST_F(PopupMenuTest, IsChosenFromWithTheKeys) {
  Open();
  QTest::keyClick(Shown(), Qt::Key_Down);
  QTest::keyClick(Shown(), Qt::Key_Down);
  QTest::keyClick(Shown(), Qt::Key_Return);
  Robot::Settle();
  EXPECT_EQ(secondChosen, 1);
  EXPECT_EQ(Shown(), nullptr);
}

TEST_F(PopupMenuTest, EscapeClosesItWithoutAChoice) {
  Open();
  QTest::keyClick(Shown(), Qt::Key_Escape);
  Robot::Settle();
  EXPECT_EQ(Shown(), nullptr);
  EXPECT_TRUE(window.IsVisible());
  EXPECT_EQ(firstChosen + secondChosen, 0);
}

TEST_F(PopupMenuTest, OpensAtThePointerOrElseAtTheFocus) {
  window.go.SetFocus();
  Open();
  const QWidget& button = Robot::Find("Menus", "go");
  const auto onWindow = [this](QPoint place) { return window.OnScreen().mapFromGlobal(place); };
  EXPECT_TRUE(button.geometry().contains(onWindow(Shown()->geometry().topLeft())));
  Shown()->close();
  const QPoint pointer(250, 40);
  QCursor::setPos(window.OnScreen().mapToGlobal(pointer));
  window.menu.Show();
  Robot::Settle();
  // Beside the pointer and to the left of it, as the menu runs from right to left.
  EXPECT_LE((onWindow(Shown()->geometry().topRight()) - pointer).manhattanLength(), 3);
}

TEST_F(PopupMenuTest, AHandlerMayUnloadTheWindow) {
  window.first.onClick = [this] { window.Unload(); };
  Open();
  Robot::ChooseFromMenu("menu", "first");
  EXPECT_FALSE(window.IsLoaded());
  window.ShowActive();
  Open();
  EXPECT_NE(Shown(), nullptr);
}

TEST_F(PopupMenuTest, GoesWithItsWindow) {
  Open();
  window.Unload();
  Robot::Settle();
  EXPECT_EQ(Shown(), nullptr);
}

TEST_F(PopupMenuTest, FailsWhileItsWindowIsNotLoaded) {
  window.Unload();
  EXPECT_NE(FailureOf([this] { window.menu.Show(); }), "none");
  EXPECT_NE(FailureOf([this] { window.first.SetEnabled(true); }), "none");
}

TEST(PopupMenuRows, AnItemOutsideAMenuFails) {
  static constexpr std::array kAstray = {
      ControlRow{
          .name = u"frame", .kind = ControlKind::kFrame, .left = 0, .width = 300, .height = 300},
      ControlRow{.name = u"item", .kind = ControlKind::kMenuItem, .text = u"x", .parent = u"frame"},
  };
  static constexpr WindowDefinition kDefinition = {
      .name = u"Astray", .title = u"", .width = 3000, .height = 3000, .rows = kAstray};
  SmallWindow window(kDefinition);
  EXPECT_NE(FailureOf([&] { window.Load(); }), "none");
  EXPECT_FALSE(window.IsLoaded());
}

}  // namespace
