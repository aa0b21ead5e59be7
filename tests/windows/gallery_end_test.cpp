// Scrolling onto a picture that can't be loaded: nothing catches that failure, so it is shown once
// and ends the process. Each end happens in a process of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/gallery_desk.h"
#include "tests/support/program_process.h"

namespace {

using testing::AllOf;
using testing::ExitedWithCode;
using testing::HasSubstr;
using testing::Not;
using testing::ResultOf;
using testing_support::BoxesIn;
using testing_support::FormatDesk;
using testing_support::GalleryDesk;
using testing_support::Robot;
using testing_support::RunProgram;

class GalleryEnd : public testing::Test {
 protected:
  GalleryEnd() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

void OpenCollection(GalleryDesk& desk) {
  desk.AddPictures(9);
  desk.OpenOn(u"Head Text");
  Robot::Click("Form3", "Com(12)");
  desk.OpenFolder("Form3");
}

void OpenEntryAnd(GalleryDesk& desk, const std::function<void()>& act) {
  desk.AddPictures(9);
  desk.OpenOn(u"Head Text");
  FormatDesk::FileHeading("Head", "Text");
  desk.InEntry(0, [&] {
    Robot::Click("Form6", "btn(5)");
    desk.OpenFolder("Form6");
    act();
  });
}

auto OneBoxAbout(const std::string& picture) {
  return AllOf(HasSubstr("BOX Zorvand: Can't load the picture C:\\"),
               HasSubstr("\\Pictures\\" + picture + ": "), ResultOf(BoxesIn, 1),
               Not(HasSubstr("The loop has ended.")));
}

TEST_F(GalleryEnd, ScrollingOntoADamagedPictureEndsTheProcessInOneBox) {
  EXPECT_EXIT(RunProgram<GalleryDesk>([](GalleryDesk& desk) {
                OpenCollection(desk);
                desk.Write("Pictures/p6.jpg", "no picture");
                Robot::PressKey("Form3", "VSC", Qt::Key_Down);
              }),
              ExitedWithCode(1), OneBoxAbout("p6.jpg"));
}

TEST_F(GalleryEnd, ScrollingOntoAnEmptyPictureDoesTheSame) {
  EXPECT_EXIT(RunProgram<GalleryDesk>([](GalleryDesk& desk) {
                OpenCollection(desk);
                desk.Write("Pictures/p9.jpg", "");
                Robot::PressKey("Form3", "VSC", Qt::Key_End);
              }),
              ExitedWithCode(1), OneBoxAbout("p9.jpg"));
}

TEST_F(GalleryEnd, ScrollingOntoAVanishedPictureDoesTheSame) {
  EXPECT_EXIT(RunProgram<GalleryDesk>([](GalleryDesk& desk) {
                OpenCollection(desk);
                std::filesystem::remove(desk.HostPath("Pictures/p7.jpg"));
                Robot::PressKey("Form3", "VSC", Qt::Key_PageDown);
              }),
              ExitedWithCode(1), OneBoxAbout("p7.jpg"));
}

TEST_F(GalleryEnd, ScrollingOntoAPictureThatBecameAFolderDoesTheSame) {
  EXPECT_EXIT(RunProgram<GalleryDesk>([](GalleryDesk& desk) {
                OpenCollection(desk);
                std::filesystem::remove(desk.HostPath("Pictures/p8.jpg"));
                desk.MakeFolders("Pictures/p8.jpg");
                Robot::PressKey("Form3", "VSC", Qt::Key_End);
              }),
              ExitedWithCode(1), OneBoxAbout("p8.jpg"));
}

TEST_F(GalleryEnd, ScrollingInAnEntrysGalleryOntoADamagedPictureDoesTheSame) {
  EXPECT_EXIT(RunProgram<GalleryDesk>([](GalleryDesk& desk) {
                OpenEntryAnd(desk, [&desk] {
                  desk.Write("Pictures/p6.jpg", "no picture");
                  Robot::PressKey("Form6", "VSC", Qt::Key_Down);
                });
              }),
              ExitedWithCode(1), OneBoxAbout("p6.jpg"));
}

TEST_F(GalleryEnd, ScrollingInAnEntrysGalleryOntoAVanishedPictureDoesTheSame) {
  EXPECT_EXIT(RunProgram<GalleryDesk>([](GalleryDesk& desk) {
                OpenEntryAnd(desk, [&desk] {
                  std::filesystem::remove_all(desk.HostPath("Pictures"));
                  Robot::PressKey("Form6", "VSC", Qt::Key_End);
                });
              }),
              ExitedWithCode(1), OneBoxAbout("p7.jpg"));
}

// The folder chooser's confirmation scrolls to the top first, over the old folder's pictures; what
// fails there is caught by the choice.
TEST_F(GalleryEnd, AnotherFolderChosenWhileTheOldOneIsGoneFailsInTheChoice) {
  EXPECT_EXIT(RunProgram<GalleryDesk>([](GalleryDesk& desk) {
                OpenCollection(desk);
                Robot::PressKey("Form3", "VSC", Qt::Key_Down);
                desk.AddPicture("q.jpg", "Others");
                std::filesystem::remove_all(desk.HostPath("Pictures"));
                desk.OpenFolder("Form3", "Others");
                if (desk.LoggedFailures(44) != 1) std::quick_exit(3);
                desk.OpenFolder("Form3", "Others");
                if (desk.LoggedFailures(44) != 1) std::quick_exit(4);
                if (GalleryDesk::Names("Form3") != std::vector<std::string>{"q.jpg"}) {
                  std::quick_exit(5);
                }
                Robot::CloseWindow("Form1");
              }),
              ExitedWithCode(0), ResultOf(BoxesIn, 0));
}

}  // namespace
