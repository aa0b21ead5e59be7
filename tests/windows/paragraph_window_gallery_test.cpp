// The gallery of one entry: its browser in the paragraph window, and what a build makes of it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QScrollBar>
#include <filesystem>

#include "tests/support/gallery_desk.h"
#include "tests/support/ordinary_user.h"

namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::FormatDesk;
using testing_support::GalleryDesk;
using testing_support::OrdinaryUser;
using testing_support::Robot;
using testing_support::Utf8;

constexpr const char* kHead = "<?xml version=\"1.0\"?>\r\n<gallery>\r\n";

class ParagraphGallery : public testing::Test {
 protected:
  ParagraphGallery() {
    desk.MakeFolders("Pictures");
    desk.OpenOn(u"Head\r\nText\r\nNext\r\nMore");
    FormatDesk::FileHeading("Head", "Text");
    FormatDesk::FileHeading("Next", "More");
  }
  // Opens entry `row` with its browser on the folder of the pictures, does `act`, keeps the
  // changes.
  void InGallery(const std::function<void()>& act, int row = 0) {
    desk.InEntry(row, [&] {
      if (Robot::Find("Form6", "Frame4").isHidden()) Robot::Click("Form6", "btn(5)");
      desk.OpenFolder("Form6");
      act();
      Robot::Click("Form6", "btn(4)");
    });
  }
  void InGalleryOf(int pictures, const std::function<void()>& act) {
    desk.AddPictures(pictures);
    InGallery(act);
  }
  static QScrollBar& Bar() { return Robot::FindAs<QScrollBar>("Form6", "VSC"); }
  static void Scroll(int key) { Robot::PressKey("Form6", "VSC", key); }
  static std::vector<std::string> Names() { return GalleryDesk::Names("Form6"); }
  static std::vector<int> Ticked() { return GalleryDesk::Ticked("Form6"); }
  static void Tick(int row, const QString& title = {}) { GalleryDesk::Tick("Form6", row, title); }
  // The slots of an entry up to the first free one, as "path|title" with the folder left out.
  std::vector<std::string> Slots(std::ptrdiff_t row = 0) const {
    const workbench::EntryTable& table = desk.form3.table;
    std::vector<std::string> filled;
    for (std::ptrdiff_t slot = 0; !table.entryGalPath(row, slot).empty(); ++slot) {
      const auto path = platform::Replace(table.entryGalPath(row, slot), desk.Picture({}), u"*");
      filled.push_back(Utf8(path) + "|" + Utf8(table.entryGalTitle(row, slot)));
    }
    return filled;
  }
  std::vector<std::string> NewLog(const std::function<void()>& act) const {
    const auto before = desk.LogLines().size();
    act();
    auto lines = desk.LogLines();
    lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(before));
    return lines;
  }
  // The gallery files that a build leaves.
  std::vector<std::string> BuiltGalleries() {
    Robot::PressKey("Form3", "matn", Qt::Key_F12);
    return desk.BuiltGalleries();
  }

  GalleryDesk desk;
};

