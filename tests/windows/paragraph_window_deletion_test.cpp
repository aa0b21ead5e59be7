// Entries deleted in the paragraph window: what moves up, what stays behind, what is filed next.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPushButton>

#include "tests/support/gallery_desk.h"

namespace {

using platform::Text;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::FormatDesk;
using testing_support::GalleryDesk;
using testing_support::Robot;
using testing_support::Utf8;

class ParagraphDeletion : public testing::Test {
 protected:
  void Delete(int row) {
    desk.InEntry(row, [] { Robot::Click("Form6", "btn(0)"); });
  }
  workbench::EntryTable& Table() { return desk.form3.table; }
  // Something else in each of the row's columns, but for the flag of a gallery.
  void Fill(std::ptrdiff_t row) {
    const Text number = platform::FromNumber(static_cast<int>(row));
    Table().entryAttach.Set(row, u"attach " + number);
    Table().entrySound.Set(row, u"sound " + number);
    Table().entryFilm.Set(row, u"film " + number);
    Table().entryBack.Set(row, u"back " + number);
    Table().entryGalPath.Set(row, 0, u"picture " + number);
    Table().entryGalTitle.Set(row, 0, u"title " + number);
  }
  // The columns that move, and those that don't, without the flag and the text.
  std::vector<std::string> Moving(std::ptrdiff_t row) {
    return {Utf8(Table().entryTitle(row)), Utf8(Table().entryAttach(row)),
            Utf8(Table().entrySound(row)), Utf8(Table().entryFilm(row))};
  }
  std::vector<std::string> Staying(std::ptrdiff_t row) {
    return {Utf8(Table().entryBack(row)), Utf8(Table().entryGalPath(row, 0)),
            Utf8(Table().entryGalTitle(row, 0))};
  }

