// Labels, buttons, tick boxes, options, scroll bars and timers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QScrollBar>
#include <QTest>
#include <array>

#include "platform/windows/controls.h"
#include "tests/support/small_window.h"

namespace {

using platform::Button;
using platform::CheckBox;
using platform::ControlArray;
using platform::ControlKind;
using platform::ControlRow;
using platform::Label;
using platform::OptionButton;
using platform::ScrollBar;
using platform::Text;
using platform::Timer;
using platform::WindowDefinition;
using testing::ElementsAre;
using testing_support::FailureOf;
using testing_support::Robot;
using testing_support::SmallWindow;

constexpr ControlRow Row(platform::TextView name, ControlKind kind, int line,
                         platform::TextView text = {}) {
  return {.name = name,
          .kind = kind,
          .left = 150,
          .top = 150 + 450 * line,
          .width = 2400,
          .height = 315,
          .text = text,
          .hint = u"نرم\u200Fافزار",
          .interval = 5};
}

constexpr ControlRow At(ControlRow row, int index) {
  row.index = index;
  return row;
}

constexpr ControlRow In(ControlRow row, platform::TextView frame) {
  row.parent = frame;
  return row;
}

constexpr ControlRow Off(ControlRow row) {
  row.enabled = false;
  return row;
}

constexpr std::array kRows = {
    Row(u"label", ControlKind::kLabel, 0, u"رديف\u200Fها:\u200F"),
    Row(u"go", ControlKind::kButton, 1, u"R&D و فايل\u200Fها"),
    Row(u"tick", ControlKind::kCheckBox, 2, u"A & B"),
    At(Row(u"pick", ControlKind::kOption, 3, u"one"), 0),
    At(Row(u"pick", ControlKind::kOption, 4, u"two"), 1),
    Row(u"alone", ControlKind::kOption, 5, u"three"),
    Row(u"frame", ControlKind::kFrame, 6),
    In(At(Row(u"pick", ControlKind::kOption, 0, u"four"), 2), u"frame"),
    Row(u"bar", ControlKind::kScrollBar, 7),
    Off(Row(u"clock", ControlKind::kTimer, 0)),
    Row(u"running", ControlKind::kTimer, 0),
};
constexpr WindowDefinition kWindow = {
    .name = u"Controls", .title = u"", .width = 3000, .height = 4500, .rows = kRows};

class PlatformControls : public testing::Test {
 protected:
  static std::string Shown(const char* button) {
    return Robot::FindAs<QAbstractButton>("Controls", button).text().toStdString();
  }
  static std::string AccessibleName(const char* control) {
    return Robot::Find("Controls", control).accessibleName().toStdString();
  }

