// The list of waiting collections, as counts are typed and collections get built.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QWidget>
#include <filesystem>

#include "tests/support/project_desk.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::ProjectDesk;
using testing_support::Robot;

constexpr const char* kTenOfA = "a1 a2 a3 a4 a5 a6 a7 a8 a9 a10";

class ProjectWindowSelector : public testing::Test {
 protected:
  ProjectWindowSelector() {
    desk.OpenProject();
    desk.NewLines();
  }

  // What is listed once the three counts are typed, the first one last.
  std::string KeysFor(const QString& first, const QString& second = "2",
                      const QString& third = "2") {
    desk.Fill("shenas", third);
    desk.Fill("matn", second);
    desk.Fill("title", first);
    return desk.WaitingKeys();
  }

  ProjectDesk desk;
};

TEST_F(ProjectWindowSelector, ACountTakesEffectWhenItsFieldIsLeft) {
  Robot::Type("Form1", "title", "1");
  EXPECT_EQ(desk.WaitingKeys(), "a1 a2 b1 b2 c1 c2");
  Robot::PressKey("Form1", "title", Qt::Key_Tab);
  EXPECT_EQ(desk.WaitingKeys(), "a1 b1 b2 c1 c2");
  EXPECT_THAT(desk.NewLines(), ElementsAre("Making combo...", "Combo made by 1, 2, 2."));
}

TEST_F(ProjectWindowSelector, LeavingACountByAClickRebuildsTheListToo) {
  for (const char* count : {"title", "matn", "shenas"}) {
    Robot::Click("Form1", count);
    desk.NewLines();
    Robot::Click("Form1", "ExBox");
    EXPECT_THAT(desk.NewLines(), ElementsAre("Making combo...", "Combo made by 2, 2, 2.")) << count;
  }
}

TEST_F(ProjectWindowSelector, AZeroOrNegativeCountAddsNothingAndTheNextRowGoesOn) {
  EXPECT_EQ(KeysFor("0"), "b1 b2 c1 c2");
  EXPECT_EQ(KeysFor("-3"), "b1 b2 c1 c2");
  EXPECT_EQ(KeysFor("1", "0"), "a1 c1 c2");
  EXPECT_EQ(desk.LoggedFailures(42), 0);
}

TEST_F(ProjectWindowSelector, AFractionIsCutDownToTheWholeNumberNotAboveIt) {
  EXPECT_EQ(KeysFor("2.9"), "a1 a2 b1 b2 c1 c2");
  EXPECT_EQ(KeysFor("-0.5"), "b1 b2 c1 c2");
  EXPECT_EQ(KeysFor("0.99"), "b1 b2 c1 c2");
  EXPECT_EQ(desk.LoggedFailures(42), 0);
}

TEST_F(ProjectWindowSelector, PersianDigitsAreACount) {
  EXPECT_EQ(KeysFor("۳", "٣", "1"), "a1 a2 a3 b1 b2 b3 c1");
  EXPECT_EQ(desk.LogLines().back(), "Combo made by ?, ?, 1.");
}

