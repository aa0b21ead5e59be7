// A book with all that an editor does to entries: edited in the paragraph window, with pictures in
// the text, media, galleries chosen in the browsers, an entry deleted.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QInputMethodEvent>
#include <QTextEdit>
#include <functional>

#include "tests/book/book_desk.h"
#include "tests/support/gallery_desk.h"

namespace {

using book::BookDesk;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::GalleryDesk;
using testing_support::Robot;

class DeskBook : public testing::Test {
 protected:
  void Open() {
    desk.AddTextFile("desk.txt");
    desk.Open();
    BookDesk::OpenBook("desk.txt");
  }
  void Edit(int row, const std::function<void()>& work) {
    desk.Edit(row, work);
    EXPECT_FALSE(desk.form6.IsLoaded());
  }
  // Picks a file below the folder Resources, when the file chooser comes up.
  void ChooseFile(const QString& folder, const QString& file) {
    desk.robot.WhenShown("Form5", [folder, file] {
      Robot::DoubleClickLine("Form5", "Dir1", "Resources");
      if (!folder.isEmpty()) Robot::DoubleClickLine("Form5", "Dir1", folder);
      Robot::ClickLine("Form5", "File1", file);
      Robot::Click("Form5", "btn(0)");
    });
  }
  void Pick(const QString& button, const QString& folder, const QString& file) {
    ChooseFile(folder, file);
    Robot::Click("Form6", button);
  }
  // Puts a picture in front of the paragraph in which the passage stands.
  void PlacePicture(const QString& passage, const QString& file) {
    Robot::Select("Form6", "matn", passage);
    Robot::RightClick("Form6", "matn");
    ChooseFile("Negareh", file);
    Robot::ChooseFromMenu("popM", "picM");
  }
  void OpenPictureFolder(const QString& window, const QString& button) {
    desk.robot.WhenShown("Form2", [] {
      Robot::DoubleClickLine("Form2", "Dir1", "Resources");
      Robot::DoubleClickLine("Form2", "Dir1", "Negareh");
      Robot::Click("Form2", "btn(0)");
    });
    Robot::Click(window, button);
  }
  static void TypeOver(const QString& passage, const QString& text) {
    Robot::Select("Form6", "matn", passage);
    QInputMethodEvent typed(QString(), {});
    typed.setCommitString(text);
    QApplication::sendEvent(&Robot::Find("Form6", "matn"), &typed);
  }

  void FileEntries() {
    BookDesk::Mark(Qt::Key_F6, "ناشر باغ");
    BookDesk::FileHeading("يك", "گل سرخ\nبرگ سبز");
    BookDesk::Mark(Qt::Key_F1, "بخش");
    BookDesk::FileHeading("دو", "درخت");
    BookDesk::FileHeading("سه", "كوه");
    BookDesk::FileHeading("چهار", "رود");
    Robot::PressKey("Form3", "matn", Qt::Key_F4);
    BookDesk::FileHeading("پنج", "ابر");
  }
  void EditTexts() {
    Edit(0, [this] {
      PlacePicture("ناشر باغ", "Sarv.jpg");
      Pick("Command5", {}, "Kavir.txt");
      Pick("Command1", {}, "MySound1.mp3");
      Pick("Command2", "Negareh", "Parvaz.flv");
      Pick("Image1", {}, "MyBack.jpg");
    });
    Edit(1, [this] {
      PlacePicture("برگ سبز", "Laleh.jpg");
      PlacePicture("گل سرخ", "Sarv.jpg");
      PlacePicture("برگ سبز", "Laleh.jpg");
      Robot::Type("Form6", "bname", "يك و دو");
      Pick("Command1", {}, "MySound2.mp3");
      Pick("Command2", "Negareh", "Parvaz.flv");
      Robot::Click("Form6", "btn(3)");
    });
    Edit(2, [] { TypeOver("بخش", "بخش نخست"); });
  }
  void EditGalleries() {
    Edit(3, [this] {
      Robot::Click("Form6", "btn(5)");
      OpenPictureFolder("Form6", "Command3");
      GalleryDesk::Tick("Form6", 0, "گره");
      GalleryDesk::Tick("Form6", 2);
      Pick("Image1", {}, "MyBook.jpg");
    });
    Edit(4, [this] {
      Robot::Click("Form6", "btn(5)");
      OpenPictureFolder("Form6", "Command3");
      GalleryDesk::Tick("Form6", 0, "گره");
      GalleryDesk::Tick("Form6", 1, "حوض");
      GalleryDesk::Tick("Form6", 0);
    });
  }
  void Delete(int row) {
    desk.InEntry(row, [] { Robot::Click("Form6", "btn(0)"); });
  }

  BookDesk desk;
};

TEST_F(DeskBook, HoldsWhatWasDoneToItsEntriesAndACollectionOfPictures) {
  Open();
  FileEntries();
  EditTexts();
  EditGalleries();
  Delete(5);
  BookDesk::Build();
  EXPECT_THAT(desk.robot.TakeBoxes(), SizeIs(1));

  desk.PressNext();
  Robot::Type("Form3", "bname", "نگاره");
  Robot::Click("Form3", "Com(12)");
  OpenPictureFolder("Form3", "Command1");
  GalleryDesk::Tick("Form3", 0, "يكم");
  GalleryDesk::Tick("Form3", 1, "دوم");
  GalleryDesk::Tick("Form3", 2, "سوم");
  GalleryDesk::Tick("Form3", 1);
  Robot::PressKey("Form3", "VSC", Qt::Key_PageDown);
  GalleryDesk::Tick("Form3", 0, "پرنده");
  Robot::PressKey("Form3", "VSC", Qt::Key_PageUp);
  GalleryDesk::Tick("Form3", 0);
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  Robot::Click("Form3", "Com(13)");
  EXPECT_THAT(desk.robot.TakeBoxes(), SizeIs(1));
  EXPECT_EQ(desk.AllLoggedFailures(), 0) << desk.Log();
  EXPECT_TRUE(desk.IsBook("desk", {"_xml/aTitle1.xml", "_xml/aTitle2.xml"}));
}

}  // namespace
