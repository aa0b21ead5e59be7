// The paragraph window on real rows: what it shows and what goes back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>
#include <array>

#include "tests/support/gallery_desk.h"
#include "tests/support/known_texts.h"

namespace {

using platform::Text;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::BoxText;
using testing_support::FormatDesk;
using testing_support::GalleryDesk;
using testing_support::Robot;
using testing_support::Utf8;

class ParagraphWindow : public testing::Test {
 protected:
  ParagraphWindow() { desk.OpenOnFiveRows("First\nSecond"); }
  void InEntry(int row, const std::function<void()>& act) { desk.InEntry(row, act); }
  // The changes are kept at the end.
  void Edit(int row, const std::function<void()>& act) { desk.Edit(row, act); }
  static QTextEdit& Matn() { return Robot::FindAs<QTextEdit>("Form6", "matn"); }
  static QString Shown(const QString& field) {
    return Robot::FindAs<QLineEdit>("Form6", field).text();
  }
  // Typed over the passage, with the format that stands there.
  static void TypeOver(const QString& passage, const QString& text) {
    Robot::Select("Form6", "matn", passage);
    QInputMethodEvent typed(QString(), {});
    typed.setCommitString(text);
    QApplication::sendEvent(&Matn(), &typed);
  }
  workbench::EntryTable& Table() { return desk.form3.table; }
  std::string Line(int row) { return FormatDesk::Lines("bindex")[static_cast<std::size_t>(row)]; }
  Text AddFile(const std::string& name) {
    desk.MakeFolders("media");
    desk.Write("media/" + name, "bytes");
    return Medium(platform::FromUtf8(name));
  }
  Text Medium(const Text& name) const { return desk.Path(u"media\\" + name); }
  // Of the attached file, the sound and the film.
  void TypePaths(const std::array<Text, 3>& names) const {
    const std::array<const char*, 3> fields = {"picB", "soutB", "filmB"};
    for (std::size_t i = 0; i < fields.size(); ++i) {
      Robot::Type("Form6", fields[i], Q(Medium(names[i])));
    }
  }
  static QString Q(const Text& text) { return QString::fromStdString(Utf8(text)); }

