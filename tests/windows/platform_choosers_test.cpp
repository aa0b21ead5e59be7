// Drive, folder and file lists, and picture boxes, over folders of the host.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QAccessible>
#include <QComboBox>
#include <QImage>
#include <QListWidget>
#include <QTest>
#include <array>
#include <filesystem>

#include "platform/windows/controls.h"
#include "support/window_catalogue.h"
#include "tests/support/rich_text_bench.h"
#include "tests/support/small_window.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::ControlKind;
using platform::ControlRow;
using platform::DriveList;
using platform::FileList;
using platform::FolderList;
using platform::ImageBox;
using platform::Text;
using platform::WindowDefinition;
using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::FailureOf;
using testing_support::PictureFile;
using testing_support::Robot;
using testing_support::SmallWindow;
using testing_support::TemporaryFolder;

constexpr ControlRow Row(platform::TextView name, ControlKind kind, int top, int height) {
  return {.name = name, .kind = kind, .left = 150, .top = top, .width = 2400, .height = height};
}

constexpr std::array kRows = {Row(u"drive", ControlKind::kDriveList, 0, 315),
                              Row(u"folders", ControlKind::kFolderList, 450, 2400),
                              Row(u"files", ControlKind::kFileList, 3000, 2400),
                              Row(u"image", ControlKind::kImage, 5550, 1200)};
constexpr WindowDefinition kWindow = {
    .name = u"Pick", .title = u"", .width = 3000, .height = 6900, .rows = kRows};

class PlatformChoosers : public testing::Test {
 protected:
  PlatformChoosers() {
    window.Load();
    folder.MakeFolder(u"Texts\\Old");
    folder.MakeFolder(u"music");
    folder.MakeFolder(u".hidden");
    folders.onChange = [this] { opened.push_back(folders.Path()); };
  }
  static std::vector<std::string> Lines(const char* name) {
    std::vector<std::string> all;
    const auto& list = Robot::FindAs<QListWidget>("Pick", name);
    all.reserve(static_cast<std::size_t>(list.count()));
    for (int i = 0; i < list.count(); ++i)
      all.push_back(list.item(i)->text().trimmed().toStdString());
    return all;
  }
  static std::string OpenOne() {
    std::string all;
    const auto& list = Robot::FindAs<QListWidget>("Pick", "folders");
    for (int i = 0; i < list.count(); ++i) {
      if (list.item(i)->font().bold()) all += list.item(i)->text().trimmed().toStdString();
    }
    return all;
  }
  std::vector<std::string> Inside() const {
    const std::vector<std::string> all = Lines("folders");
    const std::string self = std::filesystem::path(folder.HostPath()).filename();
    return {std::next(std::ranges::find(all, self)), all.end()};
  }

  TemporaryFolder folder;
  SmallWindow window{kWindow};
  DriveList drive{window, u"drive"};
  FolderList folders{window, u"folders"};
  FileList files{window, u"files"};
  ImageBox image{window, u"image"};
  std::vector<Text> opened;
};

TEST_F(PlatformChoosers, EveryUseWhileUnloadedIsAFailure) {
  window.Unload();
  for (const auto& use : std::vector<std::function<void()>>{
           [&] { drive.Drive(); }, [&] { drive.SetDrive(u"C:"); }, [&] { folders.Path(); },
           [&] { folders.SetPath(u"C:\\"); }, [&] { files.Path(); },
           [&] { files.SetPath(u"C:\\"); }, [&] { files.SetPattern(u"*"); },
           [&] { files.FileName(); }, [&] { image.LoadPicture(u"C:\\x"); },
           [&] { image.ClearPicture(); }, [&] { image.HasPicture(); }, [&] { image.Tag(); },
           [&] { image.SetTag(u""); }}) {
    EXPECT_THAT(FailureOf(use), testing::StartsWith("Object was unloaded: "));
  }
}

TEST_F(PlatformChoosers, TheDriveOfAnyPath) {
  int changes = 0;
  drive.onChange = [&] { ++changes; };
  EXPECT_EQ(drive.Drive(), u"C:");
  drive.SetDrive(u"c:\\home\\ali");
  EXPECT_EQ(drive.Drive(), u"C:");
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(FailureOf([&] { drive.SetDrive(u"D:"); }), "Device unavailable: D:");
  EXPECT_EQ(FailureOf([&] { drive.SetDrive(u""); }), "Device unavailable: ");
}

