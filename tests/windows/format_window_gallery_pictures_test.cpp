// The collection's gallery over pictures and folders of every kind: huge, half, unreadable, many.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QScrollBar>
#include <filesystem>

#include "tests/support/gallery_desk.h"
#include "tests/support/ordinary_user.h"

namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::GalleryDesk;
using testing_support::OrdinaryUser;
using testing_support::Robot;

class FormatWindowGalleryPictures : public testing::Test {
 protected:
  FormatWindowGalleryPictures() {
    desk.MakeFolders("Pictures");
    desk.OpenOn(u"Head Text");
  }
  void OpenPictures() {
    Robot::Click("Form3", "Com(12)");
    desk.OpenFolder("Form3");
  }
  static void Scroll(int key) { Robot::PressKey("Form3", "VSC", key); }
  static std::vector<std::string> Names() { return GalleryDesk::Names("Form3"); }
  static void Tick(int row) { GalleryDesk::Tick("Form3", row); }
  // What the editor sees of a row's picture, in its middle.
  static QRgb Middle(int row) {
    QWidget& image = Robot::Find("Form3", QStringLiteral("IMG(%1)").arg(row));
    return image.grab().toImage().pixel(image.rect().center());
  }
  std::string Picture(int number) const { return "Pictures/p" + std::to_string(number) + ".jpg"; }

  GalleryDesk desk;
};

TEST_F(FormatWindowGalleryPictures, APictureFillsItsBoxWhateverItsSize) {
  desk.AddPicture("a.jpg", "Pictures", 1, 1);
  desk.AddPicture("b.jpg", "Pictures", 3000, 2);
  desk.AddPicture("c.jpg", "Pictures", 2, 3000);
  OpenPictures();
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
  for (int row = 0; row < 3; ++row) {
    EXPECT_NEAR(qGreen(Middle(row)), 120, 6) << row;
    EXPECT_NEAR(qBlue(Middle(row)), 60, 6) << row;
  }
}

TEST_F(FormatWindowGalleryPictures, AHugePictureIsShownAndChosen) {
  desk.AddHugePicture("huge.jpg");
  OpenPictures();
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
  EXPECT_NEAR(qGreen(Middle(0)), 128, 3);
  Tick(0);
  EXPECT_EQ(desk.form3.table.galleryPic(0, 0), desk.Picture(u"huge.jpg"));
}

// A camera's card that was pulled out too early.
TEST_F(FormatWindowGalleryPictures, APictureThatEndsInTheMiddleIsShownAsFarAsItGoes) {
  desk.AddPicture("half.jpg", "Pictures", 600, 400);
  const std::string whole = desk.Read("Pictures/half.jpg");
  desk.Write("Pictures/half.jpg", whole.substr(0, whole.size() - 100));
  OpenPictures();
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
  EXPECT_THAT(Names(), ElementsAre("half.jpg"));
}

TEST_F(FormatWindowGalleryPictures, APictureOfWhichOnlyTheHeadIsLeftFailsInTheChoice) {
  desk.AddPicture("head.jpg");
  desk.Write("Pictures/head.jpg", desk.Read("Pictures/head.jpg").substr(0, 20));
  OpenPictures();
  EXPECT_EQ(desk.LoggedFailures(44), 1);
  EXPECT_TRUE(desk.form3.IsVisible());
}

// Rows in front of the one that fails are whole, so the editor sees which picture it is.
TEST_F(FormatWindowGalleryPictures, TheRowsInFrontOfADamagedPictureAreShown) {
  desk.AddPictures(3);
  desk.Write(Picture(2), "no picture");
  OpenPictures();
  const std::vector<std::string> names = Names();
  ASSERT_THAT(names, SizeIs(testing::Ge(2)));
  EXPECT_EQ(names[0], "p1.jpg");
  EXPECT_EQ(names[1], "p2.jpg");
  EXPECT_EQ(desk.LoggedFailures(44), 1);
  desk.AddPictures(3);
  desk.OpenFolder("Form3");
  EXPECT_THAT(Names(), ElementsAre("p1.jpg", "p2.jpg", "p3.jpg"));
  EXPECT_EQ(desk.LoggedFailures(44), 1);
}

