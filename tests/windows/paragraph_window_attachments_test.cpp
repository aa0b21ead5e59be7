// What hangs on an entry: files picked through the choosers, the background, the gallery switch.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <filesystem>

#include "tests/support/gallery_desk.h"

namespace {

using platform::Text;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::FormatDesk;
using testing_support::GalleryDesk;
using testing_support::Robot;
using testing_support::Utf8;

constexpr const char* kClickChanges = "براي تغيير پس\u200Cزمينه كليك كنيد!\u200F";
constexpr const char* kClickRemoves = "براي حذف پس\u200Cزمينه كليك كنيد!\u200F";

class ParagraphAttachments : public testing::Test {
 protected:
  ParagraphAttachments() {
    desk.MakeFolders("media");
    for (const char* name : {"a.mp3", "b.flv", "c.pdf", "noend"}) {
      desk.Write(std::string("media/") + name, name);
    }
    desk.AddPicture("back.jpg", "media");
    desk.OpenOn(u"Head\r\nText\r\nNext\r\nMore");
    FormatDesk::FileHeading("Head", "Text");
    FormatDesk::FileHeading("Next", "More");
  }
  void InEntry(const std::function<void()>& act) { desk.InEntry(0, act); }
  // Clicks what opens the chooser; gives the files that it lists in the folder of the media, and
  // picks one of them; nothing: closes it.
  std::vector<std::string> Pick(const QString& control, const QString& file) {
    std::vector<std::string> listed;
    desk.robot.WhenShown("Form5", [&listed, file] {
      Robot::DoubleClickLine("Form5", "Dir1", "media");
      listed = Robot::Lines("Form5", "File1");
      if (file.isEmpty()) {
        Robot::CloseWindow("Form5");
      } else {
        Robot::ClickLine("Form5", "File1", file);
        Robot::Click("Form5", "btn(0)");
      }
    });
    Robot::Click("Form6", control);
    return listed;
  }
  // Opens a chooser, which starts beside the program, and confirms something in another folder.
  void ExpectStartOf(const QString& chooser, const std::function<void()>& open) {
    bool opened = false;
    desk.robot.WhenShown(chooser, [&] {
      opened = true;
      EXPECT_EQ(Robot::BoldLine(chooser, "Dir1"), "program");
      Robot::DoubleClickLine(chooser, "Dir1", "media");
      EXPECT_EQ(Robot::BoldLine(chooser, "Dir1"), "media");
      if (chooser == "Form5") Robot::ClickLine("Form5", "File1", 0);
      Robot::Click(chooser, "btn(0)");
    });
    open();
    EXPECT_TRUE(opened);
  }
  std::string Shown(const QString& field) const {
    return Robot::FindAs<QLineEdit>("Form6", field).text().toStdString();
  }
  std::string Medium(const Text& name) const { return Utf8(desk.Path(u"media\\" + name)); }
  static std::string Tag() {
    return Robot::Find("Form6", "Image1").property("tag").toString().toStdString();
  }
  static std::string Tip() { return Robot::Find("Form6", "Image1").toolTip().toStdString(); }
  static std::string SwitchCaption() {
    return Robot::FindAs<QPushButton>("Form6", "btn(5)").text().toStdString();
  }
  static bool GalleryIsOpen() { return Robot::Find("Form6", "Frame4").isVisible(); }
  workbench::EntryTable& Table() { return desk.form3.table; }

