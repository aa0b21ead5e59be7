// The function keys of the text, and what the fourteen buttons say of themselves.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>
#include <QTextEdit>
#include <array>

#include "tests/support/format_desk.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::FormatDesk;
using testing_support::Robot;

constexpr int kNoCommand = -1;

struct KeyRow {
  int key;
  int command;
  bool needsSelection;
};
constexpr std::array kKeys = std::to_array<KeyRow>({
    {Qt::Key_F1, 9, true},
    {Qt::Key_F2, 2, true},
    {Qt::Key_F3, 3, true},
    {Qt::Key_F4, 10, false},
    {Qt::Key_F5, 0, true},
    {Qt::Key_F6, 1, true},
    {Qt::Key_F7, kNoCommand, false},
    {Qt::Key_F8, kNoCommand, false},
    {Qt::Key_F9, kNoCommand, false},
    {Qt::Key_F10, kNoCommand, false},
    {Qt::Key_F11, 4, true},
    {Qt::Key_F12, 11, false},
});

class FormatWindowKeys : public testing::Test {
 protected:
  FormatWindowKeys() { desk.OpenOn(u"alpha beta gamma"); }

  // The commands that a key brought about, as the log tells them.
  std::vector<std::string> Pressed(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    const std::size_t before = desk.LogLines().size();
    Robot::PressKey("Form3", "matn", key, modifiers);
    std::vector<std::string> commands;
    const auto lines = desk.LogLines();
    for (std::size_t i = before; i < lines.size(); ++i) {
      if (lines[i].starts_with("Format number ")) commands.push_back(lines[i]);
    }
    return commands;
  }
  static std::string LogLine(int command) {
    return "Format number " + std::to_string(command) + " clicked.";
  }

  FormatDesk desk;
};

class FormatWindowKey : public FormatWindowKeys, public testing::WithParamInterface<KeyRow> {};

TEST_P(FormatWindowKey, RunsItsCommandOnASelection) {
  Robot::Select("Form3", "matn", "alpha");
  const auto commands = Pressed(GetParam().key);
  if (GetParam().command == kNoCommand) {
    EXPECT_THAT(commands, IsEmpty());
  } else {
    EXPECT_THAT(commands, ElementsAre(LogLine(GetParam().command)));
  }
}

TEST_P(FormatWindowKey, WithoutASelectionRunsOnlyWhatNeedsNone) {
  Robot::Select("Form3", "matn", 3, 0);
  const auto commands = Pressed(GetParam().key);
  if (GetParam().command == kNoCommand || GetParam().needsSelection) {
    EXPECT_THAT(commands, IsEmpty());
    EXPECT_THAT(FormatDesk::Lines("bindex"), IsEmpty());
    EXPECT_EQ(FormatDesk::Shown("matn"), "alpha beta gamma");
    EXPECT_EQ(FormatDesk::Caret(), 3);
  } else {
    EXPECT_THAT(commands, ElementsAre(LogLine(GetParam().command)));
  }
}

TEST_P(FormatWindowKey, DoesNotLookAtShift) {
  Robot::Select("Form3", "matn", "alpha");
  const auto commands = Pressed(GetParam().key, Qt::ShiftModifier);
  EXPECT_EQ(commands.size(), GetParam().command == kNoCommand ? 0U : 1U);
}

INSTANTIATE_TEST_SUITE_P(F, FormatWindowKey, testing::ValuesIn(kKeys), [](const auto& row) {
  return std::to_string(row.param.key - Qt::Key_F1 + 1);
});

TEST_F(FormatWindowKeys, F7TogglesTheRemovalAndNothingElse) {
  for (const bool wanted : {false, true, false}) {
    Robot::Select("Form3", "matn", 3, 0);
    EXPECT_THAT(Pressed(Qt::Key_F7), IsEmpty());
    EXPECT_EQ(desk.form3.Chek.Value(), wanted);
  }
  Robot::Select("Form3", "matn", "beta");
  EXPECT_THAT(Pressed(Qt::Key_F7), IsEmpty());
  EXPECT_TRUE(desk.form3.Chek.Value());
  EXPECT_EQ(FormatDesk::Selected(), "beta");
  EXPECT_EQ(FormatDesk::Shown("matn"), "alpha beta gamma");
}

TEST_F(FormatWindowKeys, F8F9AndF10LeaveEverythingAsItIs) {
  for (const int key : {Qt::Key_F8, Qt::Key_F9, Qt::Key_F10}) {
    Robot::Select("Form3", "matn", "beta");
    const std::string log = desk.Log();
    EXPECT_THAT(Pressed(key), IsEmpty());
    EXPECT_EQ(desk.Log(), log);
    EXPECT_EQ(FormatDesk::Selected(), "beta");
    EXPECT_TRUE(desk.form3.Chek.Value());
  }
}

TEST_F(FormatWindowKeys, OtherKeysAreNoCommands) {
  Robot::Select("Form3", "matn", "beta");
  for (const int key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Escape, Qt::Key_Home}) {
    EXPECT_THAT(Pressed(key), IsEmpty());
  }
  desk.form3.matn_KeyDown(111);
  desk.form3.matn_KeyDown(124);
  EXPECT_THAT(FormatDesk::Lines("bindex"), IsEmpty());
}

