// How the process ends: by closing the project window, and by a failure that nothing catches. Each
// end happens in a process of its own, whose boxes and log are looked at from here.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <iostream>

#include "platform/failure.h"
#include "tests/support/program_process.h"
#include "tests/support/project_desk.h"

namespace {

using testing::AllOf;
using testing::ExitedWithCode;
using testing::HasSubstr;
using testing::Not;
using testing::ResultOf;
using testing_support::BoxesIn;
using testing_support::ProjectDesk;
using testing_support::Robot;
using testing_support::RunProgram;

class FailingExport : public core::ExportPort {
 public:
  void Export() override { throw platform::Failure(u"The disk was pulled out"); }
};

class ProjectWindowEnd : public testing::Test {
 protected:
  ProjectWindowEnd() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(ProjectWindowEnd, ClosingTheProjectWindowLogsItAndEndsTheProcess) {
  EXPECT_EXIT(RunProgram<ProjectDesk>([](ProjectDesk&) { Robot::CloseWindow("Form1"); }),
              ExitedWithCode(0),
              AllOf(HasSubstr("Combo made by 2, 2, 2.\r\n"
                              "01/02/2003 04:05:06: Zorvand ended.\r\nEND OF LOG"),
                    HasSubstr("The loop has ended."), Not(HasSubstr("is still there"))));
}

TEST_F(ProjectWindowEnd, ClosingItWhileTheWorkbenchIsOpenEndsTheWorkbenchWithIt) {
  EXPECT_EXIT(RunProgram<ProjectDesk>([](ProjectDesk& desk) {
                desk.PressNext();
                if (!desk.form3.IsVisible()) std::quick_exit(3);
                Robot::CloseWindow("Form1");
              }),
              ExitedWithCode(0),
              AllOf(HasSubstr("Zorvand ended.\r\nEND OF LOG"), HasSubstr("The loop has ended."),
                    Not(HasSubstr("is still there")), Not(HasSubstr("Format ended."))));
}

TEST_F(ProjectWindowEnd, ClosingTheWorkbenchAloneLeavesTheProcessRunning) {
  EXPECT_EXIT(RunProgram<ProjectDesk>([](ProjectDesk& desk) {
                desk.PressNext();
                Robot::CloseWindow("Form3");
                QTimer::singleShot(0, [] {
                  std::cerr << "Still running.\n";
                  Robot::CloseWindow("Form1");
                });
              }),
              ExitedWithCode(0),
              AllOf(HasSubstr("Still running."), HasSubstr("Format ended.\r\n"),
                    HasSubstr("Zorvand ended.\r\nEND OF LOG")));
}

TEST_F(ProjectWindowEnd, NothingIsLoggedAfterTheEnd) {
  EXPECT_EXIT(RunProgram<ProjectDesk>([](ProjectDesk& desk) {
                desk.PressNext();
                Robot::CloseWindow("Form1");
                desk.form1.LogMe(u"Too late");
                desk.form3.Timer1.onTimer();
              }),
              ExitedWithCode(0), HasSubstr("Zorvand ended.\r\nEND OF LOG"));
}

TEST_F(ProjectWindowEnd, AFailureThatNothingCatchesIsShownOnceAndEndsTheProcessWithStatus1) {
  static FailingExport exporting;
  EXPECT_EXIT(RunProgram<ProjectDesk>([](ProjectDesk& desk) {
                desk.form1.Wire({.exporting = &exporting});
                Robot::Click("Form1", "Command10");
              }),
              ExitedWithCode(1),
              AllOf(HasSubstr("BOX Zorvand: The disk was pulled out."), ResultOf(BoxesIn, 1),
                    Not(HasSubstr("The loop has ended."))));
}

TEST_F(ProjectWindowEnd, AFolderThatVanishesWhileTheFileListFollowsEndsTheProcess) {
  EXPECT_EXIT(RunProgram<ProjectDesk>([](ProjectDesk& desk) {
                desk.MakeFolders("Gone");
                core::Form5 chooser([] {});
                chooser.PointAt(desk.Path(), u"*.*");
                chooser.Show();
                chooser.Dir1.onChange = [&, follow = chooser.Dir1.onChange] {
                  std::filesystem::remove(desk.HostPath("Gone"));
                  follow();
                };
                ProjectDesk::OpenFolder("Form5", "Gone");
              }),
              ExitedWithCode(1),
              AllOf(HasSubstr("BOX Zorvand: Path not found: C:\\"), HasSubstr("\\Gone."),
                    ResultOf(BoxesIn, 1)));
}

TEST_F(ProjectWindowEnd, ADriveThatIsNotReadyIsReportedAndTheProcessEnds) {
  EXPECT_EXIT(RunProgram<ProjectDesk>([](ProjectDesk&) {
                core::Form2 chooser([] {});
                chooser.PointAt(u"C:\\");
                chooser.Drive1.onChange = [] { throw platform::Failure(u"Device unavailable"); };
                chooser.Show();
                auto& drives = Robot::FindAs<QComboBox>("Form2", "Drive1");
                drives.showPopup();
                QTest::keyClick(drives.view(), Qt::Key_Return);
              }),
              ExitedWithCode(1),
              AllOf(HasSubstr("BOX Zorvand: Device unavailable."), ResultOf(BoxesIn, 1)));
}

TEST_F(ProjectWindowEnd, AFailureUnderAnOpenChooserEndsTheProcessToo) {
  EXPECT_EXIT(RunProgram<ProjectDesk>([](ProjectDesk&) {
                core::Form2 chooser([] { throw platform::Failure(u"Device unavailable"); });
                chooser.PointAt(u"C:\\");
                QTimer::singleShot(0, [] { Robot::Click("Form2", "btn(0)"); });
                chooser.ShowModal(nullptr);
              }),
              ExitedWithCode(1),
              AllOf(HasSubstr("BOX Zorvand: Device unavailable."), ResultOf(BoxesIn, 1)));
}

}  // namespace