  GalleryDesk desk;
};

TEST_F(ParagraphAttachments, EachChooserListsItsOwnKindOfFile) {
  InEntry([this] {
    EXPECT_THAT(Pick("Command1", "a.mp3"), ElementsAre("a.mp3"));
    EXPECT_THAT(Pick("Command2", "b.flv"), ElementsAre("b.flv"));
    EXPECT_THAT(Pick("Command5", "noend"),
                ElementsAre("a.mp3", "b.flv", "back.jpg", "c.pdf", "noend"));
    EXPECT_EQ(Shown("soutB"), Medium(u"a.mp3"));
    EXPECT_EQ(Shown("filmB"), Medium(u"b.flv"));
    EXPECT_EQ(Shown("picB"), Medium(u"noend"));
  });
}

TEST_F(ParagraphAttachments, TheChooserStartsInTheProgramsOwnFolderEachTime) {
  desk.AddPicture("p1.jpg", "media");
  InEntry([this] {
    for (const char* control : {"Command1", "Command2", "Command5", "Image1"}) {
      SCOPED_TRACE(control);
      for (int opening = 0; opening < 2; ++opening) {
        ExpectStartOf("Form5", [=] { Robot::Click("Form6", control); });
        if (!Tag().empty()) Robot::Click("Form6", "Image1");  // takes the background out again
      }
    }
    for (int opening = 0; opening < 2; ++opening) {
      Robot::RightClick("Form6", "matn");
      ExpectStartOf("Form5", [] { Robot::ChooseFromMenu("popM", "picM"); });
    }
    Robot::Click("Form6", "btn(5)");
    for (int opening = 0; opening < 2; ++opening) {
      ExpectStartOf("Form2", [] { Robot::Click("Form6", "Command3"); });
    }
  });
}

TEST_F(ParagraphAttachments, GoIntoTheRowAndFromThereIntoTheBook) {
  InEntry([this] {
    Pick("Command5", "c.pdf");
    Pick("Command1", "a.mp3");
    Robot::Type("Form6", "filmB", QString::fromStdString(Medium(u"b.flv")));
    Pick("Image1", "back.jpg");
    Robot::Click("Form6", "btn(4)");
  });
  Robot::PressKey("Form3", "matn", Qt::Key_F12);
  EXPECT_THAT(desk.Collection("aTitle1"),
              testing::HasSubstr("mediaStatus=\"111\" snd=\"0\" pas=\".pdf\" "
                                 "bgBackground=\"Data/TXT/S.jpg\" pic=\"0\""));
  for (const char* end : {".pdf", ".mp3", ".flv", ".jpg"}) {
    EXPECT_THAT(desk.BookNames("TXT", end), SizeIs(1)) << end;
  }
}

TEST_F(ParagraphAttachments, AnAttachmentWithoutADotIsKeptUntilTheBuildWhichItEnds) {
  InEntry([this] {
    Pick("Command5", "noend");
    Robot::Click("Form6", "btn(4)");
  });
  EXPECT_EQ(Utf8(Table().entryAttach(0)), Medium(u"noend"));
  Robot::PressKey("Form3", "matn", Qt::Key_F12);
  EXPECT_EQ(desk.LoggedFailures(85), 1);
  EXPECT_EQ(desk.LoggedFailures(57), 1);
  EXPECT_TRUE(desk.form3.IsVisible());
}

TEST_F(ParagraphAttachments, TheFirstClickOnAnEmptyBackgroundAsksAndACancelLeavesItEmpty) {
  InEntry([this] {
    EXPECT_EQ(Tip(), kClickChanges);
    EXPECT_THAT(Pick("Image1", {}), ElementsAre("back.jpg"));
    EXPECT_EQ(Tag(), "");
    EXPECT_FALSE(desk.form6.Image1.HasPicture());
    EXPECT_EQ(Tip(), kClickChanges);
  });
}

TEST_F(ParagraphAttachments, TheSecondClickRemovesABackgroundWithoutAQuestion) {
  InEntry([this] {
    Pick("Image1", "back.jpg");
    EXPECT_EQ(Tag(), Medium(u"back.jpg"));
    EXPECT_TRUE(desk.form6.Image1.HasPicture());
    EXPECT_EQ(Tip(), kClickRemoves);
    Robot::Click("Form6", "Image1");
    EXPECT_EQ(Tag(), "");
    EXPECT_FALSE(desk.form6.Image1.HasPicture());
    EXPECT_EQ(Tip(), kClickChanges);
  });
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

// The tip says "change" although a click removes it.
TEST_F(ParagraphAttachments, ABackgroundFromTheRowIsShownWithTheTipOfNone) {
  Table().entryBack.Set(0, desk.Path(u"media\\back.jpg"));
  InEntry([this] {
    EXPECT_TRUE(desk.form6.Image1.HasPicture());
    EXPECT_EQ(Tip(), kClickChanges);
    Robot::Click("Form6", "Image1");
    EXPECT_EQ(Tag(), "");
  });
}

TEST_F(ParagraphAttachments, AVanishedBackgroundKeepsItsPathAndAClickClearsIt) {
  Table().entryBack.Set(0, desk.Path(u"media\\gone.jpg"));
  InEntry([this] {
    EXPECT_EQ(Tag(), Medium(u"gone.jpg"));
    EXPECT_FALSE(desk.form6.Image1.HasPicture());
    Robot::Click("Form6", "Image1");
    EXPECT_EQ(Tag(), "");
  });
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(ParagraphAttachments, TheFormerRowsBackgroundIsNotShownInTheNext) {
  Table().entryBack.Set(0, desk.Path(u"media\\back.jpg"));
  InEntry([] {});
  desk.InEntry(1, [this] { EXPECT_FALSE(desk.form6.Image1.HasPicture()); });
}

TEST_F(ParagraphAttachments, AFolderConfirmedWithoutAFileIsNoBackground) {
  InEntry([this] {
    desk.robot.WhenShown("Form5", [] { Robot::Click("Form5", "btn(0)"); });
    Robot::Click("Form6", "Image1");
    EXPECT_EQ(Tag(), Utf8(desk.Path()) + "\\");
    EXPECT_EQ(Tip(), kClickChanges);
  });
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(ParagraphAttachments, TheSwitchOpensTheGalleryOnTheProgramsOwnFolder) {
  InEntry([this] {
    EXPECT_EQ(SwitchCaption(), "تبديل به گالري");
    EXPECT_FALSE(GalleryIsOpen());
    Robot::Click("Form6", "btn(5)");
    EXPECT_EQ(SwitchCaption(), "حذف گالري");
    EXPECT_TRUE(GalleryIsOpen());
    EXPECT_EQ(Utf8(desk.form6.ShPath.Caption()), Utf8(desk.Path()));
  });
  EXPECT_FALSE(Table().entryGallery(0));
}

TEST_F(ParagraphAttachments, TheSwitchPressedTwiceLosesThePicturesButNotTheRowsFlag) {
  desk.AddPictures(2);
  InEntry([this] {
    Robot::Click("Form6", "btn(5)");
    desk.OpenFolder("Form6");
    GalleryDesk::Tick("Form6", 1, "title");
    Robot::Click("Form6", "btn(4)");
  });
  EXPECT_TRUE(Table().entryGallery(0));
  InEntry([this] {
    EXPECT_TRUE(GalleryIsOpen());
    Robot::Click("Form6", "btn(5)");
    EXPECT_EQ(Table().entryGalPath(0, 0), u"");
    EXPECT_EQ(Table().entryGalTitle(0, 0), u"");
    EXPECT_TRUE(Table().entryGallery(0));
    Robot::Click("Form6", "btn(4)");
  });
  EXPECT_FALSE(Table().entryGallery(0));
}

TEST_F(ParagraphAttachments, ChosenPicturesStayWhereTheWindowIsClosedAndTheFlagDoesNot) {
  desk.AddPictures(3);
  InEntry([this] {
    Robot::Click("Form6", "btn(5)");
    desk.OpenFolder("Form6");
    GalleryDesk::Tick("Form6", 2, "سوم");
  });
  EXPECT_EQ(Table().entryGalPath(0, 0), desk.Picture(u"p3.jpg"));
  EXPECT_EQ(Table().entryGalTitle(0, 0), u"سوم");
  EXPECT_FALSE(Table().entryGallery(0));
  InEntry([this] {
    Robot::Click("Form6", "btn(5)");
    desk.OpenFolder("Form6");
    EXPECT_THAT(GalleryDesk::Ticked("Form6"), ElementsAre(2));
    EXPECT_EQ(GalleryDesk::TitleOf("Form6", 2), "سوم");
    EXPECT_FALSE(GalleryDesk::TitleIsOpen("Form6", 2));
  });
}

TEST_F(ParagraphAttachments, AnEntrysGalleryIsItsOwn) {
  desk.AddPictures(1);
  InEntry([this] {
    Robot::Click("Form6", "btn(5)");
    desk.OpenFolder("Form6");
    GalleryDesk::Tick("Form6", 0);
  });
  desk.InEntry(1, [this] {
    Robot::Click("Form6", "btn(5)");
    desk.OpenFolder("Form6");
    EXPECT_THAT(GalleryDesk::Ticked("Form6"), IsEmpty());
  });
  EXPECT_EQ(Table().galleryPic(0, 0), u"");
}

TEST_F(ParagraphAttachments, ATombstoneInFrontLeavesTheNextTickedAndTheBuildWithoutPictures) {
  desk.AddPictures(2);
  InEntry([this] {
    Robot::Click("Form6", "btn(5)");
    desk.OpenFolder("Form6");
    GalleryDesk::Tick("Form6", 0);
    GalleryDesk::Tick("Form6", 1);
    GalleryDesk::Tick("Form6", 0);
    EXPECT_THAT(GalleryDesk::Ticked("Form6"), ElementsAre(1));
    Robot::Click("Form6", "btn(4)");
  });
  Robot::PressKey("Form3", "matn", Qt::Key_F12);
  EXPECT_THAT(desk.BuiltGalleries(),
              ElementsAre("<?xml version=\"1.0\"?>\r\n<gallery>\r\n</gallery>\r\n"));
  EXPECT_THAT(desk.BookNames("IMG", ".jpg"), ElementsAre("aTitle1.jpg"));
}

TEST_F(ParagraphAttachments, ScrollsAsTheOtherBrowserAndShowsNinetyCharactersOfAPath) {
  desk.AddPictures(7);
  const std::string folder = "Pictures/" + std::string(130, 'a');
  desk.MakeFolders(folder);
  InEntry([&, this] {
    Robot::Click("Form6", "btn(5)");
    desk.OpenFolder("Form6");
    Robot::PressKey("Form6", "VSC", Qt::Key_End);
    EXPECT_THAT(GalleryDesk::Names("Form6"), ElementsAre("p5.jpg", "p6.jpg", "p7.jpg"));
    EXPECT_EQ(Robot::FindAs<QScrollBar>("Form6", "VSC").value(), 5);
    desk.form3.SetGalFol(desk.Path(platform::Replace(platform::FromUtf8(folder), u"/", u"\\")), 1);
    EXPECT_EQ(Utf8(desk.form6.ShPath.Caption()), "C:\\..." + std::string(85, 'a'));
  });
}

TEST_F(ParagraphAttachments, Failure46NoProgramFolderForTheGallerysChooser) {
  InEntry([this] {
    Robot::Click("Form6", "btn(5)");
    std::filesystem::remove_all(desk.HostPath(""));
    Robot::Click("Form6", "Command3");
    EXPECT_TRUE(desk.form6.IsVisible());
    EXPECT_THAT(desk.folder.Read(u"state\\ZVL.log"), testing::HasSubstr("Error number is 46"));
  });
}

TEST_F(ParagraphAttachments, Failures71To73And81NoProgramFolderForTheChoosers) {
  InEntry([this] {
    std::filesystem::remove_all(desk.HostPath(""));
    for (const char* control : {"Command1", "Command2", "Command5", "Image1"}) {
      Robot::Click("Form6", control);
    }
  });
  for (const char* number : {"71", "72", "73", "81"}) {
    EXPECT_THAT(desk.folder.Read(u"state\\ZVL.log"),
                testing::HasSubstr(std::string("Error number is ") + number));
  }
}

TEST_F(ParagraphAttachments, Failure82ADamagedBackground) {
  desk.Write("media/bad.jpg", "no picture");
  InEntry([this] {
    Pick("Image1", "bad.jpg");
    EXPECT_EQ(Tag(), Medium(u"bad.jpg"));
    EXPECT_EQ(Tip(), kClickChanges);
  });
  EXPECT_EQ(desk.LoggedFailures(82), 1);
}

TEST_F(ParagraphAttachments, Failure51ADamagedBackgroundOfTheRow) {
  desk.Write("media/bad.jpg", "no picture");
  Table().entryBack.Set(0, desk.Path(u"media\\bad.jpg"));
  InEntry([this] {
    EXPECT_EQ(Shown("bname"), "Head");
    EXPECT_EQ(Tag(), Medium(u"bad.jpg"));
  });
  EXPECT_EQ(desk.LoggedFailures(51), 1);
}

TEST_F(ParagraphAttachments, Failures54And55And57NoSuchRow) {
  InEntry([this] {
    desk.form3.AddPicGal2(5);
    desk.form3.IMCmous(5);
    desk.form3.RemPicGal2(5);
  });
  for (const int number : {54, 55, 57}) EXPECT_EQ(desk.LoggedFailures(number), 1) << number;
}

}  // namespace
