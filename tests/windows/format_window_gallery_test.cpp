// The gallery of a whole collection: its browser in the format window, and what is chosen in it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QScrollBar>
#include <QTest>
#include <filesystem>

#include "tests/support/gallery_desk.h"
#include "tests/support/ordinary_user.h"

namespace {

using platform::Text;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::FormatDesk;
using testing_support::GalleryDesk;
using testing_support::OrdinaryUser;
using testing_support::Robot;
using testing_support::Utf8;

class FormatWindowGallery : public testing::Test {
 protected:
  FormatWindowGallery() {
    desk.MakeFolders("Pictures");
    desk.OpenOn(u"Head Text");
  }
  // Gallery mode, with the folder of the pictures in the browser.
  void OpenPictures() {
    Robot::Click("Form3", "Com(12)");
    desk.OpenFolder("Form3");
  }
  void OpenPictures(int count) {
    desk.AddPictures(count);
    OpenPictures();
  }
  static QScrollBar& Bar() { return Robot::FindAs<QScrollBar>("Form3", "VSC"); }
  static void Scroll(int key) { Robot::PressKey("Form3", "VSC", key); }
  static std::vector<std::string> Names() { return GalleryDesk::Names("Form3"); }
  static std::vector<int> Ticked() { return GalleryDesk::Ticked("Form3"); }
  static void Tick(int row, const QString& title = {}) { GalleryDesk::Tick("Form3", row, title); }
  // The slots up to the first free one, as "path|title" with the folder left out.
  std::vector<std::string> Slots() const {
    std::vector<std::string> filled;
    const Text folder = desk.Picture({});
    for (std::ptrdiff_t slot = 0; !Gallery()(slot, 0).empty(); ++slot) {
      const Text path = platform::Replace(Gallery()(slot, 0), folder, u"*");
      filled.push_back(Utf8(path) + "|" + Utf8(Gallery()(slot, 1)));
    }
    return filled;
  }
  const workbench::GalleryTable& Gallery() const { return desk.form3.table.galleryPic; }
  workbench::GalleryTable& Gallery() { return desk.form3.table.galleryPic; }
  std::vector<std::string> NewLog(const std::function<void()>& act) const {
    const auto before = desk.LogLines().size();
    act();
    auto lines = desk.LogLines();
    lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(before));
    return lines;
  }

  GalleryDesk desk;
};

// Under the browser a key would work on a text that nobody sees.
TEST_F(FormatWindowGallery, TheTabKeyPassesOverWhatTheBrowserCovers) {
  OpenPictures(3);
  const QWidget& window = *Robot::FindWindow("Form3");
  for (const int key : {Qt::Key_Tab, Qt::Key_Backtab}) {
    std::vector<std::string> reached;
    QWidget* const start = &Robot::Find("Form3", "Com(12)");
    start->setFocus();
    do {
      QTest::keyClick(window.focusWidget(), static_cast<Qt::Key>(key));
      reached.push_back(window.focusWidget()->objectName().toStdString());
    } while (window.focusWidget() != start && reached.size() < 100);
    EXPECT_EQ(window.focusWidget(), start);
    EXPECT_THAT(reached, testing::IsSupersetOf({"bname", "VSC", "IMN(0)", "IMC(2)", "Com(13)"}));
    EXPECT_THAT(reached, testing::Each(testing::AllOf(testing::Ne("matn"), testing::Ne("bindex"),
                                                      testing::Ne("Com(3)"), testing::Ne("chnd"))));
  }
}

TEST_F(FormatWindowGallery, OpensOverTheTextAndShowsTheProgramsOwnFolder) {
  EXPECT_EQ(NewLog([] { Robot::Click("Form3", "Com(12)"); }),
            (std::vector<std::string>{"Format number 12 clicked.", "Getting folder pics...",
                                      "Pics got."}));
  EXPECT_TRUE(desk.form3.galleryMode);
  EXPECT_EQ(FormatDesk::Shown("Com(12)"), "حذف گالري تصوير");
  EXPECT_TRUE(Robot::Find("Form3", "Frame4").isVisible());
  for (const char* label : {"Label1", "Label3"}) {
    EXPECT_TRUE(Robot::Find("Form3", label).isHidden()) << label;
  }
  EXPECT_EQ(FormatDesk::Shown("ShPath"), Utf8(desk.Path()));
}

