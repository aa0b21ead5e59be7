// The pointer while an export or a build is at work, over its boxes, and afterwards.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <filesystem>
#include <vector>

#include "platform/windows/busy_pointer.h"
#include "tests/support/export_desk.h"
#include "tests/support/format_desk.h"

namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing_support::Desk;
using testing_support::ExportDesk;
using testing_support::FormatDesk;
using testing_support::Robot;
using testing_support::ScriptOf;

const std::string kScript = ScriptOf({{"Data"}, {R"(TXT => Data\TXT)"}, {"main.exe => root"}});

bool IsBusy() {
  const QCursor* const pointer = QGuiApplication::overrideCursor();
  return pointer != nullptr && pointer->shape() == Qt::WaitCursor;
}

// How the pointer was at each operation on a path with that word, and over each box.
struct Seen {
  std::vector<bool> atWork;
  std::vector<bool> overBoxes;
};
void Watch(Desk& desk, const std::string& word, Seen& seen) {
  desk.files.onOperation = [word, &seen](const std::string& name) {
    if (name.find(word) != std::string::npos) seen.atWork.push_back(IsBusy());
  };
  desk.robot.onBox = [&seen](QWidget&) { seen.overBoxes.push_back(IsBusy()); };
}

class BusyExport : public testing::Test {
 protected:
  void Export() {
    Watch(desk, "Export", seen);
    desk.Export();
    EXPECT_FALSE(IsBusy());
    EXPECT_THAT(seen.overBoxes, Each(false));
  }

  ExportDesk desk;
  Seen seen;
};

TEST_F(BusyExport, IsShownUntilTheEnd) {
  desk.OpenProject(kScript);
  Export();
  EXPECT_THAT(seen.atWork, AllOf(Contains(true), Each(true)));
  EXPECT_THAT(seen.overBoxes, ElementsAre(false));
}

TEST_F(BusyExport, EndsWithAFailure) {
  desk.OpenProject(kScript);
  desk.files.FailWhere("CopyFile", "main.exe");
  Export();
  EXPECT_THAT(seen.atWork, AllOf(Contains(true), Each(true)));
  EXPECT_THAT(seen.overBoxes, ElementsAre(false));
}

TEST_F(BusyExport, IsAwayOverEachMessage) {
  desk.OpenProject(kScript);
  std::filesystem::remove(desk.HostPath("Resources/Export.inf"));
  Export();
  EXPECT_THAT(seen.overBoxes, ElementsAre(false, false));
  EXPECT_THAT(seen.atWork, Each(true));
}

class BusyBuild : public testing::Test {
 protected:
  BusyBuild() {
    desk.OpenOn(u"Head Text Next Other Last One");
    Robot::Type("Form3", "bname", "Title");
    desk.FileHeading("Head", "Text");
    desk.robot.TakeBoxes();
  }
  void Build() {
    Watch(desk, "Data", seen);
    Robot::PressKey("Form3", "matn", Qt::Key_F12);
    EXPECT_FALSE(IsBusy());
    EXPECT_THAT(seen.overBoxes, Each(false));
  }

  FormatDesk desk;
  Seen seen;
};

TEST_F(BusyBuild, IsShownUntilTheEnd) {
  Build();
  EXPECT_THAT(seen.atWork, AllOf(Contains(true), Each(true)));
  EXPECT_THAT(seen.overBoxes, ElementsAre(false));
}

TEST_F(BusyBuild, EndsWithAFailure) {
  desk.form3.table.entrySound.Set(0, desk.Path(u"gone.mp3"));
  Build();
  EXPECT_THAT(seen.atWork, AllOf(Contains(true), Each(true)));
  EXPECT_EQ(desk.LoggedFailures(57), 1);
}

TEST_F(BusyBuild, IsAwayOverItsQuestionAndBackAfterIt) {
  desk.Write("Data/_xml/aTitle1.xml", "");
  desk.robot.AnswerYes();
  Build();
  EXPECT_THAT(seen.atWork, Each(true));
  EXPECT_THAT(seen.overBoxes, ElementsAre(false, false));
}

TEST(BusyPointer, LiesWithinAnother) {
  {
    const platform::BusyPointer outer;
    { const platform::BusyPointer inner; }
    EXPECT_TRUE(IsBusy());
  }
  EXPECT_FALSE(IsBusy());
}

}  // namespace