TEST_F(PlatformChoosers, ADriveThatTheUserPicksIsTold) {
  int changes = 0;
  drive.onChange = [&] { ++changes; };
  window.ShowActive();
  auto& combo = Robot::FindAs<QComboBox>("Pick", "drive");
  combo.showPopup();
  QTest::keyClick(combo.view(), Qt::Key_Return);
  Robot::Settle();
  EXPECT_EQ(changes, 1);
}

TEST_F(PlatformChoosers, TheFolderListShowsTheAncestorsAndWhatIsInside) {
  folders.SetPath(folder.Path());
  EXPECT_EQ(folders.Path(), folder.Path());
  EXPECT_EQ(Lines("folders").front(), "C:\\");
  EXPECT_EQ(OpenOne(), std::filesystem::path(folder.HostPath()).filename());
  EXPECT_THAT(Inside(), ElementsAre("music", "Texts"));
}

TEST_F(PlatformChoosers, AFolderIsOpenOnceItIsOpenedAndNotWhenItIsHighlighted) {
  window.ShowActive();
  folders.SetPath(folder.Path());
  opened.clear();
  Robot::ClickLine("Pick", "folders", "Texts");
  EXPECT_EQ(folders.Path(), folder.Path());
  EXPECT_THAT(opened, IsEmpty());
  Robot::DoubleClickLine("Pick", "folders", "Texts");
  EXPECT_EQ(folders.Path(), folder.Path(u"Texts"));
  EXPECT_THAT(opened, ElementsAre(folder.Path(u"Texts")));
  EXPECT_EQ(OpenOne(), "Texts");
  EXPECT_EQ(Lines("folders").back(), "Old");
}

TEST_F(PlatformChoosers, EnterOpensAFolderAndAnAncestorLeadsBack) {
  window.ShowActive();
  folders.SetPath(folder.Path(u"Texts"));
  Robot::ClickLine("Pick", "folders", "Old");
  Robot::PressKey("Pick", "folders", Qt::Key_Return);
  EXPECT_EQ(folders.Path(), folder.Path(u"Texts\\Old"));
  Robot::DoubleClickLine("Pick", "folders", "C:\\");
  EXPECT_EQ(folders.Path(), u"C:\\");
  EXPECT_EQ(OpenOne(), "C:\\");
}

TEST_F(PlatformChoosers, APathMayBeWrittenInManyWays) {
  folders.SetPath(folder.Path() + u"\\");
  EXPECT_EQ(folders.Path(), folder.Path());
  folders.SetPath(platform::Replace(folder.Path(), u"\\", u"/"));
  EXPECT_EQ(folders.Path(), folder.Path());
  EXPECT_EQ(opened.size(), 1U);
  folders.SetPath(u"C:");
  EXPECT_EQ(folders.Path(), u"C:\\");
}

TEST_F(PlatformChoosers, AFolderThatIsNotThereIsAFailureAndLeavesTheList) {
  folders.SetPath(folder.Path());
  files.SetPath(folder.Path());
  const auto before = Lines("folders");
  const Text missing = folder.Path(u"missing");
  const std::string failure = "Path not found: " + platform::ToUtf8(missing);
  EXPECT_EQ(FailureOf([&] { folders.SetPath(missing); }), failure);
  EXPECT_EQ(FailureOf([&] { files.SetPath(missing); }), failure);
  EXPECT_EQ(folders.Path(), folder.Path());
  EXPECT_EQ(files.Path(), folder.Path());
  EXPECT_EQ(Lines("folders"), before);
  EXPECT_EQ(opened.size(), 1U);
}

