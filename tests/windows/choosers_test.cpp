// The two shared choosers: what they offer, and what their buttons do.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QWindow>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/support/project_desk.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing_support::ProjectDesk;
using testing_support::Robot;

class Choosers : public testing::Test {
 protected:
  Choosers() {
    desk.MakeFolders("Pictures/Old");
    for (const char* name : {"a.gif", "b.JPG", "c.bmp", "d.png", "e.jpg", "f.mp3", "g.flv"}) {
      desk.Write(std::string("Pictures/") + name, "x");
    }
    desk.Start();
  }

  // Presses a button and acts once the chooser stands on the screen.
  void Press(const QString& button, const QString& chooser, const std::function<void()>& act) {
    bool acted = false;
    desk.robot.WhenShown(chooser, [&] {
      act();
      acted = true;
      if (Robot::FindWindow(chooser)->isVisible()) Robot::CloseWindow(chooser);
    });
    Robot::Click("Form1", button);
    EXPECT_TRUE(acted);
  }

  // The folder that is open in a chooser: the bold line.
  static std::string OpenOne(const QString& chooser) {
    const auto& list = Robot::FindAs<QListWidget>(chooser, "Dir1");
    for (int i = 0; i < list.count(); ++i) {
      if (list.item(i)->font().bold()) return list.item(i)->text().trimmed().toStdString();
    }
    return "none";
  }

  static void PickDrive(const QString& chooser) {
    auto& drives = Robot::FindAs<QComboBox>(chooser, "Drive1");
    drives.showPopup();
    QTest::keyClick(drives.view(), Qt::Key_Return);
    Robot::Settle();
  }

  // Through the window system, which holds the events of a window behind a modal one.
  static void ClickAsTheMouse(const QString& button) {
    QWidget& widget = Robot::Find("Form1", button);
    QWidget* window = Robot::FindWindow("Form1");
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      widget.mapTo(window, widget.rect().center()));
    Robot::Settle();
  }

  ProjectDesk desk;
};

TEST_F(Choosers, TheFolderChooserLooksAsDesigned) {
  Press("Command2", "Form2", [] {
    EXPECT_EQ(Robot::FindWindow("Form2")->windowTitle(), "Select folder");
    EXPECT_EQ(Robot::FindAs<QPushButton>("Form2", "btn(0)").text().toStdString(),
              "شاخه مورد نظر را انتخاب كنيد!\u200F");
    EXPECT_EQ(Robot::FindAs<QComboBox>("Form2", "Drive1").currentText(), "C:");
  });
}

TEST_F(Choosers, TheFileChooserLooksAsDesigned) {
  Press("Command5", "Form5", [] {
    EXPECT_EQ(Robot::FindWindow("Form5")->windowTitle(), "Select file");
    EXPECT_EQ(Robot::FindAs<QPushButton>("Form5", "btn(0)").text().toStdString(),
              "فايل مورد نظر را انتخاب كنيد!\u200F");
  });
}

TEST_F(Choosers, EveryOpeningStartsAtTheProgramFolderWhereverTheLastChoiceWent) {
  for (int opening = 0; opening < 2; ++opening) {
    Press("Command2", "Form2", [] {
      EXPECT_EQ(OpenOne("Form2"), "program");
      ProjectDesk::OpenFolder("Form2", "Pictures");
      Robot::Click("Form2", "btn(0)");
    });
    Press("Command5", "Form5", [] {
      EXPECT_EQ(OpenOne("Form5"), "program");
      EXPECT_THAT(ProjectDesk::OfferedFiles(), IsEmpty());
      ProjectDesk::OpenFolder("Form5", "Pictures");
      Robot::Click("Form5", "btn(0)");
    });
  }
}

TEST_F(Choosers, ALoneFolderRequestShowsTheChooserOverTheProjectWindowOnly) {
  Press("Command9", "Form2", [] {
    EXPECT_EQ(QApplication::activeModalWidget(), Robot::FindWindow("Form2"));
    EXPECT_EQ(Robot::FindWindow("Form2")->windowHandle()->transientParent(),
              Robot::FindWindow("Form1")->windowHandle());
  });
}

