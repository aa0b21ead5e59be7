// How the text of an entry looks: what comes in by pasting, what an edit keeps, what turns.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QMimeData>
#include <QTextBlock>
#include <QTextEdit>

#include "tests/support/gallery_desk.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using testing_support::FormatDesk;
using testing_support::GalleryDesk;
using testing_support::Robot;
using testing_support::Utf8;

class ParagraphFormats : public testing::Test {
 protected:
  ParagraphFormats() {
    desk.OpenOn(u"Head\r\nsay \\ltrpar here\r\nMain");
    FormatDesk::FileHeading("Head", "say \\ltrpar here");
    FormatDesk::Mark(Qt::Key_F1, "Main");
    QApplication::clipboard()->clear();
  }
  void InEntry(int row, const std::function<void()>& act) { desk.InEntry(row, act); }
  // The changes are kept at the end.
  void Edit(int row, const std::function<void()>& act) { desk.Edit(row, act); }
  static QTextEdit& Matn() { return Robot::FindAs<QTextEdit>("Form6", "matn"); }
  static std::string Text() { return Matn().toPlainText().toStdString(); }
  static QTextCharFormat FormatAt(const QString& passage) {
    Robot::Select("Form6", "matn", passage);
    return Matn().textCursor().charFormat();
  }
  static void Give(const QString& passage, const QTextCharFormat& format) {
    Robot::Select("Form6", "matn", passage);
    Matn().mergeCurrentCharFormat(format);
  }
  // Takes the place of the whole text, by the keys.
  static void Paste(const char* type, const QByteArray& bytes) {
    auto* copied = new QMimeData;
    copied->setData(type, bytes);
    QApplication::clipboard()->setMimeData(copied);
    PasteOverAll();
  }
  static void PasteOverAll() {
    Robot::PressKey("Form6", "matn", Qt::Key_A, Qt::ControlModifier);
    Robot::PressKey("Form6", "matn", Qt::Key_V, Qt::ControlModifier);
  }
  std::string Stored(int row) { return Utf8(desk.form3.table.entryText(row)); }

  GalleryDesk desk;
};

// The turn replaces the word wherever it stands in the rich text.
TEST_F(ParagraphFormats, ATextThatShowsTheTurnsOwnWordIsTurnedInItsLettersToo) {
  const std::string filed = Stored(0);
  InEntry(0, [] { EXPECT_EQ(Text(), "say \\rtlpar here"); });
  EXPECT_EQ(Stored(0), filed);
  Edit(0, [] {});
  EXPECT_EQ(Utf8(desk.form3.ToTXT(desk.form3.table.entryText(0))), "say \\rtlpar here");
  EXPECT_EQ(FormatDesk::Lines("bindex")[0], "Head   =>   say \\rtlpar here");
}

TEST_F(ParagraphFormats, EveryFormatThatATextCanHaveSurvivesTwoEdits) {
  Edit(0, [] {
    QTextCharFormat format;
    format.setFontItalic(true);
    format.setFontUnderline(true);
    Give("say", format);
    format = {};
    format.setFontStrikeOut(true);
    format.setBackground(Qt::yellow);
    format.setFontFamilies({"Nazanin"});
    Give("here", format);
  });
  Edit(0, [] {});
  InEntry(0, [] {
    EXPECT_TRUE(FormatAt("say").fontItalic());
    EXPECT_TRUE(FormatAt("say").fontUnderline());
    EXPECT_FALSE(FormatAt("say").fontStrikeOut());
    const QTextCharFormat last = FormatAt("here");
    EXPECT_TRUE(last.fontStrikeOut());
    EXPECT_EQ(last.background().color(), QColor(Qt::yellow));
    EXPECT_EQ(last.fontFamilies().toStringList(), QStringList("Nazanin"));
  });
}

