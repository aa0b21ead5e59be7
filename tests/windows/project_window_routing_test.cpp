// Where a chosen path goes: all keys, and the ways in which a request fails.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/failure.h"
#include "tests/support/project_desk.h"

namespace {

using platform::TextView;
using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::ProjectDesk;
using testing_support::Robot;

using Calls = std::vector<std::string>;

class FakeWorkbench : public core::WorkbenchPort {
 public:
  explicit FakeWorkbench(Calls& calls) : calls_(calls) {}
  void ShowWorkbench() override {}
  void RestoreWorkbench() override {}
  void StartWorkbenchTimer() override {}
  void SetChosenImage(TextView path) override { Note("image", path); }
  void RemFol(int which) override { Note("forget", platform::FromNumber(which)); }
  void SetGalFol(TextView folder, int which) override {
    if (fails) throw platform::Failure(u"No gallery");
    Note("gallery " + std::to_string(which), folder);
  }
  bool fails = false;

 private:
  void Note(const std::string& what, TextView value) {
    calls_.push_back(what + ": " + platform::ToUtf8(value));
  }
  Calls& calls_;
};

class FakeParagraph : public core::ParagraphPort {
 public:
  explicit FakeParagraph(Calls& calls) : calls_(calls) {}
  void SetMedium(core::Medium medium, TextView path) override { Note(NameOf(medium), path); }

 private:
  static std::string NameOf(core::Medium medium) {
    switch (medium) {
      case core::Medium::kAttachment:
        return "picB";
      case core::Medium::kSound:
        return "soutB";
      case core::Medium::kFilm:
        return "filmB";
      case core::Medium::kBackground:
        return "Image1";
    }
    return {};
  }
  void Note(const std::string& what, TextView value) {
    calls_.push_back(what + ": " + platform::ToUtf8(value));
  }
  Calls& calls_;
};

class ProjectWindowRouting : public testing::Test {
 protected:
  ProjectWindowRouting() : workbench(calls), paragraph(calls) {
    desk.MakeFolders("Media/Sub");
    for (const char* name : {"a.jpg", "b.mp3", "c.flv", "d.gif"}) {
      desk.Write(std::string("Media/") + name, "x");
    }
    desk.form1.Wire({.workbench = &workbench, .paragraph = &paragraph});
    desk.Start();
    Robot::Click("Form1",
                 "ExBox");  // a count that is left by a click on a button has its log lines
  }

  // A request by a window that isn't wired here, answered with a file or folder of Media.
  void RequestFile(TextView key, TextView pattern, const QString& file) {
    desk.robot.WhenShown("Form5", [file] {
      ProjectDesk::OpenFolder("Form5", "Media");
      Robot::ClickLine("Form5", "File1", file);
      Robot::Click("Form5", "btn(0)");
    });
    desk.form1.RequestFile(key, pattern, nullptr);
  }
  void RequestFolder(TextView key) {
    desk.robot.WhenShown("Form2", [] {
      ProjectDesk::OpenFolder("Form2", "Media");
      Robot::Click("Form2", "btn(0)");
    });
    desk.form1.RequestFolder(key, nullptr);
  }
  // Presses a button of the project window when the program folder is gone. No chooser comes up,
  // and the log beside the program is gone with it.
  void ExpectFailure(int number, const QString& button) {
    std::filesystem::remove_all(desk.HostPath(""));
    Robot::Click("Form1", button);
    EXPECT_TRUE(desk.SecondLog().ends_with("Error occurred => Error number is " +
                                           std::to_string(number) +
                                           " (Path not found: " + desk.ToolPath() + ")\r\n"));
    EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
    for (const char* chooser : {"Form2", "Form5"}) {
      const QWidget* window = Robot::FindWindow(chooser);
      EXPECT_TRUE(window == nullptr || !window->isVisible());
    }
  }

