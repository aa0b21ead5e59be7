// The project window from its start: what it shows, what it logs, and where it can't log.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <filesystem>

#include "tests/support/project_desk.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::ProjectDesk;
using testing_support::Robot;

constexpr const char* kBanner =
    "In the Name of Allah\r\n\r\n"
    "This is a log file for Zorvand software\r\n"
    "Created in 01/02/2003 04:05:06\r\n"
    "======================\r\n\r\n";

constexpr const char* kStart =
    "01/02/2003 04:05:06: Closing last log.\r\n\r\n======================\r\n\r\n"
    "01/02/2003 04:05:06: Zorvand v2.9.220 started.\r\n"
    "01/02/2003 04:05:06: Making combo...\r\n"
    "01/02/2003 04:05:06: Combo made by 2, 2, 2.\r\n";

class ProjectWindowStart : public testing::Test {
 protected:
  static bool IsOn(const QString& button) {
    return Robot::FindAs<QAbstractButton>("Form1", button).isChecked();
  }

  ProjectDesk desk;
};

TEST_F(ProjectWindowStart, ShowsTheDefaults) {
  desk.Start();
  EXPECT_EQ(Robot::FindWindow("Form1")->windowTitle(), "Zorvand");
  for (const char* count : {"title", "matn", "shenas"}) EXPECT_EQ(desk.Field(count), "2");
  EXPECT_EQ(desk.Field("Text1"), "Resources");
  EXPECT_EQ(desk.Field("idir"), "Data");
  EXPECT_EQ(desk.Field("ExBox"), "Export");
  EXPECT_EQ(desk.Field("index"), "Resources\\MyBook.jpg");
  EXPECT_EQ(desk.Field("Back"), "Resources\\MyBack.jpg");
  EXPECT_EQ(desk.Field("Mus1"), "Resources\\MySound1.mp3");
  EXPECT_EQ(desk.Field("Mus2"), "Resources\\MySound2.mp3");
  EXPECT_TRUE(IsOn("bMus(0)"));
  EXPECT_FALSE(IsOn("bMus(1)"));
  EXPECT_TRUE(IsOn("Olgoo(0)"));
  EXPECT_FALSE(IsOn("Olgoo(1)"));
  EXPECT_FALSE(IsOn("Pcheck"));
  EXPECT_FALSE(desk.form1.Timer1.TimerEnabled());
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

TEST_F(ProjectWindowStart, ListsTheSixWaitingCollectionsAndSelectsTheFirst) {
  desk.Start();
  EXPECT_THAT(desk.Waiting(),
              ElementsAre("رديف اول -> مجموعه اول  (a1)", "رديف اول -> مجموعه دوم  (a2)",
                          "رديف دوم -> مجموعه اول  (b1)", "رديف دوم -> مجموعه دوم  (b2)",
                          "رديف سوم -> مجموعه اول  (c1)", "رديف سوم -> مجموعه دوم  (c2)"));
  EXPECT_EQ(desk.SelectedWaiting(), 0);
}

TEST_F(ProjectWindowStart, MembersHoldTheirFirstValues) {
  desk.Start();
  EXPECT_EQ(desk.form1.lastErrorText, u"");
  EXPECT_EQ(desk.form1.pendingTarget, u"");
  EXPECT_EQ(desk.form1.vocabulary,
            u"TXT|_xml|Index.xml|pgTitle|pgMain|pgMain|"
            u"<aTitle0>Designed by: Kelvar Media (www.kelvar.example)</aTitle0>|htm");
}

TEST_F(ProjectWindowStart, TheVocabularyIsTheSameHoweverItIsStored) {
  desk.Start();
  const platform::Text record = desk.form1.vocabulary;
  desk.form1.vocabulary.clear();
  EXPECT_EQ(desk.form1.LoadVocabulary(), record);
  EXPECT_EQ(desk.form1.vocabulary, record);
  desk.form1.vocabulary.clear();
  desk.form1.RefreshVocabulary();
  EXPECT_EQ(desk.form1.vocabulary, record);
}

TEST_F(ProjectWindowStart, SettingsAreNotReadAtStart) {
  desk.Start();
  EXPECT_EQ(desk.LoggedTimes("Reading settings..."), 0);
}

TEST_F(ProjectWindowStart, WithNeitherLogPresentEachGetsTheBannerAndThenTheEntries) {
  desk.Start();
  EXPECT_EQ(desk.Log(), std::string(kBanner) + kStart);
  EXPECT_EQ(desk.SecondLog(), std::string(kBanner) + kStart);
}

TEST_F(ProjectWindowStart, WithOnlyTheFirstLogPresentTheBannerGoesToTheSecond) {
  desk.Write("ZVL.txt", "earlier\r\n");
  desk.Start();
  EXPECT_EQ(desk.Log(), std::string("earlier\r\n") + kStart);
  EXPECT_EQ(desk.SecondLog(), std::string(kBanner) + kStart);
}

TEST_F(ProjectWindowStart, WithOnlyTheSecondLogPresentTheBannerGoesToTheFirst) {
  desk.folder.Write(u"state\\ZVL.log", "earlier\r\n");
  desk.Start();
  EXPECT_EQ(desk.Log(), std::string(kBanner) + kStart);
  EXPECT_EQ(desk.SecondLog(), std::string("earlier\r\n") + kStart);
}

TEST_F(ProjectWindowStart, WithBothLogsPresentTheyGrowFromRunToRun) {
  desk.Write("ZVL.txt", "earlier\r\n");
  desk.folder.Write(u"state\\ZVL.log", "earlier\r\n");
  desk.Start();
  EXPECT_EQ(desk.Log(), std::string("earlier\r\n") + kStart);
  EXPECT_EQ(desk.SecondLog(), std::string("earlier\r\n") + kStart);
}

TEST_F(ProjectWindowStart, ALogWhosePathIsAFolderIsLeftOutAndTheOtherGetsItsLines) {
  desk.MakeFolders("ZVL.txt");
  desk.Start();
  EXPECT_EQ(desk.SecondLog(), std::string(kBanner) + kStart);
  EXPECT_EQ(desk.WaitingKeys(), "a1 a2 b1 b2 c1 c2");
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

TEST_F(ProjectWindowStart, ASecondLogWhoseFolderIsMissingIsLeftOut) {
  std::filesystem::remove_all(desk.folder.HostPath("state"));
  desk.Start();
  EXPECT_EQ(desk.Log(), std::string(kBanner) + kStart);
  EXPECT_FALSE(desk.folder.Has(u"state"));
}

TEST_F(ProjectWindowStart, WithNoPlaceToLogToTheRestStillRuns) {
  desk.MakeFolders("ZVL.txt");
  std::filesystem::remove_all(desk.folder.HostPath("state"));
  desk.Start();
  desk.PressNext();
  EXPECT_TRUE(desk.form3.IsVisible());
  EXPECT_TRUE(desk.Has("Data/IMG/aTitle1.jpg"));
  EXPECT_EQ(desk.form1.lastErrorText, u"");
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

TEST_F(ProjectWindowStart, EachLineIsOnTheDiskWhenLogMeReturns) {
  desk.Start();
  desk.form1.LogMe(u"one\r\nline more");
  EXPECT_TRUE(desk.Log().ends_with("01/02/2003 04:05:06: one\r\nline more\r\n"));
  EXPECT_TRUE(desk.SecondLog().ends_with("01/02/2003 04:05:06: one\r\nline more\r\n"));
}

TEST_F(ProjectWindowStart, ALogThatVanishesIsMadeAnewWithItsBanner) {
  desk.Start();
  std::filesystem::remove(desk.HostPath("ZVL.txt"));
  desk.form1.LogMe(u"again");
  EXPECT_EQ(desk.Log(), std::string(kBanner) + "01/02/2003 04:05:06: again\r\n");
}

TEST_F(ProjectWindowStart, EachFailingStepOfALogIsDroppedAndNoFailureReachesTheCaller) {
  desk.Start();
  desk.files.FailAt(0);
  desk.form1.LogMe(u"counted");
  const std::size_t operations = desk.files.Operations();
  ASSERT_EQ(operations, 8U);  // for each log: is it there, open, write, close
  for (std::size_t k = 1; k <= operations; ++k) {
    const std::string line = "failing at " + std::to_string(k);
    desk.files.FailAt(k);
    EXPECT_NO_THROW(desk.form1.LogMe(platform::FromUtf8(line)));
    EXPECT_TRUE(desk.files.HasFailed());
    const bool firstFailed = k <= operations / 2;
    EXPECT_TRUE((firstFailed ? desk.SecondLog() : desk.Log()).ends_with(line + "\r\n")) << k;
  }
  EXPECT_EQ(desk.form1.lastErrorText, u"");
}

TEST_F(ProjectWindowStart, BeforeTheFileServiceIsMadeNothingIsLogged) {
  desk.form1.LogMe(u"too early");
  EXPECT_FALSE(desk.Has("ZVL.txt"));
  EXPECT_FALSE(desk.folder.Has(u"state\\ZVL.log"));
}

TEST_F(ProjectWindowStart, DoSlashAddsTheFinalBackslashFromTwoCharactersOn) {
  EXPECT_EQ(desk.form1.DoSlash(u""), u"");
  EXPECT_EQ(desk.form1.DoSlash(u"C"), u"C");
  EXPECT_EQ(desk.form1.DoSlash(u"C:"), u"C:\\");
  EXPECT_EQ(desk.form1.DoSlash(u"C:\\"), u"C:\\");
}

}  // namespace
