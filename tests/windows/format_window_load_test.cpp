// The format window from its opening to its closing: what it shows, lists and forgets.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QListWidget>
#include <QTextCursor>
#include <QTextEdit>
#include <filesystem>

#include "tests/support/format_desk.h"
#include "tests/support/known_texts.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::BoxText;
using testing_support::FormatDesk;
using testing_support::Robot;
using testing_support::Utf8;

class FormatWindowLoad : public testing::Test {
 protected:
  static void SetCount(const QString& field, const QString& count) {
    Robot::FindWindow("Form1")->activateWindow();
    Robot::Type("Form1", field, count);
    Robot::Find("Form1", "ExBox").setFocus();
    Robot::Settle();
  }
  static void TakeAllCollectionsOut() {
    for (const char* field : {"title", "matn", "shenas"}) SetCount(field, "0");
  }

  FormatDesk desk;
};

TEST_F(FormatWindowLoad, OpensAsDesigned) {
  desk.AddText("One.txt", u"alpha");
  desk.Open();
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  EXPECT_TRUE(desk.form3.IsVisible());
  EXPECT_EQ(Robot::FindWindow("Form3")->windowTitle().toStdString(), "Format data");
  EXPECT_EQ(FormatDesk::Shown("BookLabel"), "عنوان مجموعه اول در رديف اول:");
  EXPECT_EQ(FormatDesk::Shown("bname"), "");
  EXPECT_THAT(FormatDesk::Lines("bindex"), IsEmpty());
  EXPECT_TRUE(desk.form3.Chek.Value());
  EXPECT_TRUE(desk.form3.HazP.Value());
  EXPECT_TRUE(desk.form3.Noghte.Value());
  EXPECT_FALSE(desk.form3.P22.Value());
  EXPECT_EQ(FormatDesk::Shown("chnd"), "22");
  EXPECT_FALSE(Robot::Find("Form3", "Frame4").isVisible());
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowLoad, TellsTheEditorHowToWorkUntilATextIsOpened) {
  desk.Open();
  const std::string shown = FormatDesk::Shown("matn");
  EXPECT_EQ(std::ranges::count(shown, '\n'), 3);
  EXPECT_TRUE(shown.starts_with("متن در اين محل نمايش داده مي"));
  EXPECT_TRUE(shown.ends_with("تبديل نماييد.\u200F"));
}

TEST_F(FormatWindowLoad, TellsItInTenPointAndShowsTextsInTheBoxsOwnLetters) {
  desk.AddText("One.txt", u"alpha");
  desk.Open();
  const auto& box = Robot::FindAs<QTextEdit>("Form3", "matn");
  const auto pointsOfFirstLetter = [&box] {
    QTextCursor letter(box.document());
    letter.setPosition(1);
    return letter.charFormat().fontPointSize();
  };
  EXPECT_EQ(pointsOfFirstLetter(), 10);
  FormatDesk::OpenBook("One.txt");
  EXPECT_EQ(pointsOfFirstLetter(), 0);
}

TEST_F(FormatWindowLoad, StartsWithTheMembersOfAFreshPass) {
  desk.Open();
  EXPECT_EQ(desk.form3.entryCount, 0);
  EXPECT_EQ(desk.form3.mainOpen, 0);
  EXPECT_EQ(desk.form3.imageCount, 0);
  EXPECT_EQ(desk.form3.lastMainText, u"");
  EXPECT_EQ(desk.form3.mainMark, u">>> تيتر اصلي");
  EXPECT_EQ(desk.form3.mainEndMark, u">>> پايان تيتر");
  EXPECT_EQ(desk.form3.identityWord, u"شناسنامه");
  EXPECT_EQ(desk.form3.chosenImage, u"");
  EXPECT_FALSE(desk.form3.galleryMode);
  EXPECT_EQ(desk.form3.rowLetter, u"a");
  EXPECT_EQ(desk.form3.rowDigit, u"1");
  EXPECT_EQ(desk.form3.words.indexFile, u"Index.xml");
  EXPECT_EQ(desk.form3.words.pageExt, u"htm");
}