TEST_F(PlatformChoosers, AFolderThatCanNotBeReadIsAFailureForCodeAndStaysClosedForTheUser) {
  if (geteuid() == 0) GTEST_SKIP() << "nothing is unreadable for root";
  window.ShowActive();
  folder.Write(u"a.txt", "x");
  folders.SetPath(folder.Path());
  files.SetPath(folder.Path());
  chmod(folder.HostPath("Texts").c_str(), 0);
  EXPECT_NE(FailureOf([&] { folders.SetPath(folder.Path(u"Texts")); }), "none");
  EXPECT_NE(FailureOf([&] { files.SetPath(folder.Path(u"Texts")); }), "none");
  Robot::DoubleClickLine("Pick", "folders", "Texts");
  EXPECT_EQ(folders.Path(), folder.Path());
  EXPECT_EQ(files.Path(), folder.Path());
  EXPECT_THAT(Lines("files"), ElementsAre("a.txt"));
  chmod(folder.HostPath("Texts").c_str(), 0700);
}

// It may have gone since the list was made.
TEST_F(PlatformChoosers, AFolderThatHasGoneStaysClosed) {
  window.ShowActive();
  folders.SetPath(folder.Path());
  std::filesystem::remove(folder.HostPath("music"));
  opened.clear();
  Robot::DoubleClickLine("Pick", "folders", "music");
  EXPECT_EQ(folders.Path(), folder.Path());
  EXPECT_THAT(opened, IsEmpty());
}

TEST_F(PlatformChoosers, AChangeHandlersFailureReachesTheWriter) {
  folders.onChange = [] { throw platform::Failure(u"refused"); };
  EXPECT_EQ(FailureOf([&] { folders.SetPath(folder.Path()); }), "refused");
}

TEST_F(PlatformChoosers, FilesByPattern) {
  for (const Text name : {u"a.gif", u"B.JPG", u"c.bmp", u"d.png", u"noext", u"\u0643تاب.jpg"}) {
    folder.Write(name, "x");
  }
  files.SetPath(folder.Path());
  EXPECT_EQ(Lines("files").size(), 6U);
  files.SetPattern(u"*.gif;*.jpg;*.bmp");
  EXPECT_THAT(Lines("files"), ElementsAre("a.gif", "B.JPG", "c.bmp", "\u0643تاب.jpg"));
  files.SetPattern(u"*.PNG");
  EXPECT_THAT(Lines("files"), ElementsAre("d.png"));
  files.SetPattern(u"*.mp3");
  EXPECT_THAT(Lines("files"), IsEmpty());
  files.SetPattern(u"*.*");
  EXPECT_EQ(Lines("files").size(), 6U);
}

TEST_F(PlatformChoosers, TheSelectedFileGoesWithANewPathOrPattern) {
  folder.Write(u"a.jpg", "x");
  folder.Write(u"b.jpg", "x");
  window.ShowActive();
  files.SetPath(folder.Path());
  EXPECT_EQ(files.FileName(), u"");
  Robot::ClickLine("Pick", "files", "b.jpg");
  EXPECT_EQ(files.FileName(), u"b.jpg");
  files.SetPattern(u"*.jpg");
  EXPECT_EQ(files.FileName(), u"");
  Robot::ClickLine("Pick", "files", "a.jpg");
  files.SetPath(folder.Path());
  EXPECT_EQ(files.FileName(), u"");
}

TEST_F(PlatformChoosers, ADoubleClickOnAFileIsTold) {
  folder.Write(u"a.jpg", "x");
  std::vector<Text> seen;
  files.onDoubleClick = [&] { seen.push_back(files.FileName()); };
  window.ShowActive();
  files.SetPath(folder.Path());
  Robot::DoubleClickLine("Pick", "files", "a.jpg");
  Robot::PressKey("Pick", "files", Qt::Key_Enter);
  EXPECT_THAT(seen, ElementsAre(u"a.jpg", u"a.jpg"));
  auto& list = Robot::FindAs<QListWidget>("Pick", "files");
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, {5, 150});
  EXPECT_EQ(seen.size(), 2U);
}

TEST_F(PlatformChoosers, ADoubleClickMayUnloadTheWindow) {
  folder.Write(u"a.jpg", "x");
  files.onDoubleClick = [&] { window.Unload(); };
  window.ShowActive();
  files.SetPath(folder.Path());
  Robot::DoubleClickLine("Pick", "files", "a.jpg");
  EXPECT_FALSE(window.IsLoaded());
}