  SmallWindow window{kWindow};
  Label label{window, u"label"};
  Button go{window, u"go"};
  CheckBox tick{window, u"tick"};
  ControlArray<OptionButton> pick{window, u"pick"};
  OptionButton alone{window, u"alone"};
  ScrollBar bar{window, u"bar"};
  Timer clock{window, u"clock"};
  Timer running{window, u"running"};
};

TEST_F(PlatformControls, EveryUseWhileUnloadedIsAFailure) {
  const std::vector<std::pair<std::string, std::function<void()>>> uses = {
      {"label", [&] { label.Caption(); }},
      {"label", [&] { label.SetCaption(u""); }},
      {"go", [&] { go.Caption(); }},
      {"go", [&] { go.SetCaption(u""); }},
      {"tick", [&] { tick.Value(); }},
      {"tick", [&] { tick.SetValue(true); }},
      {"pick", [&] { pick(0).Value(); }},
      {"pick", [&] { pick(0).SetValue(true); }},
      {"bar", [&] { bar.Value(); }},
      {"bar", [&] { bar.SetValue(1); }},
      {"bar", [&] { bar.SetMax(3); }},
      {"bar", [&] { bar.SetSmallChange(1); }},
      {"bar", [&] { bar.SetLargeChange(1); }},
      {"clock", [&] { clock.TimerEnabled(); }},
      {"clock", [&] { clock.SetTimerEnabled(false); }}};
  for (const auto& [name, use] : uses) EXPECT_EQ(FailureOf(use), "Object was unloaded: " + name);
  window.Load();
  for (const auto& [name, use] : uses) EXPECT_EQ(FailureOf(use), "none") << name;
}

TEST_F(PlatformControls, CaptionsAreShownWithHalfSpacesAndGivenBackAsTheyWere) {
  window.Load();
  const auto& shown = Robot::FindAs<QLabel>("Controls", "label");
  EXPECT_EQ(shown.text().toStdString(), "رديف\u200Cها:\u200F");
  EXPECT_EQ(label.Caption(), u"رديف\u200Fها:\u200F");
  label.SetCaption(u"متن\u200Fها");
  EXPECT_EQ(shown.text().toStdString(), "متن\u200Cها");
  EXPECT_EQ(label.Caption(), u"متن\u200Fها");
  EXPECT_EQ(go.Caption(), u"R&D و فايل\u200Fها");
  go.SetCaption(u"مي\u200Fشود");
  EXPECT_EQ(Shown("go"), "مي\u200Cشود");
  EXPECT_EQ(go.Caption(), u"مي\u200Fشود");
  EXPECT_EQ(Robot::Find("Controls", "go").toolTip().toStdString(), "نرم\u200Cافزار");
}

TEST_F(PlatformControls, AnAmpersandIsNoShortcut) {
  window.Load();
  EXPECT_EQ(Shown("go"), "R&&D و فايل\u200Cها");
  EXPECT_EQ(Shown("tick"), "A && B");
  EXPECT_EQ(AccessibleName("go"), "R&D و فايل\u200Cها");
  EXPECT_EQ(AccessibleName("tick"), "A & B");
  EXPECT_TRUE(Robot::FindAs<QAbstractButton>("Controls", "go").shortcut().isEmpty());
}

TEST_F(PlatformControls, AccessibleNamesFollowTheCaption) {
  window.Load();
  go.SetCaption(u"A & B");
  EXPECT_EQ(AccessibleName("go"), "A & B");
  label.SetCaption(u"done");
  EXPECT_EQ(AccessibleName("label"), "done");
}

TEST_F(PlatformControls, PlacesAreKeptInTwips) {
  window.Load();
  go.SetLeft(157);
  go.SetWidth(1001);
  EXPECT_EQ(go.Left(), 157);
  EXPECT_EQ(go.Width(), 1001);
  EXPECT_EQ(Robot::Find("Controls", "go").geometry(), QRect(10, 40, 67, 21));
  go.SetTop(-15);
  EXPECT_EQ(Robot::Find("Controls", "go").y(), -1);
  EXPECT_EQ(FailureOf([&] {
              go.SetWidth(0);
              go.SetHeight(0);
            }),
            "none");
  EXPECT_EQ(go.Width(), 0);
  EXPECT_EQ(go.Height(), 0);
  EXPECT_EQ(FailureOf([&] { go.SetWidth(-1); }), "Invalid property value");
  EXPECT_EQ(FailureOf([&] { go.SetHeight(-1); }), "Invalid property value");
}

TEST_F(PlatformControls, HiddenAndDisabled) {
  window.Load();
  EXPECT_TRUE(go.Visible());
  go.SetVisible(false);
  EXPECT_FALSE(go.Visible());
  window.Show();
  EXPECT_FALSE(Robot::Find("Controls", "go").isVisible());
  go.SetVisible(true);
  EXPECT_TRUE(Robot::Find("Controls", "go").isVisible());
  go.SetEnabled(false);
  EXPECT_FALSE(Robot::Find("Controls", "go").isEnabled());
}

TEST_F(PlatformControls, AControlThatIsNotInTheArrayIsAFailure) {
  const std::string missing = "Control array element doesn't exist";
  EXPECT_EQ(FailureOf([&] { pick(3); }), missing);
  EXPECT_EQ(FailureOf([&] { pick(-1); }), missing);
}

TEST_F(PlatformControls, ATickBoxTellsTheClickOnceItHasItsNewValue) {
  std::vector<std::pair<std::string, bool>> seen;
  tick.onClick = [&] { seen.emplace_back("click", tick.Value()); };
  tick.onMouseUp = [&] { seen.emplace_back("up", tick.Value()); };
  window.Show();
  tick.SetValue(true);
  EXPECT_TRUE(seen.empty());
  Robot::Click("Controls", "tick");
  EXPECT_THAT(seen, ElementsAre(std::pair("click", false), std::pair("up", false)));
}

TEST_F(PlatformControls, ATickBoxMayUnloadItsWindowBetweenClickAndRelease) {
  bool up = false;
  tick.onClick = [&] { window.Unload(); };
  tick.onMouseUp = [&] { up = true; };
  window.Show();
  Robot::Click("Controls", "tick");
  EXPECT_FALSE(window.IsLoaded());
  EXPECT_FALSE(up);
}

TEST_F(PlatformControls, OfTheOptionsOfOneNameInOneFrameOneIsOn) {
  std::vector<int> clicked;
  pick.ForEach(
      [&](OptionButton& option) { option.onClick = [&] { clicked.push_back(option.Index()); }; });
  window.Show();
  pick(2).SetValue(true);
  alone.SetValue(true);
  pick(0).SetValue(true);
  pick(0).SetValue(true);
  EXPECT_THAT(clicked, ElementsAre(2, 0));
  Robot::Click("Controls", "pick(1)");
  EXPECT_THAT(clicked, ElementsAre(2, 0, 1));
  EXPECT_FALSE(pick(0).Value());
  EXPECT_TRUE(pick(1).Value());
  EXPECT_TRUE(pick(2).Value());
  EXPECT_TRUE(alone.Value());
  pick(1).SetValue(false);
  EXPECT_FALSE(pick(1).Value());
  EXPECT_THAT(clicked, ElementsAre(2, 0, 1));
}

TEST_F(PlatformControls, ArrowKeysMoveAnOptionAndTellItsRelease) {
  int ups = 0;
  bool on = false;
  pick(1).onKeyUp = [&] { ++ups; };
  pick(0).onKeyUp = [&] { ++ups; };
  pick(1).onClick = [&] { on = true; };
  window.ShowActive();
  pick(0).SetValue(true);
  pick(0).SetFocus();
  Robot::PressKey("Controls", "pick(0)", Qt::Key_Down);
  EXPECT_TRUE(on);
  EXPECT_TRUE(pick(1).Value());
  EXPECT_GE(ups, 1);
}

TEST_F(PlatformControls, AFailureOfAnOptionsHandlerReachesTheWriter) {
  pick(0).onClick = [] { throw platform::Failure(u"refused"); };
  window.Load();
  EXPECT_EQ(FailureOf([&] { pick(0).SetValue(true); }), "refused");
  EXPECT_TRUE(pick(0).Value());
}

TEST_F(PlatformControls, AScrollBarTellsItsChanges) {
  std::vector<int> seen;
  bar.onChange = [&] { seen.push_back(bar.Value()); };
  window.Show();
  bar.SetMax(9);
  seen.clear();
  bar.SetValue(7);
  bar.SetValue(7);
  bar.SetMax(4);
  EXPECT_THAT(seen, ElementsAre(7, 4));
  bar.SetValue(99);
  EXPECT_EQ(bar.Value(), 4);
  bar.SetSmallChange(2);
  QTest::keyClick(&Robot::Find("Controls", "bar"), Qt::Key_Up);
  EXPECT_EQ(seen.back(), 2);
  bar.SetLargeChange(3);
  Robot::FindAs<QScrollBar>("Controls", "bar").triggerAction(QScrollBar::SliderPageStepAdd);
  EXPECT_EQ(seen.back(), 4);
}

TEST_F(PlatformControls, AFailureOfAScrollBarsHandlerReachesTheWriter) {
  bar.onChange = [] { throw platform::Failure(u"refused"); };
  window.Load();
  EXPECT_EQ(FailureOf([&] { bar.SetMax(5); }), "none");
  EXPECT_EQ(FailureOf([&] { bar.SetValue(3); }), "refused");
  EXPECT_EQ(FailureOf([&] { bar.SetMax(2); }), "refused");
}

TEST_F(PlatformControls, ATimerRunsWhileItIsOn) {
  int ticks = 0;
  clock.onTimer = [&] { ++ticks; };
  window.Load();
  EXPECT_FALSE(clock.TimerEnabled());
  EXPECT_TRUE(running.TimerEnabled());
  clock.SetTimerEnabled(true);
  Robot::WaitUntil([&] { return ticks >= 2; });
  clock.SetTimerEnabled(false);
  const int before = ticks;
  int others = 0;
  running.onTimer = [&] { ++others; };
  Robot::WaitUntil([&] { return others >= 3; });
  EXPECT_EQ(ticks, before);
}

TEST_F(PlatformControls, ATimerMayUnloadItsWindow) {
  running.onTimer = [&] { window.Unload(); };
  window.Show();
  Robot::WaitUntil([&] { return !window.IsLoaded(); });
}

TEST_F(PlatformControls, ATimerHasNoPlaceOnTheScreen) {
  window.Load();
  EXPECT_EQ(clock.Left(), 150);
  const std::string none = "Object doesn't support this property: clock";
  EXPECT_EQ(FailureOf([&] { clock.SetLeft(0); }), none);
  EXPECT_EQ(FailureOf([&] { clock.Visible(); }), none);
  EXPECT_EQ(FailureOf([&] { clock.SetEnabled(true); }), none);
  EXPECT_EQ(FailureOf([&] { clock.SetFocus(); }), none);
}

}  // namespace
