// What a reader can choose and where a reader can go: letters, colours, history, the page's search.
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>
#include <QTimer>
#include <QWheelEvent>

#include "tests/viewer/window_bench.h"
#include "viewer/look.h"
#include "viewer/window.h"

using namespace Qt::StringLiterals;

namespace viewer_tests {
namespace {

class Choosing : public testing::Test {
 protected:
  void Open(const BookPlan& plan = {}) {
    MakeBook(maker_, plan);
    Show();
  }
  void Show() {
    window_ = std::make_unique<viewer::Window>(maker_.Root(), MachineOf(asked_));
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
  }
  QTextEdit& Page() { return *qobject_cast<QTextEdit*>(&Find(*window_, u"page"_s)); }
  int Pixels() { return Page().document()->lastBlock().charFormat().font().pixelSize(); }
  // After a dialog the window may be without the keys.
  void Activate() {
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  }
  void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window_.get(), static_cast<Qt::Key>(key), modifiers);
  }
  // Chooses in the panel, which is closed then.
  void Choose(const std::function<void(QWidget& panel)>& choose) {
    Activate();
    QTimer::singleShot(0, window_.get(), [choose] {
      auto* const panel = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(panel, nullptr);
      choose(*panel);
      panel->reject();
    });
    Key(Qt::Key_F2);
  }
  QLineEdit& Field(const QString& name) {
    return *qobject_cast<QLineEdit*>(&::viewer_tests::Find(*window_, name));
  }

  BookMaker maker_;
  std::shared_ptr<Asked> asked_ = std::make_shared<Asked>();
  std::unique_ptr<viewer::Window> window_;
};