TEST_F(PlatformChoosers, PicturesOfTheKnownKindsAreShownWhatsoeverTheirNameSays) {
  // The smallest GIF: one pixel, red.
  const std::string gif("GIF89a\1\0\1\0\x80\0\0\xFF\0\0\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;", 35);
  window.ShowActive();
  for (const std::string& bytes : {PictureFile("JPG"), PictureFile("BMP"), gif}) {
    folder.Write(u"picture.jpg", bytes);
    image.ClearPicture();
    image.LoadPicture(folder.Path(u"picture.jpg"));
    EXPECT_TRUE(image.HasPicture());
    const QColor middle = Robot::Find("Pick", "image").grab().toImage().pixelColor(60, 40);
    EXPECT_NEAR(middle.red(), bytes == gif ? 0xFF : 0x33, 8);
  }
}

// Whatever its shape, a picture fills the whole control.
TEST_F(PlatformChoosers, PicturesAreStretched) {
  window.ShowActive();
  for (const QSize size : {QSize(200, 10), QSize(10, 200), QSize(3, 3)}) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(QString::fromStdString(folder.HostPath("shape.bmp"))));
    image.LoadPicture(folder.Path(u"shape.bmp"));
    const QImage shown = Robot::Find("Pick", "image").grab().toImage();
    for (const int x : {3, shown.width() - 4}) {
      for (const int y : {3, shown.height() - 4}) {
        EXPECT_EQ(shown.pixelColor(x, y), QColor(Qt::red)) << x << "," << y;
      }
    }
  }
}

TEST_F(PlatformChoosers, WhatIsNoPictureIsAFailureAndLeavesTheOldOne) {
  folder.Write(u"good.jpg", PictureFile("JPG"));
  folder.Write(u"damaged.jpg", "\xFF\xD8\xFF\xE0 no picture");
  folder.Write(u"empty.jpg", "");
  folder.MakeFolder(u"folder.jpg");
  image.LoadPicture(folder.Path(u"good.jpg"));
  for (const Text name : {u"damaged.jpg", u"empty.jpg", u"folder.jpg", u"missing.jpg"}) {
    EXPECT_THAT(
        FailureOf([&] { image.LoadPicture(folder.Path(name)); }),
        testing::StartsWith("Can't load the picture " + platform::ToUtf8(folder.Path(name))));
  }
  EXPECT_NE(FailureOf([&] { image.LoadPicture(u""); }), "none");
  EXPECT_TRUE(image.HasPicture());
  image.ClearPicture();
  EXPECT_FALSE(image.HasPicture());
}

TEST_F(PlatformChoosers, AnImageBoxHasATagAndIsClicked) {
  int clicks = 0;
  image.onClick = [&] { ++clicks; };
  EXPECT_EQ(image.Tag(), u"");
  image.SetTag(u"C:\\a.jpg");
  EXPECT_EQ(image.Tag(), u"C:\\a.jpg");
  window.ShowActive();
  QWidget& widget = Robot::Find("Pick", "image");
  EXPECT_EQ(widget.property("tag").toString(), "C:\\a.jpg");
  Robot::Click("Pick", "image");
  EXPECT_EQ(clicks, 1);
  QTest::mousePress(&widget, Qt::LeftButton);
  QTest::mouseRelease(&widget, Qt::LeftButton, Qt::NoModifier, {-5, -5});
  QTest::mouseClick(&widget, Qt::RightButton);
  EXPECT_EQ(clicks, 1);
}

TEST(PlatformImage, ThatTakesTheFocusIsAButtonToAScreenReaderAndAnyOtherAPicture) {
  SmallWindow window(support::Form6Definition());
  ImageBox background(window, u"Image1");
  int clicks = 0;
  background.onClick = [&] { ++clicks; };
  window.Load();
  const QString press = QAccessibleActionInterface::pressAction();
  auto* button = QAccessible::queryAccessibleInterface(&Robot::Find("Form6", "Image1"));
  EXPECT_EQ(button->role(), QAccessible::Button);
  EXPECT_TRUE(button->actionInterface()->actionNames().contains(press));
  button->actionInterface()->doAction(press);
  EXPECT_EQ(clicks, 1);
  auto* picture = QAccessible::queryAccessibleInterface(&Robot::Find("Form6", "IMG(0)"));
  EXPECT_EQ(picture->role(), QAccessible::Graphic);
  EXPECT_FALSE(picture->actionInterface()->actionNames().contains(press));
}

}  // namespace
