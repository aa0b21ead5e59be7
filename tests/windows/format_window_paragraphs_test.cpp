// The paragraphs of the text on the screen, rebuilt by the button beside the field of the words.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QTextBlock>
#include <QTextEdit>

#include "tests/support/format_desk.h"

namespace {

using platform::Text;
using testing::IsEmpty;
using testing_support::FormatDesk;
using testing_support::Robot;
using testing_support::Utf8;

constexpr const char* kLogLine = "Cutting end of paragraphs...";

// "w1 w2 ... wN".
Text Words(int count) {
  Text words;
  for (int word = 1; word <= count; ++word) {
    if (word > 1) words += u' ';
    words += u'w' + platform::FromNumber(word);
  }
  return words;
}

class FormatWindowParagraphs : public testing::Test {
 protected:
  // The text as its file has it, opened and so cleaned up.
  std::string Rebuilt(platform::TextView text) {
    desk.OpenOn(text);
    return Rebuild();
  }
  std::string Rebuild() {
    Robot::Click("Form3", "HazC(12)");
    EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
    return Shown();
  }
  std::string Shown() { return Utf8(desk.form3.matn.Text()); }
  // Off, or on again.
  static void Toggle(const QString& box) { Robot::Click("Form3", box); }
  // Types into the field of the words and goes on to the text.
  static std::string WordsAfterTyping(const QString& text) {
    Robot::Type("Form3", "chnd", text);
    Robot::Click("Form3", "matn");
    return FormatDesk::Shown("chnd");
  }
  // Letters can stand there only as long as the field isn't left, which a click on the button does.
  void ExpectFailure80(platform::TextView words) {
    desk.OpenOn(u"alpha\r\nbeta. gamma");
    const std::string before = Shown();
    Robot::Select("Form3", "matn", "beta");
    desk.form3.chnd.SetText(words);
    EXPECT_EQ(Rebuild(), before);
    EXPECT_EQ(desk.LoggedTimes(kLogLine), 1);
    EXPECT_EQ(desk.LoggedFailures(80), 1);
    EXPECT_EQ(desk.AllLoggedFailures(), 1);
    EXPECT_FALSE(desk.form1.lastErrorText.empty());
    EXPECT_EQ(FormatDesk::Selected(), "beta");
  }

