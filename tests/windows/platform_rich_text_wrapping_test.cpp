// Where the rich-text box breaks its lines, and that nobody but the eye notices.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

#include "tests/support/rich_text_bench.h"

namespace {

using platform::Position;
using platform::Text;
using testing_support::RichTextBench;
using testing_support::Robot;
using testing_support::RtfOf;

constexpr std::size_t kLongestWord = 2000;

// Letters that no line may be broken between, but for want of room.
Text Word(std::size_t length) {
  constexpr platform::TextView letters = u"دوستمنبرگكتابخانه";
  Text word;
  for (std::size_t i = 0; i < length; ++i) word += letters[(i * 7 + i / 13) % letters.size()];
  return word;
}

Text Words(int count) {
  Text words;
  for (int i = 0; i < count; ++i) words += u"كلمه‌اي ";
  return words;
}

class PlatformRichTextWrapping : public testing::Test, protected RichTextBench {
 protected:
  void Show() {
    window.ShowActive();
    Robot::Settle();
  }
  bool BreaksAnywhere() const { return Edit().wordWrapMode() == QTextOption::WrapAnywhere; }
  bool BreaksBetweenWords() const {
    return Edit().wordWrapMode() == QTextOption::WrapAtWordBoundaryOrAnywhere;
  }
  // How many lines of the first paragraph end in the middle of a word.
  int BrokenWords() const {
    const QTextBlock block = Edit().document()->firstBlock();
    int broken = 0;
    for (int i = 0; i + 1 < block.layout()->lineCount(); ++i) {
      const QTextLine line = block.layout()->lineAt(i);
      if (!block.text()[line.textStart() + line.textLength() - 1].isSpace()) ++broken;
    }
    return broken;
  }
  void Paste(const Text& text) const {
    Edit().insertPlainText(QString::fromStdU16String(text));
    Robot::Settle();
  }
};

TEST_F(PlatformRichTextWrapping, WordsStayWholeInAnOrdinaryText) {
  Show();
  for (const Text& text :
       {Words(500), Word(kLongestWord) + u" " + Words(500), Words(50) + u"\r\n" + Words(500)}) {
    matn.SetText(text);
    Robot::Settle();
    EXPECT_TRUE(BreaksBetweenWords());
  }
  EXPECT_GT(Edit().document()->firstBlock().layout()->lineCount(), 1);
  EXPECT_EQ(BrokenWords(), 0);
}

// Between them a line may end as it may after a blank.
TEST_F(PlatformRichTextWrapping, HyphensAndPicturesEndAWordToo) {
  Text hyphens;
  while (hyphens.size() < 5 * kLongestWord) hyphens += u"كلمه-";
  matn.SetText(hyphens);
  EXPECT_TRUE(BreaksBetweenWords());
  const platform::rtf::Run picture = {
      {}, testing_support::RichPicture(platform::rtf::PictureKind::kPng)};
  matn.SetTextRTF(RtfOf({{{.runs = std::vector(kLongestWord + 1, picture)}}}));
  EXPECT_TRUE(BreaksBetweenWords());
}

TEST_F(PlatformRichTextWrapping, AnEndlessWordFillsTheBoxLineByLine) {
  Show();
  matn.SetText(Word(5 * kLongestWord));
  Robot::Settle();
  EXPECT_TRUE(BreaksAnywhere());
  EXPECT_EQ(Edit().horizontalScrollBar()->maximum(), 0);
  const QTextLayout& layout = *Edit().document()->firstBlock().layout();
  ASSERT_GT(layout.lineCount(), 10);
  const double room = Edit().viewport()->width();
  for (int i = 0; i + 1 < layout.lineCount(); ++i) {
    const QTextLine line = layout.lineAt(i);
    EXPECT_LE(line.naturalTextWidth(), room) << i;
    EXPECT_GT(line.naturalTextWidth(), room * 0.9) << i;
  }
}

// Ink in every line, and none beside the box: the picture of what the editor sees.
TEST_F(PlatformRichTextWrapping, AnEndlessWordIsDrawn) {
  Show();
  matn.SetText(Word(2 * kLongestWord));
  Robot::Settle();
  const QImage shown = Edit().viewport()->grab().toImage();
  const QTextLayout& layout = *Edit().document()->firstBlock().layout();
  for (int i = 0; i < 5; ++i) {
    const QTextLine line = layout.lineAt(i);
    const int middle = qRound(layout.position().y() + line.y() + line.height() / 2);
    for (const int third : {0, 1, 2}) {
      int dark = 0;
      for (int x = third * shown.width() / 3; x < (third + 1) * shown.width() / 3; ++x) {
        for (const int y : {middle - 3, middle, middle + 3}) {
          dark += qGray(shown.pixel(x, y)) < 128 ? 1 : 0;
        }
      }
      EXPECT_GT(dark, 5) << "line " << i << ", third " << third;
    }
  }
}

// One word cut into thousands of formats, which the toolkit lays out one by one.
TEST_F(PlatformRichTextWrapping, AWordOfManyFormatsIsEndlessToo) {
  platform::rtf::Paragraph paragraph;
  for (int i = 0; i < 1000; ++i) {
    paragraph.runs.push_back({{.font = {}, .bold = i % 2 == 0}, Word(5)});
  }
  Show();
  matn.SetTextRTF(RtfOf({{paragraph}}));
  Robot::Settle();
  EXPECT_TRUE(BreaksAnywhere());
  EXPECT_EQ(Edit().horizontalScrollBar()->maximum(), 0);
  EXPECT_EQ(Content().paragraphs.front().runs, paragraph.runs);
}

TEST_F(PlatformRichTextWrapping, NonBreakingSpacesEndNoWord) {
  Text text;
  while (text.size() < 2 * kLongestWord) text += u"كلمه\u00A0";
  matn.SetText(text);
  EXPECT_TRUE(BreaksAnywhere());
}

TEST_F(PlatformRichTextWrapping, WhatIsReadBackIsWhatWasPutIn) {
  const Text word = Word(3 * kLongestWord);
  const Text text = Words(30) + u"\r\n\r\n" + word + u"\u00A0\u200F.\r\n" + Words(3);
  matn.SetText(text);
  Show();
  EXPECT_EQ(matn.Text(), text);
  EXPECT_EQ(matn.TextLength(), static_cast<Position>(text.size() - 3));
  EXPECT_EQ(platform::rtf::PlainText(matn.TextRTF()), text);
  Select(245, 4000);
  Robot::Settle();
  EXPECT_EQ(matn.SelStart(), 245);
  EXPECT_EQ(matn.SelLength(), 4000);
  EXPECT_EQ(matn.SelText(), word.substr(3, 4000));
  EXPECT_EQ(platform::rtf::PlainText(matn.SelRTF()), word.substr(3, 4000));
  EXPECT_EQ(Edit().textCursor().selectedText().toStdU16String(), word.substr(3, 4000));
}

TEST_F(PlatformRichTextWrapping, TheCaretStandsWhereTheLetterIs) {
  matn.SetText(Word(3 * kLongestWord));
  Show();
  for (const int position : {0, 1, 77, 150, 999}) {
    matn.SetSelStart(position);
    Robot::Settle();
    const QRect caret = Edit().cursorRect();
    EXPECT_TRUE(Edit().viewport()->rect().intersects(caret)) << position;
    QTest::mouseClick(Edit().viewport(), Qt::LeftButton, {}, caret.center());
    EXPECT_EQ(Edit().cursorRect().center(), caret.center()) << position;
  }
}

TEST_F(PlatformRichTextWrapping, WordsAreWholeAgainOnceTheEndlessOneIsFiled) {
  matn.SetText(Word(2 * kLongestWord) + u" " + Words(500));
  Show();
  EXPECT_GT(BrokenWords(), 0);
  Select(0, 2 * kLongestWord + 1);
  matn.SetSelText(u"");
  Robot::Settle();
  EXPECT_TRUE(BreaksBetweenWords());
  EXPECT_EQ(BrokenWords(), 0);
  EXPECT_EQ(matn.Text(), Words(500));
  Robot::PressKey("Rich", "matn", Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(BreaksAnywhere());
  EXPECT_EQ(matn.Text(), Word(2 * kLongestWord) + u" " + Words(500));
}

TEST_F(PlatformRichTextWrapping, AnEndlessWordMayComeByPastingAndByJoining) {
  Show();
  matn.SetText(Words(100));
  Paste(Word(2 * kLongestWord));
  EXPECT_TRUE(BreaksAnywhere());
  EXPECT_EQ(Edit().horizontalScrollBar()->maximum(), 0);
  const Text half = Word(kLongestWord - 100);
  matn.SetText(Words(3) + u"\r\n" + half + u"\r\n" + half);
  EXPECT_TRUE(BreaksBetweenWords());
  Select(static_cast<Position>(Words(3).size() + 1 + half.size()), 1);
  matn.SetSelText(u"");
  Robot::Settle();
  EXPECT_TRUE(BreaksAnywhere());
  EXPECT_EQ(matn.Text(), Words(3) + u"\r\n" + half + half);
}

}  // namespace
