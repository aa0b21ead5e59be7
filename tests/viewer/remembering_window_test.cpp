// The viewer's window opens where the reader was, with what the reader has chosen; bookmarks.
#include <gtest/gtest.h>

#include <QDir>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>
#include <QTimer>

#include "tests/viewer/window_bench.h"
#include "viewer/window.h"

using namespace Qt::StringLiterals;

namespace viewer_tests {
namespace {

class Remembers : public testing::Test {
 protected:
  void Open(const BookPlan& plan = {}) {
    MakeBook(maker_, plan);
    Show();
  }
  void Show() {
    window_.reset();
    viewer::Outside outside = MachineOf(asked_);
    outside.memoryFolder = home_.path() + u"/viewer"_s;
    window_ = std::make_unique<viewer::Window>(maker_.Root(), outside);
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
  }
  QString Word() { return qobject_cast<QLabel*>(&Find(*window_, u"word"_s))->text(); }
  QTextEdit& Page() { return *qobject_cast<QTextEdit*>(&Find(*window_, u"page"_s)); }
  QString LineAtTop() {
    QTextEdit& page = Page();
    return page.cursorForPosition({page.viewport()->width() / 2, 4}).block().text();
  }
  // After a dialog the window may be without the keys.
  void Activate() {
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  }
  void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window_.get(), static_cast<Qt::Key>(key), modifiers);
  }
  void AddBookmark(const QString& name) {
    Activate();
    QTimer::singleShot(0, window_.get(), [name] {
      auto* const dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      proposed = dialog->textValue();
      dialog->setTextValue(name);
      QTest::keyClick(dialog, Qt::Key_Return);
    });
    Key(Qt::Key_D, Qt::ControlModifier);
  }
  // Does it in the dialog, and gives the names that stand there first.
  QStringList InBookmarks(const std::function<void(QDialog&, QListWidget&)>& act) {
    QStringList names;
    Activate();
    QTimer::singleShot(0, window_.get(), [&] {
      auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      auto* const list = dialog->findChild<QListWidget*>();
      for (int row = 0; row < list->count(); ++row) names << list->item(row)->text();
      act(*dialog, *list);
    });
    Key(Qt::Key_B, Qt::ControlModifier);
    return names;
  }

  static inline QString proposed;
  BookMaker maker_;
  QTemporaryDir home_;
  std::shared_ptr<Asked> asked_ = std::make_shared<Asked>();
  std::unique_ptr<viewer::Window> window_;
};

void MakeLongPage(const BookMaker& maker) {
  QStringList paragraphs;
  for (int i = 0; i < 400; ++i) paragraphs << u"بند %1 از متنی بلند"_s.arg(i);
  maker.Write(u"Data/TXT/ONE.htm"_s, viewer_tests::PageText(u"بلند"_s, paragraphs));
}

TEST_F(Remembers, TheBookOpensAtTheEntryWhereTheReaderWasAndSaysSo) {
  for (const int layout : {1, 2}) {
    Open({.layout = layout});
    if (layout == 1) {
      EXPECT_FALSE(IsSeen(*window_, u"word"_s));
      Click(*window_, u"a1"_s);
      ClickRow(ListOf(*window_), 2);
    }
    Show();
    EXPECT_TRUE(PageText(*window_).contains(u"متن دوم"_s));
    EXPECT_TRUE(IsSeen(*window_, u"word"_s));
    EXPECT_TRUE(Word().contains(u"دوم"_s)) << Word().toStdString();
    EXPECT_TRUE(IsSeen(*window_, u"page"_s));
  }
  Click(*window_, u"next"_s);
  EXPECT_FALSE(IsSeen(*window_, u"word"_s));
}

TEST_F(Remembers, AndAtThePlaceInThePage) {
  MakeBook(maker_);
  MakeLongPage(maker_);
  Show();
  Click(*window_, u"a1"_s);
  for (int i = 0; i < 8; ++i) QTest::keyClick(&Page(), Qt::Key_PageDown);
  const QString line = LineAtTop();
  EXPECT_TRUE(line.startsWith(u"بند"_s));
  Show();
  EXPECT_EQ(LineAtTop(), line);
}

