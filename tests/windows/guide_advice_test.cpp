// What the guide tells an editor to expect and to do, done in the real windows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>

#include "tests/support/format_desk.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing_support::FormatDesk;
using testing_support::Robot;

class GuideAdvice : public testing::Test {
 protected:
  static void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    Robot::PressKey("Form3", "matn", key, modifiers);
  }
  static void Undo() { Press(Qt::Key_Z, Qt::ControlModifier); }
  static std::string Left() { return FormatDesk::Shown("matn"); }
  static std::vector<std::string> Entries() { return FormatDesk::Lines("bindex"); }
  void Delete(int line) {
    desk.InEntry(line, [] { Robot::Click("Form6", "btn(0)"); });
  }
  void Build() {
    Press(Qt::Key_F12);
    EXPECT_THAT(desk.robot.TakeBoxes(), SizeIs(1));
  }

  // One within the other, with an entry in it; what is left is another entry.
  void FileTwoMainTitles() {
    desk.OpenOn(u"A\r\nB\r\nOne\r\nText\r\nLast\r\nEnd");
    FormatDesk::Mark(Qt::Key_F1, "A");
    FormatDesk::Mark(Qt::Key_F1, "B");
    FormatDesk::FileHeading("One", "Text");
    Press(Qt::Key_F4);
    Press(Qt::Key_F4);
  }

  FormatDesk desk;
};

TEST_F(GuideAdvice, CtrlZBringsWhatWasFiledOrThrownAwayBackIntoTheText) {
  desk.OpenOn(u"Head\r\nText\r\nWaste");
  FormatDesk::FileHeading("Head", "Text");
  FormatDesk::Mark(Qt::Key_F11, "Waste");
  EXPECT_EQ(Left(), "\n\n");
  Undo();
  EXPECT_EQ(Left(), "\n\nWaste");
  Undo();
  Undo();
  EXPECT_EQ(Left(), "Head\nText\nWaste");
  EXPECT_THAT(Entries(), ElementsAre("Head   =>   Text"));
  Undo();
  EXPECT_EQ(Left(), "Head\nText\nWaste");
}

TEST_F(GuideAdvice, OpeningTheTextAnewBringsEverythingBackAndLeavesTheEntries) {
  desk.OpenOn(u"Head\r\nText");
  FormatDesk::FileHeading("Head", "Text");
  FormatDesk::OpenBook("One.txt");
  EXPECT_EQ(Left(), "Head\nText");
  EXPECT_THAT(Entries(), ElementsAre("Head   =>   Text"));
}

TEST_F(GuideAdvice, RebuiltParagraphsAreNotUndone) {
  desk.OpenOn(u"One. Two.");
  Robot::Click("Form3", "HazC(12)");
  const std::string rebuilt = Left();
  Undo();
  EXPECT_EQ(Left(), rebuilt);
}

// F2 twice: the line of the first heading stays last in the list, and belongs to nothing.
class GuideAdviceStray : public GuideAdvice {
 protected:
  GuideAdviceStray() {
    desk.OpenOn(u"Good\r\nFirst text\r\nStray\r\nSecond text\r\nNext\r\nThird text\r\nLast\r\nEnd");
    FormatDesk::FileHeading("Good", "First text");
    FormatDesk::Mark(Qt::Key_F2, "Stray");
    FormatDesk::Mark(Qt::Key_F2, "Next");
    FormatDesk::Mark(Qt::Key_F3, "Third text");
  }
};

TEST_F(GuideAdviceStray, LeftAloneTheLineStaysLastAndIsNotBuilt) {
  EXPECT_THAT(Entries(), ElementsAre("Good   =>   First text", "Next   =>   Third text", "Stray"));
  FormatDesk::FileHeading("Last", "End");
  FormatDesk::OpenBook("One.txt");
  FormatDesk::FileHeading("Stray", "Second text");
  EXPECT_THAT(Entries(), ElementsAre("Good   =>   First text", "Next   =>   Third text",
                                     "Last   =>   End", "Stray   =>   Second text", "Stray"));
  Build();
  EXPECT_THAT(desk.BookNames("TXT", ".htm"), SizeIs(4));
  EXPECT_THAT(desk.Page("Stray"), HasSubstr("Second text"));
}

TEST_F(GuideAdviceStray, DeletedTheNextHeadingTakesTheLastEntrysPlace) {
  Delete(2);
  FormatDesk::FileHeading("Last", "End");
  Build();
  EXPECT_THAT(desk.Collection("aTitle1"), Not(HasSubstr("Next")));
  EXPECT_THAT(desk.BookNames("TXT", ".htm"), SizeIs(2));
}