TEST_F(Choosers, WithTheOwnersEventsHeldThereIsOneRequestAtATime) {
  Press("Command2", "Form2", [this] {
    ClickAsTheMouse("Command5");
    const QWidget* other = Robot::FindWindow("Form5");
    EXPECT_TRUE(other == nullptr || !other->isVisible());
    EXPECT_EQ(desk.form1.pendingTarget, u"idir");
  });
  EXPECT_EQ(desk.form1.pendingTarget, u"idir");
  desk.robot.WhenShown("Form5", [] { Robot::CloseWindow("Form5"); });
  ClickAsTheMouse("Command5");
  EXPECT_EQ(desk.form1.pendingTarget, u"Command5");
}

TEST_F(Choosers, ClosingAChooserLeavesTheTargetAsItWas) {
  Press("Command2", "Form2", [] { ProjectDesk::OpenFolder("Form2", "Pictures"); });
  Press("Command5", "Form5", [] { ProjectDesk::OpenFolder("Form5", "Pictures"); });
  EXPECT_EQ(desk.Field("idir"), "Data");
  EXPECT_EQ(desk.Field("index"), "Resources\\MyBook.jpg");
  EXPECT_EQ(desk.LoggedTimes("Reading settings..."), 0);
}

TEST_F(Choosers, AChooserIsHiddenAndNeverUnloaded) {
  Press("Command2", "Form2", [] { Robot::Click("Form2", "btn(0)"); });
  QWidget* const first = Robot::FindWindow("Form2");
  ASSERT_NE(first, nullptr);
  EXPECT_FALSE(first->isVisible());
  Press("Command2", "Form2", [&] { EXPECT_EQ(Robot::FindWindow("Form2"), first); });
  EXPECT_EQ(Robot::FindWindow("Form2"), first);
}

TEST_F(Choosers, AFolderChoosersResultIsTheOpenFolderAndNotOneMerelyHighlighted) {
  Press("Command1", "Form2", [] {
    Robot::ClickLine("Form2", "Dir1", "Pictures");
    Robot::Click("Form2", "btn(0)");
  });
  EXPECT_EQ(desk.Field("ExBox"), desk.ToolPath());
}

TEST_F(Choosers, FoldersAreOpenedDownAndUp) {
  Press("Command1", "Form2", [] {
    ProjectDesk::OpenFolder("Form2", "Pictures");
    ProjectDesk::OpenFolder("Form2", "Old");
    EXPECT_EQ(OpenOne("Form2"), "Old");
    ProjectDesk::OpenFolder("Form2", "Pictures");
    EXPECT_EQ(OpenOne("Form2"), "Pictures");
    Robot::Click("Form2", "btn(0)");
  });
  EXPECT_EQ(desk.Field("ExBox"), desk.ToolPath(u"Pictures"));
}

TEST_F(Choosers, FoldersAreOpenedWithTheEnterKeyToo) {
  Press("Command1", "Form2", [] {
    Robot::ClickLine("Form2", "Dir1", "Pictures");
    Robot::PressKey("Form2", "Dir1", Qt::Key_Return);
    Robot::Click("Form2", "btn(0)");
  });
  EXPECT_EQ(desk.Field("ExBox"), desk.ToolPath(u"Pictures"));
}

TEST_F(Choosers, ChangingTheDriveOpensItsRootInBoth) {
  Press("Command1", "Form2", [] {
    PickDrive("Form2");
    EXPECT_EQ(OpenOne("Form2"), "C:\\");
    Robot::Click("Form2", "btn(0)");
  });
  EXPECT_EQ(desk.Field("ExBox"), "C:\\");
  Press("Command5", "Form5", [] {
    PickDrive("Form5");
    EXPECT_EQ(OpenOne("Form5"), "C:\\");
  });
}

TEST_F(Choosers, InADrivesRootNoSecondBackslashIsAdded) {
  Press("Command5", "Form5", [] {
    PickDrive("Form5");
    Robot::Click("Form5", "btn(0)");
  });
  EXPECT_EQ(desk.Field("index"), "C:\\");
}

// A picture in the root of the file system, for as long as a test needs it.
class PictureInTheRoot {
 public:
  PictureInTheRoot() { std::ofstream("/" + name) << "a picture"; }
  PictureInTheRoot(const PictureInTheRoot&) = delete;
  PictureInTheRoot& operator=(const PictureInTheRoot&) = delete;
  ~PictureInTheRoot() {
    std::error_code ignored;
    std::filesystem::remove("/" + name, ignored);
  }
  bool IsThere() const { return std::filesystem::exists("/" + name); }

  const std::string name = "zorvand-test-" + std::to_string(getpid()) + ".jpg";
};

