// Text boxes, and how the focus comes to controls.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <algorithm>
#include <array>

#include "platform/windows/controls.h"
#include "tests/support/small_window.h"

namespace {

using platform::Button;
using platform::ControlKind;
using platform::ControlRow;
using platform::Text;
using platform::TextBox;
using platform::WindowDefinition;
using testing::ElementsAre;
using testing_support::FailureOf;
using testing_support::Robot;
using testing_support::SmallWindow;

constexpr ControlRow Row(platform::TextView name, ControlKind kind, int line) {
  return {.name = name,
          .kind = kind,
          .left = 150,
          .top = 150 + 450 * line,
          .width = 1800,
          .height = 315,
          .text = u"12"};
}

constexpr std::array kRows = {Row(u"first", ControlKind::kTextBox, 0),
                              Row(u"second", ControlKind::kTextBox, 1),
                              Row(u"press", ControlKind::kButton, 2)};
constexpr WindowDefinition kWindow = {
    .name = u"Fields", .title = u"", .width = 3000, .height = 2250, .rows = kRows};
constexpr WindowDefinition kFront = {
    .name = u"Front", .title = u"", .width = 1500, .height = 1500, .rows = {}};

class PlatformTextBox : public testing::Test {
 protected:
  QLineEdit& Edit(const char* name = "first") { return Robot::FindAs<QLineEdit>("Fields", name); }