TEST_F(FormatWindowLoad, LogsItsStartAndItsEnd) {
  desk.AddText("One.txt", u"alpha");
  desk.Open();
  Robot::CloseWindow("Form3");
  const auto lines = desk.LogLines();
  const auto started = std::ranges::find(lines, "Format started.");
  const auto listed = std::ranges::find(lines, "Geting files in the directory...");
  ASSERT_NE(listed, lines.end());
  EXPECT_LT(started, listed);
  EXPECT_EQ(lines.back(), "Format ended.");
}

TEST_F(FormatWindowLoad, ClosingLosesWhatIsFiledWithoutAQuestion) {
  desk.OpenOn(u"alpha beta gamma");
  FormatDesk::Mark(Qt::Key_F5, "gamma");
  FormatDesk::Mark(Qt::Key_F1, "alpha");
  Robot::CloseWindow("Form3");
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  EXPECT_EQ(Robot::FindWindow("Form3"), nullptr);

  desk.PressNext();
  EXPECT_THAT(FormatDesk::Lines("bindex"), IsEmpty());
  EXPECT_EQ(FormatDesk::Shown("bname"), "");
  EXPECT_EQ(FormatDesk::Shown("Com(9)"), "تيتر اصلي (0)\u200F");
  EXPECT_EQ(desk.form3.entryCount, 0);
  EXPECT_EQ(desk.form3.table.entryTitle(0), u"");
}

TEST_F(FormatWindowLoad, OpenedAgainItHasTheMembersOfAFreshPass) {
  desk.OpenOn(u"alpha beta gamma");
  FormatDesk::Mark(Qt::Key_F1, "alpha");
  Robot::Click("Form3", "Chek");
  desk.form3.SetChosenImage(u"C:\\a.jpg");
  desk.form3.galleryMode = true;
  desk.form3.pictures.galleryFolder = u"C:\\pictures";
  Robot::CloseWindow("Form3");
  std::filesystem::remove(desk.HostPath("Resources/img.bin"));
  desk.PressNext();
  EXPECT_TRUE(desk.form3.Chek.Value());
  EXPECT_FALSE(desk.form3.galleryMode);
  EXPECT_EQ(desk.form3.lastMainText, u"");
  EXPECT_EQ(desk.form3.chosenImage, u"");
  EXPECT_EQ(desk.form3.imageMark, u"");
  EXPECT_EQ(desk.form3.currentBook, u"");
  EXPECT_EQ(desk.form3.pictures.galleryFolder, u"");
  EXPECT_EQ(desk.form3.mainOpen, 0);
}

TEST_F(FormatWindowLoad, ASecondNextFindsTheWindowAsItStands) {
  desk.OpenOn(u"alpha beta gamma");
  desk.FileHeading("alpha", "beta");
  desk.PressNext();
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre("alpha   =>   beta"));
  EXPECT_EQ(FormatDesk::Shown("matn"), "  gamma");
  EXPECT_EQ(desk.LoggedTimes("Format started."), 1);
}

TEST_F(FormatWindowLoad, TheCaptionFollowsTheSelectedCollection) {
  desk.Open();
  Robot::Choose("Form1", "dataName", 3);
  FormatDesk::Repaint();
  EXPECT_EQ(FormatDesk::Shown("BookLabel"), "عنوان مجموعه دوم در رديف دوم:");
  Robot::Choose("Form1", "dataName", 4);
  FormatDesk::Repaint();
  EXPECT_EQ(FormatDesk::Shown("BookLabel"), "عنوان مجموعه اول در رديف سوم:");
  EXPECT_EQ(desk.form3.rowLetter, u"c");
  EXPECT_EQ(desk.form3.rowDigit, u"1");
}

