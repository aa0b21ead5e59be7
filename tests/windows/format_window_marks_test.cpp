// The marking commands: a passage of the text goes into the title or into the list of entries.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QListWidget>
#include <QTextEdit>

#include "platform/rtf/rtf.h"
#include "tests/support/format_desk.h"
#include "tests/support/known_texts.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::AsShown;
using testing_support::FormatDesk;
using testing_support::KnownText;
using testing_support::Robot;
using testing_support::Utf8;

constexpr const char* kMainMark = ">>> تيتر اصلي";
constexpr const char* kMainEndMark = ">>> پايان تيتر";
constexpr const char* kIdentity = "شناسنامه";
constexpr const char* kArrow = "   =>   ";

class FormatWindowMarks : public testing::Test {
 protected:
  void OpenOnLetters() { desk.OpenOn(u"alpha beta gamma delta epsilon"); }
  std::string PlainText(std::ptrdiff_t row) {
    return Utf8(platform::rtf::PlainText(platform::TextView(desk.form3.table.entryText(row))));
  }
  std::string Title(std::ptrdiff_t row) { return Utf8(desk.form3.table.entryTitle(row)); }
  static std::string OpenTitles() { return FormatDesk::Shown("Com(9)"); }
  static std::string Line(const std::string& title, const std::string& text) {
    return title + kArrow + text;
  }
  static int ChosenLine() { return Robot::FindAs<QListWidget>("Form3", "bindex").currentRow(); }

  FormatDesk desk;
};

TEST_F(FormatWindowMarks, EachCommandIsLoggedByItsNumber) {
  OpenOnLetters();
  for (int command = 0; command <= 10; ++command) {
    FormatDesk::Command(command, "alpha");
    EXPECT_EQ(desk.LoggedTimes("Format number " + std::to_string(command) + " clicked."), 1);
    FormatDesk::OpenBook("One.txt");
  }
}

// The collection's title.

TEST_F(FormatWindowMarks, TheTitleGrowsByPassagesWithABlankBetween) {
  OpenOnLetters();
  FormatDesk::Command(0, "alpha");
  EXPECT_EQ(FormatDesk::Shown("bname"), "alpha");
  FormatDesk::Command(0, "beta ");
  EXPECT_EQ(FormatDesk::Shown("bname"), "alpha beta ");
  EXPECT_EQ(FormatDesk::Shown("matn"), " gamma delta epsilon");
}

TEST_F(FormatWindowMarks, TheTitleGrowsAfterItsSeparators) {
  OpenOnLetters();
  FormatDesk::Command(0, "alpha");
  FormatDesk::Command(5, "beta");
  FormatDesk::Command(6, "gamma");
  FormatDesk::Command(7, "delta");
  FormatDesk::Command(8, "epsilon");
  EXPECT_EQ(FormatDesk::Shown("bname"), "alpha (beta) - gamma: delta؛ epsilon");
}

TEST_F(FormatWindowMarks, OnAnEmptyTitleTheSeparatorStandsFirst) {
  OpenOnLetters();
  const char* const wanted[] = {" (alpha)", " - alpha", ": alpha", "؛ alpha"};
  for (int command = 5; command <= 8; ++command) {
    FormatDesk::OpenBook("One.txt");
    Robot::Type("Form3", "bname", "");
    FormatDesk::Command(command, "alpha");
    EXPECT_EQ(FormatDesk::Shown("bname"), wanted[command - 5]);
  }
}

TEST_F(FormatWindowMarks, APassageOfTwoParagraphsKeepsItsLineBreakInTheTitle) {
  desk.OpenOn(u"alpha\r\nbeta");
  FormatDesk::Command(0, "alpha\nbeta");
  EXPECT_EQ(desk.form3.bname.Text(), u"alpha\r\nbeta");
}

// Entries.

TEST_F(FormatWindowMarks, AHeadingGetsItsTextAndBothLeaveTheText) {
  OpenOnLetters();
  FormatDesk::Command(2, " beta ");
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre("beta"));
  EXPECT_EQ(desk.form3.entryCount, 0);
  EXPECT_EQ(ChosenLine(), 0);
  FormatDesk::Command(3, "gamma");
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre(Line("beta", "gamma")));
  EXPECT_EQ(desk.form3.entryCount, 1);
  EXPECT_EQ(Title(0), "beta");
  EXPECT_EQ(PlainText(0), "gamma");
  EXPECT_TRUE(Utf8(desk.form3.table.entryText(0)).starts_with("{\\rtf"));
  EXPECT_EQ(FormatDesk::Shown("matn"), "alpha delta epsilon");
  EXPECT_EQ(FormatDesk::Caret(), 0);
}

