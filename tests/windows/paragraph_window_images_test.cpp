// Pictures put into the text of an entry.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTextBlock>
#include <QTextEdit>
#include <filesystem>
#include <utility>

#include "tests/support/gallery_desk.h"
#include "tests/support/known_texts.h"

namespace {

using platform::Text;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::BoxText;
using testing_support::FormatDesk;
using testing_support::GalleryDesk;
using testing_support::Robot;
using testing_support::Utf8;

class ParagraphImages : public testing::Test {
 protected:
  ParagraphImages() {
    desk.AddPicture("a.jpg");
    desk.AddPicture("b.jpg");
    desk.OpenOn(u"One\r\nLine\r\nThree\r\nalpha\r\nbeta\r\ngamma");
    FormatDesk::FileHeading("One", "Line");
    FormatDesk::FileHeading("Three", "alpha\nbeta\ngamma");
  }
  // Puts a picture in front of the paragraph with the caret, by the menu.
  void Insert(const QString& picture) {
    desk.robot.WhenShown("Form5", [picture] {
      if (!picture.isEmpty()) {
        Robot::DoubleClickLine("Form5", "Dir1", "Pictures");
        Robot::ClickLine("Form5", "File1", picture);
        Robot::Click("Form5", "btn(0)");
      } else {
        Robot::CloseWindow("Form5");
      }
    });
    Robot::RightClick("Form6", "matn");
    Robot::ChooseFromMenu("popM", "picM");
  }
  // Works in the entry with the caret at a place of its text, and keeps the changes; gives the
  // entry's plain text.
  std::string After(int row, int caret, const std::function<void()>& act) {
    desk.InEntry(row, [=] {
      Robot::Select("Form6", "matn", caret, 0);
      act();
      Robot::Click("Form6", "btn(4)");
    });
    return Utf8(desk.form3.ToTXT(desk.form3.table.entryText(row)));
  }
  static QTextEdit& Matn() { return Robot::FindAs<QTextEdit>("Form6", "matn"); }
  static void Build() { Robot::PressKey("Form3", "matn", Qt::Key_F12); }