TEST_F(FormatWindowLoad, TheTenthCollectionOfARowHasAnOrdinal) {
  desk.Start();
  SetCount("title", "10");
  desk.Open();
  Robot::Choose("Form1", "dataName", 9);
  FormatDesk::Repaint();
  EXPECT_EQ(FormatDesk::Shown("BookLabel"), "عنوان مجموعه دهم در رديف اول:");
  EXPECT_EQ(desk.form3.rowDigit, u"10");
}

TEST_F(FormatWindowLoad, WithNothingLeftTheCaptionSaysSoAtEveryPaint) {
  desk.Open();
  TakeAllCollectionsOut();
  FormatDesk::Repaint();
  EXPECT_EQ(FormatDesk::Shown("BookLabel"), "پايان مجموعه\u200Cها!");
  EXPECT_EQ(desk.form3.BookLabel.Caption(), u"پايان مجموعه\u200Fها!");
  desk.form3.BookLabel.SetCaption(u"something else");
  FormatDesk::Repaint();
  EXPECT_EQ(FormatDesk::Shown("BookLabel"), "پايان مجموعه\u200Cها!");
  EXPECT_EQ(desk.form3.rowLetter, u"a");
  EXPECT_EQ(desk.form3.rowDigit, u"1");
}

TEST_F(FormatWindowLoad, AFolderWithoutTextsShowsMessageOneAndTheWindowOpens) {
  desk.Open();
  const auto boxes = desk.robot.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].text.toStdString(), BoxText(1));
  EXPECT_EQ(boxes[0].title.toStdString(), "Zorvand");
  EXPECT_THAT(FormatDesk::Lines("books"), IsEmpty());
  EXPECT_TRUE(desk.form3.IsVisible());
  EXPECT_EQ(desk.LoggedTimes("Payam number 1 displayed."), 1);
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowLoad, ListsTxtInCapitalsAndNothingElse) {
  for (const char* name :
       {"b.TXT", "a.txt", "c.Txt", "d.txt.bak", "e.", "f", "g.text", "txt", "h.txt.", "i.x.txt"}) {
    desk.AddText(name, u"alpha");
  }
  desk.MakeFolders("Texts/folder.txt");
  desk.Open();
  EXPECT_THAT(FormatDesk::Lines("books"), ElementsAre("a.txt", "b.TXT", "c.Txt", "i.x.txt", "txt"));
}

TEST_F(FormatWindowLoad, WithoutTheImageMarksFileThereIsNoMessage) {
  std::filesystem::remove(desk.HostPath("Resources/img.bin"));
  desk.AddText("One.txt", u"alpha");
  desk.Open();
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  EXPECT_EQ(desk.form3.imageMark, u"");
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowLoad, KeepsTheImageMarkAsItStandsInItsFile) {
  desk.Open();
  EXPECT_EQ(Utf8(desk.form3.imageMark), desk.Read("Resources/img.bin"));
}

TEST_F(FormatWindowLoad, EmptyingLeavesTheTextAndWhatIsNotPartOfTheTable) {
  desk.OpenOn(u"alpha beta gamma");
  FormatDesk::Mark(Qt::Key_F1, "alpha");
  desk.form3.galleryMode = true;
  desk.form3.pictures.galleryFolder = u"C:\\pictures";
  desk.form3.table.galleryPic.Set(0, 0, u"C:\\a.jpg");
  desk.form3.table.entryGallery.Set(0, true);
  desk.form3.table.inlineImage.Set(0, u"C:\\b.jpg");
  desk.form3.ResetA();
  EXPECT_TRUE(desk.form3.galleryMode);
  EXPECT_EQ(desk.form3.pictures.galleryFolder, u"C:\\pictures");
  EXPECT_EQ(desk.form3.lastMainText, u"alpha");
  EXPECT_EQ(FormatDesk::Shown("matn"), " beta gamma");
  EXPECT_EQ(desk.form3.table.galleryPic(0, 0), u"");
  EXPECT_FALSE(desk.form3.table.entryGallery(0));
  EXPECT_EQ(desk.form3.table.inlineImage(0), u"");
  EXPECT_THAT(FormatDesk::Lines("bindex"), IsEmpty());
  EXPECT_EQ(FormatDesk::Shown("Com(9)"), "تيتر اصلي (0)\u200F");
}