TEST_F(FormatWindowMarks, AnIdentityRowCarriesItsWordWhole) {
  OpenOnLetters();
  FormatDesk::Command(1, "beta");
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre(Line(kIdentity, "beta")));
  EXPECT_EQ(Title(0), kIdentity);
  EXPECT_EQ(PlainText(0), "beta");
  EXPECT_EQ(desk.form3.entryCount, 1);
  EXPECT_EQ(ChosenLine(), 0);
}

TEST_F(FormatWindowMarks, AMainTitleKeepsPlainTextAndIsCounted) {
  OpenOnLetters();
  FormatDesk::Command(9, " beta ");
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre(Line(kMainMark, "beta")));
  EXPECT_EQ(desk.form3.table.entryText(0), u"beta");
  EXPECT_EQ(OpenTitles(), "تيتر اصلي (1)\u200F");
  FormatDesk::Command(10);
  EXPECT_THAT(FormatDesk::Lines("bindex"),
              ElementsAre(Line(kMainMark, "beta"), Line(kMainEndMark, "beta")));
  EXPECT_EQ(Title(1), kMainEndMark);
  EXPECT_EQ(OpenTitles(), "تيتر اصلي (0)\u200F");
  EXPECT_EQ(desk.form3.entryCount, 2);
  EXPECT_EQ(ChosenLine(), 1);
}

TEST_F(FormatWindowMarks, LongTitlesAndTextsAreCutInTheListOnly) {
  const std::u16string word(21, u'w');
  const std::u16string text(71, u't');
  desk.OpenOn(word + u" " + text);
  desk.FileHeading(QString::fromStdU16String(word), QString::fromStdU16String(text));
  EXPECT_THAT(FormatDesk::Lines("bindex"),
              ElementsAre(Line(std::string(20, 'w') + "...", std::string(70, 't') + "...")));
  EXPECT_EQ(Title(0), std::string(21, 'w'));
  EXPECT_EQ(PlainText(0), std::string(71, 't'));
}

TEST_F(FormatWindowMarks, ATitleOfTwentyCharactersIsShownWhole) {
  desk.OpenOn(u"abcdefghijklmnopqrst uv");
  FormatDesk::Command(2, "abcdefghijklmnopqrst");
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre("abcdefghijklmnopqrst"));
}

TEST_F(FormatWindowMarks, OnlyBlanksAreTrimmedFromATitle) {
  desk.OpenOn(u"rest\r\n\r\nalpha\r\nbeta");
  Robot::Select("Form3", "matn", 4, 7);
  Robot::Click("Form3", "Com(2)");
  EXPECT_EQ(Title(0), "\r\n\r\nalpha");
}

TEST_F(FormatWindowMarks, APassageKeepsItsFormInTheTable) {
  OpenOnLetters();
  auto& box = Robot::FindAs<QTextEdit>("Form3", "matn");
  Robot::Select("Form3", "matn", "gamma");
  box.setFontWeight(QFont::Bold);
  FormatDesk::Command(2, "alpha");
  FormatDesk::Command(3, "beta gamma delta");
  const auto document = platform::rtf::Read(platform::TextView(desk.form3.table.entryText(0)));
  ASSERT_EQ(document.paragraphs.size(), 1U);
  ASSERT_EQ(document.paragraphs[0].runs.size(), 3U);
  EXPECT_FALSE(document.paragraphs[0].runs[0].format.bold);
  EXPECT_TRUE(document.paragraphs[0].runs[1].format.bold);
  EXPECT_EQ(PlainText(0), "beta gamma delta");
}

TEST_F(FormatWindowMarks, RowsStandInTheOrderOfTheirFiling) {
  OpenOnLetters();
  desk.FileHeading("epsilon", "delta");
  FormatDesk::Command(9, "gamma");
  FormatDesk::Command(1, "beta");
  FormatDesk::Command(10);
  EXPECT_THAT(FormatDesk::Lines("bindex"),
              ElementsAre(Line("epsilon", "delta"), Line(kMainMark, "gamma"),
                          Line(kIdentity, "beta"), Line(kMainEndMark, "gamma")));
  EXPECT_EQ(desk.form3.entryCount, 4);
}

// Rows out of step.

