// A page of any length in the viewer's window: shown section by section, all of it in reach.
#include <gtest/gtest.h>

#include <QAbstractTextDocumentLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSlider>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextLayout>

#include "tests/viewer/window_bench.h"
#include "viewer/window.h"

using namespace Qt::StringLiterals;

namespace viewer_tests {
namespace {

// Laid out at once, at the very most.
constexpr int kAtOnce = 100'000;
constexpr int kInSection = 400'000;

class LongPage : public testing::Test {
 protected:
  void Open(const QStringList& paragraphs, const BookPlan& plan = {}) {
    OpenText(viewer_tests::PageText(u"بلند"_s, paragraphs), plan);
  }
  void OpenText(const QString& text, const BookPlan& plan = {}) {
    MakeBook(maker_, plan);
    maker_.Write(u"Data/TXT/ONE.htm"_s, text);
    window_ = std::make_unique<viewer::Window>(maker_.Root(), MachineOf(asked_));
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    Click(*window_, u"a1"_s);
    if (plan.layout == 2) ClickRow(ListOf(*window_), 0);
  }
  QTextEdit& Page() { return *qobject_cast<QTextEdit*>(&Find(*window_, u"page"_s)); }
  QString Text() { return PageText(*window_); }
  QScrollBar& Bar() { return *Page().verticalScrollBar(); }
  QSlider& Slider() { return *qobject_cast<QSlider*>(&Find(*window_, u"sections"_s)); }
  QString Label() { return qobject_cast<QLabel*>(&Find(*window_, u"sectionLabel"_s))->text(); }
  void Press(int key, Qt::KeyboardModifiers with = {}) {
    QTest::keyClick(&Page(), Qt::Key(key), with);
  }
  // As a reader scrolls, until nothing more comes.
  void ScrollToTheEndOfTheSection() {
    for (int last = -1; last != Bar().maximum();) {
      last = Bar().maximum();
      Bar().setValue(last);
    }
  }
  // As far as it is laid out, without the title.
  QString TextOfSection() { return Text().split(u'\n').sliced(1).join(QString()); }
  // Section by section to the last one; what was laid out on the way.
  QString ReadThrough() {
    QString read;
    for (;;) {
      ScrollToTheEndOfTheSection();
      ExpectThatAllIsLaidOut();
      read += TextOfSection();
      if (!Find(*window_, u"nextSection"_s).isEnabled()) return read;
      Click(*window_, u"nextSection"_s);
    }
  }
  // In lines, each piece below the one before it, down to where the bar ends.
  void ExpectThatAllIsLaidOut() {
    const QTextDocument& document = *Page().document();
    EXPECT_LT(document.characterCount(), kInSection);
    double bottom = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
      const QRectF place = document.documentLayout()->blockBoundingRect(block);
      ASSERT_GT(block.layout()->lineCount(), 0);
      ASSERT_GE(place.top(), bottom);
      bottom = place.bottom();
    }
    EXPECT_GE(Bar().maximum() + Page().viewport()->height(), bottom);
  }
  QString FirstLineSeen() {
    QTextCursor cursor = Page().cursorForPosition({Page().viewport()->width() / 2, 2});
    cursor.select(QTextCursor::BlockUnderCursor);
    return cursor.selectedText().trimmed();
  }
  void SearchAndOpenTheHit(const QString& words) {
    auto& field = *qobject_cast<QLineEdit*>(&Find(*window_, u"words"_s));
    field.setText(words);
    QTest::keyClick(&field, Qt::Key_Return);
    ASSERT_TRUE(Await([&] { return ListOf(*window_, u"hits"_s).model()->rowCount() == 2; }));
    QTest::keyClick(&Find(*window_, u"hits"_s), Qt::Key_Return);
  }
  bool IsMarkSeen() {
    if (Page().extraSelections().isEmpty()) return false;
    const QTextCursor mark = Page().extraSelections().front().cursor;
    return Page().viewport()->rect().contains(Page().cursorRect(mark).center());
  }