// Failures.

TEST_F(FormatWindowLoad, Failure60AVocabularyThatIsTooShort) {
  desk.AddText("One.txt", u"alpha");
  desk.Start();
  desk.form1.vocabulary = u"TXT|_xml|Index.xml";
  desk.Open();
  EXPECT_EQ(desk.LoggedFailures(60), 1);
  EXPECT_TRUE(desk.form3.IsVisible());
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  EXPECT_THAT(FormatDesk::Lines("books"), IsEmpty());
}

TEST_F(FormatWindowLoad, Failure60TheImageMarkCannotBeRead) {
  desk.AddText("One.txt", u"alpha");
  desk.files.FailWhere("ReadAll", "img.bin");
  desk.Open();
  EXPECT_EQ(desk.LoggedFailures(60), 1);
  EXPECT_EQ(desk.form3.imageMark, u"");
  EXPECT_THAT(FormatDesk::Lines("books"), ElementsAre("One.txt"));
  EXPECT_EQ(desk.form3.identityWord, u"شناسنامه");
}

TEST_F(FormatWindowLoad, Failure61NoCollectionIsSelectedAndTheCaptionStays) {
  desk.AddText("One.txt", u"alpha");
  desk.Start();
  SetCount("title", "11");
  desk.Open();
  EXPECT_GE(desk.LoggedFailures(61), 1);
  EXPECT_EQ(desk.LoggedFailures(60), 0);
  EXPECT_EQ(FormatDesk::Shown("BookLabel"), "عنوان مجموعه:");
  EXPECT_THAT(FormatDesk::Lines("books"), ElementsAre("One.txt"));
}

TEST_F(FormatWindowLoad, Failure63TheListIsGoneFromTheScreen) {
  desk.Open();
  Robot::CloseWindow("Form3");
  desk.form3.IndexEmpty();
  EXPECT_EQ(desk.LoggedFailures(63), 1);
}

TEST_F(FormatWindowLoad, Failure64TheFolderCannotBeListed) {
  desk.AddText("One.txt", u"alpha");
  desk.files.FailWhere("FileNames", "Texts");
  desk.Open();
  EXPECT_EQ(desk.LoggedFailures(64), 1);
  EXPECT_EQ(desk.LoggedFailures(60), 0);
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  EXPECT_THAT(FormatDesk::Lines("books"), IsEmpty());
  EXPECT_TRUE(desk.form3.IsVisible());
}

TEST_F(FormatWindowLoad, Failure64TheFolderHasVanished) {
  desk.AddText("One.txt", u"alpha");
  desk.Open();
  std::filesystem::remove_all(desk.HostPath("Texts"));
  EXPECT_EQ(desk.form3.FileList(), 0);
  EXPECT_EQ(desk.LoggedFailures(64), 1);
  EXPECT_THAT(FormatDesk::Lines("books"), IsEmpty());
  EXPECT_FALSE(desk.form1.lastErrorText.empty());
}

TEST_F(FormatWindowLoad, Failure66AWindowThatIsGoneCannotBeEmptied) {
  desk.OpenOn(u"alpha beta");
  FormatDesk::Mark(Qt::Key_F1, "alpha");
  Robot::CloseWindow("Form3");
  desk.form3.ResetA();
  EXPECT_EQ(desk.LoggedFailures(66), 1);
  // The button's caption comes first, so nothing after it was done.
  EXPECT_EQ(desk.form3.entryCount, 1);
  EXPECT_EQ(desk.form3.table.entryText(0), u"alpha");
}

}  // namespace