  GalleryDesk desk;
};

TEST_F(ParagraphWindow, OpensModallyOnTheRowThatWasClicked) {
  bool modal = false;
  InEntry(1, [&] {
    modal = Robot::FindWindow("Form6")->isModal();
    EXPECT_EQ(Shown("bname"), "Head");
    EXPECT_EQ(Matn().toPlainText(), "Text");
    EXPECT_FALSE(Robot::FindAs<QLineEdit>("Form6", "bname").isReadOnly());
  });
  EXPECT_TRUE(modal);
  EXPECT_EQ(desk.form3.editIndex, 1);
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(ParagraphWindow, AClickBelowTheLastLineOpensNothing) {
  desk.form3.bindex.SetListIndex(-1);
  QWidget& list = *Robot::FindAs<QAbstractScrollArea>("Form3", "bindex").viewport();
  QTest::mouseClick(&list, Qt::LeftButton, Qt::NoModifier,
                    list.rect().bottomRight() - QPoint(2, 2));
  Robot::Settle();
  EXPECT_EQ(desk.form3.editIndex, -1);
  EXPECT_FALSE(desk.form6.IsLoaded());
}

TEST_F(ParagraphWindow, AClickOnTheEndOfAMainTitleOpensNothingButMovesTheRow) {
  Robot::ClickLine("Form3", "bindex", 4);
  EXPECT_FALSE(desk.form6.IsLoaded());
  EXPECT_EQ(desk.form3.editIndex, 4);
}

TEST_F(ParagraphWindow, AnyMouseButtonOpensTheRow) {
  bool opened = false;
  desk.robot.WhenShown("Form6", [&] {
    opened = true;
    Robot::CloseWindow("Form6");
  });
  auto& list = Robot::FindAs<QListWidget>("Form3", "bindex");
  QTest::mouseClick(list.viewport(), Qt::RightButton, Qt::NoModifier,
                    list.visualItemRect(list.item(1)).center());
  EXPECT_TRUE(opened);
}

TEST_F(ParagraphWindow, TitlesOfIdentityAndMainTitleAreLocked) {
  for (const int row : {0, 2}) {
    Edit(row, [] {
      EXPECT_TRUE(Robot::FindAs<QLineEdit>("Form6", "bname").isReadOnly());
      Robot::Type("Form6", "bname", "other");
    });
  }
  EXPECT_EQ(Table().entryTitle(0), u"شناسنامه");
  EXPECT_EQ(Table().entryTitle(2), u">>> تيتر اصلي");
}

TEST_F(ParagraphWindow, TextAndAttachmentsOfALockedRowCanBeChanged) {
  const QString sound = Q(AddFile("a.mp3"));
  for (const int row : {0, 2}) {
    Edit(row, [=] {
      TypeOver(row == 0 ? "identity" : "Main", "other");
      Robot::Type("Form6", "soutB", sound);
    });
    EXPECT_EQ(Table().entrySound(row), desk.Path(u"media\\a.mp3")) << row;
  }
  EXPECT_EQ(Line(0), "~ شناسنامه   =>   other");
  EXPECT_EQ(Line(2), "~ >>> تيتر اصلي   =>   other");
}

TEST_F(ParagraphWindow, TitleAndTextGoBackIntoTheRowAndItsLine) {
  Edit(1, [] {
    Robot::Type("Form6", "bname", "Heading");
    TypeOver("Text", "Long text");
  });
  EXPECT_EQ(Table().entryTitle(1), u"Heading");
  EXPECT_EQ(Utf8(desk.form3.ToTXT(Table().entryText(1))), "Long text");
  EXPECT_EQ(Line(1), "Heading   =>   Long text");
  EXPECT_FALSE(desk.form6.IsLoaded());
}

TEST_F(ParagraphWindow, ATitleOfTwentyCharactersIsShownWholeAndOfTwentyOneCut) {
  Edit(1, [] { Robot::Type("Form6", "bname", QString(20, u'a')); });
  EXPECT_EQ(Line(1), std::string(20, 'a') + "   =>   Text");
  Edit(1, [] { Robot::Type("Form6", "bname", QString(21, u'a')); });
  EXPECT_EQ(Line(1), std::string(20, 'a') + "...   =>   Text");
}

TEST_F(ParagraphWindow, ClosingItByItsButtonDropsTheEdits) {
  desk.AddPicture("back.jpg");
  Table().entryBack.Set(1, desk.Picture(u"back.jpg"));
  for (const char* name : {"a.pdf", "a.mp3", "a.flv"}) AddFile(name);
  Edit(1, [this] { TypePaths({u"a.pdf", u"a.mp3", u"a.flv"}); });
  const std::string line = Line(1);
  const Text text = Table().entryText(1);
  InEntry(1, [this] {
    Robot::Type("Form6", "bname", "Heading");
    TypeOver("Text", "Other text");
    TypePaths({u"b.pdf", u"b.mp3", u"b.flv"});
    Robot::Click("Form6", "Image1");
    Robot::Click("Form6", "btn(5)");
  });
  EXPECT_EQ(Table().entryTitle(1), u"Head");
  EXPECT_EQ(Table().entryText(1), text);
  EXPECT_EQ(Table().entryAttach(1), Medium(u"a.pdf"));
  EXPECT_EQ(Table().entrySound(1), Medium(u"a.mp3"));
  EXPECT_EQ(Table().entryFilm(1), Medium(u"a.flv"));
  EXPECT_EQ(Table().entryBack(1), desk.Picture(u"back.jpg"));
  EXPECT_FALSE(Table().entryGallery(1));
  EXPECT_EQ(Line(1), line);
}

TEST_F(ParagraphWindow, ALockedRowClosedByItsButtonLeavesTheNextOneOpen) {
  const auto locked = [] { return Robot::FindAs<QLineEdit>("Form6", "bname").isReadOnly(); };
  for (const int row : {0, 2}) {
    InEntry(row, [&] { EXPECT_TRUE(locked()); });
    EXPECT_FALSE(desk.form6.IsLoaded());
    Edit(1, [&] {
      EXPECT_FALSE(locked());
      Robot::Type("Form6", "bname", "row " + QString::number(row));
    });
    EXPECT_EQ(Table().entryTitle(1), u"row " + platform::FromNumber(row));
  }
}

TEST_F(ParagraphWindow, AMainTitleStaysPlainThroughAnEdit) {
  Edit(2, [] {
    EXPECT_EQ(Matn().toPlainText(), "Main");
    TypeOver("Main", "بخش نخست");
  });
  EXPECT_EQ(Table().entryText(2), u"بخش نخست");
  EXPECT_EQ(Line(2), ">>> تيتر اصلي   =>   بخش نخست");
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(ParagraphWindow, MarksStandInFrontOfTheLineAndGoWithTheirAttachments) {
  const QString sound = Q(AddFile("a.mp3"));
  const QString film = Q(AddFile("a.flv"));
  Edit(1, [=] {
    Robot::Type("Form6", "soutB", sound);
    Robot::Type("Form6", "filmB", film);
  });
  EXPECT_EQ(Line(1), "# ~ Head   =>   Text");
  const QString file = Q(AddFile("a.pdf"));
  desk.AddPicture("back.jpg");
  Table().entryBack.Set(1, desk.Picture(u"back.jpg"));
  Edit(1, [=] { Robot::Type("Form6", "picB", file); });
  EXPECT_EQ(Line(1), "^ # ~ § Head   =>   Text");
  Edit(1, [] {
    for (const char* button : {"btn(1)", "btn(2)", "btn(3)", "Image1"}) {
      Robot::Click("Form6", button);
    }
  });
  EXPECT_EQ(Line(1), "Head   =>   Text");
  EXPECT_EQ(Table().entryAttach(1), u"");
}

TEST_F(ParagraphWindow, ALeftToRightTextIsTurnedAtEachOpening) {
  Table().entryText.Set(1, u"{\\rtf1\\ansi\\pard\\ltrpar\\ql one\\par\\pard\\ltrpar\\ql two\\par}");
  InEntry(1, [] {
    for (QTextBlock block = Matn().document()->begin(); block.isValid(); block = block.next()) {
      EXPECT_EQ(block.blockFormat().layoutDirection(), Qt::RightToLeft);
      EXPECT_TRUE(block.blockFormat().alignment() & Qt::AlignRight);
    }
    EXPECT_EQ(Matn().textCursor().position(), 0);
    EXPECT_FALSE(Matn().textCursor().hasSelection());
  });
}

TEST_F(ParagraphWindow, FormattingSurvivesFilingEditingAndOpeningAgain) {
  Edit(1, [] {
    Robot::Select("Form6", "matn", "Te");
    QTextCharFormat format;
    format.setFontWeight(QFont::Bold);
    format.setFontPointSize(20);
    format.setForeground(Qt::red);
    Matn().mergeCurrentCharFormat(format);
  });
  Edit(1, [] { Robot::Type("Form6", "bname", "Heading"); });
  InEntry(1, [] {
    Robot::Select("Form6", "matn", "Te");
    const QTextCharFormat format = Matn().textCursor().charFormat();
    EXPECT_GE(format.fontWeight(), QFont::Bold);
    EXPECT_EQ(format.fontPointSize(), 20);
    EXPECT_EQ(format.foreground().color(), QColor(Qt::red));
    Robot::Select("Form6", "matn", "xt");
    EXPECT_LT(Matn().textCursor().charFormat().fontWeight(), QFont::Bold);
  });
}

TEST_F(ParagraphWindow, WhatAWordProcessorCopiedKeepsItsFormatThroughTheSystemsPaste) {
  Edit(1, [] {
    auto* copied = new QMimeData;
    copied->setData("text/rtf", "{\\rtf1\\ansi{\\b bold}\\par plain}");
    copied->setText("bold\nplain");
    QApplication::clipboard()->setMimeData(copied);
    Robot::Select("Form6", "matn", "Text");
    Robot::PressKey("Form6", "matn", Qt::Key_V, Qt::ControlModifier);
  });
  InEntry(1, [] {
    EXPECT_EQ(Matn().toPlainText(), "bold\nplain");
    Robot::Select("Form6", "matn", "bold");
    EXPECT_GE(Matn().textCursor().charFormat().fontWeight(), QFont::Bold);
    EXPECT_EQ(Matn().textCursor().block().blockFormat().layoutDirection(), Qt::RightToLeft);
  });
}

TEST_F(ParagraphWindow, AHeadingWithoutTextYetIsShownEmpty) {
  desk.OpenOn(u"Lone");
  FormatDesk::Mark(Qt::Key_F2, "Lone");
  InEntry(5, [] {
    EXPECT_EQ(Shown("bname"), "Lone");
    EXPECT_EQ(Matn().toPlainText(), "");
  });
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(ParagraphWindow, WithoutARowThereIsMessageFive) {
  desk.form3.editIndex = -1;
  desk.form3.ShowEdit();
  const auto boxes = desk.robot.TakeBoxes();
  ASSERT_THAT(boxes, SizeIs(1));
  EXPECT_EQ(boxes[0].text.toStdString(), BoxText(5));
  EXPECT_EQ(boxes[0].title, "Zorvand");
}

TEST_F(ParagraphWindow, AllPathsEmptyPassWithoutAMessage) {
  Edit(1, [] {});
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  EXPECT_FALSE(desk.form6.IsLoaded());
}

TEST_F(ParagraphWindow, MissingFilesAreToldInTheirOrderAndTheWindowStays) {
  const QString there = Q(AddFile("a.mp3"));
  InEntry(1, [&, this] {
    Robot::Type("Form6", "picB", "C:\\nowhere\\a");
    Robot::Type("Form6", "soutB", there);
    Robot::Type("Form6", "filmB", Q(desk.Path(u"media")));  // a folder is no file
    Robot::Click("Form6", "btn(4)");
    EXPECT_TRUE(desk.form6.IsVisible());
    auto boxes = desk.robot.TakeBoxes();
    ASSERT_THAT(boxes, SizeIs(2));
    EXPECT_EQ(boxes[0].text.toStdString(), BoxText(6));
    EXPECT_EQ(boxes[1].text.toStdString(), BoxText(8));
    Robot::Type("Form6", "soutB", "x.mp3");
    Robot::Click("Form6", "btn(4)");
    boxes = desk.robot.TakeBoxes();
    ASSERT_THAT(boxes, SizeIs(3));
    EXPECT_EQ(boxes[1].text.toStdString(), BoxText(7));
  });
  EXPECT_EQ(Table().entryAttach(1), u"");
}

TEST_F(ParagraphWindow, AButtonEmptiesItsFieldAloneUntilTheChangesAreKept) {
  Table().entryAttach.Set(1, AddFile("a.pdf"));
  InEntry(1, [] {
    Robot::Click("Form6", "btn(1)");
    EXPECT_EQ(Shown("picB"), "");
  });
  EXPECT_EQ(Table().entryAttach(1), desk.Path(u"media\\a.pdf"));
}

// By a click, after which the toolkit's own fields select nothing.
TEST_F(ParagraphWindow, APathFieldIsSelectedWhenItGetsTheFocus) {
  InEntry(1, [this] {
    TypePaths({u"a.pdf", u"a.mp3", u"a.flv"});
    for (const char* field : {"picB", "soutB", "filmB"}) {
      Robot::Find("Form6", "bname").setFocus();
      auto& box = Robot::FindAs<QLineEdit>("Form6", field);
      EXPECT_EQ(box.selectedText(), "") << field;
      Robot::Click("Form6", field);
      EXPECT_EQ(box.selectedText(), Shown(field)) << field;
      EXPECT_FALSE(Shown(field).isEmpty()) << field;
    }
  });
}

TEST_F(ParagraphWindow, EscapeLosesNothing) {
  InEntry(1, [this] {
    Robot::Type("Form6", "bname", "Heading");
    Robot::PressKey("Form6", "bname", Qt::Key_Escape);
    EXPECT_TRUE(desk.form6.IsVisible());
    EXPECT_EQ(Shown("bname"), "Heading");
  });
}

TEST_F(ParagraphWindow, ATextThatIsPlainIsShownAsItIs) {
  Table().entryText.Set(1, u"plain");
  InEntry(1, [] { EXPECT_EQ(Matn().toPlainText(), "plain"); });
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

// By F2 and F3 a heading can get the title of a main title's row; its text is rich at first.
TEST_F(ParagraphWindow, ARichTextUnderAMainTitlesWordIsShownAndBecomesPlain) {
  Table().entryTitle.Set(1, u">>> تيتر اصلي");
  Edit(1, [] { EXPECT_EQ(Matn().toPlainText(), "Text"); });
  EXPECT_EQ(Table().entryText(1), u"Text");
  EXPECT_EQ(Line(1), ">>> تيتر اصلي   =>   Text");
}

TEST_F(ParagraphWindow, EachStepIsTold) {
  Edit(1, [] {});
  InEntry(1, [] { Robot::Click("Form6", "btn(0)"); });
  EXPECT_EQ(desk.LoggedTimes("Opening an Onvan..."), 2);
  EXPECT_EQ(desk.LoggedTimes("Editing an Onvan..."), 1);
  EXPECT_EQ(desk.LoggedTimes("Removing an Onvan..."), 1);
}

TEST_F(ParagraphWindow, Failure52TheLineIsGoneButTheRowIsStored) {
  InEntry(1, [this] {
    Robot::Type("Form6", "bname", "Heading");
    desk.form3.bindex.Clear();
    Robot::Click("Form6", "btn(4)");
    EXPECT_TRUE(desk.form6.IsVisible());
  });
  EXPECT_EQ(Table().entryTitle(1), u"Heading");
  EXPECT_EQ(desk.LoggedFailures(52), 1);
}

TEST_F(ParagraphWindow, Failure53NobodyShowsRows) {
  workbench::Form3 alone(desk.form1);
  alone.Load();
  alone.bindex.AddItem(u"line");
  alone.bindex.SetListIndex(0);
  alone.bindex_MouseUp();
  EXPECT_EQ(desk.LoggedFailures(53), 1);
}

TEST_F(ParagraphWindow, Failure70ADamagedPictureBesideTheProgram) {
  desk.Write("p.jpg", "no picture");
  InEntry(1, [] { Robot::Click("Form6", "btn(5)"); });
  EXPECT_EQ(desk.LoggedFailures(70), 1);
}

TEST_F(ParagraphWindow, Failure77TheFileServiceFailsAtLoading) {
  desk.files.FailWhere("FileExists", "img.bin");
  InEntry(1, [] { EXPECT_EQ(Shown("bname"), "Head"); });
  EXPECT_EQ(desk.LoggedFailures(77), 1);
}

}  // namespace