TEST_F(FormatWindowGalleryPictures, TheRowsBehindADamagedPictureHaveNoName) {
  desk.AddPictures(4);
  OpenPictures();
  desk.Write(Picture(2), "no picture");
  desk.OpenFolder("Form3");
  EXPECT_THAT(Names(), ElementsAre("p1.jpg", "p2.jpg", "", ""));
  EXPECT_EQ(desk.LoggedFailures(44), 1);
}

TEST_F(FormatWindowGalleryPictures, APictureWithoutRightsFailsInTheChoice) {
  desk.AddPictures(2);
  fs::permissions(desk.HostPath(Picture(2)), fs::perms::none);
  const OrdinaryUser user(desk.folder.HostPath());
  if (!user.IsOrdinary()) GTEST_SKIP() << "nobody refuses this user anything";
  OpenPictures();
  EXPECT_EQ(desk.LoggedFailures(44), 1);
  EXPECT_TRUE(desk.form3.IsVisible());
}

TEST_F(FormatWindowGalleryPictures, FoldersAndLinksToNowhereAreNoPictures) {
  desk.AddPictures(1);
  desk.MakeFolders("Pictures/folder.jpg");
  fs::create_symlink("gone", desk.HostPath("Pictures/link.jpg"));
  fs::create_symlink("p1.jpg", desk.HostPath("Pictures/other.jpg"));
  OpenPictures();
  EXPECT_THAT(Names(), ElementsAre("other.jpg", "p1.jpg"));
}

TEST_F(FormatWindowGalleryPictures, APictureThatVanishedAfterItWasChosenEndsTheBuild) {
  desk.AddPictures(2);
  OpenPictures();
  Tick(0);
  Tick(1);
  fs::remove(desk.HostPath(Picture(2)));
  Robot::Click("Form3", "Com(13)");
  EXPECT_EQ(desk.LoggedFailures(57), 1);
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  EXPECT_TRUE(desk.form3.IsVisible());
  EXPECT_EQ(desk.form3.table.galleryPic(1, 0), desk.Picture(u"p2.jpg"));
  desk.AddPictures(2);
  desk.robot.AnswerYes();
  Robot::Click("Form3", "Com(13)");
  EXPECT_EQ(desk.LoggedFailures(57), 1);
  EXPECT_EQ(desk.Collection("aTitle1"),
            "<?xml version=\"1.0\"?>\r\n<gallery>\r\n"
            "\t<img dtl=\"\">Data/IMG/S.jpg</img>\r\n"
            "\t<img dtl=\"\">Data/IMG/S.jpg</img>\r\n</gallery>\r\n");
}

TEST_F(FormatWindowGalleryPictures, LeavingTheModeAndComingBackShowsTheProgramsOwnFolder) {
  desk.AddPictures(9);
  desk.AddPicture("own.jpg", ".");
  OpenPictures();
  Scroll(Qt::Key_End);
  Robot::Click("Form3", "Com(12)");
  Robot::Click("Form3", "Com(12)");
  EXPECT_THAT(Names(), ElementsAre("own.jpg"));
  EXPECT_EQ(Robot::FindAs<QScrollBar>("Form3", "VSC").value(), 1);
}

// A folder of six or more pictures leaves the scroll bar where it is, beside rows from the top.
TEST_F(FormatWindowGalleryPictures, ComingBackToSixOrMoreShowsTheTopWhileTheScrollBarStays) {
  for (int i = 1; i <= 9; ++i) desk.AddPicture("own" + std::to_string(i) + ".jpg", ".");
  Robot::Click("Form3", "Com(12)");
  Scroll(Qt::Key_End);
  EXPECT_THAT(Names(), ElementsAre("own7.jpg", "own8.jpg", "own9.jpg"));
  Robot::Click("Form3", "Com(12)");
  Robot::Click("Form3", "Com(12)");
  EXPECT_EQ(Names().front(), "own1.jpg");
  EXPECT_EQ(Robot::FindAs<QScrollBar>("Form3", "VSC").value(), 7);
  Scroll(Qt::Key_Up);
  EXPECT_EQ(Names().front(), "own6.jpg");
}