  BookMaker maker_;
  std::shared_ptr<Asked> asked_ = std::make_shared<Asked>();
  std::unique_ptr<viewer::Window> window_;
};

QStringList Paragraphs(int count) {
  QStringList paragraphs;
  for (int i = 1; i <= count; ++i) {
    paragraphs
        << u"بند %1 از متنی بلند که در باغ انار آغاز می‌شود و به کوه می‌رسد"_s
               .arg(i);
  }
  return paragraphs;
}

TEST_F(LongPage, AnOrdinaryPageHasNoSections) {
  Open(Paragraphs(500));
  EXPECT_FALSE(IsSeen(*window_, u"sections"_s));
  EXPECT_FALSE(IsSeen(*window_, u"nextSection"_s));
}

TEST_F(LongPage, OnlyAPartOfItIsLaidOutAtOnce) {
  Open(Paragraphs(40'000));
  EXPECT_LT(Page().document()->characterCount(), kAtOnce);
  ScrollToTheEndOfTheSection();
  EXPECT_GT(Page().document()->characterCount(), kAtOnce);
  EXPECT_LT(Page().document()->characterCount(), kInSection);
  Press(Qt::Key_End);
  EXPECT_LT(Page().document()->characterCount(), kInSection);
}

TEST_F(LongPage, EveryParagraphIsInReach) {
  const QStringList paragraphs = Paragraphs(20'000);
  Open(paragraphs);
  QStringList seen;
  for (int section = 0;; ++section) {
    EXPECT_EQ(Slider().value(), section);
    ScrollToTheEndOfTheSection();
    seen += Text().split(u'\n').sliced(1);  // without the title
    if (!Find(*window_, u"nextSection"_s).isEnabled()) break;
    Click(*window_, u"nextSection"_s);
  }
  EXPECT_EQ(seen, paragraphs);
}

TEST_F(LongPage, EveryCharacterOfOneParagraphIsInReach) {
  const QString paragraph = u"انار و انجیر "_s.repeated(80'000) + u"پایان"_s;
  Open({paragraph});
  EXPECT_EQ(ReadThrough(), paragraph);
}

TEST_F(LongPage, AParagraphOfMillionsOfCharactersIsShownInPieces) {
  QString paragraph;
  for (int i = 0; paragraph.size() < 2'000'000; ++i) paragraph += u"ب%1"_s.arg(i);
  Open({paragraph});
  qsizetype end = 0;
  for (;;) {
    EXPECT_LT(Page().document()->characterCount(), kAtOnce);
    ExpectThatAllIsLaidOut();
    const QString seen = TextOfSection();
    ASSERT_GT(seen.size(), 100);
    const qsizetype start = paragraph.indexOf(QStringView(seen).first(100), end);
    ASSERT_GE(start, end);
    ASSERT_TRUE(QStringView(paragraph).sliced(start).startsWith(seen));  // too long to be printed
    EXPECT_LT(start - end, kInSection);
    end = start + seen.size();
    if (!Find(*window_, u"nextSection"_s).isEnabled()) break;
    Click(*window_, u"nextSection"_s);
  }
  EXPECT_GE(Slider().value(), 5);
  ScrollToTheEndOfTheSection();
  EXPECT_TRUE(paragraph.endsWith(TextOfSection()));
}

TEST_F(LongPage, TheLabelCountsTheSections) {
  Open(Paragraphs(20'000));
  const QString count = QLocale(QLocale::Persian).toString(Slider().maximum() + 1);
  EXPECT_EQ(Label(), u"بخش ۱ از "_s + count);
  Click(*window_, u"nextSection"_s);
  EXPECT_EQ(Label(), u"بخش ۲ از "_s + count);
  Click(*window_, u"previousSection"_s);
  EXPECT_EQ(Label(), u"بخش ۱ از "_s + count);
  EXPECT_FALSE(Find(*window_, u"previousSection"_s).isEnabled());
}

TEST_F(LongPage, TheSliderLeadsAnywhere) {
  Open(Paragraphs(20'000));
  Slider().setFocus();
  QTest::keyClick(&Slider(), Qt::Key_End);
  ScrollToTheEndOfTheSection();
  EXPECT_TRUE(Text().contains(u"بند 20000 "_s));
  QTest::keyClick(&Slider(), Qt::Key_Home);
  EXPECT_TRUE(Text().contains(u"بند 1 "_s));
}

TEST_F(LongPage, EndAndHomeLeadToTheEndsOfThePage) {
  Open(Paragraphs(20'000));
  Press(Qt::Key_End);
  EXPECT_TRUE(Text().contains(u"بند 20000 "_s));
  EXPECT_EQ(Bar().value(), Bar().maximum());
  EXPECT_FALSE(Find(*window_, u"nextSection"_s).isEnabled());
  Press(Qt::Key_Home);
  EXPECT_TRUE(Text().contains(u"بند 1 "_s));
  EXPECT_EQ(Bar().value(), 0);
}

TEST_F(LongPage, PageDownGoesOnToTheNextSectionAndPageUpBack) {
  Open(Paragraphs(20'000));
  ScrollToTheEndOfTheSection();
  const QString last = Text().split(u'\n').last();
  Press(Qt::Key_PageDown);
  EXPECT_EQ(Slider().value(), 1);
  EXPECT_EQ(Bar().value(), 0);
  Press(Qt::Key_PageUp);
  EXPECT_EQ(Slider().value(), 0);
  EXPECT_EQ(Bar().value(), Bar().maximum());
  EXPECT_EQ(Text().split(u'\n').last(), last);
}

TEST_F(LongPage, SpaceReadsOnAndWithShiftBack) {
  Open(Paragraphs(20'000));
  ScrollToTheEndOfTheSection();
  Press(Qt::Key_Space);
  EXPECT_EQ(Slider().value(), 1);
  Press(Qt::Key_Space, Qt::ShiftModifier);
  EXPECT_EQ(Slider().value(), 0);
}

TEST_F(LongPage, AnotherEntryStartsAtItsBeginning) {
  Open(Paragraphs(20'000));
  Press(Qt::Key_End);
  Click(*window_, u"next"_s);
  EXPECT_TRUE(Text().contains(u"متن دوم"_s));
  EXPECT_FALSE(IsSeen(*window_, u"sections"_s));
  Click(*window_, u"previous"_s);
  EXPECT_EQ(Slider().value(), 0);
  EXPECT_EQ(Bar().value(), 0);
}

TEST_F(LongPage, AGalleryHasNoSections) {
  Open(Paragraphs(20'000));
  ClickRow(ListOf(*window_), 3);
  EXPECT_FALSE(IsSeen(*window_, u"sections"_s));
  ClickRow(ListOf(*window_), 0);
  EXPECT_TRUE(IsSeen(*window_, u"sections"_s));
}

TEST_F(LongPage, TheSecondTemplateHasSectionsToo) {
  Open(Paragraphs(20'000), {.layout = 2});
  EXPECT_TRUE(IsSeen(*window_, u"sections"_s));
}

TEST_F(LongPage, SearchOpensTheSectionOfTheWord) {
  QStringList paragraphs = Paragraphs(20'000);
  paragraphs[15'000] = u"اینجا روباهی نشسته است"_s;
  Open(paragraphs);
  SearchAndOpenTheHit(u"روباهی نشسته"_s);
  EXPECT_TRUE(IsMarkSeen());
  EXPECT_GT(Slider().value(), 0);
  Click(*window_, u"previousSection"_s);  // what stands before the word is in reach, too
  EXPECT_TRUE(Page().extraSelections().isEmpty());
}

TEST_F(LongPage, SearchFindsTheWordInOneParagraphOfMillions) {
  Open({u"انار و انجیر "_s.repeated(200'000) + u"روباهی نشسته "_s + u"سیب "_s.repeated(9'000)});
  SearchAndOpenTheHit(u"روباهی نشسته"_s);
  EXPECT_TRUE(IsMarkSeen());
}

TEST_F(LongPage, SmallPicturesInPlentyAreAllInReach) {
  QString text = u"<pgTitle>بلند</pgTitle>\r\n\r\n"_s;
  for (int i = 0; i < 40; ++i) text += u"<IMG src=\"Data/IMG/Small.jpg\">\r\n"_s;
  MakePicture(maker_, u"Data/IMG/Small.jpg"_s, {6, 4});
  OpenText(text + u"<pgMain>پایان</pgMain>\r\n"_s);
  window_->resize(1000, 4000);
  Press(Qt::Key_End);
  EXPECT_TRUE(Text().contains(u"پایان"_s));
}

TEST_F(LongPage, TheFirstStepsFillTheWindow) {
  QString text = u"<pgTitle>بلند</pgTitle>\r\n\r\n"_s;
  for (int i = 0; i < 40; ++i) text += u"<IMG src=\"Data/IMG/Small.jpg\">\r\n"_s;
  MakePicture(maker_, u"Data/IMG/Small.jpg"_s, {6, 4});
  OpenText(text + u"<pgMain>پایان</pgMain>\r\n"_s);
  window_->resize(1000, 4000);
  EXPECT_TRUE(Text().contains(u"پایان"_s));
}

TEST_F(LongPage, TheTextGrowsWhereTheReaderIs) {
  Open(Paragraphs(3'000));
  ScrollToTheEndOfTheSection();
  Bar().setValue(Bar().maximum() / 2);
  const QString before = FirstLineSeen();
  ASSERT_TRUE(before.startsWith(u"بند "_s));
  Click(*window_, u"larger"_s);
  EXPECT_EQ(FirstLineSeen(), before);
  Click(*window_, u"smaller"_s);
  EXPECT_EQ(FirstLineSeen(), before);
}

TEST_F(LongPage, AWiderWindowStaysWhereTheReaderIs) {
  Open(Paragraphs(3'000));
  ScrollToTheEndOfTheSection();
  Bar().setValue(Bar().maximum() / 2);
  const QString before = FirstLineSeen();
  window_->resize(760, 600);
  EXPECT_EQ(FirstLineSeen(), before);
}

TEST_F(LongPage, MillionsOfStrayLinesStayFewPieces) {
  OpenText(u"x\n"_s.repeated(3'000'000) + u"پایان"_s);
  Press(Qt::Key_End);
  EXPECT_TRUE(Text().endsWith(u"پایان"_s));
}

}  // namespace
}  // namespace viewer_tests