TEST_F(ParagraphGallery, AFolderWithoutPicturesShowsNoRowAndDoesNotScroll) {
  InGallery([] {
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_EQ(Bar().maximum(), 1);
  });
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(ParagraphGallery, FivePicturesShowWithoutScrolling) {
  InGalleryOf(5, [] {
    EXPECT_THAT(Names(), ElementsAre("p1.jpg", "p2.jpg", "p3.jpg", "p4.jpg", "p5.jpg"));
    EXPECT_EQ(Bar().maximum(), 1);
    EXPECT_EQ(Bar().pageStep(), 1);
  });
}

TEST_F(ParagraphGallery, SixPicturesHaveFourStopsOfWhichTheLastShowsThree) {
  InGalleryOf(6, [] {
    EXPECT_EQ(Bar().minimum(), 1);
    EXPECT_EQ(Bar().maximum(), 4);
    EXPECT_EQ(Bar().singleStep(), 1);
    EXPECT_EQ(Bar().pageStep(), 5);
    Scroll(Qt::Key_Down);
    EXPECT_THAT(Names(), ElementsAre("p2.jpg", "p3.jpg", "p4.jpg", "p5.jpg", "p6.jpg"));
    Scroll(Qt::Key_PageDown);
    EXPECT_EQ(Bar().value(), 4);
    EXPECT_THAT(Names(), ElementsAre("p4.jpg", "p5.jpg", "p6.jpg"));
  });
}

TEST_F(ParagraphGallery, TickingTakesThePictureWithItsTitleWhichIsThenFrozen) {
  InGalleryOf(2, [this] {
    EXPECT_EQ(NewLog([] { Tick(1, "گل"); }),
              (std::vector<std::string>{"Adding a pic to the gallery...", "Pic added."}));
    EXPECT_FALSE(GalleryDesk::TitleIsOpen("Form6", 1));
    EXPECT_TRUE(GalleryDesk::TitleIsOpen("Form6", 0));
  });
  EXPECT_THAT(Slots(), ElementsAre("*p2.jpg|گل"));
}

TEST_F(ParagraphGallery, UntickingTakesItOutWithItsTitle) {
  InGalleryOf(2, [this] {
    Tick(0, "گل");
    EXPECT_EQ(NewLog([] { Tick(0); }),
              (std::vector<std::string>{"Removing a pic of the gallery...", "Pic removed."}));
    EXPECT_TRUE(GalleryDesk::TitleIsOpen("Form6", 0));
    EXPECT_EQ(GalleryDesk::TitleOf("Form6", 0), "");
  });
  EXPECT_THAT(Slots(), ElementsAre("Removed|"));
}

TEST_F(ParagraphGallery, TheSpaceKeyOnATickAddsThePictureAndTakesItOut) {
  InGalleryOf(2, [this] {
    Robot::Type("Form6", "IMN(1)", "title");
    Robot::PressKey("Form6", "IMC(1)", Qt::Key_Space);
    EXPECT_THAT(Slots(), ElementsAre("*p2.jpg|title"));
    EXPECT_FALSE(GalleryDesk::TitleIsOpen("Form6", 1));
    Robot::PressKey("Form6", "IMC(1)", Qt::Key_Space);
    EXPECT_THAT(Slots(), ElementsAre("Removed|"));
    EXPECT_TRUE(GalleryDesk::TitleIsOpen("Form6", 1));
  });
}

TEST_F(ParagraphGallery, AnotherPictureTakesTheFirstSlotWhileTheLaterOnesStay) {
  InGalleryOf(3, [] {
    Tick(0);
    Tick(1);
    Tick(0);
    Tick(2, "سوم");
  });
  EXPECT_THAT(Slots(), ElementsAre("*p3.jpg|سوم", "*p2.jpg|"));
}

TEST_F(ParagraphGallery, TickedAgainWithAnotherTitleThatOneIsKept) {
  InGalleryOf(1, [] {
    Tick(0, "نخست");
    Tick(0);
    Tick(0, "دوم");
  });
  EXPECT_THAT(Slots(), ElementsAre("*p1.jpg|دوم"));
}

TEST_F(ParagraphGallery, ScrollingAwayAndBackBringsTicksAndTitlesFromTheGalleryAlone) {
  InGalleryOf(7, [] {
    Tick(0, "نخست");
    Robot::Type("Form6", "IMN(2)", "never ticked");
    Scroll(Qt::Key_End);
    EXPECT_THAT(Ticked(), IsEmpty());
    Scroll(Qt::Key_Home);
    EXPECT_THAT(Ticked(), ElementsAre(0));
    EXPECT_EQ(GalleryDesk::TitleOf("Form6", 0), "نخست");
    EXPECT_FALSE(GalleryDesk::TitleIsOpen("Form6", 0));
    EXPECT_EQ(GalleryDesk::TitleOf("Form6", 2), "");
  });
}

TEST_F(ParagraphGallery, RemovingAPictureThatIsNotInTheGalleryKeepsTheTypedTitle) {
  InGalleryOf(1, [this] {
    Robot::Type("Form6", "IMN(0)", "title");
    EXPECT_EQ(NewLog([this] { desk.form3.RemPicGal2(0); }).back(), "Pic removed.");
    EXPECT_EQ(GalleryDesk::TitleOf("Form6", 0), "title");
  });
  EXPECT_THAT(Slots(), IsEmpty());
}

TEST_F(ParagraphGallery, AnotherFolderIsShownFromItsTopAndTheFirstOnesPicturesStayChosen) {
  desk.AddPicture("q.jpg", "Others");
  InGalleryOf(9, [this] {
    Tick(0);
    Scroll(Qt::Key_End);
    desk.OpenFolder("Form6", "Others");
    EXPECT_THAT(Names(), ElementsAre("q.jpg"));
    EXPECT_EQ(Bar().value(), 1);
    EXPECT_THAT(Ticked(), IsEmpty());
    Tick(0, "another");
  });
  EXPECT_THAT(Slots(),
              ElementsAre("*p1.jpg|", Utf8(desk.Picture(u"q.jpg", u"Others")) + "|another"));
}

// A folder of six or more pictures leaves the scroll bar where it is, beside rows from the top.
TEST_F(ParagraphGallery, SwitchedOffAndOnItShowsTheTopWhileTheScrollBarStays) {
  for (int i = 1; i <= 9; ++i) desk.AddPicture("own" + std::to_string(i) + ".jpg", ".");
  desk.InEntry(0, [] {
    Robot::Click("Form6", "btn(5)");
    Scroll(Qt::Key_End);
    EXPECT_THAT(Names(), ElementsAre("own7.jpg", "own8.jpg", "own9.jpg"));
    Robot::Click("Form6", "btn(5)");
    Robot::Click("Form6", "btn(5)");
    EXPECT_EQ(Names().front(), "own1.jpg");
    EXPECT_EQ(Bar().value(), 7);
    Scroll(Qt::Key_Up);
    EXPECT_EQ(Names().front(), "own6.jpg");
  });
}

TEST_F(ParagraphGallery, EachEntryHasItsOwnAndTheBuildWritesBoth) {
  InGalleryOf(2, [] { Tick(0, "one"); });
  InGallery([] { Tick(1, "two"); }, 1);
  EXPECT_THAT(Slots(0), ElementsAre("*p1.jpg|one"));
  EXPECT_THAT(Slots(1), ElementsAre("*p2.jpg|two"));
  EXPECT_THAT(
      BuiltGalleries(),
      testing::UnorderedElementsAre(
          std::string(kHead) + "\t<img dtl=\"one\">Data/IMG/S.jpg</img>\r\n</gallery>\r\n",
          std::string(kHead) + "\t<img dtl=\"two\">Data/IMG/S.jpg</img>\r\n</gallery>\r\n"));
  EXPECT_THAT(desk.BookNames("IMG", ".jpg"), SizeIs(3));
  EXPECT_THAT(desk.BookNames("TXT", ".htm"), IsEmpty());
}

TEST_F(ParagraphGallery, APictureAfterATombstoneIsNotBuilt) {
  InGalleryOf(3, [] {
    Tick(0, "one");
    Tick(1, "two");
    Tick(2, "three");
    Tick(1);
    EXPECT_THAT(Ticked(), ElementsAre(0, 2));
  });
  EXPECT_THAT(BuiltGalleries(),
              ElementsAre(std::string(kHead) +
                          "\t<img dtl=\"one\">Data/IMG/S.jpg</img>\r\n</gallery>\r\n"));
}

TEST_F(ParagraphGallery, PersianNamesBracketsAndMarksAreShownChosenAndBuilt) {
  for (const char* name : {"باغ (1).jpg", "گل\u200Fها [2].jpg"}) desk.AddPicture(name);
  InGallery([] {
    EXPECT_THAT(Names(), SizeIs(2));
    Tick(0);
    Tick(1);
  });
  EXPECT_THAT(Slots(), ElementsAre("*باغ (1).jpg|", "*گل\u200Fها [2].jpg|"));
  EXPECT_THAT(BuiltGalleries(), SizeIs(1));
  EXPECT_THAT(desk.BookNames("IMG", ".jpg"), SizeIs(3));
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(ParagraphGallery, AHugePictureIsShownAndChosen) {
  desk.AddHugePicture("huge.jpg");
  InGallery([] { Tick(0); });
  EXPECT_THAT(Slots(), ElementsAre("*huge.jpg|"));
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(ParagraphGallery, ADamagedAndAnEmptyPictureFailInTheChoiceAndTheWindowStays) {
  desk.AddPicture("p1.jpg");
  for (const char* bytes : {"", "no picture"}) {
    desk.Write("Pictures/p2.jpg", bytes);
    InGallery([] { EXPECT_EQ(Names().front(), "p1.jpg"); });
  }
  EXPECT_EQ(desk.LoggedFailures(44), 2);
}

TEST_F(ParagraphGallery, AFolderThatLosesItsRightsInTheChooserFailsInTheChoice) {
  desk.AddPictures(1);
  desk.AddPicture("q.jpg", "Others");
  const OrdinaryUser user(desk.folder.HostPath());
  if (!user.IsOrdinary()) GTEST_SKIP() << "nobody refuses this user anything";
  InGallery([this] {
    desk.robot.WhenShown("Form2", [this] {
      Robot::DoubleClickLine("Form2", "Dir1", "Others");
      fs::permissions(desk.HostPath("Others"), fs::perms::owner_exec);
      Robot::Click("Form2", "btn(0)");
    });
    Robot::Click("Form6", "Command3");
    EXPECT_TRUE(desk.form6.IsVisible());
    EXPECT_EQ(desk.LoggedFailures(44), 1);
    EXPECT_THAT(Names(), ElementsAre(""));
    fs::permissions(desk.HostPath("Others"), fs::perms::owner_all);
    desk.OpenFolder("Form6", "Others");
    EXPECT_THAT(Names(), ElementsAre("q.jpg"));
  });
  EXPECT_EQ(desk.AllLoggedFailures(), 1);
}

TEST_F(ParagraphGallery, AChoiceThatFailsLeavesTheRowsBlankInTheirPlacesAndATitleFrozen) {
  desk.MakeFolders("Others");
  InGalleryOf(2, [this] {
    Tick(0, "title");
    desk.files.FailWhere("FileNames", "Others");
    desk.OpenFolder("Form6", "Others");
    EXPECT_EQ(desk.LoggedFailures(44), 1);
    EXPECT_THAT(Names(), ElementsAre("", ""));
    for (const int row : {0, 1}) {
      EXPECT_FALSE(desk.form6.IMG(row).HasPicture()) << row;
      EXPECT_EQ(GalleryDesk::TitleOf("Form6", row), "") << row;
    }
    EXPECT_THAT(Ticked(), IsEmpty());
    EXPECT_FALSE(GalleryDesk::TitleIsOpen("Form6", 0));
    EXPECT_TRUE(GalleryDesk::TitleIsOpen("Form6", 1));
  });
  EXPECT_THAT(Slots(), ElementsAre("*p1.jpg|title"));
}

TEST_F(ParagraphGallery, AVanishedPictureEndsTheBuild) {
  InGalleryOf(2, [] {
    Tick(0);
    Tick(1);
  });
  fs::remove(desk.HostPath("Pictures/p2.jpg"));
  BuiltGalleries();
  EXPECT_EQ(desk.LoggedFailures(57), 1);
  EXPECT_TRUE(desk.form3.IsVisible());
  EXPECT_THAT(Slots(), ElementsAre("*p1.jpg|", "*p2.jpg|"));
}

TEST_F(ParagraphGallery, AnEntryThatOpensAsAGalleryOverADamagedPictureIsFilledAllTheSame) {
  InGalleryOf(1, [] { Tick(0); });
  desk.Write("p0.jpg", "no picture");
  desk.InEntry(0, [] {
    EXPECT_TRUE(Robot::Find("Form6", "Frame4").isVisible());
    EXPECT_EQ(Robot::FindAs<QLineEdit>("Form6", "bname").text(), "Head");
  });
  EXPECT_EQ(desk.LoggedFailures(70), 1);
  EXPECT_EQ(desk.LoggedFailures(51), 0);
  EXPECT_THAT(Slots(), ElementsAre("*p1.jpg|"));
}

}  // namespace