TEST_F(ParagraphFormats, RichTextIsPastedUnderEitherOfItsNames) {
  for (const char* type : {"text/rtf", "application/rtf"}) {
    SCOPED_TRACE(type);
    Edit(0, [=] { Paste(type, "{\\rtf1\\ansi{\\b\\cf1 bold}\\par{\\fs60 large}}"); });
    InEntry(0, [] {
      EXPECT_EQ(Text(), "bold\nlarge");
      EXPECT_GE(FormatAt("bold").fontWeight(), QFont::Bold);
      EXPECT_EQ(FormatAt("large").fontPointSize(), 30);
    });
    Edit(0, [] { Paste("text/plain", "plain"); });
  }
}

TEST_F(ParagraphFormats, WebTextIsPastedWithItsFormat) {
  Edit(0, [] {
    Paste("text/html",
          "<p><b>bold</b> <span style='color:#ff0000'>red</span></p>"
          "<table><tr><td>one</td><td>two</td></tr></table><ul><li>point</li></ul>");
  });
  InEntry(0, [] {
    EXPECT_GE(FormatAt("bold").fontWeight(), QFont::Bold);
    EXPECT_EQ(FormatAt("red").foreground().color(), QColor(Qt::red));
    for (const char* word : {"one", "two", "point"}) EXPECT_THAT(Text(), HasSubstr(word));
  });
}

TEST_F(ParagraphFormats, BrokenRichTextFallsBackToThePlainTextBesideIt) {
  InEntry(0, [] {
    auto* copied = new QMimeData;
    copied->setData("application/rtf", "no rich text");
    copied->setText("plain");
    QApplication::clipboard()->setMimeData(copied);
    PasteOverAll();
    EXPECT_EQ(Text(), "plain");
  });
}

TEST_F(ParagraphFormats, APictureOnTheClipboardIsNotPasted) {
  InEntry(0, [] {
    const std::string before = Text();
    QApplication::clipboard()->setImage(QImage(40, 40, QImage::Format_RGB32));
    PasteOverAll();
    EXPECT_EQ(Text(), before);
  });
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(ParagraphFormats, WhatIsPastedInTheMiddleIsOnTheRightAtTheNextOpening) {
  Edit(0, [] { Paste("text/rtf", "{\\rtf1\\pard\\ltrpar\\qc middle\\par\\pard\\ltrpar left}"); });
  InEntry(0, [] {
    for (QTextBlock block = Matn().document()->begin(); block.isValid(); block = block.next()) {
      EXPECT_EQ(block.blockFormat().layoutDirection(), Qt::RightToLeft) << block.blockNumber();
      EXPECT_TRUE(block.blockFormat().alignment() & Qt::AlignRight) << block.blockNumber();
    }
  });
}

TEST_F(ParagraphFormats, ALineBreakInAParagraphSurvives) {
  Edit(0, [] {
    Robot::Select("Form6", "matn", 3, 0);
    Robot::PressKey("Form6", "matn", Qt::Key_Return, Qt::ShiftModifier);
  });
  EXPECT_THAT(Utf8(desk.form3.ToTXT(desk.form3.table.entryText(0))),
              testing::StartsWith("say\r\n "));
  InEntry(0, [] { EXPECT_EQ(Matn().document()->blockCount(), 1); });
}

TEST_F(ParagraphFormats, RichTextPastedIntoAMainTitleLeavesItPlain) {
  Edit(1, [] { Paste("text/rtf", "{\\rtf1{\\b First} part}"); });
  EXPECT_EQ(Stored(1), "First part");
  EXPECT_THAT(FormatDesk::Lines("bindex")[1], Not(HasSubstr("rtf")));
  InEntry(1, [] { EXPECT_EQ(Text(), "First part"); });
}

// A heading that is renamed so is a main title from then on.
TEST_F(ParagraphFormats, ATitleTypedAsThatOfAMainTitleMakesTheRowOne) {
  Edit(0, [] { Robot::Type("Form6", "bname", ">>> تيتر اصلي"); });
  EXPECT_EQ(Stored(0), "say \\rtlpar here");
  InEntry(0, [] { EXPECT_EQ(Text(), "say \\rtlpar here"); });
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

}  // namespace
