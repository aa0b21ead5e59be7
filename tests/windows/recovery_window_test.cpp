// What an earlier run left unbuilt: offered beside the workbench, brought back, left or dropped.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QApplication>
#include <QPushButton>
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "tests/support/left_work.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::FormatDesk;
using testing_support::GalleryDesk;
using testing_support::Robot;

class RecoveryWindow : public testing_support::LeftWorkTest {};

TEST_F(RecoveryWindow, WithNothingLeftNobodySeesAnything) {
  desk.Open();
  Robot::Choose("Form1", "dataName", 1);
  Robot::PressKey("Form3", "matn", Qt::Key_F7);
  OpenAnew();
  EXPECT_FALSE(IsShown());
  EXPECT_THAT(Records(), IsEmpty());
  EXPECT_FALSE(fs::exists(desk.folder.HostPath("state/recovery")));
}

// It stands in its file as it was, and gallery mode is a button's press.
TEST_F(RecoveryWindow, ATextThatWasOnlyOpenedAndGalleryModeAreNobodysWork) {
  desk.OpenOn(u"alpha\r\nbeta");
  Robot::Click("Form3", "Com(12)");
  EXPECT_THAT(Records(), IsEmpty());
  OpenAnew();
  EXPECT_FALSE(IsShown());
}

TEST_F(RecoveryWindow, WhateverChangesTheTextIsWork) {
  const std::vector<std::function<void()>> changes = {
      [] { FormatDesk::Mark(Qt::Key_F11, "alpha"); },
      [] {
        Robot::Select("Form3", "matn", 0, 0);
        Robot::PressKey("Form3", "matn", Qt::Key_Delete);
      },
      [] { Robot::Click("Form3", "HazC(12)"); }};
  desk.OpenOn(u"alpha beta\r\ngamma");
  for (const auto& change : changes) {
    FormatDesk::OpenBook("One.txt");
    EXPECT_THAT(Records(), IsEmpty());
    change();
    EXPECT_THAT(Records(), SizeIs(1));
    OpenAnew();
    ASSERT_TRUE(IsShown());
    desk.robot.AnswerYes();
    Robot::Click("Recovery", "recoverDrop");
    desk.robot.TakeBoxes();
  }
}

// The text comes along with what was typed, and is as untouched as it was.
TEST_F(RecoveryWindow, AnUntouchedTextComesBackWithWhatElseThereIs) {
  desk.OpenOn(u"alpha\r\nbeta");
  Robot::Type("Form3", "bname", "a title");
  OpenAnew();
  Robot::Click("Recovery", "recoverBring");
  EXPECT_EQ(FormatDesk::Shown("matn"), "alpha\nbeta");
  Robot::Type("Form3", "bname", "");
  OpenAnew();
  EXPECT_FALSE(IsShown()) << "the title was all";
  EXPECT_THAT(Records(), IsEmpty());
}

TEST_F(RecoveryWindow, WhatWasFiledIsOnTheDiskForItsUserAlone) {
  FileFive();
  ASSERT_THAT(Records(), SizeIs(1));
  struct stat known {};
  ASSERT_EQ(::stat(Records().front().c_str(), &known), 0);
  EXPECT_EQ(known.st_mode & 0777, 0600U);
  ASSERT_EQ(::stat(Records().front().parent_path().c_str(), &known), 0);
  EXPECT_EQ(known.st_mode & 0777, 0700U);
}