TEST_F(FormatWindowGallery, PressedTwiceGivesUpTheSelection) {
  OpenPictures(2);
  Tick(0);
  Tick(1);
  Tick(0);
  Robot::Click("Form3", "Com(12)");
  EXPECT_FALSE(desk.form3.galleryMode);
  EXPECT_EQ(FormatDesk::Shown("Com(12)"), "ايجاد گالري تصوير");
  EXPECT_TRUE(Robot::Find("Form3", "Frame4").isHidden());
  EXPECT_TRUE(Robot::Find("Form3", "Label1").isVisible());
  EXPECT_TRUE(Robot::Find("Form3", "Label3").isVisible());
  EXPECT_THAT(Slots(), IsEmpty());
  EXPECT_EQ(Gallery()(1, 0), u"");
}

TEST_F(FormatWindowGallery, AFolderWithoutPicturesShowsNoRowAndDoesNotScroll) {
  desk.Write("Pictures/note.txt", "no picture");
  desk.MakeFolders("Pictures/folder.jpg");
  OpenPictures();
  EXPECT_THAT(Names(), IsEmpty());
  EXPECT_EQ(desk.form3.pictures.folderPicCount, 0);
  EXPECT_EQ(Bar().maximum(), 1);
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowGallery, FivePicturesShowWithoutScrolling) {
  OpenPictures(5);
  EXPECT_THAT(Names(), ElementsAre("p1.jpg", "p2.jpg", "p3.jpg", "p4.jpg", "p5.jpg"));
  EXPECT_EQ(Bar().minimum(), 1);
  EXPECT_EQ(Bar().maximum(), 1);
  EXPECT_EQ(Bar().singleStep(), 1);
  EXPECT_EQ(Bar().pageStep(), 1);
}

TEST_F(FormatWindowGallery, SixPicturesHaveFourStopsOfWhichTheLastShowsThree) {
  OpenPictures(6);
  EXPECT_EQ(Bar().maximum(), 4);
  EXPECT_EQ(Bar().singleStep(), 1);
  EXPECT_EQ(Bar().pageStep(), 5);
  EXPECT_EQ(Bar().value(), 1);
  Scroll(Qt::Key_Down);
  EXPECT_THAT(Names(), ElementsAre("p2.jpg", "p3.jpg", "p4.jpg", "p5.jpg", "p6.jpg"));
  Scroll(Qt::Key_End);
  EXPECT_EQ(Bar().value(), 4);
  EXPECT_THAT(Names(), ElementsAre("p4.jpg", "p5.jpg", "p6.jpg"));
}

TEST_F(FormatWindowGallery, CapitalsAndANameWithoutADotCount) {
  for (const char* name : {"Photo.JPG", "photo2.jpg", "jpg"}) desk.AddPicture(name);
  desk.Write("Pictures/other.jpeg", "");
  OpenPictures();
  EXPECT_THAT(Names(), ElementsAre("jpg", "Photo.JPG", "photo2.jpg"));
}

TEST_F(FormatWindowGallery, PersianNamesBracketsAndMarksAreShownAndChosen) {
  for (const char* name : {"باغ (1).jpg", "گل\u200Fها [2].jpg"}) desk.AddPicture(name);
  OpenPictures();
  Tick(0);
  Tick(1);
  EXPECT_THAT(Slots(), ElementsAre("*باغ (1).jpg|", "*گل\u200Fها [2].jpg|"));
  Scroll(Qt::Key_Home);
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowGallery, ALongPathIsShownByItsBothEnds) {
  const std::string folder = "Pictures/" + std::string(130, 'a');
  desk.MakeFolders(folder);
  desk.form3.SetGalFol(desk.Path(platform::Replace(platform::FromUtf8(folder), u"/", u"\\")), 0);
  EXPECT_EQ(FormatDesk::Shown("ShPath"), "C:\\..." + std::string(115, 'a'));
}

