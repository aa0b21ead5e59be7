// Windows: from load to unload, modal ones, sizes and states.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <array>

#include "platform/windows/controls.h"
#include "tests/support/small_window.h"

namespace {

using platform::Border;
using platform::Button;
using platform::ControlKind;
using platform::ControlRow;
using platform::TextBox;
using platform::Window;
using platform::WindowDefinition;
using platform::WindowState;
using testing::ElementsAre;
using testing_support::FailureOf;
using testing_support::Robot;
using testing_support::SmallWindow;

constexpr std::array kRows = std::to_array<ControlRow>({
    {.name = u"field",
     .kind = ControlKind::kTextBox,
     .left = 150,
     .top = 150,
     .width = 1500,
     .height = 315,
     .text = u"as designed"},
    {.name = u"go",
     .kind = ControlKind::kButton,
     .left = 150,
     .top = 600,
     .width = 1500,
     .height = 375,
     .text = u"Go",
     .defaultButton = true},
    {.name = u"other",
     .kind = ControlKind::kButton,
     .left = 150,
     .top = 1050,
     .width = 1500,
     .height = 375,
     .text = u"Other"},
});

constexpr WindowDefinition kFixed = {
    .name = u"Fixed", .title = u"A window", .width = 3000, .height = 2250, .rows = kRows};
constexpr WindowDefinition kSizable = {.name = u"Sizable",
                                       .title = u"Another",
                                       .width = 3000,
                                       .height = 2250,
                                       .border = Border::kSizable,
                                       .rows = kRows};

struct Small : SmallWindow {
  explicit Small(const WindowDefinition& definition = kFixed) : SmallWindow(definition) {}
  TextBox field{*this, u"field"};
  Button go{*this, u"go"};
  Button other{*this, u"other"};
};

// Runs once an event loop turns.
void Soon(const std::function<void()>& act) { QTimer::singleShot(0, qApp, act); }

TEST(PlatformWindow, LoadMakesTheControlsAsDesigned) {
  Small window;
  EXPECT_FALSE(window.IsLoaded());
  std::vector<std::string> seen;
  window.onLoad = [&] { seen.push_back(platform::ToUtf8(window.field.Text())); };
  window.Load();
  window.Load();
  EXPECT_THAT(seen, ElementsAre("as designed"));
  EXPECT_TRUE(window.IsLoaded());
  EXPECT_FALSE(window.IsVisible());
  EXPECT_EQ(window.Width(), 3000);
  EXPECT_EQ(window.Height(), 2250);
  EXPECT_EQ(window.OnScreen().windowTitle(), "A window");
  EXPECT_EQ(window.OnScreen().size(), QSize(200, 150));
  EXPECT_EQ(Robot::Find("Fixed", "go").geometry(), QRect(10, 40, 100, 25));
}

TEST(PlatformWindow, AReloadedWindowIsAsDesignedAgain) {
  Small window;
  window.Show();
  window.field.SetText(u"changed");
  window.go.SetEnabled(false);
  window.Unload();
  EXPECT_FALSE(window.IsLoaded());
  EXPECT_FALSE(window.IsVisible());
  window.Show();
  EXPECT_EQ(window.field.Text(), u"as designed");
  // Else the one that was taken away may be found.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(Robot::Find("Fixed", "go").isEnabled());
}

TEST(PlatformWindow, AnUnloadedWindowIsAFailureToUse) {
  Small window;
  const std::string unloaded = "Object was unloaded: Fixed";
  EXPECT_EQ(FailureOf([&] { window.Hide(); }), unloaded);
  EXPECT_EQ(FailureOf([&] { window.State(); }), unloaded);
  EXPECT_EQ(FailureOf([&] { window.SetState(WindowState::kNormal); }), unloaded);
  EXPECT_EQ(FailureOf([&] { window.Width(); }), unloaded);
  EXPECT_EQ(FailureOf([&] { window.SetHeight(1); }), unloaded);
  EXPECT_FALSE(window.IsVisible());
  window.Unload();
}

TEST(PlatformWindow, ALoadThatFailsLeavesNoWindow) {
  Small window;
  window.onLoad = [] { throw platform::Failure(u"no"); };
  EXPECT_EQ(FailureOf([&] { window.Show(); }), "no");
  EXPECT_FALSE(window.IsLoaded());
  window.onLoad = {};
  window.Show();
  EXPECT_TRUE(window.IsVisible());
}

TEST(PlatformWindow, AWindowUnloadedByItsOwnLoadIsNotShown) {
  Small window;
  window.onLoad = [&] { window.Unload(); };
  EXPECT_EQ(FailureOf([&] { window.Show(); }), "Object was unloaded: Fixed");
  EXPECT_FALSE(window.IsLoaded());
}

TEST(PlatformWindow, AControlOfTheWrongKindIsAFailure) {
  SmallWindow window(kFixed);
  Button wrong{window, u"field"};
  EXPECT_EQ(FailureOf([&] { window.Load(); }), "Control of another kind: field");
  EXPECT_FALSE(window.IsLoaded());
}

TEST(PlatformWindow, TheCloseButtonUnloadsOrHides) {
  Small window;
  int unloads = 0;
  window.onUnload = [&] { ++unloads; };
  window.Show();
  Robot::CloseWindow("Fixed");
  EXPECT_FALSE(window.IsLoaded());
  EXPECT_EQ(unloads, 1);
  window.closeHides = true;
  window.Show();
  Robot::CloseWindow("Fixed");
  EXPECT_TRUE(window.IsLoaded());
  EXPECT_FALSE(window.IsVisible());
  EXPECT_EQ(unloads, 1);
}

// A desktop that ends its session asks every window to close; one that says no stops it.
TEST(PlatformWindow, AClosedWindowDoesNotSayNo) {
  Small window;
  window.Show();
  EXPECT_TRUE(window.OnScreen().close());
}

TEST(PlatformWindow, UnloadInsideOnesOwnEvent) {
  Small window;
  window.go.onClick = [&] {
    window.Unload();
    EXPECT_EQ(FailureOf([&] { window.field.Text(); }), "Object was unloaded: field");
  };
  window.Show();
  Robot::Click("Fixed", "go");
  EXPECT_FALSE(window.IsLoaded());
  EXPECT_EQ(Robot::FindWindow("Fixed"), nullptr);
}

TEST(PlatformWindow, NoEventReachesControlsOnceTheyAreUnloaded) {
  Small window;
  int changes = 0;
  int lost = 0;
  window.field.onChange = [&] { ++changes; };
  window.field.onLostFocus = [&] { ++lost; };
  window.ShowActive();
  Robot::Click("Fixed", "field");
  const QPointer<QLineEdit> edit = &Robot::FindAs<QLineEdit>("Fixed", "field");
  window.Unload();
  ASSERT_NE(edit, nullptr);
  edit->setText("late");
  Robot::Settle();
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(lost, 0);
}

TEST(PlatformWindow, AWindowCanEndWhileItIsOnTheScreen) {
  int lost = 0;
  {
    Small window;
    window.field.onLostFocus = [&] { ++lost; };
    window.ShowActive();
    Robot::Click("Fixed", "field");
  }
  Robot::Settle();
  EXPECT_EQ(Robot::FindWindow("Fixed"), nullptr);
  EXPECT_EQ(lost, 0);
}

TEST(PlatformWindow, ResizeAndPaintAreTold) {
  Small window(kSizable);
  int resizes = 0;
  int paints = 0;
  window.onResize = [&] { ++resizes; };
  window.onPaint = [&] { ++paints; };
  window.ShowActive();
  window.SetWidth(4500);
  Robot::Settle();
  EXPECT_EQ(window.Width(), 4500);
  EXPECT_GE(resizes, 1);
  EXPECT_GE(paints, 1);
}

TEST(PlatformWindow, ASizeWrittenByCodeCountsForFixedWindowsToo) {
  Small window;
  window.Load();
  window.SetWidth(4500);
  window.SetHeight(3000);
  EXPECT_EQ(window.Width(), 4500);
  EXPECT_EQ(window.Height(), 3000);
  EXPECT_EQ(window.OnScreen().minimumSize(), window.OnScreen().maximumSize());
}

TEST(PlatformWindow, States) {
  Small window(kSizable);
  window.ShowActive();
  EXPECT_EQ(window.State(), WindowState::kNormal);
  window.SetState(WindowState::kMinimised);
  EXPECT_EQ(window.State(), WindowState::kMinimised);
  window.SetState(WindowState::kMaximised);
  EXPECT_EQ(window.State(), WindowState::kMaximised);
  window.SetState(WindowState::kNormal);
  EXPECT_EQ(window.State(), WindowState::kNormal);
  EXPECT_TRUE(window.IsVisible());
}

TEST(PlatformWindow, EnterPressesTheDefaultButton) {
  Small window;
  int go = 0;
  int other = 0;
  window.go.onClick = [&] { ++go; };
  window.other.onClick = [&] { ++other; };
  window.ShowActive();
  Robot::PressKey("Fixed", "field", Qt::Key_Return);
  EXPECT_EQ(go, 1);
  Robot::Find("Fixed", "other").setFocus();
  Robot::PressKey("Fixed", "other", Qt::Key_Return);
  EXPECT_EQ(other, 1);
  EXPECT_EQ(go, 1);
  window.go.SetEnabled(false);
  Robot::Find("Fixed", "field").setFocus();
  Robot::PressKey("Fixed", "field", Qt::Key_Return);
  EXPECT_EQ(go, 1);
}

TEST(PlatformWindow, ModalReturnsWhenHidden) {
  Small window;
  Soon([&] {
    EXPECT_TRUE(window.IsVisible());
    window.Hide();
  });
  window.ShowModal(nullptr);
  EXPECT_TRUE(window.IsLoaded());
  EXPECT_FALSE(window.IsVisible());
}

TEST(PlatformWindow, ModalReturnsWhenUnloaded) {
  Small owner(kSizable);
  owner.Show();
  Small window;
  Soon([&] { window.Unload(); });
  window.ShowModal(&owner);
  EXPECT_FALSE(window.IsLoaded());
  EXPECT_TRUE(owner.IsVisible());
}

TEST(PlatformWindow, ModalWindowsNest) {
  Small outer(kSizable);
  Small inner;
  std::vector<std::string> order;
  Soon([&] {
    Soon([&] {
      order.emplace_back("inner hides");
      inner.Hide();
    });
    inner.ShowModal(&outer);
    order.emplace_back("inner has returned");
    EXPECT_TRUE(outer.IsVisible());
    outer.Hide();
  });
  outer.ShowModal(nullptr);
  EXPECT_THAT(order, ElementsAre("inner hides", "inner has returned"));
}

// In the window's own events, and before the program has begun to wait for any.
TEST(PlatformWindow, WhatIsDeletedLaterIsGoneWhileAModalWindowIsOpen) {
  Small window;
  const QPointer<QObject> early = new QObject;
  const QPointer<QObject> late = new QObject;
  early->deleteLater();
  bool areGone = false;
  Soon([&] {
    late->deleteLater();
    Soon([&] {
      areGone = early == nullptr && late == nullptr;
      window.Hide();
    });
  });
  window.ShowModal(nullptr);
  EXPECT_TRUE(areGone);
}

TEST(PlatformWindow, AModalWindowThatIsShownAgainAtOnceIsStillModal) {
  Small window;
  int shown = 0;
  Soon([&] {
    window.Hide();
    window.Show();
    Soon([&] {
      shown = window.IsVisible() ? 1 : 0;
      window.Hide();
    });
  });
  window.ShowModal(nullptr);
  EXPECT_EQ(shown, 1);
  EXPECT_FALSE(window.IsVisible());
}

// A session that ends closes nothing by itself.
TEST(PlatformWindow, AModalWindowDoesNotOutlastTheProgram) {
  Small window;
  QTimer::singleShot(0, [&] {
    window.Load();
    Soon([] { QCoreApplication::exit(7); });
    window.ShowModal(nullptr);
    window.Hide();
  });
  EXPECT_EQ(QApplication::exec(), 7);
}

TEST(PlatformWindow, OtherWindowsGetNoInputMeanwhile) {
  Small owner(kSizable);
  int clicks = 0;
  owner.go.onClick = [&] { ++clicks; };
  owner.ShowActive();
  Small window;
  const auto clickOwner = [&] {
    QWidget& button = Robot::Find("Sizable", "go");
    QTest::mouseClick(owner.OnScreen().windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      button.mapTo(&owner.OnScreen(), button.rect().center()));
  };
  Soon([&] {
    clickOwner();
    window.Hide();
  });
  window.ShowModal(&owner);
  EXPECT_EQ(clicks, 0);
  clickOwner();
  EXPECT_EQ(clicks, 1);
}

TEST(PlatformWindow, AModalWindowIsNotModalTheNextTime) {
  Small window;
  Soon([&] { window.Hide(); });
  window.ShowModal(nullptr);
  window.Show();
  EXPECT_EQ(window.OnScreen().windowModality(), Qt::NonModal);
}

TEST(PlatformWindow, AnOwnerThatGoesAwayDoesNotTakeTheModalWindowWithIt) {
  Small owner(kSizable);
  owner.Show();
  Small window;
  Soon([&] {
    owner.Unload();
    Soon([&] {
      window.field.SetText(u"still there");
      window.Hide();
    });
  });
  window.ShowModal(&owner);
  ASSERT_TRUE(window.IsLoaded());
  EXPECT_EQ(window.field.Text(), u"still there");
  EXPECT_EQ(Robot::FindWindow("Sizable"), nullptr);
}

TEST(PlatformWindow, TheModalWindowStandsInTheMiddleOfItsOwner) {
  static constexpr WindowDefinition centred = {.name = u"Centred",
                                               .title = u"",
                                               .width = 1500,
                                               .height = 1500,
                                               .opensAt = platform::OpensAt::kOwnerCentre,
                                               .rows = {}};
  Small owner(kSizable);
  owner.ShowActive();
  owner.OnScreen().move(300, 200);
  SmallWindow window(centred);
  QPoint away;
  Soon([&] {
    away = window.OnScreen().frameGeometry().center() - owner.OnScreen().frameGeometry().center();
    window.Hide();
  });
  window.ShowModal(&owner);
  EXPECT_LE(away.manhattanLength(), 4);
}

}  // namespace