TEST_F(Choosers, InADrivesRootAFileStandsAfterTheOneBackslash) {
  const PictureInTheRoot picture;
  if (!picture.IsThere()) GTEST_SKIP() << "the root of the file system may not be written";
  Press("Command5", "Form5", [&] {
    PickDrive("Form5");
    Robot::ClickLine("Form5", "File1", QString::fromStdString(picture.name));
    Robot::Click("Form5", "btn(0)");
  });
  EXPECT_EQ(desk.Field("index"), "C:\\" + picture.name);
}

TEST_F(Choosers, TheFileListFollowsTheFolder) {
  Press("Command5", "Form5", [] {
    ProjectDesk::OpenFolder("Form5", "Resources");
    EXPECT_THAT(ProjectDesk::OfferedFiles(), ElementsAre("MyBack.jpg", "MyBook.jpg"));
    ProjectDesk::OpenFolder("Form5", "program");
    EXPECT_THAT(ProjectDesk::OfferedFiles(), IsEmpty());
  });
}

TEST_F(Choosers, PicturesOfTheProjectWindowAreJpegFilesOnly) {
  for (const char* button : {"Command5", "Command8"}) {
    Press(button, "Form5", [] {
      ProjectDesk::OpenFolder("Form5", "Pictures");
      EXPECT_THAT(ProjectDesk::OfferedFiles(), ElementsAre("b.JPG", "e.jpg"));
    });
  }
}

TEST_F(Choosers, MusicIsMp3FilesOnly) {
  for (const char* button : {"Command6", "Command7"}) {
    Press(button, "Form5", [] {
      ProjectDesk::OpenFolder("Form5", "Pictures");
      EXPECT_THAT(ProjectDesk::OfferedFiles(), ElementsAre("f.mp3"));
    });
  }
}

TEST_F(Choosers, APatternOfSeveralMasksOffersEachKind) {
  desk.robot.WhenShown("Form5", [] {
    ProjectDesk::OpenFolder("Form5", "Pictures");
    EXPECT_THAT(ProjectDesk::OfferedFiles(), ElementsAre("a.gif", "b.JPG", "c.bmp", "e.jpg"));
    Robot::CloseWindow("Form5");
  });
  desk.form1.RequestFile(u"Pasz", u"*.gif;*.jpg;*.bmp", nullptr);
}

TEST_F(Choosers, ThePatternOfAllFilesOffersAllFiles) {
  desk.robot.WhenShown("Form5", [] {
    ProjectDesk::OpenFolder("Form5", "Pictures");
    EXPECT_EQ(ProjectDesk::OfferedFiles().size(), 7U);
    Robot::CloseWindow("Form5");
  });
  desk.form1.RequestFile(u"C6d5", u"*.*", nullptr);
}

TEST_F(Choosers, ConfirmingWithNoFileSelectedYieldsTheFolderWithItsFinalBackslash) {
  desk.ChooseFile("Command8", {"Pictures"}, "");
  EXPECT_EQ(desk.Field("Back"), desk.ToolPath(u"Pictures\\"));
}

TEST_F(Choosers, ADoubleClickOnAFileConfirmsIt) {
  Press("Command5", "Form5", [] {
    ProjectDesk::OpenFolder("Form5", "Pictures");
    Robot::DoubleClickLine("Form5", "File1", "e.jpg");
    EXPECT_FALSE(Robot::FindWindow("Form5")->isVisible());
  });
  EXPECT_EQ(desk.Field("index"), desk.ToolPath(u"Pictures\\e.jpg"));
}

TEST_F(Choosers, AFolderThatVanishedStaysClosed) {
  Press("Command5", "Form5", [this] {
    std::filesystem::remove_all(desk.HostPath("Pictures"));
    ProjectDesk::OpenFolder("Form5", "Pictures");
    EXPECT_EQ(OpenOne("Form5"), "program");
  });
  EXPECT_EQ(desk.Field("index"), "Resources\\MyBook.jpg");
}

TEST_F(Choosers, APersianFolderAndFileAreChosenByTheirNames) {
  desk.MakeFolders("تصويرها");
  desk.Write("تصويرها/گل سرخ.jpg", "x");
  desk.ChooseFile("Command5", {"تصويرها"}, "گل سرخ.jpg");
  EXPECT_EQ(desk.Field("index"), desk.ToolPath(u"تصويرها\\گل سرخ.jpg"));
}

}  // namespace