TEST_F(FormatWindowGallery, TickingTakesThePictureWithItsTitleWhichIsThenFrozen) {
  OpenPictures(2);
  EXPECT_EQ(NewLog([] { Tick(1, "گل"); }),
            (std::vector<std::string>{"Adding a pic to the gallery...", "Pic added."}));
  EXPECT_THAT(Slots(), ElementsAre("*p2.jpg|گل"));
  EXPECT_FALSE(GalleryDesk::TitleIsOpen("Form3", 1));
  EXPECT_TRUE(GalleryDesk::TitleIsOpen("Form3", 0));
}

TEST_F(FormatWindowGallery, UntickingTakesItOutWithItsTitle) {
  OpenPictures(2);
  Tick(0, "گل");
  EXPECT_EQ(NewLog([] { Tick(0); }),
            (std::vector<std::string>{"Removing a pic of the gallery...", "Pic removed."}));
  EXPECT_THAT(Slots(), ElementsAre("Removed|"));
  EXPECT_TRUE(GalleryDesk::TitleIsOpen("Form3", 0));
  EXPECT_EQ(GalleryDesk::TitleOf("Form3", 0), "");
}

TEST_F(FormatWindowGallery, TheSpaceKeyOnATickAddsThePictureAndTakesItOut) {
  OpenPictures(2);
  Robot::Type("Form3", "IMN(1)", "title");
  Robot::PressKey("Form3", "IMC(1)", Qt::Key_Space);
  EXPECT_THAT(Slots(), ElementsAre("*p2.jpg|title"));
  EXPECT_FALSE(GalleryDesk::TitleIsOpen("Form3", 1));
  Robot::PressKey("Form3", "IMC(1)", Qt::Key_Space);
  EXPECT_THAT(Slots(), ElementsAre("Removed|"));
  EXPECT_TRUE(GalleryDesk::TitleIsOpen("Form3", 1));
}

TEST_F(FormatWindowGallery, AnotherPictureTakesTheFirstSlotWhileTheLaterOnesStay) {
  OpenPictures(3);
  Tick(0);
  Tick(1);
  Tick(0);
  Tick(2, "سوم");
  EXPECT_THAT(Slots(), ElementsAre("*p3.jpg|سوم", "*p2.jpg|"));
}

TEST_F(FormatWindowGallery, TickedAgainWithAnotherTitleThatOneIsKept) {
  OpenPictures(1);
  Tick(0, "نخست");
  Tick(0);
  Tick(0, "دوم");
  EXPECT_THAT(Slots(), ElementsAre("*p1.jpg|دوم"));
}

TEST_F(FormatWindowGallery, ScrollingAwayAndBackBringsTicksAndTitlesFromTheGalleryAlone) {
  OpenPictures(7);
  Tick(0, "نخست");
  Tick(1);
  Robot::Type("Form3", "IMN(2)", "never ticked");
  Scroll(Qt::Key_End);
  EXPECT_THAT(Ticked(), IsEmpty());
  Scroll(Qt::Key_Home);
  EXPECT_THAT(Ticked(), ElementsAre(0, 1));
  EXPECT_EQ(GalleryDesk::TitleOf("Form3", 0), "نخست");
  EXPECT_FALSE(GalleryDesk::TitleIsOpen("Form3", 1));
  EXPECT_EQ(GalleryDesk::TitleOf("Form3", 2), "");
  EXPECT_TRUE(GalleryDesk::TitleIsOpen("Form3", 2));
}

TEST_F(FormatWindowGallery, APictureAfterAFreeSlotIsNotFound) {
  desk.AddPictures(1);
  Gallery().Set(1, 0, desk.Picture(u"p1.jpg"));
  OpenPictures();
  EXPECT_THAT(Ticked(), IsEmpty());
}

TEST_F(FormatWindowGallery, RemovingAPictureThatIsNotInTheGalleryKeepsTheTypedTitle) {
  OpenPictures(1);
  Robot::Type("Form3", "IMN(0)", "title");
  const auto log = NewLog([this] { desk.form3.RemPicGal(0); });
  EXPECT_EQ(log.back(), "Pic removed.");
  EXPECT_THAT(Slots(), IsEmpty());
  EXPECT_EQ(GalleryDesk::TitleOf("Form3", 0), "title");
}

