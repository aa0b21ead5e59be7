// What is damaged, huge, gone or of the wrong kind, and entries that aren't what they seem.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTextEdit>
#include <filesystem>

#include "tests/support/gallery_desk.h"

namespace {

using platform::Text;
using testing::SizeIs;
using testing_support::FormatDesk;
using testing_support::GalleryDesk;
using testing_support::Robot;
using testing_support::Utf8;

constexpr int kHugeSide = 20'000;

// The head of a bitmap of 20,000 by 20,000 pixels without the pixels.
std::string HugeBitmapHead() {
  std::string head = "BM";
  const auto add = [&head](int number) {
    for (int shift = 0; shift < 32; shift += 8) head += static_cast<char>(number >> shift & 0xFF);
  };
  for (const int number : {54, 0, 54, 40, kHugeSide, kHugeSide, 1 | 24 << 16, 0, 0, 0, 0, 0, 0}) {
    add(number);
  }
  return head;
}

class ParagraphBadInput : public testing::Test {
 protected:
  ParagraphBadInput() {
    desk.MakeFolders("media");
    desk.OpenOn(u"Head\r\nText");
    FormatDesk::FileHeading("Head", "Text");
  }
  void InEntry(const std::function<void()>& act) { desk.InEntry(0, act); }
  Text Medium(const Text& name) const { return desk.Path(u"media\\" + name); }
  void PickBackground(const QString& file) {
    desk.robot.WhenShown("Form5", [file] {
      Robot::DoubleClickLine("Form5", "Dir1", "media");
      Robot::ClickLine("Form5", "File1", file);
      Robot::Click("Form5", "btn(0)");
    });
    Robot::Click("Form6", "Image1");
  }
  static std::string Tag() {
    return Robot::Find("Form6", "Image1").property("tag").toString().toStdString();
  }
  // The window is as it would be without a background.
  static void ExpectWholeRow() {
    EXPECT_EQ(Robot::FindAs<QLineEdit>("Form6", "bname").text(), "Head");
    EXPECT_EQ(Robot::FindAs<QTextEdit>("Form6", "matn").toPlainText(), "Text");
  }
  workbench::EntryTable& Table() { return desk.form3.table; }

  GalleryDesk desk;
};

TEST_F(ParagraphBadInput, AHugeBackgroundIsShown) {
  desk.AddHugePicture("huge.jpg", "media");
  InEntry([this] {
    PickBackground("huge.jpg");
    EXPECT_TRUE(desk.form6.Image1.HasPicture());
    Robot::Click("Form6", "btn(4)");
  });
  EXPECT_EQ(Table().entryBack(0), Medium(u"huge.jpg"));
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(ParagraphBadInput, BackgroundsThatCanNotBeShownKeepTheirPathAndTheWindowItsRow) {
  desk.Write("media/empty.jpg", "");
  desk.Write("media/huge.bmp", HugeBitmapHead());
  desk.Write("media/cut.jpg", GalleryDesk::HugeJpeg().substr(0, 30));
  int failures = 0;
  for (const char* name : {"empty.jpg", "huge.bmp", "cut.jpg"}) {
    SCOPED_TRACE(name);
    Table().entryBack.Set(0, Medium(platform::FromUtf8(name)));
    InEntry([&, this] {
      ExpectWholeRow();
      EXPECT_EQ(Tag(), Utf8(Medium(platform::FromUtf8(name))));
      EXPECT_FALSE(desk.form6.Image1.HasPicture());
    });
    EXPECT_EQ(desk.LoggedFailures(51), ++failures);
  }
  EXPECT_EQ(desk.AllLoggedFailures(), failures);
}

TEST_F(ParagraphBadInput, ABackgroundThatIsAFolderIsNone) {
  desk.MakeFolders("media/folder.jpg");
  Table().entryBack.Set(0, Medium(u"folder.jpg"));
  InEntry([this] {
    ExpectWholeRow();
    EXPECT_FALSE(desk.form6.Image1.HasPicture());
  });
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(ParagraphBadInput, ABackgroundGoneBetweenTheChoiceAndTheConfirmationStaysAsAPath) {
  desk.AddPicture("back.jpg", "media");
  InEntry([this] {
    desk.robot.WhenShown("Form5", [this] {
      Robot::DoubleClickLine("Form5", "Dir1", "media");
      Robot::ClickLine("Form5", "File1", "back.jpg");
      std::filesystem::remove(desk.HostPath("media/back.jpg"));
      Robot::Click("Form5", "btn(0)");
    });
    Robot::Click("Form6", "Image1");
    EXPECT_EQ(Tag(), Utf8(Medium(u"back.jpg")));
    EXPECT_FALSE(desk.form6.Image1.HasPicture());
  });
}

TEST_F(ParagraphBadInput, AFolderInAPathFieldIsNotKept) {
  for (const char* field : {"picB", "soutB", "filmB"}) {
    InEntry([&, this] {
      Robot::Type("Form6", field, QString::fromStdString(Utf8(desk.Path(u"media"))));
      Robot::Click("Form6", "btn(4)");
      EXPECT_TRUE(desk.form6.IsVisible()) << field;
    });
    EXPECT_THAT(desk.robot.TakeBoxes(), SizeIs(1)) << field;
  }
  EXPECT_EQ(Table().entryAttach(0) + Table().entrySound(0) + Table().entryFilm(0), u"");
}

TEST_F(ParagraphBadInput, APathWithPersianLettersBracketsAndMarksIsKeptAndBuilt) {
  const std::string name = "فايل\u200Fهاي [باغ].mp3";
  desk.Write("media/" + name, "sound");
  InEntry([&, this] {
    Robot::Type("Form6", "soutB", QString::fromStdString(Utf8(Medium(platform::FromUtf8(name)))));
    Robot::Click("Form6", "btn(4)");
  });
  EXPECT_EQ(Table().entrySound(0), Medium(platform::FromUtf8(name)));
  Robot::PressKey("Form3", "matn", Qt::Key_F12);
  const auto sounds = desk.BookNames("TXT", ".mp3");
  ASSERT_THAT(sounds, SizeIs(1));
  EXPECT_EQ(desk.Read("Data/TXT/" + sounds[0]), "sound");
}

TEST_F(ParagraphBadInput, AnEmptyTitleIsStoredAndTheRowIsDeletedWithoutMovingOthers) {
  InEntry([] {
    Robot::Type("Form6", "bname", {});
    Robot::Click("Form6", "btn(4)");
  });
  EXPECT_EQ(Table().entryTitle(0), u"");
  EXPECT_EQ(FormatDesk::Lines("bindex")[0], "   =>   Text");
  InEntry([] { Robot::Click("Form6", "btn(0)"); });
  EXPECT_THAT(FormatDesk::Lines("bindex"), SizeIs(0));
  EXPECT_EQ(desk.form3.entryCount, 0);
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(ParagraphBadInput, TheFileServiceFailsWhileThePathsAreChecked) {
  InEntry([this] {
    Robot::Type("Form6", "picB", "C:\\x.pdf");
    desk.files.FailWhere("FileExists", "x.pdf");
    Robot::Click("Form6", "btn(4)");
    EXPECT_TRUE(desk.form6.IsVisible());
  });
  EXPECT_EQ(desk.LoggedFailures(70), 1);
  EXPECT_EQ(Table().entryAttach(0), u"");
}

}  // namespace