TEST_F(Choosing, TheSizeByKeysAndByTheWheel) {
  Open();
  Click(*window_, u"a1"_s);
  const int usual = Pixels();
  const int row = ListOf(*window_).visualRect(ListOf(*window_).model()->index(0, 0)).height();
  Key(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_GT(Pixels(), usual);
  EXPECT_GT(ListOf(*window_).visualRect(ListOf(*window_).model()->index(0, 0)).height(), row);
  Key(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(Pixels(), usual);
  Key(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_LT(Pixels(), usual);
  Key(Qt::Key_0, Qt::ControlModifier);
  for (QWidget* over : {Page().viewport(), ListOf(*window_).viewport()}) {
    const int before = Pixels();
    QWheelEvent wheel({5, 5}, over->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(over, &wheel);
    EXPECT_EQ(Pixels(), before + 2);
  }
}

TEST_F(Choosing, LettersSpacingAndJustification) {
  Open();
  Click(*window_, u"a1"_s);
  QString family;
  Choose([&](QWidget& panel) {
    auto& letters = *panel.findChild<QComboBox*>(u"letters"_s);
    ASSERT_GT(letters.count(), 1);
    letters.setCurrentIndex(1);
    family = letters.currentData().toString();
    EXPECT_EQ(letters.itemData(1, Qt::FontRole).value<QFont>().families().front(), family);
    panel.findChild<QComboBox*>(u"lineHeight"_s)->setCurrentIndex(3);
    panel.findChild<QCheckBox*>(u"justified"_s)->click();
  });
  const QTextBlock block = Page().document()->lastBlock();
  EXPECT_EQ(block.charFormat().font().families().front(), family);
  EXPECT_EQ(block.blockFormat().lineHeight(), 220);
  EXPECT_EQ(block.blockFormat().alignment(), Qt::AlignJustify);
}

TEST_F(Choosing, DigitsArePersianInPageAndContents) {
  MakeBook(maker_);
  maker_.Write(u"Data/TXT/ONE.htm"_s, viewer_tests::PageText(u"t"_s, {u"سال 1385 و MP3"_s}));
  Show();
  Click(*window_, u"a1"_s);
  Choose([](QWidget& panel) { panel.findChild<QCheckBox*>(u"persianDigits"_s)->click(); });
  EXPECT_TRUE(PageText(*window_).contains(u"سال ۱۳۸۵ و MP3"_s));
  Choose([](QWidget& panel) { panel.findChild<QCheckBox*>(u"persianDigits"_s)->click(); });
  EXPECT_TRUE(PageText(*window_).contains(u"سال 1385 و MP3"_s));
}

TEST_F(Choosing, ColoursOfDayNightAndPaperInBothLayouts) {
  for (const int layout : {1, 2}) {
    Open({.layout = layout});
    Click(*window_, u"a1"_s);
    if (layout == 2) ClickRow(ListOf(*window_), 0);
    const auto ground = [&] {
      return Page().viewport()->grab().toImage().pixelColor(3, Page().viewport()->height() - 3);
    };
    const QColor book = ground();
    std::vector<int> lightness;
    for (const int colours : {1, 2, 3}) {
      Choose([&](QWidget& panel) {
        panel.findChild<QComboBox*>(u"colours"_s)->setCurrentIndex(colours);
      });
      lightness.push_back(ground().lightness());
      const QColor ink = Page().document()->lastBlock().charFormat().foreground().color();
      EXPECT_GT(std::abs(ink.lightness() - ground().lightness()), 120) << colours;
    }
    EXPECT_GT(lightness[0], 250);
    EXPECT_GT(lightness[1], 230);
    EXPECT_LT(lightness[2], 60);
    EXPECT_TRUE(IsSeen(*window_, u"page"_s));
    Choose([&](QWidget& panel) { panel.findChild<QComboBox*>(u"colours"_s)->setCurrentIndex(0); });
    EXPECT_EQ(ground(), book);
  }
}

TEST_F(Choosing, TheReadingWidthDoesntGrowWithTheWindow) {
  Open();
  Click(*window_, u"a1"_s);
  const auto column = [&] {
    const QTextFrameFormat frame = Page().document()->rootFrame()->frameFormat();
    return Page().viewport()->width() - frame.leftMargin() - frame.rightMargin();
  };
  window_->resize(1600, 800);
  const double wide = column();
  window_->resize(2400, 800);
  EXPECT_NEAR(column(), wide, 1);
}

TEST_F(Choosing, F11FillsTheScreenAndBack) {
  Open();
  Key(Qt::Key_F11);
  EXPECT_TRUE(window_->isFullScreen());
  Key(Qt::Key_F11);
  EXPECT_FALSE(window_->isFullScreen());
}

TEST_F(Choosing, BackAndForwardAsInABrowser) {
  Open();
  Click(*window_, u"a1"_s);
  Click(*window_, u"next"_s);
  Click(*window_, u"home"_s);
  Click(*window_, u"c1"_s);
  Key(Qt::Key_Left, Qt::AltModifier);
  EXPECT_TRUE(IsSeen(*window_, u"index"_s));
  Key(Qt::Key_Left, Qt::AltModifier);
  EXPECT_TRUE(PageText(*window_).contains(u"متن دوم"_s));
  Key(Qt::Key_Left, Qt::AltModifier);
  EXPECT_TRUE(PageText(*window_).contains(u"متن نخست"_s));
  Key(Qt::Key_Right, Qt::AltModifier);
  EXPECT_TRUE(PageText(*window_).contains(u"متن دوم"_s));
  QTest::mouseClick(&Page(), Qt::BackButton);
  EXPECT_TRUE(PageText(*window_).contains(u"متن نخست"_s));
  Key(Qt::Key_Left, Qt::AltModifier);
  Key(Qt::Key_Left, Qt::AltModifier);  // the first one stays
  EXPECT_TRUE(IsSeen(*window_, u"index"_s));
}

TEST_F(Choosing, BackLeadsToTheHits) {
  Open();
  Field(u"words"_s).setText(u"روباهی"_s);
  Click(*window_, u"find"_s);
  ASSERT_TRUE(Await([&] { return ListOf(*window_, u"hits"_s).model()->rowCount() == 2; }));
  QTest::keyClick(&Find(*window_, u"hits"_s), Qt::Key_Return);
  EXPECT_TRUE(IsSeen(*window_, u"page"_s));
  Key(Qt::Key_Left, Qt::AltModifier);
  EXPECT_TRUE(IsSeen(*window_, u"hits"_s));
  Key(Qt::Key_Right, Qt::AltModifier);
  EXPECT_TRUE(IsSeen(*window_, u"page"_s));
}

TEST_F(Choosing, ContentsAreFilteredAsOneTypesAndKeepTheirOpenParts) {
  Open();
  Click(*window_, u"a1"_s);
  ClickRow(ListOf(*window_), 1);  // closes it
  const QStringList before = RowsOf(ListOf(*window_));
  Field(u"contentsFilter"_s).insert(u"عكس"_s);
  EXPECT_EQ(RowsOf(ListOf(*window_)), (QStringList{u"فصل"_s, u"عکس‌ها"_s}));
  Field(u"contentsFilter"_s).setText(u"هیچ"_s);
  EXPECT_EQ(RowsOf(ListOf(*window_)), QStringList());
  Field(u"contentsFilter"_s).clear();
  EXPECT_EQ(RowsOf(ListOf(*window_)), before);
  Click(*window_, u"home"_s);
  Click(*window_, u"a2"_s);
  Click(*window_, u"home"_s);
  Click(*window_, u"a1"_s);
  EXPECT_EQ(RowsOf(ListOf(*window_)), before);
}

TEST_F(Choosing, ThePageIsSearchedWithNextAndPrevious) {
  MakeBook(maker_);
  QStringList paragraphs(200, u"بندی از متن"_s);
  paragraphs[3] = u"كتاب نخست"_s;
  paragraphs[150] = u"کتاب دوم"_s;
  maker_.Write(u"Data/TXT/ONE.htm"_s, viewer_tests::PageText(u"t"_s, paragraphs));
  Show();
  Click(*window_, u"a1"_s);
  EXPECT_FALSE(IsSeen(*window_, u"findBar"_s));
  Key(Qt::Key_F, Qt::ControlModifier);
  Field(u"findWords"_s).insert(u"کتاب"_s);
  const auto count = [&] { return qobject_cast<QLabel*>(&Find(*window_, u"findCount"_s))->text(); };
  EXPECT_EQ(count(), u"۱ از ۲"_s);
  EXPECT_EQ(Page().textCursor().block().text(), u"کتاب نخست"_s);
  EXPECT_EQ(Page().textCursor().selectedText(), u"کتاب"_s);
  QTest::keyClick(&Field(u"findWords"_s), Qt::Key_Return);
  EXPECT_EQ(count(), u"۲ از ۲"_s);
  EXPECT_EQ(Page().textCursor().block().text(), u"کتاب دوم"_s);
  EXPECT_GT(Page().verticalScrollBar()->value(), 0);
  EXPECT_EQ(Page().extraSelections().size(), 2);
  Click(*window_, u"findNext"_s);
  EXPECT_EQ(count(), u"۱ از ۲"_s);
  Click(*window_, u"findPrevious"_s);
  EXPECT_EQ(count(), u"۲ از ۲"_s);
  Field(u"findWords"_s).setText(u"هیچ"_s);
  EXPECT_EQ(count(), u"پیدا نشد"_s);
  QTest::keyClick(&Field(u"findWords"_s), Qt::Key_Escape);
  EXPECT_FALSE(IsSeen(*window_, u"findBar"_s));
  EXPECT_TRUE(IsSeen(*window_, u"page"_s));
  EXPECT_TRUE(Page().extraSelections().isEmpty());
}

TEST_F(Choosing, WithoutAPageCtrlFSearchesTheBook) {
  Open();
  Key(Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(Field(u"words"_s).hasFocus());
}

TEST_F(Choosing, CtrlPPrintsWhereTheBookAllowsIt) {
  for (const bool print : {false, true}) {
    Open({.print = print});
    Key(Qt::Key_P, Qt::ControlModifier);
    Click(*window_, u"a1"_s);
    Key(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(asked_->printed.size(), print ? 1 : 0);
  }
}

TEST_F(Choosing, F1TellsAllKeys) {
  Open();
  QStringList texts;
  QTimer::singleShot(0, window_.get(), [&] {
    auto* const dialog = QApplication::activeModalWidget();
    ASSERT_NE(dialog, nullptr);
    for (const auto* label : dialog->findChildren<QLabel*>()) texts << label->text();
    QTest::keyClick(dialog, Qt::Key_Escape);
  });
  Key(Qt::Key_F1);
  for (const char* keys : {"Ctrl+P", "Ctrl+F", "Ctrl+D", "F1", "F11", "Alt+Left", "Ctrl+0"}) {
    EXPECT_TRUE(texts.contains(QChar(0x2066) + QLatin1String(keys) + QChar(0x2069))) << keys;
  }
}

TEST_F(Choosing, TheMenuHoldsWhatKeysDo) {
  Open();
  Click(*window_, u"options"_s);
  auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  EXPECT_GE(menu->actions().size(), 8);
  for (const QAction* action : menu->actions()) {
    EXPECT_FALSE(action->text().isEmpty());
    EXPECT_FALSE(action->shortcut().isEmpty());
  }
  menu->close();
}

}  // namespace
}  // namespace viewer_tests