  GalleryDesk desk;
};

TEST_F(ParagraphImages, ACaretInTheFirstParagraphPutsThePictureAtTheVeryStart) {
  for (const int caret : {0, 2, 4}) {
    SCOPED_TRACE(caret);
    const std::string number = std::to_string(desk.form3.imageCount);
    const std::string text = After(1, caret, [this] { Insert("a.jpg"); });
    EXPECT_THAT(text, testing::StartsWith(" {" + number + "}\r\n"));
    EXPECT_THAT(text, HasSubstr("alpha\r\nbeta\r\ngamma"));
  }
}

TEST_F(ParagraphImages, ThePictureIsAParagraphInFrontOfTheCaretsWhereverThatStandsInIt) {
  EXPECT_EQ(After(1, 6, [this] { Insert("a.jpg"); }), "alpha\r\n {0}\r\nbeta\r\ngamma");
  EXPECT_EQ(After(1, 12, [this] { Insert("b.jpg"); }), "alpha\r\n {0}\r\n {1}\r\nbeta\r\ngamma");
}

TEST_F(ParagraphImages, AtTheEndOfTheTextItStandsInFrontOfTheLastParagraph) {
  EXPECT_EQ(After(1, 16, [this] { Insert("a.jpg"); }), "alpha\r\nbeta\r\n {0}\r\ngamma");
}

TEST_F(ParagraphImages, ATextOfOneLineGetsABlankAndALineEnd) {
  for (const int caret : {0, 2, 4}) {
    SCOPED_TRACE(caret);
    desk.form3.ResetA();
    FormatDesk::OpenBook("One.txt");
    FormatDesk::FileHeading("One", "Line");
    EXPECT_EQ(After(0, caret, [this] { Insert("a.jpg"); }), " {0}\r\nLine \r\n");
  }
}

TEST_F(ParagraphImages, AnEmptyTextTakesAPictureToo) {
  desk.form3.table.entryText.Set(0, u"");
  EXPECT_EQ(After(0, 0, [this] { Insert("a.jpg"); }), " {0}\r\n \r\n");
}

TEST_F(ParagraphImages, AFirstParagraphWithoutLettersIsOneToo) {
  desk.form3.table.entryText.Set(0, u"{\\rtf1\\rtlpar\\qr\\par beta}");
  EXPECT_EQ(After(0, 1, [this] { Insert("a.jpg"); }), "\r\n {0}\r\nbeta");
  EXPECT_EQ(After(0, 0, [this] { Insert("a.jpg"); }), " {1}\r\n\r\n {0}\r\nbeta");
}

TEST_F(ParagraphImages, ASelectionIsLeftAndThePictureStandsInFrontOfWhereItBegins) {
  const auto selecting = [this](int start, int length) {
    return After(1, 0, [this, start, length] {
      Robot::Select("Form6", "matn", start, length);
      Insert("a.jpg");
    });
  };
  EXPECT_EQ(selecting(7, 3), "alpha\r\n {0}\r\nbeta\r\ngamma");
  EXPECT_EQ(selecting(2, 16), " {1}\r\nalpha\r\n {0}\r\nbeta\r\ngamma");
}

TEST_F(ParagraphImages, APictureGoesInFrontOfAPicturesParagraphToo) {
  After(1, 6, [this] { Insert("a.jpg"); });
  EXPECT_EQ(After(1, 9, [this] { Insert("b.jpg"); }), "alpha\r\n {1}\r\n {0}\r\nbeta\r\ngamma");
  // The caret beside the last letter: pictures count as one character each.
  EXPECT_EQ(After(1, 24, [this] { Insert("a.jpg"); }),
            "alpha\r\n {1}\r\n {0}\r\nbeta\r\n {2}\r\ngamma");
}

TEST_F(ParagraphImages, ALineBreakInAParagraphIsALineEndLikeAnother) {
  const std::string text = After(1, 8, [this] {
    Robot::PressKey("Form6", "matn", Qt::Key_Return, Qt::ShiftModifier);
    Insert("a.jpg");
  });
  EXPECT_EQ(text, "alpha\r\nbe\r\n {0}\r\nta\r\ngamma");
}

TEST_F(ParagraphImages, TheFormatOfATextOfOneLineStays) {
  After(0, 0, [this] {
    Robot::Select("Form6", "matn", "Line");
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    Matn().mergeCurrentCharFormat(bold);
    Insert("a.jpg");
    Robot::Select("Form6", "matn", "Line");
    EXPECT_GE(Matn().textCursor().charFormat().fontWeight(), QFont::Bold);
  });
}

TEST_F(ParagraphImages, ThePictureOfTheMarkIsShownInTheText) {
  After(1, 7, [this] {
    Insert("a.jpg");
    const QTextBlock block = Matn().document()->findBlockByNumber(1);
    EXPECT_EQ(block.text(), QString(QChar::ObjectReplacementCharacter) + "{0}");
    EXPECT_EQ(block.blockFormat().layoutDirection(), Qt::RightToLeft);
  });
}

TEST_F(ParagraphImages, TheChooserClosedWithoutAChoicePutsTheFormerPictureInOnceMore) {
  EXPECT_EQ(After(1, 7, [this] { Insert({}); }), "alpha\r\nbeta\r\ngamma");
  EXPECT_EQ(desk.form3.imageCount, 0);
  After(1, 7, [this] { Insert("b.jpg"); });
  EXPECT_EQ(After(1, 0, [this] { Insert({}); }), " {1}\r\nalpha\r\n {0}\r\nbeta\r\ngamma");
  EXPECT_EQ(desk.form3.table.inlineImage(1), desk.Picture(u"b.jpg"));
}

TEST_F(ParagraphImages, TheChooserConfirmedWithoutAFilePutsNothingIn) {
  After(1, 7, [this] { Insert("b.jpg"); });
  const auto confirm = [this] {
    desk.robot.WhenShown("Form5", [] { Robot::Click("Form5", "btn(0)"); });
    Robot::RightClick("Form6", "matn");
    Robot::ChooseFromMenu("popM", "picM");
  };
  EXPECT_EQ(After(1, 0, confirm), "alpha\r\n {0}\r\nbeta\r\ngamma");
  EXPECT_EQ(desk.form3.imageCount, 1);
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(ParagraphImages, APictureThatIsGoneWhenItIsPlacedIsLeftOut) {
  After(1, 7, [this] { Insert("b.jpg"); });
  std::filesystem::remove(desk.HostPath("Pictures/b.jpg"));
  EXPECT_EQ(After(1, 0, [this] { Insert({}); }), "alpha\r\n {0}\r\nbeta\r\ngamma");
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

TEST_F(ParagraphImages, NumbersRunThroughTheCollectionAndAreNotUsedAgain) {
  After(0, 0, [this] { Insert("a.jpg"); });
  desk.InEntry(0, [] { Robot::Click("Form6", "btn(0)"); });
  EXPECT_EQ(After(0, 0, [this] { Insert("b.jpg"); }), " {1}\r\nalpha\r\nbeta\r\ngamma");
  Build();
  EXPECT_EQ(desk.BookNames("IMG", "a.jpg"), std::vector<std::string>{});
  EXPECT_EQ(desk.Read("Data/IMG/b.jpg"), desk.Read("Pictures/b.jpg"));
}

TEST_F(ParagraphImages, TheBuildMakesATagInPlaceOfTheParagraphAndCopiesThePicture) {
  After(1, 7, [this] { Insert("a.jpg"); });
  Build();
  EXPECT_THAT(desk.Page("Three"),
              HasSubstr("<pgMain>alpha</pgMain>\r\n<IMG src=\"Data/IMG/a.jpg\">\r\n<pgMain>beta"));
  EXPECT_EQ(desk.Read("Data/IMG/a.jpg"), desk.Read("Pictures/a.jpg"));
}

TEST_F(ParagraphImages, TwoEntriesWithOnePictureNameOneFile) {
  After(0, 0, [this] { Insert("a.jpg"); });
  After(1, 7, [this] { Insert("a.jpg"); });
  Build();
  for (const char* title : {"One", "Three"}) {
    EXPECT_THAT(desk.Page(title), HasSubstr("<IMG src=\"Data/IMG/a.jpg\">")) << title;
  }
  EXPECT_THAT(desk.BookNames("IMG", "a.jpg"), SizeIs(1));
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(ParagraphImages, AMarksParagraphIsABlankAndTheNumberAloneAfterOpeningAgain) {
  After(1, 7, [this] { Insert("a.jpg"); });
  EXPECT_EQ(After(1, 0, [] {}), "alpha\r\n {0}\r\nbeta\r\ngamma");
  desk.InEntry(1, [] {
    EXPECT_EQ(Matn().document()->findBlockByNumber(1).text(),
              QString(QChar::ObjectReplacementCharacter) + "{0}");
  });
}

TEST_F(ParagraphImages, AMarkTypedByHandIsTakenForOne) {
  After(1, 7, [this] { Insert("a.jpg"); });
  desk.InEntry(0, [] {
    Robot::Select("Form6", "matn", "Line");
    Robot::FindAs<QTextEdit>("Form6", "matn").insertPlainText(" {0}");
    Robot::Click("Form6", "btn(4)");
  });
  Build();
  EXPECT_THAT(desk.Page("One"), HasSubstr("<IMG src=\"Data/IMG/a.jpg\">"));
  EXPECT_EQ(desk.LoggedFailures(68), 0);
}

TEST_F(ParagraphImages, ANumberThatNoPictureHasGivesATagWithoutAFile) {
  desk.InEntry(0, [] {
    Robot::Select("Form6", "matn", "Line");
    Robot::FindAs<QTextEdit>("Form6", "matn").insertPlainText(" {99}");
    Robot::Click("Form6", "btn(4)");
  });
  Build();
  EXPECT_THAT(desk.Page("One"), HasSubstr("<IMG src=\"Data/IMG/\">"));
}

TEST_F(ParagraphImages, Failure68AMarkOfLettersLeavesThePageWithoutItsTail) {
  desk.InEntry(0, [] {
    Robot::Select("Form6", "matn", "Line");
    Robot::FindAs<QTextEdit>("Form6", "matn").insertPlainText(" {abc}");
    Robot::Click("Form6", "btn(4)");
  });
  Build();
  EXPECT_EQ(desk.LoggedFailures(68), 1);
  EXPECT_THAT(desk.Page("One"), testing::EndsWith("<pgMain> {abc}</pgMain>"));
  EXPECT_THAT(desk.robot.TakeBoxes(), SizeIs(1));
}

TEST_F(ParagraphImages, WithoutTheMarksTextThereIsMessageTwentyFive) {
  desk.form3.imageMark.clear();
  desk.InEntry(0, [this] {
    Robot::RightClick("Form6", "matn");
    Robot::ChooseFromMenu("popM", "picM");
    const auto boxes = desk.robot.TakeBoxes();
    ASSERT_THAT(boxes, SizeIs(1));
    EXPECT_EQ(boxes[0].text.toStdString(), BoxText(25));
  });
  EXPECT_EQ(desk.form3.imageCount, 0);
}

TEST_F(ParagraphImages, TheChooserListsPicturesAloneAndStartsBesideTheProgram) {
  desk.Write("Pictures/c.png", "");
  desk.Write("Pictures/d.mp3", "");
  desk.Write("Pictures/e.GIF", "");
  desk.InEntry(1, [this] {
    desk.robot.WhenShown("Form5", [this] {
      EXPECT_EQ(desk.form1.pendingTarget, u"IMG");
      Robot::DoubleClickLine("Form5", "Dir1", "Pictures");
      EXPECT_EQ(Robot::Lines("Form5", "File1"),
                (std::vector<std::string>{"a.jpg", "b.jpg", "e.GIF"}));
      Robot::CloseWindow("Form5");
    });
    Robot::RightClick("Form6", "matn");
    Robot::ChooseFromMenu("popM", "picM");
  });
  EXPECT_EQ(desk.LoggedTimes("Inserting image inside the text..."), 1);
}

TEST_F(ParagraphImages, TheNextCollectionCountsFromZeroAndKnowsTheLastChoiceStill) {
  After(1, 7, [this] { Insert("b.jpg"); });
  desk.form3.ResetA();
  desk.OpenBook("One.txt");
  FormatDesk::FileHeading("One", "Line");
  EXPECT_EQ(After(0, 0, [this] { Insert({}); }), " {0}\r\nLine \r\n");
  EXPECT_EQ(desk.form3.table.inlineImage(0), desk.Picture(u"b.jpg"));
}

TEST_F(ParagraphImages, Failure56AMarkThatIsNoRichTextLeavesWhatWasTypedSoFar) {
  const Text mark = std::exchange(desk.form3.imageMark, u"no rich text");
  EXPECT_EQ(After(1, 7, [this] { Insert("a.jpg"); }), "alpha\r\n\r\nbeta\r\ngamma");
  EXPECT_EQ(After(0, 2, [this] { Insert("b.jpg"); }), "Line \r\n");
  EXPECT_EQ(desk.LoggedFailures(56), 2);
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  // The number is still free, though the table knows the picture.
  EXPECT_EQ(desk.form3.imageCount, 0);
  EXPECT_EQ(desk.form3.table.inlineImage(0), desk.Picture(u"b.jpg"));
  desk.form3.imageMark = mark;
  EXPECT_EQ(After(1, 0, [this] { Insert("a.jpg"); }), " {0}\r\nalpha\r\n\r\nbeta\r\ngamma");
  EXPECT_EQ(desk.form3.table.inlineImage(0), desk.Picture(u"a.jpg"));
}

}  // namespace