// The line then looks whole, but its row has no title and ends what is built.
TEST_F(GuideAdviceStray, GivenATextItEndsTheCollectionUntilItsTitleIsTyped) {
  FormatDesk::Mark(Qt::Key_F3, "Second text");
  FormatDesk::FileHeading("Last", "End");
  EXPECT_THAT(Entries(), ElementsAre("Good   =>   First text", "Next   =>   Third text",
                                     "Stray   =>   Second text", "Last   =>   End"));
  desk.Edit(2, [] { Robot::Type("Form6", "bname", "Stray"); });
  Build();
  EXPECT_THAT(desk.BookNames("TXT", ".htm"), SizeIs(4));
}

TEST_F(GuideAdvice, ATextWithoutAHeadingStaysWhereItIs) {
  desk.OpenOn(u"Head\r\nText");
  FormatDesk::Mark(Qt::Key_F3, "Text");
  EXPECT_EQ(Left(), "Head\nText");
  EXPECT_THAT(Entries(), IsEmpty());
  FormatDesk::FileHeading("Head", "Text");
  EXPECT_THAT(Entries(), ElementsAre("Head   =>   Text"));
}

TEST_F(GuideAdvice, ShiftAndDownTakeTheLineEndAlongShiftAndEndDoNot) {
  desk.OpenOn(u"درآمد\r\nمتن\r\nپايان\r\nسخن");
  Press(Qt::Key_Down, Qt::ShiftModifier);
  Press(Qt::Key_F2);
  EXPECT_EQ(Left(), "متن\nپايان\nسخن");
  Press(Qt::Key_Down, Qt::ShiftModifier);
  Press(Qt::Key_F3);
  EXPECT_EQ(Left(), "پايان\nسخن");
  Press(Qt::Key_End, Qt::ShiftModifier);
  Press(Qt::Key_F2);
  EXPECT_EQ(Left(), "\nسخن");
  Press(Qt::Key_Down);
  Press(Qt::Key_End, Qt::ShiftModifier);
  Press(Qt::Key_F3);
  Build();
  EXPECT_EQ(desk.Collection("aTitle1"),
            "<?xml version=\"1.0\"?>\r\n<Tree>\r\n"
            "\t<node label=\"درآمد\" src=\"DATA/TXT/S.htm\" mediaStatus=\"000\" pic=\"0\" />\r\n"
            "\t<node label=\"پايان\" src=\"DATA/TXT/S.htm\" mediaStatus=\"000\" pic=\"0\" />\r\n"
            "</Tree>\r\n");
}

TEST_F(GuideAdvice, ATextThatCameLaterIsListedOnceTheWorkbenchIsClosedAndOpenedAgain) {
  desk.OpenOn(u"Head\r\nText");
  desk.AddText("Two.txt", u"Two");
  desk.PressNext();
  EXPECT_THAT(FormatDesk::Lines("books"), ElementsAre("One.txt"));
  FormatDesk::FileHeading("Head", "Text");
  Build();
  desk.PressNext();
  EXPECT_THAT(FormatDesk::Lines("books"), ElementsAre("One.txt"));
  Robot::CloseWindow("Form3");
  desk.PressNext();
  EXPECT_THAT(FormatDesk::Lines("books"), ElementsAre("One.txt", "Two.txt"));
}

TEST_F(GuideAdvice, ANumberTypedAnewCarriesNoMarkIntoTheBook) {
  desk.OpenOn(u"Head\r\nعدد 3.14 است\r\n");
  EXPECT_THAT(Left(), HasSubstr("3.\u200F14"));
  Robot::Select("Form3", "matn", QStringLiteral("3.\u200F14"));
  QTest::keyClicks(&Robot::Find("Form3", "matn"), "3.14");
  FormatDesk::FileHeading("Head", "عدد 3.14 است");
  Build();
  EXPECT_THAT(desk.Page("Head"), HasSubstr("<pgMain>عدد 3.14 است</pgMain>"));
}

// The end of a main title whose line was deleted stays: the book's list closes once too often, and
// a second one ends the build.
TEST_F(GuideAdvice, ADeletedMainTitleLeavesItsEndInTheList) {
  FileTwoMainTitles();
  FormatDesk::FileHeading("Last", "End");
  Delete(0);
  EXPECT_THAT(Entries(), SizeIs(5));
  Build();
  EXPECT_THAT(desk.Collection("aTitle1"),
              HasSubstr("\t</node>\r\n</node>\r\n<node label=\"Last\""));
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(GuideAdvice, TwoDeletedMainTitlesEndTheBuildHalfway) {
  FileTwoMainTitles();
  Delete(0);
  Delete(0);
  Press(Qt::Key_F12);
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  EXPECT_EQ(desk.LoggedFailures(57), 1);
}

}  // namespace