TEST_F(FormatWindowGallery, AGalleryMayHoldPicturesOfSeveralFolders) {
  desk.AddPictures(1);
  desk.AddPicture("p1.jpg", "Others");
  OpenPictures();
  Tick(0);
  desk.OpenFolder("Form3", "Others");
  EXPECT_THAT(Ticked(), IsEmpty());
  Tick(0, "another");
  EXPECT_THAT(Slots(),
              ElementsAre("*p1.jpg|", Utf8(desk.Picture(u"p1.jpg", u"Others")) + "|another"));
}

TEST_F(FormatWindowGallery, AnotherFolderIsShownFromItsTop) {
  OpenPictures(9);
  desk.AddPicture("q.jpg", "Others");
  Scroll(Qt::Key_End);
  desk.OpenFolder("Form3", "Others");
  EXPECT_THAT(Names(), ElementsAre("q.jpg"));
  EXPECT_EQ(Bar().value(), 1);
}

// The list is one step longer than the folder, which adds the folder itself.
TEST_F(FormatWindowGallery, SelectingAllOfOnePictureAddsTheFolderAfterIt) {
  OpenPictures(1);
  const auto log = NewLog([this] { desk.form3.SelAll_Click(); });
  EXPECT_EQ(log, (std::vector<std::string>{"Adding all pic to the gallery...", "All Pic added."}));
  EXPECT_THAT(Slots(), ElementsAre("*p1.jpg|", "*|"));
  EXPECT_THAT(Ticked(), IsEmpty());
}

TEST_F(FormatWindowGallery, SelectingAllAddsANameThatAnEarlierFolderLeft) {
  OpenPictures(3);
  desk.AddPicture("q.jpg", "Others");
  desk.OpenFolder("Form3", "Others");
  desk.form3.SelAll_Click();
  EXPECT_EQ(Gallery()(1, 0), desk.Picture(u"p2.jpg", u"Others"));
}

TEST_F(FormatWindowGallery, SelectingAllDoesNotAskWhetherAPictureIsThereNorWhatItsTitleIs) {
  OpenPictures(2);
  Tick(0, "title");
  Robot::Type("Form3", "IMN(1)", "typed");
  desk.form3.SelAll_Click();
  EXPECT_THAT(Slots(), ElementsAre("*p1.jpg|title", "*p1.jpg|", "*p2.jpg|", "*|"));
  EXPECT_EQ(GalleryDesk::TitleOf("Form3", 1), "typed");
}

TEST_F(FormatWindowGallery, TheButtonForAllIsNeverShown) {
  OpenPictures(2);
  EXPECT_TRUE(Robot::Find("Form3", "SelAll").isHidden());
}

TEST_F(FormatWindowGallery, TheButtonBelowBuildsAndPassesOverTombstones) {
  OpenPictures(3);
  Tick(0, "نخست");
  Tick(1, "دوم");
  Tick(2, "سوم");
  Tick(1);
  Robot::Click("Form3", "Com(13)");
  EXPECT_THAT(desk.robot.TakeBoxes(), SizeIs(1));
  EXPECT_THAT(desk.Collection("aTitle1"),
              HasSubstr("\t<img dtl=\"نخست\">Data/IMG/S.jpg</img>\r\n"
                        "\t<img dtl=\"سوم\">Data/IMG/S.jpg</img>\r\n</gallery>"));
  EXPECT_THAT(Slots(), IsEmpty());
  EXPECT_TRUE(desk.form3.galleryMode);
}

TEST_F(FormatWindowGallery, AFolderThatVanishedIsNotMissedByTheNextChoice) {
  OpenPictures(2);
  std::filesystem::remove_all(desk.HostPath("Pictures"));
  desk.MakeFolders("Others");
  desk.OpenFolder("Form3", "Others");
  EXPECT_THAT(Names(), IsEmpty());
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowGallery, APictureThatCanNotBeLoadedFailsInTheChoice) {
  desk.AddPictures(2);
  desk.Write("Pictures/p0.jpg", "no picture");
  OpenPictures();
  EXPECT_EQ(desk.LoggedFailures(44), 1);
  EXPECT_TRUE(desk.form3.IsVisible());
}

