// Books of pictures. What the picture browser files is put into the tables by the test.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/book/book_desk.h"

namespace {

using book::BookDesk;
using platform::Text;
using testing::SizeIs;
using testing_support::Robot;

class GalleryBook : public testing::Test {
 protected:
  GalleryBook() { desk.AddTextFile("gallery.txt"); }
  void OpenBook() {
    desk.Open();
    BookDesk::OpenBook("gallery.txt");
  }
  // A picture of the collection, and one of the newest entry.
  void AddPicture(std::ptrdiff_t slot, const std::string& name, const Text& title) {
    desk.Table().galleryPic.Set(slot, 0, PathOf(name));
    desk.Table().galleryPic.Set(slot, 1, title);
  }
  void AddEntryPicture(std::ptrdiff_t slot, const std::string& name, const Text& title) {
    desk.Table().entryGalPath.Set(Newest(), slot, PathOf(name));
    desk.Table().entryGalTitle.Set(Newest(), slot, title);
  }
  // A heading whose entry is a gallery.
  void FileGallery(const QString& title, const QString& text) {
    BookDesk::FileHeading(title, text);
    desk.Table().entryGallery.Set(Newest(), true);
  }
  Text PathOf(const std::string& name) {
    return name == "Removed" ? u"Removed" : desk.AddMedium("pictures/" + name);
  }
  std::ptrdiff_t Newest() const { return desk.form3.entryCount - 1; }
  void BuildAndExpectNoFailure() {
    BookDesk::Build();
    EXPECT_THAT(desk.robot.TakeBoxes(), SizeIs(1));
    EXPECT_EQ(desk.AllLoggedFailures(), 0);
  }

  BookDesk desk;
};

TEST_F(GalleryBook, OfAWholeCollectionSkipsWhatWasRemovedAndTheRowsOfMainTitles) {
  desk.Start();
  Robot::Type("Form1", "title", "0");
  Robot::Type("Form1", "matn", "0");
  Robot::Type("Form1", "Text1", "Texts");
  Robot::Choose("Form1", "dataName", 1);
  desk.PressNext();
  BookDesk::OpenBook("gallery.txt");
  BookDesk::Mark(Qt::Key_F1, "بخش");
  BookDesk::FileHeading("يك", "گل");
  BookDesk::FileHeading("دو", "درخت");
  Robot::PressKey("Form3", "matn", Qt::Key_F4);
  desk.form3.galleryMode = true;
  AddPicture(0, "a.jpg", u"بر رديف تيتر");
  AddPicture(1, "b.jpg", u"گل \"سرخ\" & <لاله>");
  AddPicture(2, "Removed", u"");
  AddPicture(3, "c.jpg", u"بر رديف پايان تيتر");
  AddPicture(4, "d.bmp", u"  دو\r\nخط");
  AddPicture(6, "e.jpg", u"پس از جاي خالي");
  BuildAndExpectNoFailure();
  EXPECT_TRUE(desk.IsBook("gallery-collection", {"_xml/cTitle2.xml"}));
}

TEST_F(GalleryBook, OfEntriesEndsAtWhatWasRemovedAndCopiesNoMedia) {
  OpenBook();
  FileGallery("يك", "گل");
  AddEntryPicture(0, "one.jpg", u"نخست");
  AddEntryPicture(1, "two.png", u"دوم \"و\" آخر");
  desk.Table().entryAttach.Set(Newest(), desk.AddMedium("media/guide.pdf"));
  desk.Table().entrySound.Set(Newest(), desk.Path(u"media\\gone.mp3"));
  desk.Table().entryFilm.Set(Newest(), desk.Path(u"media\\gone.flv"));
  desk.Table().entryBack.Set(Newest(), desk.AddMedium("media/sky.png"));
  BookDesk::Mark(Qt::Key_F1, "بخش");
  FileGallery("دو", "درخت");
  AddEntryPicture(0, "three.jpg", u"سوم");
  AddEntryPicture(1, "Removed", u"");
  AddEntryPicture(2, "four.jpg", u"از دست رفته");
  Robot::PressKey("Form3", "matn", Qt::Key_F4);
  FileGallery("سه", "كوه");
  AddEntryPicture(0, "Removed", u"");
  AddEntryPicture(1, "five.jpg", u"از دست رفته");
  desk.Table().entryBack.Set(Newest(), desk.AddMedium("media/hill.jpg"));
  FileGallery("چهار", "رود");
  BookDesk::FileHeading("پنج", "دريا");
  BuildAndExpectNoFailure();
  EXPECT_TRUE(desk.IsBook("gallery-entries", {"_xml/aTitle1.xml"}));
}

}  // namespace
