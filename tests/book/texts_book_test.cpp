// A book of texts, from the raw file to the disk: everything that an editor can file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "tests/book/book_desk.h"

namespace {

using book::BookDesk;
using platform::Text;
using testing::SizeIs;
using testing_support::Robot;

// A paragraph of an entry, or the picture of this number.
struct Paragraph {
  Text text;
  int image = -1;
};

class TextsBook : public testing::Test {
 protected:
  void Open(const std::string& text) {
    desk.AddTextFile("garden.txt");
    desk.AddTextFile("leaf.txt");
    desk.Open();
    BookDesk::OpenBook(QString::fromStdString(text));
  }
  // Gives the newest entry a text with pictures in it. Rich text is put together in the box that
  // the window keeps for conversions.
  void SetTextWithPictures(const std::vector<Paragraph>& paragraphs) {
    platform::RichTextBox& box = desk.form3.ConRT;
    box.SetText(u"");
    for (const Paragraph& paragraph : paragraphs) {
      if (box.TextLength() > 0) box.SetSelText(u"\r\n");
      if (paragraph.image >= 0) box.SetSelRTF(desk.form3.imageMark);
      box.SetSelText(paragraph.text);
    }
    desk.Table().entryText.Set(desk.form3.entryCount - 1, box.TextRTF());
    box.SetText(u"");
  }
  static Paragraph Picture(int number) {
    return {u"{" + platform::FromNumber(number) + u"}", number};
  }
  void FilePictures() {
    BookDesk::FileHeading("نگاره", "اينجا نگاره است");
    SetTextWithPictures({{u"پيش از نگاره"},
                         Picture(0),
                         {u"ميان دو نگاره"},
                         Picture(1),
                         Picture(0),
                         Picture(2),
                         {u"پس از نگاره"}});
    desk.Table().inlineImage.Set(0, desk.AddMedium("pictures/rose.gif"));
    desk.Table().inlineImage.Set(1, desk.AddMedium("other/rose.gif"));
    desk.Table().inlineImage.Set(2, desk.Path(u"pictures\\gone.bmp"));
  }
  void FileTitleAndTexts() {
    BookDesk::Mark(Qt::Key_F5, "باغ و بوستان");
    BookDesk::Command(5, "گل & درخت");
    BookDesk::Mark(Qt::Key_F11, "شناسنامه");
    BookDesk::Mark(Qt::Key_F6, "نويسنده:\u200F گلناز\nچاپ نخست!\u200F");
    BookDesk::FileHeading("درآمد",
                          "بهار آمد.\u200F گل شكفت \nباغبان كجاست؟ ساعت 10:\u200F30\n"
                          "تابستان هم مي آيد\nپاييز رفت");
  }
  void FileNestedTitles() {
    BookDesk::Mark(Qt::Key_F1, "بخش نخست");
    BookDesk::FileHeading("گل \"سرخ\" <و> لاله & ياس", "گل سرخ در باغ است");
    BookDesk::Mark(Qt::Key_F1, "فصل دوم:\u200F درخت");
    BookDesk::FileHeading("كاج\nبلند", "كاج هميشه سبز است");
    BookDesk::FileHeading("سرو", "سرو بلند است\n");
    Robot::PressKey("Form3", "matn", Qt::Key_F4);
    Robot::PressKey("Form3", "matn", Qt::Key_F4);
  }
  void FileMedia() {
    workbench::EntryTable& table = desk.Table();
    BookDesk::FileHeading("رسانه", "رسانه همراه است");
    table.entryAttach.Set(Newest(), desk.AddMedium("media/guide.pdf"));
    table.entrySound.Set(Newest(), desk.AddMedium("media/song.mp3"));
    table.entryFilm.Set(Newest(), desk.AddMedium("media/film.flv"));
    table.entryBack.Set(Newest(), desk.AddMedium("media/back.jpg"));
    BookDesk::FileHeading("برنامه", "برنامه بزرگ است");
    table.entryAttach.Set(Newest(), desk.AddMedium("media/Setup.EXE"));
    BookDesk::FileHeading("ابزار", "ابزار كوچك است");
    table.entryAttach.Set(Newest(), desk.AddMedium("media/tool.exe"));
    table.entrySound.Set(Newest(), desk.AddMedium("media/clip.wav"));
    BookDesk::FileHeading("بايگاني", "بايگاني فشرده است");
    table.entryAttach.Set(Newest(), desk.AddMedium("media/a.tar.gz"));
    table.entryBack.Set(Newest(), desk.AddMedium("media/sky.PNG"));
    BookDesk::FileHeading("آوا", "دو آوا هست");
    table.entrySound.Set(Newest(), desk.AddMedium("media/one.mp3"));
    table.entryFilm.Set(Newest(), desk.AddMedium("media/two.mp3"));
  }
  void FileWithoutText() {
    BookDesk::Mark(Qt::Key_F2, "پايان سخن");
    BookDesk::Command(3);
  }
  void BuildAndExpectNoFailure() {
    BookDesk::Build();
    EXPECT_THAT(desk.robot.TakeBoxes(), SizeIs(1));
    EXPECT_EQ(desk.AllLoggedFailures(), 0);
    EXPECT_FALSE(desk.form3.IsVisible());
  }
  std::ptrdiff_t Newest() const { return desk.form3.entryCount - 1; }

  BookDesk desk;
};

TEST_F(TextsBook, HoldsEveryKindOfRowAndMedium) {
  Open("garden.txt");
  FileTitleAndTexts();
  FileNestedTitles();
  FilePictures();
  FileMedia();
  FileWithoutText();
  BuildAndExpectNoFailure();
  EXPECT_TRUE(desk.IsBook("texts-first_collection", {"_xml/aTitle1.xml"}));

  // The next collection, without a title of its own.
  desk.AddMedium("pictures/second.jpg");
  Robot::Type("Form1", "index", "pictures\\second.jpg");
  desk.PressNext();
  BookDesk::OpenBook("leaf.txt");
  BookDesk::FileHeading("برگ", "برگ سبز است");
  BuildAndExpectNoFailure();
  EXPECT_TRUE(desk.IsBook("texts-second_collection", {"_xml/aTitle1.xml", "_xml/aTitle2.xml"}));
}

TEST_F(TextsBook, LeavesMainTitlesOpenThatNobodyCloses) {
  Open("leaf.txt");
  BookDesk::Mark(Qt::Key_F1, "برگ");
  BookDesk::Mark(Qt::Key_F1, "برگ سبز است");
  BookDesk::Mark(Qt::Key_F2, "شاخه");
  BookDesk::Command(3);
  BuildAndExpectNoFailure();
  EXPECT_TRUE(desk.IsBook("texts-open_main_titles", {"_xml/aTitle1.xml"}));
}

}  // namespace