  SmallWindow window{kWindow};
  TextBox first{window, u"first"};
  TextBox second{window, u"second"};
  Button press{window, u"press"};
};

TEST_F(PlatformTextBox, EveryUseWhileUnloadedIsAFailure) {
  const std::string unloaded = "Object was unloaded: first";
  const std::vector<std::function<void()>> uses = {
      [&] { first.Text(); },           [&] { first.SetText(u"x"); },
      [&] { first.SelStart(); },       [&] { first.SelLength(); },
      [&] { first.SetSelStart(0); },   [&] { first.SetSelLength(0); },
      [&] { first.SetLocked(true); },  [&] { first.Left(); },
      [&] { first.SetLeft(1); },       [&] { first.Top(); },
      [&] { first.SetTop(1); },        [&] { first.Width(); },
      [&] { first.SetWidth(1); },      [&] { first.Height(); },
      [&] { first.SetHeight(1); },     [&] { first.Visible(); },
      [&] { first.SetVisible(true); }, [&] { first.SetEnabled(true); },
      [&] { first.ToolTip(); },        [&] { first.SetToolTip(u""); },
      [&] { first.SetFocus(); }};
  for (const auto& use : uses) EXPECT_EQ(FailureOf(use), unloaded);
  window.Load();
  for (const auto& use : uses) EXPECT_EQ(FailureOf(use), "none");
  window.Unload();
  for (const auto& use : uses) EXPECT_EQ(FailureOf(use), unloaded);
}

TEST_F(PlatformTextBox, TextWrittenByCodeRunsTheChangeHandlerBeforeItReturns) {
  std::vector<Text> seen;
  first.onChange = [&] { seen.push_back(first.Text()); };
  window.Load();
  first.SetText(u"سلام");
  EXPECT_THAT(seen, ElementsAre(u"سلام"));
  first.SetText(u"سلام");
  EXPECT_EQ(seen.size(), 1U);
}

// A box for titles and a box for paths, whatever is in them: the side doesn't change with it.
TEST(PlatformTextBoxSide, StaysWhateverTheTextRuns) {
  static constexpr std::array kSides = std::to_array<ControlRow>(
      {{.name = u"title", .kind = ControlKind::kTextBox, .width = 3000, .height = 315},
       {.name = u"path",
        .kind = ControlKind::kTextBox,
        .top = 450,
        .width = 3000,
        .height = 315,
        .leftToRight = true}});
  static constexpr WindowDefinition kSided = {
      .name = u"Fields", .title = u"", .width = 3000, .height = 2250, .rows = kSides};
  SmallWindow window(kSided);
  TextBox title(window, u"title");
  TextBox path(window, u"path");
  window.Show();
  constexpr int kInset = 12;  // pixels of frame and margin
  for (const platform::TextView text : {u"", u"Head of a page", u"عنوان", u"عنوان (Head)"}) {
    title.SetText(text);
    path.SetText(text);
    const auto caretAt = [](const char* name, int position) {
      auto& edit = Robot::FindAs<QLineEdit>("Fields", name);
      edit.setCursorPosition(position);
      edit.grab();  // a box scrolls to its caret when it is painted
      return edit.inputMethodQuery(Qt::ImCursorRectangle).toRect().center().x();
    };
    const int end = static_cast<int>(text.size());
    EXPECT_GT(std::max(caretAt("title", 0), caretAt("title", end)), 200 - kInset)
        << platform::ToUtf8(text);
    EXPECT_LT(std::min(caretAt("path", 0), caretAt("path", end)), kInset) << platform::ToUtf8(text);
  }
}

TEST_F(PlatformTextBox, AFailureOfTheChangeHandlerReachesTheWriter) {
  first.onChange = [] { throw platform::Failure(u"refused"); };
  window.Show();
  EXPECT_EQ(FailureOf([&] { first.SetText(u"x"); }), "refused");
  EXPECT_EQ(first.Text(), u"x");
}

TEST_F(PlatformTextBox, AChangeHandlerMayWriteTheTextAgain) {
  first.onChange = [&] {
    if (first.Text().size() > 2) first.SetText(first.Text().substr(0, 2));
  };
  window.Load();
  first.SetText(u"abcd");
  EXPECT_EQ(first.Text(), u"ab");
}

TEST_F(PlatformTextBox, TypedTextRunsTheChangeHandlerAsAnEvent) {
  std::vector<Text> seen;
  first.onChange = [&] { seen.push_back(first.Text()); };
  window.ShowActive();
  Robot::Type("Fields", "first", "دو");
  EXPECT_THAT(seen, ElementsAre(u"دو"));
  QTest::keyClicks(&Edit(), "3");
  EXPECT_EQ(seen.back(), u"دو3");
}

TEST_F(PlatformTextBox, AHandlerOfTypedTextMayUnloadTheWindow) {
  first.onChange = [&] { window.Unload(); };
  window.ShowActive();
  Robot::Type("Fields", "first", "x");
  EXPECT_FALSE(window.IsLoaded());
}

TEST_F(PlatformTextBox, LineBreaksStayInTheText) {
  window.Show();
  first.SetText(u"one\r\ntwo\nthree\r");
  EXPECT_EQ(first.Text(), u"one\r\ntwo\nthree\r");
}

TEST_F(PlatformTextBox, LongTextIsKeptWhole) {
  window.Load();
  const Text text = Text(32768, u'ب') + Text(70000, u'x');
  first.SetText(text);
  EXPECT_EQ(first.Text(), text);
}

TEST_F(PlatformTextBox, Selection) {
  window.Show();
  first.SetText(u"abcdef");
  EXPECT_EQ(first.SelStart(), 0);
  EXPECT_EQ(first.SelLength(), 0);
  first.SetSelStart(2);
  first.SetSelLength(3);
  EXPECT_EQ(Edit().selectedText(), "cde");
  EXPECT_EQ(first.SelStart(), 2);
  EXPECT_EQ(first.SelLength(), 3);
  first.SetSelLength(0);
  EXPECT_EQ(first.SelStart(), 2);
  first.SetSelStart(100);
  EXPECT_EQ(first.SelStart(), 6);
  first.SetSelStart(4);
  first.SetSelLength(100);
  EXPECT_EQ(first.SelLength(), 2);
  EXPECT_EQ(FailureOf([&] { first.SetSelStart(-1); }), "Invalid property value");
  EXPECT_EQ(FailureOf([&] { first.SetSelLength(-1); }), "Invalid property value");
}

TEST_F(PlatformTextBox, ALockedBoxTakesTextFromCodeAlone) {
  window.ShowActive();
  first.SetLocked(true);
  Robot::Click("Fields", "first");
  QTest::keyClicks(&Edit(), "typed");
  QTest::keyClick(&Edit(), Qt::Key_Delete);
  EXPECT_FALSE(Edit().testAttribute(Qt::WA_InputMethodEnabled));
  EXPECT_EQ(first.Text(), u"12");
  first.SetText(u"code");
  EXPECT_EQ(first.Text(), u"code");
}

TEST_F(PlatformTextBox, ALockedBoxLooksLocked) {
  window.ShowActive();
  const auto ground = [this] {
    const QImage shown = Edit().grab().toImage();
    return shown.pixelColor(shown.width() / 2, shown.height() / 2);
  };
  const QColor open = ground();
  first.SetLocked(true);
  EXPECT_EQ(ground(), window.OnScreen().palette().color(QPalette::Window));
  EXPECT_NE(ground(), open);
  first.SetLocked(false);
  EXPECT_EQ(ground(), open);
}

TEST_F(PlatformTextBox, KeysAreToldBeforeTheyGoIn) {
  std::vector<std::pair<int, Text>> seen;
  first.onKeyPress = [&](int code) { seen.emplace_back(code, first.Text()); };
  window.ShowActive();
  Robot::Click("Fields", "first");
  QTest::keyClick(&Edit(), Qt::Key_End);
  QTest::keyClick(&Edit(), 'x');
  QKeyEvent all(QEvent::KeyPress, Qt::Key_A, Qt::ControlModifier, QStringLiteral("\x01"));
  QApplication::sendEvent(&Edit(), &all);
  EXPECT_THAT(seen, ElementsAre(std::pair(int{u'x'}, Text(u"12")), std::pair(1, Text(u"12x"))));
  EXPECT_EQ(first.SelLength(), 3);
}

// What the four ways into a field are to do where a handler selects all.
class PlatformFocus : public PlatformTextBox {
 protected:
  PlatformFocus() {
    first.onGotFocus = [this] {
      ++gained;
      first.SetSelStart(0);
      first.SetSelLength(2);
    };
    first.onLostFocus = [this] { ++lost; };
  }
  int gained = 0;
  int lost = 0;
};

TEST_F(PlatformFocus, SelectsWhenTheWindowIsFirstActivated) {
  window.ShowActive();
  EXPECT_EQ(QApplication::focusWidget(), &Edit());
  EXPECT_EQ(gained, 1);
  EXPECT_EQ(Edit().selectedText(), "12");
}

TEST_F(PlatformFocus, SelectsByTab) {
  window.ShowActive();
  second.SetFocus();
  Robot::Settle();
  gained = 0;
  Robot::PressKey("Fields", "second", Qt::Key_Backtab);
  EXPECT_EQ(gained, 1);
  EXPECT_EQ(Edit().selectedText(), "12");
}

TEST_F(PlatformFocus, SelectsByTheMouse) {
  window.ShowActive();
  second.SetFocus();
  Robot::Settle();
  gained = 0;
  Robot::Click("Fields", "first");
  EXPECT_EQ(gained, 1);
  EXPECT_EQ(Edit().selectedText(), "12");
  Robot::Click("Fields", "first");
  EXPECT_EQ(gained, 1);
}

TEST_F(PlatformFocus, SelectsByCode) {
  window.ShowActive();
  Robot::Click("Fields", "second");
  EXPECT_EQ(lost, 1);
  gained = 0;
  first.SetFocus();
  Robot::Settle();
  EXPECT_EQ(gained, 1);
}

TEST_F(PlatformFocus, ComesAndGoesOnceWhileAnotherWindowWasInFront) {
  window.ShowActive();
  Robot::Click("Fields", "first");
  Edit().deselect();
  gained = 0;
  {
    SmallWindow front(kFront);
    front.ShowActive();
    EXPECT_NE(QApplication::activeWindow(), &window.OnScreen());
  }
  window.ShowActive();
  EXPECT_EQ(gained, 0);
  EXPECT_EQ(lost, 0);
  EXPECT_FALSE(Edit().hasSelectedText());
}

TEST_F(PlatformFocus, AFocusMovedBehindAnotherWindowIsTold) {
  int second1 = 0;
  second.onGotFocus = [&] { ++second1; };
  window.ShowActive();
  Robot::Click("Fields", "first");
  gained = 0;
  {
    SmallWindow front(kFront);
    front.ShowActive();
    Edit("second").setFocus();
  }
  window.ShowActive();
  EXPECT_EQ(second1, 1);
  {
    SmallWindow front(kFront);
    front.ShowActive();
    Edit("first").setFocus();
  }
  window.ShowActive();
  EXPECT_EQ(gained, 1);
}

TEST_F(PlatformFocus, AHandlerMayUnloadTheWindow) {
  second.onGotFocus = [&] { window.Unload(); };
  window.ShowActive();
  Robot::PressKey("Fields", "first", Qt::Key_Tab);
  EXPECT_FALSE(window.IsLoaded());
  EXPECT_EQ(lost, 1);
}

TEST_F(PlatformTextBox, TabGoesInTheOrderOfTheRows) {
  window.ShowActive();
  std::vector<QString> order;
  for (int i = 0; i < 4; ++i) {
    order.push_back(QApplication::focusWidget()->objectName());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_THAT(order, ElementsAre("first", "second", "press", "first"));
}

}  // namespace