// The numbers of "p" to "{" are those of F1 to F12.
TEST_F(FormatWindowKeys, NoTypedCharacterIsACommand) {
  Robot::Select("Form3", "matn", 0, 0);
  const std::string log = desk.Log();
  QString typed;
  for (char character = ' '; character <= '~'; ++character) {
    QTest::keyClick(&Robot::Find("Form3", "matn"), character);
    typed += QLatin1Char(character);
  }
  EXPECT_EQ(desk.Log(), log);
  EXPECT_TRUE(Robot::FindAs<QTextEdit>("Form3", "matn")
                  .toPlainText()
                  .startsWith(typed, Qt::CaseInsensitive));
}

TEST_F(FormatWindowKeys, AKeyInAnotherFieldIsNoCommand) {
  Robot::Select("Form3", "matn", "beta");
  const std::string log = desk.Log();
  for (const char* field : {"bname", "bindex", "books", "chnd"}) {
    Robot::PressKey("Form3", field, Qt::Key_F2);
    Robot::PressKey("Form3", field, Qt::Key_F12);
  }
  EXPECT_EQ(desk.Log(), log);
}

// What a key would file, it files as the button does.
TEST_F(FormatWindowKeys, TheKeysFileWhatTheButtonsFile) {
  FormatDesk::Mark(Qt::Key_F5, "gamma");
  FormatDesk::Mark(Qt::Key_F2, "alpha");
  FormatDesk::Mark(Qt::Key_F3, "beta");
  EXPECT_EQ(FormatDesk::Shown("bname"), "gamma");
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre("alpha   =>   beta"));
  EXPECT_EQ(FormatDesk::Shown("matn"), "  ");
}

TEST_F(FormatWindowKeys, AWordSelectedWithTheMouseIsFiledByAKey) {
  auto& box = Robot::FindAs<QTextEdit>("Form3", "matn");
  QTextCursor inside = box.textCursor();
  inside.setPosition(8);
  const QPoint point = box.cursorRect(inside).center();
  QTest::mouseClick(box.viewport(), Qt::LeftButton, Qt::NoModifier, point);
  QTest::mouseDClick(box.viewport(), Qt::LeftButton, Qt::NoModifier, point);
  EXPECT_EQ(FormatDesk::Selected(), "beta");
  EXPECT_THAT(Pressed(Qt::Key_F2), ElementsAre(LogLine(2)));
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre("beta"));
}

// The buttons.

struct ButtonRow {
  int index;
  const char* caption;
  const char* hint;
};
constexpr std::array kButtons = std::to_array<ButtonRow>({
    {0, "عنوان", "F5 :كليد ميانبر"},
    {1, "شناسنامه", "F6 :كليد ميانبر"},
    {2, "تيتر", "F2 :كليد ميانبر"},
    {3, "متن مرتبط", "F3 :كليد ميانبر"},
    {4, "حذف متن", "F11 :كليد ميانبر"},
    {5, "( )", ""},
    {6, "-", ""},
    {7, ":", ""},
    {8, "؛", ""},
    {9, "تيتر اصلي (0)\u200F", "F1 :كليد ميانبر"},
    {10, "پايان", "F4 :كليد ميانبر"},
    {11, "ساخت فايل", ""},
    {12, "ايجاد گالري تصوير", "F6 :كليد ميانبر"},
    {13, "ساخت گالري از تصاوير انتخاب شده", "F6 :كليد ميانبر"},
});

TEST_F(FormatWindowKeys, EachButtonHasItsCaptionAndItsHint) {
  for (const ButtonRow& row : kButtons) {
    const auto name = QStringLiteral("Com(%1)").arg(row.index);
    EXPECT_EQ(FormatDesk::Shown(name), row.caption) << row.index;
    EXPECT_EQ(Robot::Find("Form3", name).toolTip().toStdString(), row.hint) << row.index;
  }
  EXPECT_EQ(FormatDesk::Shown("Chek"), "با حذف");
  EXPECT_EQ(Robot::Find("Form3", "Chek").toolTip().toStdString(), "F7 :كليد ميانبر");
}

TEST_F(FormatWindowKeys, NoCommandIsEverDisabled) {
  const auto expectAllEnabled = [](const char* when) {
    for (const ButtonRow& row : kButtons) {
      const auto name = QStringLiteral("Com(%1)").arg(row.index);
      EXPECT_TRUE(Robot::Find("Form3", name).isEnabled()) << row.index << " " << when;
    }
  };
  expectAllEnabled("at the start");
  FormatDesk::Mark(Qt::Key_F2, "alpha");
  expectAllEnabled("with a heading pending");
  FormatDesk::Mark(Qt::Key_F1, "beta");
  expectAllEnabled("with a main title open");
  Robot::PressKey("Form3", "matn", Qt::Key_F12);
  expectAllEnabled("after a build");
}

}  // namespace