  Calls calls;
  FakeWorkbench workbench;
  FakeParagraph paragraph;
  ProjectDesk desk;
};

TEST_F(ProjectWindowRouting, IdirGetsTheFolder) {
  desk.ChooseFolder("Command2", {"Media"});
  EXPECT_EQ(desk.form1.pendingTarget, u"idir");
  EXPECT_EQ(desk.Field("idir"), desk.ToolPath(u"Media"));
}

TEST_F(ProjectWindowRouting, Command5GetsThePictureOfTheCollection) {
  desk.ChooseFile("Command5", {"Media"}, "a.jpg");
  EXPECT_EQ(desk.form1.pendingTarget, u"Command5");
  EXPECT_EQ(desk.Field("index"), desk.ToolPath(u"Media\\a.jpg"));
}

TEST_F(ProjectWindowRouting, Command6GetsTheFirstTrack) {
  desk.ChooseFile("Command6", {"Media"}, "b.mp3");
  EXPECT_EQ(desk.form1.pendingTarget, u"Command6");
  EXPECT_EQ(desk.Field("Mus1"), desk.ToolPath(u"Media\\b.mp3"));
  EXPECT_EQ(desk.Field("Mus2"), "Resources\\MySound2.mp3");
}

TEST_F(ProjectWindowRouting, Command7GetsTheSecondTrack) {
  desk.ChooseFile("Command7", {"Media"}, "b.mp3");
  EXPECT_EQ(desk.form1.pendingTarget, u"Command7");
  EXPECT_EQ(desk.Field("Mus2"), desk.ToolPath(u"Media\\b.mp3"));
  EXPECT_EQ(desk.Field("Mus1"), "Resources\\MySound1.mp3");
}

TEST_F(ProjectWindowRouting, Command8GetsTheBackground) {
  desk.ChooseFile("Command8", {"Media"}, "a.jpg");
  EXPECT_EQ(desk.form1.pendingTarget, u"Command8");
  EXPECT_EQ(desk.Field("Back"), desk.ToolPath(u"Media\\a.jpg"));
}

TEST_F(ProjectWindowRouting, Command9GetsTheInputFolder) {
  desk.ChooseFolder("Command9", {"Media", "Sub"});
  EXPECT_EQ(desk.form1.pendingTarget, u"Command9");
  EXPECT_EQ(desk.Field("Text1"), desk.ToolPath(u"Media\\Sub"));
}

TEST_F(ProjectWindowRouting, ExBoxGetsTheExportFolder) {
  desk.ChooseFolder("Command1", {"Media"});
  EXPECT_EQ(desk.form1.pendingTarget, u"ExBox");
  EXPECT_EQ(desk.Field("ExBox"), desk.ToolPath(u"Media"));
}

TEST_F(ProjectWindowRouting, TheParagraphWindowsKeysReachTheParagraphWindow) {
  RequestFile(u"C6d5", u"*.*", "a.jpg");
  RequestFile(u"C6d1", u"*.mp3", "b.mp3");
  RequestFile(u"C6d2", u"*.flv", "c.flv");
  RequestFile(u"Pasz", u"*.gif;*.jpg;*.bmp", "d.gif");
  const std::string media = desk.ToolPath(u"Media\\");
  EXPECT_THAT(calls, ElementsAre("picB: " + media + "a.jpg", "soutB: " + media + "b.mp3",
                                 "filmB: " + media + "c.flv", "Image1: " + media + "d.gif"));
}

TEST_F(ProjectWindowRouting, ImgReachesTheWorkbench) {
  RequestFile(u"IMG", u"*.gif;*.jpg;*.bmp", "d.gif");
  EXPECT_THAT(calls, ElementsAre("image: " + desk.ToolPath(u"Media\\d.gif")));
}

TEST_F(ProjectWindowRouting, FolPathForgetsTheOldFolderOfTheWorkbenchsGalleryAndSetsTheNew) {
  RequestFolder(u"FolPath");
  EXPECT_THAT(calls, ElementsAre("forget: 0", "gallery 0: " + desk.ToolPath(u"Media")));
}

TEST_F(ProjectWindowRouting, FolPath2DoesTheSameForTheParagraphWindowsGallery) {
  RequestFolder(u"FolPath2");
  EXPECT_THAT(calls, ElementsAre("forget: 1", "gallery 1: " + desk.ToolPath(u"Media")));
}

TEST_F(ProjectWindowRouting, AKeyThatIsInNoTableDoesNothing) {
  desk.ChooseFile("Command5", {"Media"}, "a.jpg");
  desk.NewLines();
  for (const TextView key : {u"", u"IDIR", u"command5", u"C6d3", u"FolPath3", u" IMG"}) {
    desk.form1.pendingTarget = key;
    desk.form1.upd();
  }
  EXPECT_THAT(calls, IsEmpty());
  EXPECT_THAT(desk.NewLines(), IsEmpty());
  EXPECT_EQ(desk.form1.pendingTarget, u" IMG");
}

TEST_F(ProjectWindowRouting, WithNoWindowWiredAKeyOfItIsDropped) {
  desk.form1.Wire({});
  RequestFile(u"C6d5", u"*.*", "a.jpg");
  RequestFile(u"IMG", u"*.jpg", "a.jpg");
  RequestFolder(u"FolPath");
  EXPECT_THAT(calls, IsEmpty());
  EXPECT_EQ(desk.LoggedFailures(44), 0);
}

TEST_F(ProjectWindowRouting, ThePendingKeyKeepsItsValueWhenTheChooserIsClosed) {
  desk.robot.WhenShown("Form2", [] { Robot::CloseWindow("Form2"); });
  Robot::Click("Form1", "Command9");
  EXPECT_EQ(desk.form1.pendingTarget, u"Command9");
  EXPECT_EQ(desk.Field("Text1"), "Resources");
}

TEST_F(ProjectWindowRouting, ChoosingTheProjectFolderRunsItsChangeBeforeTheChooserIsHidden) {
  int readings = 0;
  desk.files.onOperation = [&](const std::string& name) {
    if (name != "Open " + desk.ToolPath(u"Resources\\CDProperty.xml")) return;
    ++readings;
    EXPECT_TRUE(Robot::FindWindow("Form2")->isVisible());
  };
  desk.NewLines();
  desk.ChooseFolder("Command2", {"Media"});
  EXPECT_EQ(readings, 1);
  EXPECT_THAT(desk.NewLines(),
              ElementsAre("Reading settings...", "Found in " + desk.ToolPath(u"Resources."),
                          "Making combo...", "Combo made by 2, 2, 2.", "Settings read.",
                          "Making combo...", "Combo made by 2, 2, 2."));
}

TEST_F(ProjectWindowRouting, WithMusicOffItsButtonsAreDisabledAndAPendingKeyIsDropped) {
  desk.ChooseFile("Command6", {"Media"}, "b.mp3");
  Robot::Type("Form1", "Mus1", "as it was");
  Robot::Type("Form1", "Mus2", "as it was");
  Robot::Click("Form1", "bMus(1)");
  EXPECT_FALSE(Robot::Find("Form1", "Command6").isEnabled());
  EXPECT_FALSE(Robot::Find("Form1", "Command7").isEnabled());
  for (const TextView key : {u"Command6", u"Command7"}) {
    desk.form1.pendingTarget = key;
    desk.form1.upd();
  }
  EXPECT_EQ(desk.Field("Mus1"), "as it was");
  EXPECT_EQ(desk.Field("Mus2"), "as it was");
  EXPECT_EQ(desk.LoggedFailures(44), 0);
}

TEST_F(ProjectWindowRouting, Failure34WithoutTheProgramFolder) { ExpectFailure(34, "Command5"); }
TEST_F(ProjectWindowRouting, Failure35WithoutTheProgramFolder) { ExpectFailure(35, "Command6"); }
TEST_F(ProjectWindowRouting, Failure36WithoutTheProgramFolder) { ExpectFailure(36, "Command7"); }
TEST_F(ProjectWindowRouting, Failure37WithoutTheProgramFolder) { ExpectFailure(37, "Command8"); }
TEST_F(ProjectWindowRouting, Failure38WithoutTheProgramFolder) { ExpectFailure(38, "Command9"); }
TEST_F(ProjectWindowRouting, Failure46WithoutTheProgramFolder) { ExpectFailure(46, "Command1"); }
TEST_F(ProjectWindowRouting, Failure47WithoutTheProgramFolder) { ExpectFailure(47, "Command2"); }

TEST_F(ProjectWindowRouting, Failure44AResultThatItsWindowRefusesAndTheChooserIsHiddenAllTheSame) {
  workbench.fails = true;
  RequestFolder(u"FolPath");
  EXPECT_EQ(desk.LogLines().back(), "Error occurred => Error number is 44 (No gallery)");
  EXPECT_THAT(calls, ElementsAre("forget: 0"));
  EXPECT_FALSE(Robot::FindWindow("Form2")->isVisible());
}

TEST_F(ProjectWindowRouting, Failure44AKeyBeforeAnyChooserWasOpened) {
  desk.form1.pendingTarget = u"Command5";
  desk.form1.upd();
  EXPECT_EQ(desk.LoggedFailures(44), 1);
  EXPECT_EQ(desk.Field("index"), "Resources\\MyBook.jpg");
}

}  // namespace