TEST_F(Remembers, OnTheIndexThereIsNothingToRemember) {
  Open();
  Click(*window_, u"a1"_s);
  Click(*window_, u"home"_s);
  Show();
  EXPECT_TRUE(IsSeen(*window_, u"index"_s));
  EXPECT_FALSE(IsSeen(*window_, u"word"_s));
}

TEST_F(Remembers, AGalleryOpensAgain) {
  Open();
  Click(*window_, u"b1"_s);
  Show();
  EXPECT_TRUE(IsSeen(*window_, u"galleryPage"_s));
}

TEST_F(Remembers, APlaceThatIsGoneOpensWhatIsThere) {
  Open();
  Click(*window_, u"a1"_s);
  ClickRow(ListOf(*window_), 2);
  window_.reset();
  maker_.Write(u"Data/_xml/aTitle1.xml"_s,
               u"<?xml version=\"1.0\"?>\r\n<Tree>\r\n\t<node label=\"یکم\""
               " src=\"DATA/TXT/ONE.htm\" mediaStatus=\"000\" pic=\"0\" />\r\n</Tree>\r\n"_s);
  Show();
  EXPECT_TRUE(PageText(*window_).contains(u"متن نخست"_s));
}

TEST_F(Remembers, TheSizeOfTheLettersAndTheMusic) {
  Open({.music = true});
  ASSERT_TRUE(Await([&] { return !asked_->sounds.isEmpty(); }));
  Click(*window_, u"music"_s);
  Click(*window_, u"a1"_s);
  Key(Qt::Key_Plus, Qt::ControlModifier);
  const int pixels = Page().document()->defaultFont().pixelSize();
  asked_->sounds.clear();
  Show();
  EXPECT_EQ(Page().document()->defaultFont().pixelSize(), pixels);
  const QWidget& music = Find(*window_, u"music"_s);
  EXPECT_TRUE(Await([&] { return music.accessibleName() == u"پخش موسیقی"_s; }));
  EXPECT_TRUE(asked_->sounds.isEmpty());
}

TEST_F(Remembers, NothingInTheBookIsWritten) {
  Open();
  const QStringList before = TreeOf(maker_.Root());
  Click(*window_, u"a1"_s);
  AddBookmark(u"باغ"_s);
  window_.reset();
  EXPECT_EQ(TreeOf(maker_.Root()), before);
  EXPECT_EQ(QDir(home_.path() + u"/viewer"_s).entryList(QDir::Files).size(), 1);
}

TEST_F(Remembers, ABookmarkHasANameAndLeadsBack) {
  Open();
  Click(*window_, u"a1"_s);
  ClickRow(ListOf(*window_), 2);
  AddBookmark(u"جای خوب"_s);
  EXPECT_EQ(proposed, u"دوم"_s);
  EXPECT_TRUE(Word().contains(u"جای خوب"_s));
  Click(*window_, u"home"_s);
  Show();
  const QStringList names =
      InBookmarks([](QDialog& dialog, QListWidget&) { Click(dialog, u"goToBookmark"_s); });
  EXPECT_EQ(names, QStringList{u"جای خوب"_s});
  EXPECT_TRUE(PageText(*window_).contains(u"متن دوم"_s));
}

TEST_F(Remembers, ABookmarkCanBeDropped) {
  Open();
  Click(*window_, u"a1"_s);
  AddBookmark(u"یک"_s);
  AddBookmark(u"دو"_s);
  InBookmarks([](QDialog& dialog, QListWidget& list) {
    list.setCurrentRow(0);
    Click(dialog, u"dropBookmark"_s);
    Click(dialog, u"closeBookmarks"_s);
  });
  Show();
  EXPECT_EQ(InBookmarks([](QDialog& dialog, QListWidget&) { dialog.reject(); }),
            QStringList{u"دو"_s});
}

TEST_F(Remembers, WithoutANameThereIsNoBookmarkAndNoneOnTheIndex) {
  Open();
  Key(Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  Click(*window_, u"a1"_s);
  AddBookmark(u"  "_s);
  EXPECT_EQ(InBookmarks([](QDialog& dialog, QListWidget&) { dialog.reject(); }), QStringList());
}

}  // namespace
}  // namespace viewer_tests