TEST_F(ProjectWindowSelector, Failure42ACountThatIsNoNumberKeepsTheEarlierRowsOnly) {
  desk.Fill("matn", "abc");
  EXPECT_EQ(desk.WaitingKeys(), "a1 a2");
  EXPECT_EQ(desk.SelectedWaiting(), -1);
  EXPECT_EQ(desk.LoggedFailures(42), 1);
  EXPECT_NE(desk.LogLines().back(), "Combo made by 2, abc, 2.");
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

TEST_F(ProjectWindowSelector, Failure42AnEmptyCountIsNoNumber) {
  desk.Fill("title", "");
  EXPECT_EQ(desk.WaitingKeys(), "");
  EXPECT_EQ(desk.LoggedFailures(42), 1);
}

TEST_F(ProjectWindowSelector, WithAllCollectionsBuiltTheListIsEmptyAndNothingIsSelected) {
  for (const char* key : {"a1", "a2", "b1", "b2", "c1", "c2"}) desk.MarkBuilt(key);
  desk.form1.MakeCombo();
  EXPECT_THAT(desk.Waiting(), IsEmpty());
  EXPECT_EQ(desk.SelectedWaiting(), -1);
  EXPECT_THAT(desk.NewLines(), ElementsAre("Making combo...", "Combo made by 2, 2, 2."));
}

TEST_F(ProjectWindowSelector, WithA1BuiltTheListStartsWithA2AndItsOwnOrdinal) {
  desk.MarkBuilt("a1");
  desk.form1.MakeCombo();
  EXPECT_EQ(desk.Waiting().front(), "رديف اول -> مجموعه دوم  (a2)");
  EXPECT_EQ(desk.SelectedWaiting(), 0);
}

TEST_F(ProjectWindowSelector, ACountOf10ListsTheTenth) {
  EXPECT_EQ(KeysFor("10", "0", "0"), kTenOfA);
  EXPECT_EQ(desk.Waiting().back(), "رديف اول -> مجموعه دهم  (a10)");
  EXPECT_EQ(desk.SelectedWaiting(), 0);
}

TEST_F(ProjectWindowSelector, Failure42ACountOf11ListsTenSelectsNothingAndLeavesTheOtherRowsOut) {
  EXPECT_EQ(KeysFor("11"), kTenOfA);
  EXPECT_EQ(desk.SelectedWaiting(), -1);
  EXPECT_EQ(desk.LoggedFailures(42), 1);
}

TEST_F(ProjectWindowSelector, ACountAbove10DoesNoHarmWhereTheCollectionsFrom11OnAreBuilt) {
  desk.MarkBuilt("a11");
  desk.MarkBuilt("a12");
  EXPECT_EQ(KeysFor("12", "1", "0"), std::string(kTenOfA) + " b1");
  EXPECT_EQ(desk.SelectedWaiting(), 0);
  EXPECT_EQ(desk.LoggedFailures(42), 0);
}

TEST_F(ProjectWindowSelector, DeletingATitleFileBringsItsCollectionBack) {
  desk.MarkBuilt("b1");
  desk.form1.MakeCombo();
  EXPECT_EQ(desk.WaitingKeys(), "a1 a2 b2 c1 c2");
  std::filesystem::remove(desk.HostPath("Data/_xml/bTitle1.xml"));
  desk.form1.MakeCombo();
  EXPECT_EQ(desk.WaitingKeys(), "a1 a2 b1 b2 c1 c2");
}

TEST_F(ProjectWindowSelector, LoweringACountHidesTheLaterCollectionsAndKeepsTheirFiles) {
  desk.MarkBuilt("a2");
  EXPECT_EQ(KeysFor("1"), "a1 b1 b2 c1 c2");
  EXPECT_TRUE(desk.Has("Data/_xml/aTitle2.xml"));
}

TEST_F(ProjectWindowSelector, AfterARebuildTheFirstEntryIsSelected) {
  Robot::Choose("Form1", "dataName", 4);
  EXPECT_EQ(desk.SelectedWaiting(), 4);
  Robot::Click("Form1", "title");
  Robot::Click("Form1", "ExBox");
  EXPECT_EQ(desk.SelectedWaiting(), 0);
}

TEST_F(ProjectWindowSelector, WithNoProjectFolderNamedTheFilesAreLookedForUnderTheCurrentFolder) {
  desk.WriteCurrent("_xml/aTitle1.xml", "built");
  desk.Fill("idir", "");
  EXPECT_EQ(desk.WaitingKeys(), "a2 b1 b2 c1 c2");
}

TEST_F(ProjectWindowSelector, ARelativeProjectFolderIsLookedForUnderTheCurrentFolder) {
  desk.WriteCurrent("Data/_xml/b2Title.xml", "not a title file");
  desk.WriteCurrent("Data/_xml/bTitle2.xml", "built");
  desk.MarkBuilt("a1");
  desk.Fill("idir", "Data");
  EXPECT_EQ(desk.WaitingKeys(), "a1 a2 b1 c1 c2");
}

TEST_F(ProjectWindowSelector, AFolderInATitleFilesPlaceIsNoTitleFile) {
  desk.MakeFolders("Data/_xml/aTitle1.xml");
  desk.form1.MakeCombo();
  EXPECT_EQ(desk.WaitingKeys(), "a1 a2 b1 b2 c1 c2");
}

TEST_F(ProjectWindowSelector, WithTheProjectFolderGoneAllCollectionsWait) {
  desk.MarkBuilt("a1");
  std::filesystem::remove_all(desk.HostPath("Data"));
  desk.form1.MakeCombo();
  EXPECT_EQ(desk.WaitingKeys(), "a1 a2 b1 b2 c1 c2");
  EXPECT_EQ(desk.LoggedFailures(42), 0);
}

TEST_F(ProjectWindowSelector, Failure42ADiskThatFailsLeavesTheEntriesSoFar) {
  desk.files.FailWhere("FileExists", "bTitle1.xml");
  desk.form1.MakeCombo();
  EXPECT_EQ(desk.WaitingKeys(), "a1 a2");
  EXPECT_EQ(desk.SelectedWaiting(), -1);
  EXPECT_EQ(desk.LoggedFailures(42), 1);
}

}  // namespace
