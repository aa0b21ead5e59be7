// Text boxes into which a path is typed: how this host's way to write one becomes the tool's, and
// what is seen of a long one.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolTip>
#include <array>
#include <vector>

#include "platform/qt/conversions.h"
#include "platform/windows/controls.h"
#include "tests/support/small_window.h"

namespace {

using platform::Button;
using platform::ControlKind;
using platform::ControlRow;
using platform::Text;
using platform::TextBox;
using platform::ToQString;
using platform::WindowDefinition;
using testing::ElementsAre;
using testing_support::Robot;
using testing_support::SmallWindow;

constexpr std::array kRows = std::to_array<ControlRow>({
    {.name = u"path",
     .kind = ControlKind::kTextBox,
     .width = 1500,
     .height = 315,
     .leftToRight = true,
     .path = true},
    {.name = u"plain", .kind = ControlKind::kTextBox, .top = 450, .width = 1500, .height = 315},
    {.name = u"go",
     .kind = ControlKind::kButton,
     .top = 900,
     .width = 1500,
     .height = 390,
     .defaultButton = true},
});
constexpr WindowDefinition kWindow = {
    .name = u"Paths", .title = u"", .width = 1500, .height = 1500, .rows = kRows};
constexpr WindowDefinition kFront = {
    .name = u"Front", .title = u"", .width = 1500, .height = 1500, .rows = {}};

class PlatformPathBox : public testing::Test {
 protected:
  PlatformPathBox() {
    window.ShowActive();
    path.onChange = [this] { changes.push_back(path.Text()); };
    go.onClick = [this] { readByButton = path.Text(); };
  }
  static QLineEdit& Edit() { return Robot::FindAs<QLineEdit>("Paths", "path"); }
  static void Type(const char* text) { Robot::Type("Paths", "path", text); }