  FormatDesk desk;
};

TEST_F(FormatWindowParagraphs, TheButtonRebuildsAsDesigned) {
  EXPECT_EQ(Rebuilt(u"alpha\r\nbeta. gamma\r\n\r\ndelta؟ epsilon! zeta"),
            "alpha beta.\u200F\r\ngamma\r\ndelta؟\r\n epsilon!\u200F\r\nzeta\r\n");
  EXPECT_EQ(desk.LogLines().back(), kLogLine);
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowParagraphs, TheIndexOfTheButtonIsIgnored) {
  desk.OpenOn(u"alpha\r\nbeta");
  desk.form3.HazC_Click(-7);
  EXPECT_EQ(Shown(), "alpha beta\r\n");
}

TEST_F(FormatWindowParagraphs, AnEmptyTextStaysEmpty) {
  desk.OpenOn(u"alpha");
  FormatDesk::Mark(Qt::Key_F11, "alpha");
  EXPECT_EQ(Rebuild(), "");
  EXPECT_EQ(desk.LoggedTimes(kLogLine), 1);
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowParagraphs,
       WithNothingTickedLeadingEmptyLinesVanishAndALineBreakIsAddedAtTheEnd) {
  desk.OpenOn(u"\r\n\r\nalpha  3.14\r\n\r\nbeta؟ gamma");
  Toggle("HazP");
  Toggle("Noghte");
  EXPECT_EQ(Rebuild(), "alpha  3.\u200F14\r\n\r\nbeta؟ gamma\r\n");
}

TEST_F(FormatWindowParagraphs, ALineOf23WordsStaysWhole) {
  EXPECT_EQ(Rebuilt(Words(23)), Utf8(Words(23)) + "\r\n");
}

TEST_F(FormatWindowParagraphs, ALineOf24WordsIsBrokenAfterWord22) {
  EXPECT_EQ(Rebuilt(Words(24)), Utf8(Words(22)) + "\r\nw23 w24\r\n");
}

TEST_F(FormatWindowParagraphs, TheFieldSaysHowManyWordsALineHolds) {
  desk.OpenOn(Words(12));
  EXPECT_EQ(WordsAfterTyping("10"), "10");
  EXPECT_EQ(Rebuild(), Utf8(Words(10)) + "\r\nw11 w12\r\n");
}

TEST_F(FormatWindowParagraphs, ASingleLineBreakGoesAndTwoStayOne) {
  EXPECT_EQ(Rebuilt(u"A\r\nB\r\n\r\nC"), "A B\r\nC\r\n");
}

TEST_F(FormatWindowParagraphs, WithoutTheRemovalEveryLineBreakStays) {
  desk.OpenOn(u"A\r\nB\r\n\r\nC");
  Toggle("HazP");
  EXPECT_EQ(Rebuild(), "A\r\nB\r\n\r\nC\r\n");
}

TEST_F(FormatWindowParagraphs, ALineBeginsAfterADotAndNothingStandsInFrontOfIt) {
  EXPECT_EQ(Rebuilt(u"A. B"), "A.\u200F\r\nB\r\n");
}

TEST_F(FormatWindowParagraphs, WithoutTheBreaksAtMarksSentencesStayTogether) {
  desk.OpenOn(u"A. B؟ C! D");
  Toggle("Noghte");
  EXPECT_EQ(Rebuild(), "A.\u200F B؟ C!\u200F D\r\n");
}

TEST_F(FormatWindowParagraphs, TheLineAfterAQuestionMarkBeginsWithABlank) {
  EXPECT_EQ(Rebuilt(u"A؟ B"), "A؟\r\n B\r\n");
}

// The clean-up has put a mark after the point, and it stays in front of what follows.
TEST_F(FormatWindowParagraphs, ANumberIsBrokenAfterItsPoint) {
  EXPECT_EQ(Rebuilt(u"3.14"), "3.\u200F\r\n\u200F14\r\n");
}

TEST_F(FormatWindowParagraphs, ThreeDotsGiveThreeLines) {
  desk.OpenOn(u"A");
  desk.form3.matn.SetText(u"A...B");
  EXPECT_EQ(Rebuild(), "A.\u200F\r\n.\u200F\r\n.\u200F\r\nB\r\n");
}

TEST_F(FormatWindowParagraphs, NineThirtyOneAndLettersBecome22OnLeavingTheField) {
  desk.OpenOn(u"alpha");
  for (const char* words : {"9", "31", "abc", ""}) {
    EXPECT_EQ(WordsAfterTyping(words), "22") << words;
    EXPECT_EQ(desk.form3.wordLimit, 22) << words;
  }
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

// By clicks, after which the toolkit's own fields select nothing.
TEST_F(FormatWindowParagraphs, TheFieldIsSelectedWhenItGetsTheFocusAndSoIsA22ThatWasPutBack) {
  desk.OpenOn(u"alpha");
  const auto selected = [] { return Robot::FindAs<QLineEdit>("Form3", "chnd").selectedText(); };
  Robot::Click("Form3", "matn");
  EXPECT_EQ(selected(), "");
  Robot::Click("Form3", "chnd");
  EXPECT_EQ(selected(), "22");
  EXPECT_EQ(WordsAfterTyping("15"), "15");
  EXPECT_EQ(selected(), "");
  EXPECT_EQ(WordsAfterTyping("abc"), "22");
  Robot::Click("Form3", "chnd");
  EXPECT_EQ(selected(), "22");
  EXPECT_EQ(FormatDesk::Shown("chnd"), "22");
}

TEST_F(FormatWindowParagraphs, TenAndThirtyStayInTheField) {
  desk.OpenOn(u"alpha");
  EXPECT_EQ(WordsAfterTyping("10"), "10");
  EXPECT_EQ(desk.form3.wordLimit, 10);
  EXPECT_EQ(WordsAfterTyping("30"), "30");
  EXPECT_EQ(desk.form3.wordLimit, 30);
}

// The click on the button takes the focus away from the field first.
TEST_F(FormatWindowParagraphs, WhatWasTypedLastIsPutRightBeforeTheRebuilding) {
  desk.OpenOn(Words(24));
  Robot::Type("Form3", "chnd", "abc");
  EXPECT_EQ(Rebuild(), Utf8(Words(22)) + "\r\nw23 w24\r\n");
  EXPECT_EQ(FormatDesk::Shown("chnd"), "22");
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowParagraphs, TheTickBesideTheFieldOfTheWordsChangesNothing) {
  const Text text = Words(24) + u"\r\nalpha. beta";
  const std::string unticked = Rebuilt(text);
  FormatDesk::OpenBook("One.txt");
  Robot::PressKey("Form3", "P22", Qt::Key_Space);  // its right end lies under the button
  ASSERT_TRUE(Robot::FindAs<QCheckBox>("Form3", "P22").isChecked());
  EXPECT_EQ(Rebuild(), unticked);
  EXPECT_EQ(unticked, Utf8(Words(22)) + "\r\nw23 w24 alpha.\u200F\r\nbeta\r\n");
}

TEST_F(FormatWindowParagraphs, ATextOfLineBreaksOnlyIsGone) {
  EXPECT_EQ(Rebuilt(u"\r\n\r\n\r\n\r\n"), "");
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowParagraphs, ABlankIsLeftOfAnOddLineBreak) {
  EXPECT_EQ(Rebuilt(u"\r\n\r\n\r\n"), " \r\n");
}

TEST_F(FormatWindowParagraphs, TheMarkerOfALineBreakInTheTextBecomesOne) {
  EXPECT_EQ(Rebuilt(u"A#0#B"), "A\r\nB\r\n");
}

TEST_F(FormatWindowParagraphs, FormattingIsDroppedAndEverythingStandsAtTheRight) {
  desk.OpenOn(u"alpha\r\n\r\nbeta");
  auto& box = Robot::FindAs<QTextEdit>("Form3", "matn");
  box.selectAll();
  box.setFontWeight(QFont::Bold);
  box.setAlignment(Qt::AlignHCenter);
  Rebuild();
  EXPECT_EQ(FormatDesk::Caret(), 0);
  EXPECT_EQ(FormatDesk::Selected(), "");
  EXPECT_EQ(box.document()->blockCount(), 3);
  for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next()) {
    EXPECT_TRUE(block.blockFormat().alignment() & Qt::AlignRight) << block.blockNumber();
    EXPECT_LE(block.charFormat().fontWeight(), QFont::Normal) << block.blockNumber();
    for (auto run = block.begin(); !run.atEnd(); ++run) {
      EXPECT_LE(run.fragment().charFormat().fontWeight(), QFont::Normal);
    }
  }
}

TEST_F(FormatWindowParagraphs, TheEntriesAndTheTitleStayAsTheyAre) {
  desk.OpenOn(u"alpha beta gamma\r\ndelta");
  FormatDesk::FileHeading("alpha ", "beta ");
  const auto lines = FormatDesk::Lines("bindex");
  EXPECT_EQ(Rebuild(), "gamma delta\r\n");
  EXPECT_THAT(FormatDesk::Lines("bindex"), testing::ContainerEq(lines));
  EXPECT_EQ(desk.form3.entryCount, 1);
}

TEST_F(FormatWindowParagraphs, RebuildingAgainAddsAnotherEmptyLine) {
  desk.OpenOn(u"alpha");
  Toggle("HazP");
  EXPECT_EQ(Rebuild(), "alpha\r\n");
  EXPECT_EQ(Rebuild(), "alpha\r\n\r\n");
}

TEST_F(FormatWindowParagraphs, ANumberOutOfBoundsAtTheMomentOfRebuildingIsTaken) {
  desk.OpenOn(u"aaaa bbbb cccc dddd");
  desk.form3.chnd.SetText(u"-5");
  EXPECT_EQ(Rebuild(), "aaaa\r\nbbbb\r\ncccc\r\ndddd\r\n");
  FormatDesk::OpenBook("One.txt");
  desk.form3.chnd.SetText(u"1.5");  // halves go to the even number
  EXPECT_EQ(Rebuild(), "aaaa bbbb\r\ncccc dddd\r\n");
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowParagraphs, Failure80LettersAtTheMomentOfRebuilding) { ExpectFailure80(u"abc"); }

TEST_F(FormatWindowParagraphs, Failure80NoNumberAtAll) { ExpectFailure80(u""); }

TEST_F(FormatWindowParagraphs, Failure80ANumberBeyond16Bits) {
  ExpectFailure80(u"32768");
  EXPECT_EQ(Utf8(desk.form1.lastErrorText), "Overflow");
}

}  // namespace