TEST_F(FormatWindowMarks, HeadingTwiceWithoutTextLeavesTheListOutOfStep) {
  OpenOnLetters();
  FormatDesk::Command(2, "alpha");
  FormatDesk::Command(2, "beta");
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre("beta", "alpha"));
  EXPECT_EQ(Title(0), "beta");
  FormatDesk::Command(3, "gamma");
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre(Line("beta", "gamma"), "alpha"));
  desk.FileHeading("delta", "epsilon");
  EXPECT_THAT(FormatDesk::Lines("bindex"),
              ElementsAre(Line("beta", "gamma"), Line("delta", "epsilon"), "alpha"));
  EXPECT_EQ(desk.form3.entryCount, 2);
  EXPECT_EQ(Title(2), "");
}

TEST_F(FormatWindowMarks, TextTwiceInARowFillsARowWithoutATitle) {
  OpenOnLetters();
  FormatDesk::Command(2, "alpha");
  FormatDesk::Command(2, "beta");
  FormatDesk::Command(3, "gamma");
  FormatDesk::Command(3, "delta");
  EXPECT_EQ(Title(1), "");
  EXPECT_EQ(PlainText(1), "delta");
  EXPECT_EQ(desk.form3.entryCount, 2);
  EXPECT_THAT(FormatDesk::Lines("bindex"),
              ElementsAre(Line("beta", "gamma"), Line("alpha", "delta")));
}

TEST_F(FormatWindowMarks, Failure59ATextWithoutAHeading) {
  OpenOnLetters();
  FormatDesk::Command(3, "beta");
  EXPECT_EQ(desk.LoggedFailures(59), 1);
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  // The table is written first; neither the counter nor the closing step comes.
  EXPECT_EQ(PlainText(0), "beta");
  EXPECT_EQ(desk.form3.entryCount, 0);
  EXPECT_THAT(FormatDesk::Lines("bindex"), IsEmpty());
  EXPECT_EQ(FormatDesk::Selected(), "beta");
  EXPECT_EQ(FormatDesk::Shown("matn"), "alpha beta gamma delta epsilon");
}

TEST_F(FormatWindowMarks, Failure59AWindowThatIsGone) {
  OpenOnLetters();
  Robot::CloseWindow("Form3");
  desk.form3.Com_Click(2);
  EXPECT_EQ(desk.LoggedFailures(59), 1);
}

// Nothing selected.

TEST_F(FormatWindowMarks, AButtonCanFileNothing) {
  OpenOnLetters();
  FormatDesk::Command(2);
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre(""));
  FormatDesk::Command(3);
  FormatDesk::Command(1);
  FormatDesk::Command(9);
  EXPECT_THAT(FormatDesk::Lines("bindex"),
              ElementsAre(Line("", ""), Line(kIdentity, ""), Line(kMainMark, "")));
  EXPECT_EQ(desk.form3.entryCount, 3);
  EXPECT_EQ(Title(0), "");
  EXPECT_EQ(PlainText(1), "");
  EXPECT_EQ(desk.form3.table.entryText(2), u"");
  EXPECT_EQ(FormatDesk::Shown("matn"), "alpha beta gamma delta epsilon");
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowMarks, TheTitleCommandsAddTheirSeparatorsToNothing) {
  OpenOnLetters();
  FormatDesk::Command(0, "alpha");
  for (const int command : {0, 5, 6, 7, 8}) FormatDesk::Command(command);
  EXPECT_EQ(FormatDesk::Shown("bname"), "alpha  () - : ؛ ");
}

// Main titles.

TEST_F(FormatWindowMarks, TwoMainTitlesAndTwoEndsCarryTheSecondText) {
  OpenOnLetters();
  FormatDesk::Command(9, "alpha");
  FormatDesk::Command(9, "beta");
  EXPECT_EQ(OpenTitles(), "تيتر اصلي (2)\u200F");
  FormatDesk::Command(10);
  EXPECT_EQ(OpenTitles(), "تيتر اصلي (1)\u200F");
  FormatDesk::Command(10);
  EXPECT_EQ(OpenTitles(), "تيتر اصلي (0)\u200F");
  EXPECT_THAT(FormatDesk::Lines("bindex"),
              ElementsAre(Line(kMainMark, "alpha"), Line(kMainMark, "beta"),
                          Line(kMainEndMark, "beta"), Line(kMainEndMark, "beta")));
}