// Ten thousand pictures of which all can't be decoded but those that are seen: one more that was
// decoded would end the test.
class ManyPictures : public FormatWindowGalleryPictures {
 protected:
  static constexpr int kCount = 10'000;

  ManyPictures() {
    desk.AddPicture("good.jpg", "Kept");
    desk.Write("Kept/bad.jpg", "no picture");
    for (int i = 1; i <= kCount; ++i) Link(i, "bad.jpg");
  }
  static std::string NameOf(int number) { return "p" + std::to_string(100'000 + number) + ".jpg"; }
  // From 1.
  void Link(int number, const std::string& kind) const {
    const std::string path = desk.HostPath("Pictures/" + NameOf(number));
    fs::remove(path);
    fs::create_hard_link(desk.HostPath("Kept/" + kind), path);
  }
  void MakeGood(int from, int to) const {
    for (int number = from; number <= to; ++number) Link(number, "good.jpg");
  }
  // File operations of `act` that aren't the log's.
  std::vector<std::string> OperationsOf(const std::function<void()>& act) {
    desk.files.FailAt(testing_support::FaultyFileSystem::kNever);
    act();
    std::vector<std::string> all = desk.files.Names();
    std::erase_if(all, [](const std::string& name) {
      return name.ends_with("ZVL.txt") || name.ends_with("ZVL.log");
    });
    return all;
  }
};

TEST_F(ManyPictures, AreListedOnceAndOnlyTheFiveThatAreSeenAreDecoded) {
  MakeGood(1, 5);
  Robot::Click("Form3", "Com(12)");
  const auto folder = testing_support::Utf8(desk.Path(u"Pictures"));
  EXPECT_EQ(OperationsOf([&] { desk.form3.SetGalFol(desk.Path(u"Pictures"), 0); }),
            (std::vector<std::string>{"FileNames " + folder}));
  EXPECT_EQ(desk.form3.pictures.folderPicCount, kCount);
  EXPECT_THAT(Names(), ElementsAre(NameOf(1), NameOf(2), NameOf(3), NameOf(4), NameOf(5)));
  EXPECT_EQ(Robot::FindAs<QScrollBar>("Form3", "VSC").maximum(), kCount - 2);
}

TEST_F(ManyPictures, ScrollingAsksForNoFolderAndDecodesWhatIsSeen) {
  MakeGood(1, 10);
  MakeGood(kCount - 2, kCount);
  OpenPictures();
  EXPECT_THAT(OperationsOf([] {
                Scroll(Qt::Key_PageDown);
                EXPECT_EQ(Names().front(), NameOf(6));
                Scroll(Qt::Key_End);
              }),
              IsEmpty());
  EXPECT_THAT(Names(), ElementsAre(NameOf(kCount - 2), NameOf(kCount - 1), NameOf(kCount)));
}

TEST_F(ManyPictures, CanAllBeChosenAtOnceAndAreFoundAgain) {
  MakeGood(1, 5);
  MakeGood(kCount - 2, kCount);
  OpenPictures();
  desk.form3.SelAll_Click();
  Scroll(Qt::Key_End);
  EXPECT_THAT(GalleryDesk::Ticked("Form3"), ElementsAre(0, 1, 2));
  Tick(2);
  EXPECT_EQ(desk.form3.table.galleryPic(kCount - 1, 0), u"Removed");
  EXPECT_EQ(desk.form3.table.galleryPic(kCount, 0), desk.Path(u"Pictures") + u"\\");
}

}  // namespace
