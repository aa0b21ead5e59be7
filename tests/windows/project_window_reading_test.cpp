// What a change of the project folder's field sets going: the settings file is looked up, the list
// of waiting collections is made, and no field takes anything from the file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTest>
#include <filesystem>

#include "tests/support/project_desk.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::ProjectDesk;
using testing_support::Robot;

class ProjectWindowReading : public testing::Test {
 protected:
  ProjectWindowReading() {
    desk.MakeFolders("Data/TXT");
    desk.Start();
    Robot::Click("Form1", "idir");
    desk.NewLines();
  }
  void TypeProjectFolder() {
    Robot::Type("Form1", "idir", QString::fromStdU16String(desk.Path(u"Data")));
  }

  ProjectDesk desk;
};

TEST_F(ProjectWindowReading, AFileOfTheProjectIsFoundThereAndTheListIsMadeTwice) {
  desk.Write("Data/TXT/CDProperty.xml", std::string("\xFF\xFE\x3C\0", 4));
  TypeProjectFolder();
  EXPECT_THAT(desk.NewLines(),
              ElementsAre("Reading settings...", "Found in " + desk.ToolPath(u"Data\\TXT."),
                          "Making combo...", "Combo made by 2, 2, 2.", "Settings read.",
                          "Making combo...", "Combo made by 2, 2, 2."));
}

TEST_F(ProjectWindowReading, WithoutOneTheDeliveredFileIsFound) {
  TypeProjectFolder();
  EXPECT_THAT(desk.NewLines(),
              ElementsAre("Reading settings...", "Found in " + desk.ToolPath(u"Resources."),
                          "Making combo...", "Combo made by 2, 2, 2.", "Settings read.",
                          "Making combo...", "Combo made by 2, 2, 2."));
}

TEST_F(ProjectWindowReading, Failure40WithNeitherFileTheListIsMadeOnce) {
  std::filesystem::remove(desk.HostPath("Resources/CDProperty.xml"));
  TypeProjectFolder();
  const std::vector<std::string> lines = desk.NewLines();
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_EQ(lines[0], "Reading settings...");
  EXPECT_TRUE(lines[1].starts_with("Error occurred => Error number is 40 ("));
  EXPECT_EQ(lines[2], "Making combo...");
  EXPECT_EQ(lines[3], "Combo made by 2, 2, 2.");
  EXPECT_EQ(lines[1], "Error occurred => Error number is 40 (" +
                          platform::ToUtf8(desk.form1.lastErrorText) + ")");
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

TEST_F(ProjectWindowReading, Failure40AFileThatCannotBeReadIsNotReplacedByTheDeliveredOne) {
  desk.Write("Data/TXT/CDProperty.xml", std::string("\xFF\xFE\x3C\0", 4));
  desk.files.FailWhere("Open", "Data\\TXT\\CDProperty.xml");
  TypeProjectFolder();
  EXPECT_EQ(desk.LoggedFailures(40), 1);
  EXPECT_EQ(desk.LoggedTimes("Settings read."), 0);
}

TEST_F(ProjectWindowReading, EachTypedCharacterIsAChange) {
  QTest::keyClicks(&Robot::Find("Form1", "idir"), "ab");
  EXPECT_EQ(desk.Field("idir"), "ab");
  EXPECT_EQ(desk.LoggedTimes("Reading settings..."), 2);
  EXPECT_EQ(desk.LoggedTimes("Settings read."), 2);
}

TEST_F(ProjectWindowReading, CodeThatWritesTheFieldRunsTheChangeBeforeTheWriteReturns) {
  desk.form1.idir.SetText(desk.Path(u"Data"));
  EXPECT_EQ(desk.LoggedTimes("Settings read."), 1);
  desk.form1.idir.SetText(desk.Path(u"Data"));
  EXPECT_EQ(desk.LoggedTimes("Settings read."), 1);
}

TEST_F(ProjectWindowReading, NoFieldTakesAnythingFromTheFile) {
  const char16_t text[] = u"\uFEFF<strings>\r\n\t<aNumber>7</aNumber>\r\n\t<Music>0</Music>\r\n";
  desk.Write("Data/TXT/CDProperty.xml",
             {reinterpret_cast<const char*>(text), sizeof text - sizeof text[0]});
  TypeProjectFolder();
  EXPECT_EQ(desk.Field("title"), "2");
  EXPECT_TRUE(desk.form1.bMus(0).Value());
  EXPECT_EQ(desk.WaitingKeys(), "a1 a2 b1 b2 c1 c2");
}

TEST_F(ProjectWindowReading, ABadCountIsReportedByBothMakingsOfTheList) {
  Robot::Type("Form1", "matn", "abc");
  Robot::Click("Form1", "idir");
  const int before = desk.LoggedFailures(42);
  TypeProjectFolder();
  EXPECT_EQ(desk.LoggedFailures(42), before + 2);
  EXPECT_EQ(desk.LoggedTimes("Settings read."), 1);
}

TEST_F(ProjectWindowReading, AnEmptyFieldIsLookedForUnderTheCurrentFolder) {
  desk.WriteCurrent("TXT/CDProperty.xml", std::string("\xFF\xFE\x3C\0", 4));
  Robot::Type("Form1", "idir", "");
  EXPECT_EQ(desk.LoggedTimes("Found in TXT."), 1);
}

TEST_F(ProjectWindowReading, TheProjectsOwnCollectionsAreListed) {
  desk.MarkBuilt("a1");
  desk.MarkBuilt("c2");
  TypeProjectFolder();
  EXPECT_EQ(desk.WaitingKeys(), "a2 b1 b2 c1");
}

}  // namespace