TEST_F(FormatWindowMarks, AnEndWithoutAMainTitleShowsOneMessageAndDoesNothing) {
  OpenOnLetters();
  FormatDesk::Command(10, "beta");
  const auto boxes = desk.robot.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].text.toStdString(), AsShown(KnownText("notice")));
  EXPECT_THAT(FormatDesk::Lines("bindex"), IsEmpty());
  EXPECT_EQ(FormatDesk::Selected(), "beta");
  EXPECT_EQ(FormatDesk::Shown("matn"), "alpha beta gamma delta epsilon");
  EXPECT_EQ(desk.form3.mainOpen, 0);
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowMarks, AnEndTakesNothingFromTheText) {
  OpenOnLetters();
  FormatDesk::Command(9, "alpha");
  FormatDesk::Command(10, "gamma");
  EXPECT_EQ(FormatDesk::Selected(), "gamma");
  EXPECT_EQ(FormatDesk::Shown("matn"), " beta gamma delta epsilon");
}

// Removal and the closing step.

TEST_F(FormatWindowMarks, WithoutRemovalThePassageStaysAndTheCaretGoesToTheStart) {
  OpenOnLetters();
  Robot::Click("Form3", "Chek");
  for (const int command : {2, 3, 0, 1, 9}) {
    FormatDesk::Command(command, "beta");
    EXPECT_EQ(FormatDesk::Shown("matn"), "alpha beta gamma delta epsilon") << command;
    EXPECT_EQ(FormatDesk::Selected(), "") << command;
    EXPECT_EQ(FormatDesk::Caret(), 0) << command;
  }
}

TEST_F(FormatWindowMarks, DeletingDoesNotAskForTheRemoval) {
  OpenOnLetters();
  Robot::Click("Form3", "Chek");
  FormatDesk::Command(4, "beta ");
  EXPECT_EQ(FormatDesk::Shown("matn"), "alpha gamma delta epsilon");
  EXPECT_EQ(FormatDesk::Caret(), 0);
  EXPECT_THAT(FormatDesk::Lines("bindex"), IsEmpty());
}

TEST_F(FormatWindowMarks, TheClosingStepComesAfterCommandsThatReadNoSelection) {
  OpenOnLetters();
  FormatDesk::Command(12, "beta ");
  EXPECT_EQ(desk.LoggedTimes("Format number 12 clicked."), 1);
  EXPECT_EQ(FormatDesk::Shown("matn"), "alpha gamma delta epsilon");
  EXPECT_EQ(FormatDesk::Caret(), 0);
}

TEST_F(FormatWindowMarks, BuildingAGalleryRunsTheClosingStepToo) {
  OpenOnLetters();
  Robot::Select("Form3", "matn", "beta ");
  desk.form3.Com_Click(13);
  EXPECT_EQ(FormatDesk::Shown("matn"), "alpha gamma delta epsilon");
  EXPECT_EQ(FormatDesk::Caret(), 0);
}

TEST_F(FormatWindowMarks, AnUnknownCommandIsLoggedAndRunsTheClosingStep) {
  OpenOnLetters();
  Robot::Select("Form3", "matn", "beta ");
  desk.form3.Com_Click(14);
  EXPECT_EQ(desk.LoggedTimes("Format number 14 clicked."), 1);
  EXPECT_EQ(FormatDesk::Shown("matn"), "alpha gamma delta epsilon");
  Robot::Select("Form3", "matn", "gamma ");
  desk.form3.Com_Click(-1);
  EXPECT_EQ(desk.LoggedTimes("Format number -1 clicked."), 1);
  EXPECT_EQ(FormatDesk::Shown("matn"), "alpha delta epsilon");
  EXPECT_THAT(FormatDesk::Lines("bindex"), IsEmpty());
}

// The picture browser's folder.

TEST_F(FormatWindowMarks, Failure46TheProgramFolderIsGoneForTheFolderChooser) {
  OpenOnLetters();
  desk.form3.Frame4.SetVisible(true);
  Robot::Settle();
  desk.machine.programFolder = desk.folder.Path(u"nowhere");
  Robot::Click("Form3", "Command1");
  // Its log lies beside the program and so is gone with it; the other log tells.
  EXPECT_NE(desk.folder.Read(u"state\\ZVL.log").find("Error number is 46 ("), std::string::npos);
  EXPECT_EQ(desk.form1.pendingTarget, u"FolPath");
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

TEST_F(FormatWindowMarks, TheFolderChooserCanBeClosedWithoutAChoice) {
  OpenOnLetters();
  desk.form3.Frame4.SetVisible(true);
  Robot::Settle();
  bool shown = false;
  desk.robot.WhenShown("Form2", [&] {
    shown = true;
    Robot::CloseWindow("Form2");
  });
  Robot::Click("Form3", "Command1");
  EXPECT_TRUE(shown);
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

}  // namespace