  GalleryDesk desk;
};

class DeletionOfFive : public ParagraphDeletion {
 protected:
  DeletionOfFive() { desk.OpenOnFiveRows("More"); }
};

TEST_F(DeletionOfFive, MovesFiveColumnsAndLeavesTheOthers) {
  for (int row = 0; row < 5; ++row) Fill(row);
  Table().entryGallery.Set(3, true);
  const auto lines = FormatDesk::Lines("bindex");
  Delete(1);
  EXPECT_FALSE(desk.form6.IsLoaded());
  EXPECT_EQ(desk.form3.entryCount, 4);
  EXPECT_EQ(desk.form3.mainOpen, 0);
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre(lines[0], lines[2], lines[3], lines[4]));
  EXPECT_THAT(Moving(1), ElementsAre(">>> تيتر اصلي", "attach 2", "sound 2", "film 2"));
  EXPECT_THAT(Moving(2), ElementsAre("Other", "attach 3", "sound 3", "film 3"));
  EXPECT_THAT(Moving(3), ElementsAre(">>> پايان تيتر", "attach 4", "sound 4", "film 4"));
  EXPECT_EQ(Table().entryText(1), u"Main");
  EXPECT_EQ(Utf8(desk.form3.ToTXT(Table().entryText(2))), "More");
  for (int row = 0; row < 5; ++row) {
    const std::string number = std::to_string(row);
    EXPECT_THAT(Staying(row),
                ElementsAre("back " + number, "picture " + number, "title " + number));
    EXPECT_EQ(Table().entryGallery(row), row == 3);
  }
  EXPECT_EQ(Table().entryTitle(4), u"");
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(DeletionOfFive, OfTheLastRowLeavesItEmptyAndTheLinesInFrontAsTheyAre) {
  const auto lines = FormatDesk::Lines("bindex");
  FormatDesk::OpenBook("One.txt");
  FormatDesk::FileHeading("Head", "Text");
  Fill(5);
  EXPECT_THAT(FormatDesk::Lines("bindex"), SizeIs(6));
  Delete(5);
  EXPECT_FALSE(desk.form6.IsLoaded());
  EXPECT_THAT(FormatDesk::Lines("bindex"), testing::ElementsAreArray(lines));
  EXPECT_EQ(desk.form3.entryCount, 5);
  EXPECT_THAT(Moving(4), ElementsAre(">>> پايان تيتر", "", "", ""));
  EXPECT_THAT(Moving(5), ElementsAre("", "", "", ""));
  EXPECT_EQ(Table().entryText(5), u"");
  EXPECT_THAT(Staying(5), ElementsAre("back 5", "picture 5", "title 5"));
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(DeletionOfFive, OfAGalleryHidesItsFrameAndLosesThePicturesAtItsNumber) {
  desk.AddPictures(1);
  Table().entryBack.Set(1, desk.Picture(u"p1.jpg"));
  desk.Edit(1, [this] {
    Robot::Click("Form6", "btn(5)");
    desk.OpenFolder("Form6");
    GalleryDesk::Tick("Form6", 0);
  });
  EXPECT_TRUE(Table().entryGallery(1));
  EXPECT_EQ(Table().entryGalPath(1, 0), desk.Picture(u"p1.jpg"));
  // The window is filled once more, with the row that moved up, before it closes; it asks for the
  // background last.
  std::vector<std::string> seen;
  desk.InEntry(1, [this, &seen] {
    EXPECT_TRUE(Robot::Find("Form6", "Frame4").isVisible());
    desk.files.onOperation = [this, &seen](const std::string& operation) {
      if (operation != "FileExists " + Utf8(desk.Picture(u"p1.jpg"))) return;
      EXPECT_TRUE(desk.form6.IsVisible());
      EXPECT_TRUE(Robot::Find("Form6", "Frame4").isHidden());
      seen.push_back(Robot::FindAs<QPushButton>("Form6", "btn(5)").text().toStdString());
      seen.push_back(Utf8(desk.form6.bname.Text()));
    };
    Robot::Click("Form6", "btn(0)");
    desk.files.onOperation = nullptr;
  });
  EXPECT_THAT(seen, ElementsAre("تبديل به گالري", ">>> تيتر اصلي"));
  EXPECT_TRUE(Table().entryGallery(1));
  EXPECT_EQ(Table().entryGalPath(1, 0), u"");
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(DeletionOfFive, OfAnOpenMainTitleLeavesTheCountOfOpenOnes) {
  FormatDesk::OpenBook("One.txt");
  FormatDesk::Mark(Qt::Key_F1, "Main");
  EXPECT_EQ(desk.form3.mainOpen, 1);
  Delete(5);
  EXPECT_EQ(desk.form3.mainOpen, 1);
  EXPECT_EQ(FormatDesk::Shown("Com(9)"), "تيتر اصلي (1)\u200F");
}

TEST_F(DeletionOfFive, Failure54WithoutALineNothingMoves) {
  desk.InEntry(1, [this] {
    desk.form3.bindex.Clear();
    Robot::Click("Form6", "btn(0)");
    EXPECT_FALSE(desk.form6.IsLoaded());
  });
  EXPECT_EQ(desk.LoggedFailures(54), 1);
  EXPECT_EQ(desk.AllLoggedFailures(), 1);
  EXPECT_EQ(desk.form3.entryCount, 5);
  EXPECT_EQ(Table().entryTitle(1), u"Head");
  EXPECT_EQ(Table().entryTitle(2), u">>> تيتر اصلي");
}

// A heading that has no text yet stands on the row that is filed next, and isn't counted. Its
// deletion counts a row all the same.
class DeletionOfPending : public ParagraphDeletion {
 protected:
  DeletionOfPending() { desk.OpenOn(u"Head\r\nText\r\nLone\r\nNext\r\nMore"); }

  std::string PlainText(std::ptrdiff_t row) {
    return Utf8(desk.form3.ToTXT(Table().entryText(row)));
  }
};

TEST_F(DeletionOfPending, AloneLeavesNoRowForWhatIsFiledNextWhichStaysInTheText) {
  FormatDesk::Mark(Qt::Key_F2, "Lone");
  Delete(0);
  EXPECT_THAT(FormatDesk::Lines("bindex"), IsEmpty());
  EXPECT_EQ(desk.form3.entryCount, -1);
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
  const std::string text = FormatDesk::Shown("matn");
  int failures = 0;
  for (const int key : {Qt::Key_F2, Qt::Key_F3, Qt::Key_F6, Qt::Key_F1}) {
    FormatDesk::Mark(key, "Next");
    EXPECT_EQ(desk.LoggedFailures(59), ++failures);
    EXPECT_EQ(FormatDesk::Shown("matn"), text);
    EXPECT_EQ(FormatDesk::Selected(), "Next");
  }
  EXPECT_THAT(FormatDesk::Lines("bindex"), IsEmpty());
  EXPECT_EQ(desk.form3.entryCount, -1);
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

TEST_F(DeletionOfPending, AloneLastsUntilTheCollectionIsBuilt) {
  FormatDesk::Mark(Qt::Key_F2, "Lone");
  Delete(0);
  Robot::PressKey("Form3", "matn", Qt::Key_F12);
  EXPECT_THAT(desk.Collection("aTitle1"), testing::Not(HasSubstr("Lone")));
  EXPECT_EQ(desk.form3.entryCount, 0);
  desk.PressNext();
  FormatDesk::OpenBook("One.txt");
  FormatDesk::FileHeading("Next", "More");
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre("Next   =>   More"));
  EXPECT_EQ(desk.form3.entryCount, 1);
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(DeletionOfPending, MakesTheNextHeadingTakeTheRowInFrontWhosePassageIsLost) {
  FormatDesk::FileHeading("Head", "Text");
  FormatDesk::Mark(Qt::Key_F2, "Lone");
  Delete(1);
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre("Head   =>   Text"));
  EXPECT_EQ(desk.form3.entryCount, 0);
  FormatDesk::Mark(Qt::Key_F2, "Next");
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre("Next", "Head   =>   Text"));
  EXPECT_EQ(Table().entryTitle(0), u"Next");
  EXPECT_EQ(PlainText(0), "Text");
  FormatDesk::Mark(Qt::Key_F3, "More");
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre("Next   =>   More", "Head   =>   Text"));
  EXPECT_EQ(desk.form3.entryCount, 1);
  EXPECT_EQ(PlainText(0), "More");
  EXPECT_EQ(Table().entryTitle(1), u"");
  EXPECT_THAT(FormatDesk::Shown("matn"), testing::Not(HasSubstr("Text")));
  Robot::PressKey("Form3", "matn", Qt::Key_F12);
  EXPECT_THAT(desk.BookNames("TXT", ".htm"), SizeIs(1));
  EXPECT_THAT(desk.Page("Next"),
              testing::AllOf(HasSubstr("More"), testing::Not(HasSubstr("Text"))));
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(DeletionOfPending, MakesATextWithoutAHeadingTakeThePlaceOfTheTextInFront) {
  FormatDesk::FileHeading("Head", "Text");
  FormatDesk::Mark(Qt::Key_F2, "Lone");
  Delete(1);
  FormatDesk::Mark(Qt::Key_F3, "More");
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre("Head   =>   Text   =>   More"));
  EXPECT_EQ(Table().entryTitle(0), u"Head");
  EXPECT_EQ(PlainText(0), "More");
  EXPECT_EQ(desk.form3.entryCount, 1);
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(DeletionOfPending, OfAFiledRowInFrontOfItLetsItMoveUpAndGetItsText) {
  FormatDesk::FileHeading("Head", "Text");
  FormatDesk::Mark(Qt::Key_F2, "Lone");
  Delete(0);
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre("Lone"));
  FormatDesk::Mark(Qt::Key_F3, "More");
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre("Lone   =>   More"));
  EXPECT_EQ(Table().entryTitle(0), u"Lone");
  EXPECT_EQ(PlainText(0), "More");
  EXPECT_EQ(desk.form3.entryCount, 1);
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

}  // namespace