TEST_F(RecoveryWindow, TellsWhatIsLeftWithoutTakingTheFocus) {
  FileFive();
  OpenAnew();
  ASSERT_TRUE(IsShown());
  Robot::Settle();
  const QWidget& window = *Robot::FindWindow("Recovery");
  EXPECT_FALSE(window.isModal());
  EXPECT_EQ(window.layoutDirection(), Qt::RightToLeft);
  EXPECT_EQ(QApplication::activeWindow(), Robot::FindWindow("Form3"));
  EXPECT_EQ(Says("recoverWhose"), "عنوان مجموعه اول در رديف اول");
  EXPECT_EQ(Says("recoverCount"), "5");
  EXPECT_NE(Says("recoverWhen"), "");
  EXPECT_EQ(Says("recoverFirst"), "شناسنامه");
  EXPECT_EQ(Says("recoverLast"), ">>> پايان تيتر");
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

TEST_F(RecoveryWindow, TellsOfAHeadingThatHasNoTextYet) {
  FileFive();
  FormatDesk::Mark(Qt::Key_F2, "what is");
  OpenAnew();
  EXPECT_EQ(Says("recoverCount"), "6 (آخري هنوز متن ندارد)");
  EXPECT_EQ(Says("recoverFirst"), "شناسنامه");
  EXPECT_EQ(Says("recoverLast"), "what is");
}

TEST_F(RecoveryWindow, TellsOfACollectionOfPictures) {
  desk.AddPictures(3);
  desk.OpenOn(u"a text");
  Robot::Type("Form3", "bname", "a title");
  Robot::Click("Form3", "Com(12)");
  desk.OpenFolder("Form3");
  GalleryDesk::Tick("Form3", 0, "first");
  GalleryDesk::Tick("Form3", 1);
  GalleryDesk::Tick("Form3", 2);
  GalleryDesk::Tick("Form3", 1);
  OpenAnew();
  EXPECT_EQ(Says("recoverWhose"), "عنوان مجموعه اول در رديف اول: a title");
  EXPECT_EQ(Says("recoverCount"), "هيچ، و 2 تصوير گالري");
  EXPECT_EQ(Says("recoverFirst"), "ندارد");
  EXPECT_EQ(Says("recoverLast"), "ندارد");
}

TEST_F(RecoveryWindow, BringsEverythingBack) {
  FileFive();
  FormatDesk::Command(0, "what is");
  FormatDesk::Command(9, "left");
  desk.Edit(1, [] { Robot::Type("Form6", "bname", "Changed"); });
  const std::string held = Held();
  OpenAnew();
  EXPECT_NE(Held(), held);
  Robot::Click("Recovery", "recoverBring");
  EXPECT_EQ(Held(), held);
  EXPECT_FALSE(IsShown());
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
  // It is this run's now, and safe again.
  EXPECT_THAT(Records(), SizeIs(1));
  OpenAnew();
  Robot::Click("Recovery", "recoverBring");
  EXPECT_EQ(Held(), held);
}

TEST_F(RecoveryWindow, WhatIsTypedIsKeptWithoutAnyCommand) {
  desk.OpenOn(u"alpha\r\nbeta");
  Robot::Select("Form3", "matn", 0, 5);
  Robot::PressKey("Form3", "matn", Qt::Key_Delete);
  Robot::Type("Form3", "bname", "a title");
  const std::string held = Held();
  OpenAnew();
  Robot::Click("Recovery", "recoverBring");
  EXPECT_EQ(Held(), held);
  EXPECT_EQ(FormatDesk::Shown("matn"), "\nbeta");
}

TEST_F(RecoveryWindow, BringsBothKindsOfGalleriesBack) {
  desk.AddPictures(3);
  FileFive();
  desk.InEntry(1, [&] {
    Robot::Click("Form6", "btn(5)");
    desk.OpenFolder("Form6");
    GalleryDesk::Tick("Form6", 1, "second");
    Robot::Click("Form6", "btn(4)");
  });
  Robot::Click("Form3", "Com(12)");
  desk.OpenFolder("Form3");
  GalleryDesk::Tick("Form3", 0, "first");
  GalleryDesk::Tick("Form3", 2);
  GalleryDesk::Tick("Form3", 2);
  const std::string held = Held();
  OpenAnew();
  Robot::Click("Recovery", "recoverBring");
  EXPECT_EQ(Held(), held);
  EXPECT_THAT(GalleryDesk::Ticked("Form3"), ElementsAre(0));
  EXPECT_TRUE(Robot::Find("Form3", "Frame4").isVisible());
}

TEST_F(RecoveryWindow, AfterItEveryCommandWorksAsIfNothingHadHappened) {
  FileFive();
  OpenAnew();
  Robot::Click("Recovery", "recoverBring");
  FormatDesk::FileHeading("and", "what is");
  desk.robot.TakeBoxes();
  Robot::PressKey("Form3", "matn", Qt::Key_F12);
  EXPECT_THAT(desk.Page("and"), testing::HasSubstr("what"));
  EXPECT_THAT(desk.Page("Head"), testing::HasSubstr("Text"));
  EXPECT_THAT(Records(), IsEmpty());
  desk.PressNext();
  EXPECT_FALSE(IsShown()) << "the next collection has nothing";
}

TEST_F(RecoveryWindow, LaterLeavesItForTheNextOpening) {
  FileFive();
  const std::string held = Held();
  const std::vector<std::function<void()>> ways = {
      [] { Robot::Click("Recovery", "recoverLater"); },
      [] { Robot::PressKey("Recovery", "recoverDrop", Qt::Key_Escape); },
      [] { Robot::CloseWindow("Recovery"); }};
  for (const auto& later : ways) {
    OpenAnew();
    ASSERT_TRUE(IsShown());
    later();
    EXPECT_FALSE(IsShown());
    EXPECT_THAT(Records(), SizeIs(1));
  }
  OpenAnew();
  Robot::Click("Recovery", "recoverBring");
  EXPECT_EQ(Held(), held);
}

TEST_F(RecoveryWindow, DropAsksOnceAndRemoves) {
  FileFive();
  OpenAnew();
  desk.robot.AnswerNo();
  Robot::Click("Recovery", "recoverDrop");
  EXPECT_TRUE(IsShown());
  EXPECT_THAT(desk.robot.TakeBoxes(), SizeIs(1));
  EXPECT_THAT(Records(), SizeIs(1));
  desk.robot.AnswerYes();
  Robot::Click("Recovery", "recoverDrop");
  EXPECT_THAT(desk.robot.TakeBoxes(), SizeIs(1));
  EXPECT_FALSE(IsShown());
  EXPECT_THAT(Records(), IsEmpty());
}

// Who ignores the window has a record of what is filed now, beside the other.
TEST_F(RecoveryWindow, WorkBesideItTakesTheButtonAndLosesNothing) {
  FileFive();
  OpenAnew();
  EXPECT_TRUE(CanBring());
  FormatDesk::OpenBook("One.txt");
  FormatDesk::FileHeading("Head", "Text");
  EXPECT_FALSE(CanBring());
  EXPECT_THAT(Records(), SizeIs(2));
  desk.InEntry(0, [] { Robot::Click("Form6", "btn(0)"); });
  EXPECT_TRUE(CanBring()) << "the table is empty again";
}

TEST_F(RecoveryWindow, OffersTheNewestFirstAndTheOthersAfterIt) {
  FileFive();
  OpenAnew();
  Robot::Click("Recovery", "recoverLater");
  FormatDesk::OpenBook("One.txt");
  FormatDesk::FileHeading("Head", "Text");
  OpenAnew();
  EXPECT_EQ(Says("recoverCount"), "1");
  EXPECT_EQ(Says("recoverFirst"), "Head");
  Robot::Click("Recovery", "recoverLater");
  ASSERT_TRUE(IsShown());
  EXPECT_EQ(Says("recoverCount"), "5");
  Robot::Click("Recovery", "recoverLater");
  EXPECT_FALSE(IsShown());
}

TEST_F(RecoveryWindow, OffersNothingOfAnotherCollectionOrBook) {
  FileFive();
  Robot::CloseWindow("Form3");
  Robot::Choose("Form1", "dataName", 1);
  desk.PressNext();
  EXPECT_FALSE(IsShown());
  Robot::CloseWindow("Form3");
  desk.MakeFolders("Other");
  desk.form1.idir.SetText(desk.Path(u"Other"));
  desk.PressNext();
  EXPECT_FALSE(IsShown());
  Robot::CloseWindow("Form3");
  desk.form1.idir.SetText(desk.Path(u"Data"));
  desk.PressNext();
  EXPECT_TRUE(IsShown());
}

TEST_F(RecoveryWindow, IsBroughtBackToItsOwnCollectionOnly) {
  FileFive();
  OpenAnew();
  ASSERT_TRUE(CanBring());
  Robot::Choose("Form1", "dataName", 1);
  EXPECT_FALSE(CanBring());
  Robot::Choose("Form1", "dataName", 0);
  EXPECT_TRUE(CanBring());
  desk.MakeFolders("Other");
  desk.form1.idir.SetText(desk.Path(u"Other"));
  Robot::Settle();
  EXPECT_FALSE(CanBring());
  EXPECT_THAT(Records(), SizeIs(1));
}

// A heading that another takes the place of before it has its text leaves a row without a title.
TEST_F(RecoveryWindow, BringsBackARowWithoutATitle) {
  desk.OpenOn(u"Head\r\nOther\r\nText\r\nMore\r\nleft");
  FormatDesk::Mark(Qt::Key_F2, "Head");
  FormatDesk::Mark(Qt::Key_F2, "Other");
  FormatDesk::Mark(Qt::Key_F3, "Text");
  FormatDesk::Mark(Qt::Key_F3, "More");
  ASSERT_EQ(desk.form3.entryCount, 2);
  const std::string before = Held();
  OpenAnew();
  ASSERT_TRUE(IsShown());
  Robot::Click("Recovery", "recoverBring");
  EXPECT_EQ(Held(), before);
}

TEST_F(RecoveryWindow, OffersItByWhicheverPathTheBookIsReached) {
  FileFive();
  Robot::CloseWindow("Form3");
  fs::create_symlink(desk.HostPath("Data"), desk.HostPath("Link"));
  for (const char16_t* path : {u"Link", u"Data\\", u"Data\\..\\.\\Data"}) {
    desk.form1.idir.SetText(desk.Path(path));
    desk.PressNext();
    EXPECT_TRUE(IsShown()) << platform::ToUtf8(path);
    Robot::CloseWindow("Form3");
  }
}

// Each letter that is typed into the field names another folder.
TEST_F(RecoveryWindow, TheWorkStaysWithItsBookUntilAnotherFolderIsNamed) {
  FileFive();
  desk.form1.idir.SetText(desk.Path(u"Dat"));
  Robot::Settle();
  FormatDesk::Command(0, "what is");
  EXPECT_EQ(std::ranges::count(desk.records.Names(), "Replace"), 0);
  Robot::CloseWindow("Form3");
  desk.form1.idir.SetText(desk.Path(u"Data"));
  desk.PressNext();
  EXPECT_TRUE(IsShown());
}

// The disk is full, say: the old record is all that there is of the work, until that is built.
TEST_F(RecoveryWindow, WhatCameBackWithoutARecordOfItsOwnGoesWithItsBuild) {
  FileFive();
  const std::string held = Held();
  OpenAnew();
  desk.records.FailAt(1);
  Robot::Click("Recovery", "recoverBring");
  EXPECT_EQ(Held(), held);
  EXPECT_FALSE(IsShown());
  EXPECT_THAT(Records(), SizeIs(1));
  OpenAnew();
  Robot::Click("Recovery", "recoverBring");
  EXPECT_EQ(Held(), held);
  Robot::PressKey("Form3", "matn", Qt::Key_F12);
  EXPECT_THAT(Records(), IsEmpty());
}

// A build whose question is answered by No leaves the work, and so its record; so does one that
// failed.
TEST_F(RecoveryWindow, OnlyABuildThatWentThroughTakesTheRecord) {
  FileFive();
  desk.Write("Data/_xml/aTitle1.xml", "stands already");
  desk.robot.AnswerNo();
  Robot::PressKey("Form3", "matn", Qt::Key_F12);
  EXPECT_THAT(Records(), SizeIs(1));
  for (const char* operation : {"Write", "Flush"}) {
    desk.files.FailWhere(operation, "aTitle1.xml");
    desk.robot.AnswerYes();
    Robot::PressKey("Form3", "matn", Qt::Key_F12);
    EXPECT_TRUE(desk.files.HasFailed());
    EXPECT_THAT(Records(), SizeIs(1)) << operation;
  }
  desk.files.FailAt(0);
  desk.robot.AnswerYes();
  Robot::PressKey("Form3", "matn", Qt::Key_F12);
  EXPECT_THAT(Records(), IsEmpty());
}

// The collection that the selector names is the one that the work is built as.
TEST_F(RecoveryWindow, TheWorkFollowsTheSelector) {
  FileFive();
  Robot::Choose("Form1", "dataName", 1);
  Robot::CloseWindow("Form3");
  EXPECT_THAT(Records(), SizeIs(1));
  desk.PressNext();
  ASSERT_TRUE(IsShown());
  EXPECT_EQ(Says("recoverWhose"), "عنوان مجموعه دوم در رديف اول");
}

TEST_F(RecoveryWindow, AStateFolderThatCantBeUsedIsToldOnceInTheLog) {
  std::ofstream(desk.folder.HostPath("state/recovery")) << "no folder";
  FileFive();
  FormatDesk::Command(0, "what is");
  OpenAnew();
  FormatDesk::OpenBook("One.txt");
  int lines = 0;
  for (const std::string& line : desk.LogLines()) {
    if (line.starts_with("Recovery is off: ")) ++lines;
  }
  EXPECT_EQ(lines, 1);
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  EXPECT_FALSE(IsShown());
}

// The bytes are written after each event, and synced with nobody asking for it.
TEST_F(RecoveryWindow, WhatIsWrittenIsSyncedSoon) {
  FileFive();
  EXPECT_EQ(desk.records.Names().back(), "Append");
  Robot::WaitUntil([&] { return desk.records.Names().back() == "Sync"; }, 1000);
  const std::size_t known = desk.records.Operations();
  Robot::Click("Form3", "Chek");
  EXPECT_EQ(desk.records.Operations(), known) << "nothing has changed";
}

// A whole command is one piece: whoever is killed in the middle of it has none of it.
TEST_F(RecoveryWindow, ACommandIsWrittenOnce) {
  desk.OpenOn(u"alpha beta gamma");
  FormatDesk::Mark(Qt::Key_F2, "alpha");
  const auto written = [&] { return std::ranges::count(desk.records.Names(), "Append"); };
  const auto before = written();
  FormatDesk::Mark(Qt::Key_F3, "beta");
  EXPECT_EQ(written(), before + 1);
}

TEST_F(RecoveryWindow, WhateverFailsInTheFolderNothingElseDoes) {
  for (std::size_t k = 1; k <= 12; ++k) {
    GalleryDesk other;
    other.records.FailAt(k);
    other.OpenOnFiveRows("some text");
    Robot::CloseWindow("Form3");
    other.PressNext();
    if (IsShown()) Robot::Click("Recovery", "recoverBring");
    FormatDesk::OpenBook("One.txt");
    FormatDesk::FileHeading("Head", "Text");
    Robot::PressKey("Form3", "matn", Qt::Key_F12);
    EXPECT_EQ(other.AllLoggedFailures(), 0) << k;
    EXPECT_THAT(other.robot.TakeBoxes(), SizeIs(1)) << k;
    EXPECT_FALSE(Robot::FindWindow("Form3")->isVisible()) << k;
    Robot::CloseWindow("Form3");
  }
}

}  // namespace