  SmallWindow window{kWindow};
  TextBox path{window, u"path"};
  TextBox plain{window, u"plain"};
  Button go{window, u"go"};
  std::vector<Text> changes;
  Text readByButton;
};

TEST_F(PlatformPathBox, TurnsTheHostsPathWhenTheFocusLeaves) {
  Type("/home/ali");
  EXPECT_EQ(path.Text(), u"/home/ali");
  changes.clear();
  Robot::PressKey("Paths", "path", Qt::Key_Tab);
  EXPECT_EQ(path.Text(), u"C:\\home\\ali");
  EXPECT_THAT(changes, ElementsAre(u"C:\\home\\ali"));
}

TEST_F(PlatformPathBox, TurnsItBeforeAButtonReadsIt) {
  Type("/home/ali");
  Robot::PressKey("Paths", "path", Qt::Key_Return);
  EXPECT_EQ(readByButton, u"C:\\home\\ali");
  Type("/home/sara");
  Robot::Click("Paths", "go");
  EXPECT_EQ(readByButton, u"C:\\home\\sara");
  // As a screen reader presses it: the focus stays where it is.
  Type("/home/reza");
  Robot::FindAs<QPushButton>("Paths", "go").click();
  EXPECT_EQ(readByButton, u"C:\\home\\reza");
}

TEST_F(PlatformPathBox, LeavesItAloneWhileAnotherWindowIsInFront) {
  Type("/home/ali");
  {
    SmallWindow front(kFront);
    front.ShowActive();
    EXPECT_EQ(path.Text(), u"/home/ali");
  }
}

TEST_F(PlatformPathBox, LeavesWhatCodeWritesAndOtherBoxesAlone) {
  path.SetText(u"/home/ali");
  Robot::Click("Paths", "plain");
  EXPECT_EQ(path.Text(), u"/home/ali");
  Robot::Type("Paths", "plain", "/home/ali");
  Robot::Click("Paths", "path");
  EXPECT_EQ(plain.Text(), u"/home/ali");
}

// A screen reader has no keys: it sets the text, or a part of it.
QAccessibleInterface& AccessibleOf(const char* name) {
  return *QAccessible::queryAccessibleInterface(&Robot::Find("Paths", name));
}

TEST_F(PlatformPathBox, TurnsWhatAScreenReaderSetWhenTheFocusLeaves) {
  Robot::Click("Paths", "path");
  AccessibleOf("path").setText(QAccessible::Value, QStringLiteral("/home/ali"));
  Robot::PressKey("Paths", "path", Qt::Key_Tab);
  EXPECT_EQ(path.Text(), u"C:\\home\\ali");
}

TEST_F(PlatformPathBox, TurnsWhatAScreenReaderEditedWhenTheFocusLeaves) {
  path.SetText(u"/home/ali");
  Robot::Click("Paths", "path");
  auto* text = AccessibleOf("path").editableTextInterface();
  text->insertText(5, QStringLiteral("/reza"));
  text->deleteText(10, 14);
  Robot::PressKey("Paths", "path", Qt::Key_Tab);
  EXPECT_EQ(path.Text(), u"C:\\home\\reza");
  text->replaceText(0, 12, QStringLiteral("/home/sara"));
  Robot::Click("Paths", "path");
  Robot::PressKey("Paths", "path", Qt::Key_Return);
  EXPECT_EQ(readByButton, u"C:\\home\\sara");
}

TEST_F(PlatformPathBox, TurnsWhatAScreenReaderSetElsewhereBeforeAButtonReadsIt) {
  Robot::Click("Paths", "plain");
  AccessibleOf("path").editableTextInterface()->insertText(0, QStringLiteral("/home/ali"));
  AccessibleOf("go").actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  Robot::WaitUntil([this] { return !readByButton.empty(); });  // a button that is seen going down
  EXPECT_EQ(readByButton, u"C:\\home\\ali");
}

// Columns of the box without any dark pixel on its left and on its right.
std::pair<int, int> Margins() {
  const QImage shown = Robot::Find("Paths", "path").grab().toImage();
  const auto isInk = [&](int x) {
    for (int y = 5; y < shown.height() - 5; ++y) {
      if (qGray(shown.pixel(x, y)) < 100) return true;
    }
    return false;
  };
  int left = 3;
  while (left < shown.width() - 3 && !isInk(left)) ++left;
  int right = 3;
  while (right < shown.width() - 3 && !isInk(shown.width() - 1 - right)) ++right;
  return {left, right};
}

// A row of l at one end, which is ink from top to bottom, and of blanks at the other.
constexpr const char* kLongBlank = "                                                      ";

TEST_F(PlatformPathBox, ShowsTheEndOfALongPathWhileItHasNotTheFocus) {
  Robot::Click("Paths", "plain");
  path.SetText(platform::ToText(QString::fromLatin1(kLongBlank) + QStringLiteral("llll")));
  EXPECT_LT(Margins().second, 10);
  Robot::Click("Paths", "path");
  Edit().home(false);
  EXPECT_GT(Margins().second, 50);
  Robot::Click("Paths", "plain");
  EXPECT_LT(Margins().second, 10);
}

TEST_F(PlatformPathBox, ShowsTheBeginOfAShortOne) {
  Robot::Click("Paths", "plain");
  path.SetText(u"llll");
  EXPECT_LT(Margins().first, 10);
  EXPECT_GT(Margins().second, 50);
}

// What a tip says while the pointer rests on the box.
QString Tip() {
  auto& edit = Robot::Find("Paths", "path");
  QHelpEvent rests(QEvent::ToolTip, QPoint(5, 5), edit.mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(&edit, &rests);
  QString tip = QToolTip::isVisible() ? QToolTip::text() : QString();
  QToolTip::hideText();
  Robot::WaitUntil([] { return !QToolTip::isVisible(); });
  return tip;
}

TEST_F(PlatformPathBox, ATipShowsTheWholeOfAPathThatIsTooLong) {
  EXPECT_EQ(Tip(), QString());
  path.SetText(u"C:\\home\\ali\\a\\very\\long\\path\\to\\the\\texts");
  EXPECT_EQ(Tip(), ToQString(path.Text()));
  path.SetText(u"C:\\home");
  EXPECT_EQ(Tip(), QString());
  Type("C:\\home\\ali\\another\\very\\long\\path");
  EXPECT_EQ(Tip(), ToQString(path.Text()));
}

TEST_F(PlatformPathBox, NoTipOfWhatLiesAroundStandsInItsPlace) {
  Robot::FindWindow("Paths")->setToolTip(QStringLiteral("around"));
  path.SetText(u"C:\\home");
  EXPECT_EQ(Tip(), QString());
  path.SetText(u"C:\\home\\ali\\a\\very\\long\\path\\to\\the\\texts");
  EXPECT_EQ(Tip(), ToQString(path.Text()));
}

TEST_F(PlatformPathBox, ATipShowsANameThatLooksLikeMarkupAsItIs) {
  path.SetText(u"C:\\home\\ali\\<b>a long name of a folder</b>");
  EXPECT_THAT(Tip().toStdString(), testing::HasSubstr("&lt;b&gt;"));
}

}  // namespace