TEST_F(FormatWindowGallery, AnEmptyPictureFailsInTheChoice) {
  desk.Write("Pictures/p0.jpg", "");
  OpenPictures();
  EXPECT_EQ(desk.LoggedFailures(44), 1);
}

TEST_F(FormatWindowGallery, AFolderThatLosesItsRightsInTheChooserFailsInTheChoice) {
  OpenPictures(1);
  desk.AddPicture("q.jpg", "Others");
  const OrdinaryUser user(desk.folder.HostPath());
  if (!user.IsOrdinary()) GTEST_SKIP() << "nobody refuses this user anything";
  desk.robot.WhenShown("Form2", [this] {
    Robot::DoubleClickLine("Form2", "Dir1", "Others");
    std::filesystem::permissions(desk.HostPath("Others"), std::filesystem::perms::owner_exec);
    Robot::Click("Form2", "btn(0)");
  });
  Robot::Click("Form3", "Command1");
  EXPECT_EQ(desk.LoggedFailures(44), 1);
  EXPECT_THAT(Names(), ElementsAre(""));
  std::filesystem::permissions(desk.HostPath("Others"), std::filesystem::perms::owner_all);
  desk.OpenFolder("Form3", "Others");
  EXPECT_THAT(Names(), ElementsAre("q.jpg"));
  EXPECT_EQ(desk.AllLoggedFailures(), 1);
}

TEST_F(FormatWindowGallery, AChoiceThatFailsLeavesTheRowsBlankInTheirPlacesAndATitleFrozen) {
  OpenPictures(2);
  Tick(0, "title");
  desk.MakeFolders("Others");
  desk.files.FailWhere("FileNames", "Others");
  desk.OpenFolder("Form3", "Others");
  EXPECT_EQ(desk.LoggedFailures(44), 1);
  EXPECT_THAT(Names(), ElementsAre("", ""));
  for (const int row : {0, 1}) {
    EXPECT_FALSE(desk.form3.IMG(row).HasPicture()) << row;
    EXPECT_EQ(GalleryDesk::TitleOf("Form3", row), "") << row;
  }
  EXPECT_THAT(Ticked(), IsEmpty());
  EXPECT_FALSE(GalleryDesk::TitleIsOpen("Form3", 0));
  EXPECT_TRUE(GalleryDesk::TitleIsOpen("Form3", 1));
  EXPECT_THAT(Slots(), ElementsAre("*p1.jpg|title"));
}

TEST_F(FormatWindowGallery, ADamagedPictureBesideTheProgramFailsAtTheOpening) {
  desk.Write("p0.jpg", "no picture");
  Robot::Click("Form3", "Com(12)");
  EXPECT_EQ(desk.LoggedFailures(59), 1);
  EXPECT_TRUE(desk.form3.galleryMode);
}

TEST_F(FormatWindowGallery, Failure46TheProgramFolderIsGone) {
  Robot::Click("Form3", "Com(12)");
  std::filesystem::remove_all(desk.HostPath(""));
  Robot::Click("Form3", "Command1");
  EXPECT_THAT(desk.folder.Read(u"state\\ZVL.log"), HasSubstr("Error number is 46"));
}

TEST_F(FormatWindowGallery, Failures54And55And57NoSuchRow) {
  OpenPictures(1);
  desk.form3.AddPicGal(5);
  EXPECT_EQ(desk.LoggedFailures(54), 1);
  desk.form3.IMC_MouseUp(5);
  EXPECT_EQ(desk.LoggedFailures(55), 1);
  desk.form3.RemPicGal(5);
  EXPECT_EQ(desk.LoggedFailures(57), 1);
  EXPECT_THAT(Slots(), IsEmpty());
}

TEST_F(FormatWindowGallery, Failure54SelectingAllBeforeAnyFolderWasShown) {
  desk.form3.SelAll_Click();
  EXPECT_EQ(desk.LoggedFailures(54), 1);
}

}  // namespace
