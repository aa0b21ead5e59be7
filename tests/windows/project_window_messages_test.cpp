// The numbered messages of the project window: box, log line, and their order.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QMessageBox>

#include "platform/failure.h"
#include "tests/support/project_desk.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::BoxText;
using testing_support::ProjectDesk;
using testing_support::Robot;

class ProjectWindowMessages : public testing::Test {
 protected:
  ProjectWindowMessages() {
    desk.Start();
    desk.NewLines();
    desk.robot.onBox = [this](QWidget&) { linesUnderBox = desk.NewLines(); };
  }

  // What was logged from the call up to the moment at which the box stood on the screen.
  std::vector<std::string> linesUnderBox;
  ProjectDesk desk;
};

TEST_F(ProjectWindowMessages, Number42ShowsNoBoxAndOnlyAddsItsErrorLine) {
  desk.form1.lastErrorText = u"No such thing";
  desk.form1.bepayam(42);
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  EXPECT_THAT(desk.NewLines(), ElementsAre("Error occurred => Error number is 42 (No such thing)"));
}

TEST_F(ProjectWindowMessages, Number9AddsItsOnlyLineWhenTheBoxIsClosed) {
  desk.form1.bepayam(9);
  EXPECT_THAT(desk.BoxTexts(), ElementsAre(BoxText(9)));
  EXPECT_THAT(linesUnderBox, IsEmpty());
  EXPECT_THAT(desk.NewLines(), ElementsAre("Payam number 9 displayed."));
}

TEST_F(ProjectWindowMessages, Number101AddsItsErrorLineShowsItsBoxAndAddsTheOtherLine) {
  desk.form1.lastErrorText = u"No such thing";
  desk.form1.bepayam(101);
  EXPECT_THAT(desk.BoxTexts(), ElementsAre(BoxText(101)));
  EXPECT_THAT(linesUnderBox, ElementsAre("Error occurred => Error number is 101 (No such thing)"));
  EXPECT_THAT(desk.NewLines(), ElementsAre("Payam number 101 displayed."));
}

TEST_F(ProjectWindowMessages, Number0ShowsTheFallback) {
  desk.form1.bepayam(0);
  EXPECT_THAT(desk.BoxTexts(), ElementsAre(BoxText(0)));
  EXPECT_THAT(desk.NewLines(), ElementsAre("Payam number 0 displayed."));
}

TEST_F(ProjectWindowMessages, NegativeNumbersAnd30ShowTheFallback) {
  desk.form1.bepayam(-7);
  desk.form1.bepayam(30);
  EXPECT_THAT(desk.BoxTexts(), ElementsAre(BoxText(0), BoxText(0)));
  EXPECT_EQ(desk.LoggedTimes("Payam number -7 displayed."), 1);
  EXPECT_EQ(desk.LoggedTimes("Payam number 30 displayed."), 1);
}

TEST_F(ProjectWindowMessages, From31To99NothingShows) {
  for (std::int16_t number = 31; number <= 99; ++number) desk.form1.bepayam(number);
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  EXPECT_EQ(desk.NewLines().size(), 69U);
}

TEST_F(ProjectWindowMessages, AnUnassignedNumberOf100OrMoreShowsAnEmptyBox) {
  desk.form1.bepayam(100);
  EXPECT_THAT(desk.BoxTexts(), ElementsAre(""));
  EXPECT_THAT(linesUnderBox, ElementsAre("Error occurred => Error number is 100 ()"));
  EXPECT_THAT(desk.NewLines(), ElementsAre("Payam number 100 displayed."));
}

TEST_F(ProjectWindowMessages, ABoxBearsTheTitleAndOnlyAnOkButton) {
  desk.form1.bepayam(15);
  const std::vector<Robot::Box> boxes = desk.robot.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].title, "Zorvand");
  EXPECT_EQ(boxes[0].buttons, QMessageBox::Ok);
}

TEST_F(ProjectWindowMessages, LastErrorTextStaysUntilTheNextFailure) {
  desk.form1.Catching(77, [] { throw platform::Failure(u"The first"); });
  EXPECT_EQ(desk.form1.lastErrorText, u"The first");
  desk.form1.Catching(78, [] {});
  desk.form1.LogErr(60);
  desk.form1.Catching(79, [] { throw platform::Failure(u"The second"); });
  EXPECT_EQ(desk.form1.lastErrorText, u"The second");
  EXPECT_THAT(desk.NewLines(), ElementsAre("Error occurred => Error number is 77 (The first)",
                                           "Error occurred => Error number is 60 (The first)",
                                           "Error occurred => Error number is 79 (The second)"));
}

TEST_F(ProjectWindowMessages, AFailureUndoesNothingAndTellsItsCallerNothing) {
  int steps = 0;
  EXPECT_NO_THROW(desk.form1.Catching(77, [&] {
    ++steps;
    throw platform::Failure(u"In the middle");
  }));
  EXPECT_EQ(steps, 1);
}

TEST_F(ProjectWindowMessages, APersianDescriptionIsLoggedInTheMachinesCodePage) {
  desk.form1.lastErrorText = u"\u0627\u06CC";
  desk.form1.bepayam(42);
  EXPECT_TRUE(desk.Log().ends_with("Error number is 42 (\xC7?)\r\n"));
}

TEST_F(ProjectWindowMessages, OtherProgramsCanReadTheLogUnderABox) {
  desk.robot.onBox = [this](QWidget&) { linesUnderBox = desk.LogLines(); };
  desk.form1.bepayam(9);
  EXPECT_EQ(linesUnderBox.back(), "Combo made by 2, 2, 2.");
}

}  // namespace
