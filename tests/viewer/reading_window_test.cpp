// The viewer's window as a reader meets it: index, contents, pages, what belongs to them.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>

#include "tests/media/media_bytes.h"
#include "tests/viewer/paper.h"
#include "tests/viewer/window_bench.h"
#include "viewer/look.h"
#include "viewer/window.h"

using namespace Qt::StringLiterals;

namespace viewer_tests {
namespace {

class Reading : public testing::Test {
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
  void OpenCollection(const QString& key = QStringLiteral("a1")) { Click(*window_, key); }

  BookMaker maker_;
  std::shared_ptr<Asked> asked_ = std::make_shared<Asked>();
  std::unique_ptr<viewer::Window> window_;
};

TEST_F(Reading, EachCollectionHasItsCardInRowsFromRightToLeft) {
  Open();
  const QWidget& a1 = Find(*window_, u"a1"_s);
  const QWidget& a2 = Find(*window_, u"a2"_s);
  const QWidget& b1 = Find(*window_, u"b1"_s);
  const QWidget& c1 = Find(*window_, u"c1"_s);
  EXPECT_EQ(a1.accessibleName(), u"باغ‌ها & گل‌ها"_s);
  EXPECT_GT(a1.x(), a2.x());
  EXPECT_EQ(a1.y(), a2.y());
  EXPECT_GT(b1.y(), a1.y());
  EXPECT_GT(c1.y(), b1.y());
}

// Where what the cards stand on, without them, has the colour of lesser texts.
QRectF PlaceOfCredit(QWidget& shelves, int layout) {
  constexpr int kDotsAsPoints = 72;
  QImage picture(shelves.size(), QImage::Format_RGB32);
  picture.fill(Qt::white);
  shelves.render(&picture, {}, {}, QWidget::RenderFlags());
  return PlaceOf(picture, kDotsAsPoints, viewer::LookOf(layout).faint);
}

TEST_F(Reading, TheCreditStandsBelowTheCollections) {
  for (const int layout : {1, 2}) {
    Open({.layout = layout});
    QWidget& shelves = Find(*window_, u"shelves"_s);
    EXPECT_EQ(shelves.accessibleDescription(), u"Designed"_s);
    QRectF credit;
    ASSERT_TRUE(Await([&] {
      credit = PlaceOfCredit(shelves, layout);
      return !credit.isEmpty();
    }));
    for (const QString& card : {u"a1"_s, u"a2"_s, u"b1"_s, u"c1"_s}) {
      EXPECT_GT(credit.top(), Find(*window_, card).geometry().bottom()) << card.toStdString();
    }
    EXPECT_NEAR(credit.center().x(), shelves.rect().center().x(), 3);
    EXPECT_LT(credit.bottom(), shelves.height() - 1);
  }
}

TEST_F(Reading, TheArrowsAndEnterOpenACollection) {
  Open();
  QTest::keyClick(&Find(*window_, u"a1"_s), Qt::Key_Left);
  QTest::keyClick(&Find(*window_, u"a2"_s), Qt::Key_Return);
  EXPECT_EQ(RowsOf(ListOf(*window_)), QStringList{u"aTitle2"_s});
}

TEST_F(Reading, ACollectionShowsItsContentsAndItsFirstPage) {
  Open();
  OpenCollection();
  EXPECT_EQ(RowsOf(ListOf(*window_)), (QStringList{u"یکم"_s, u"فصل"_s, u"دوم"_s, u"عکس‌ها"_s,
                                                   u"برنامه"_s, u"گم‌شده"_s}));
  EXPECT_TRUE(PageText(*window_).contains(u"متن نخست"_s));
}

TEST_F(Reading, ASelectedEntryShowsItsPageWithItsPicture) {
  Open();
  OpenCollection();
  ClickRow(ListOf(*window_), 2);
  const QString text = PageText(*window_);
  EXPECT_TRUE(text.contains(u"متن دوم"_s));
  EXPECT_TRUE(text.contains(QChar::ObjectReplacementCharacter));
  EXPECT_TRUE(text.contains(u"پس از تصویر"_s));
}

TEST_F(Reading, PersianIsShownAndCopiedAsItShouldRead) {
  MakeBook(maker_);
  maker_.Write(u"Data/TXT/ONE.htm"_s,
               viewer_tests::PageText(u"كتاب\u200Fها"_s,
                                      {u"در 23.\u200F5 و ۱۲:\u200F۳۰ مي\u200Fشود.\u200F"_s}));
  Show();
  OpenCollection();
  EXPECT_TRUE(PageText(*window_).contains(u"کتاب\u200Cها"_s));
  EXPECT_TRUE(PageText(*window_).contains(u"در 23.5 و ۱۲:۳۰ می\u200Cشود.\u200F"_s));
  auto& page = *qobject_cast<QTextEdit*>(&Find(*window_, u"page"_s));
  page.selectAll();
  QTest::keyClick(&page, Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(QApplication::clipboard()->text().contains(u"در 23.5 و ۱۲:۳۰ می\u200Cشود.\u200F"_s));
}

TEST_F(Reading, TitlesReadAsTheyShouldInContentsAndOnCards) {
  MakeBook(maker_);
  maker_.Write(u"Data/_xml/Index.xml"_s,
               u"<strings>\r\n\t<aTitle1 vol=\"txt\">كتاب\u200Fها 1.\u200F5</aTitle1>\r\n"_s);
  maker_.Write(u"Data/_xml/aTitle1.xml"_s,
               u"<?xml version=\"1.0\"?>\r\n<Tree>\r\n\t<node label=\"مي\u200Fشود 6.\u200F4\""
               " src=\"DATA/TXT/ONE.htm\" mediaStatus=\"000\" pic=\"0\" />\r\n</Tree>\r\n"_s);
  Show();
  EXPECT_EQ(Find(*window_, u"a1"_s).accessibleName(), u"کتاب\u200Cها 1.5"_s);
  OpenCollection();
  EXPECT_EQ(RowsOf(ListOf(*window_)), QStringList{u"می\u200Cشود 6.4"_s});
  EXPECT_EQ(window_->windowTitle(), u"کتاب\u200Cها 1.5"_s);
}

TEST_F(Reading, ParagraphsRunFromRightToLeft) {
  Open();
  OpenCollection();
  const auto* const page = qobject_cast<QTextEdit*>(&Find(*window_, u"page"_s));
  for (QTextBlock block = page->document()->begin(); block.isValid(); block = block.next()) {
    EXPECT_EQ(block.blockFormat().layoutDirection(), Qt::RightToLeft);
  }
}

TEST_F(Reading, AClickOnATitleClosesAndOpensIt) {
  Open();
  OpenCollection();
  ClickRow(ListOf(*window_), 1);
  EXPECT_EQ(ListOf(*window_).model()->rowCount(), 4);
  ClickRow(ListOf(*window_), 1);
  EXPECT_EQ(ListOf(*window_).model()->rowCount(), 6);
}

TEST_F(Reading, NextAndPreviousPassOverTitles) {
  Open();
  OpenCollection();
  EXPECT_FALSE(Find(*window_, u"previous"_s).isEnabled());
  Click(*window_, u"next"_s);
  EXPECT_TRUE(PageText(*window_).contains(u"متن دوم"_s));
  Click(*window_, u"next"_s);
  EXPECT_TRUE(IsSeen(*window_, u"gallery"_s));
  Click(*window_, u"next"_s);
  EXPECT_TRUE(PageText(*window_).contains(u"متن برنامه"_s));
  Click(*window_, u"previous"_s);
  Click(*window_, u"previous"_s);
  Click(*window_, u"previous"_s);
  EXPECT_TRUE(PageText(*window_).contains(u"متن نخست"_s));
}

TEST_F(Reading, NextOpensTheTitleAroundTheEntry) {
  Open();
  OpenCollection();
  ClickRow(ListOf(*window_), 1);
  Click(*window_, u"next"_s);
  EXPECT_EQ(ListOf(*window_).currentIndex().data().toString(), u"دوم"_s);
}

TEST_F(Reading, AMissingPageSaysSo) {
  Open();
  OpenCollection();
  ClickRow(ListOf(*window_), 5);
  EXPECT_TRUE(PageText(*window_).contains(u"پیدا نشد"_s));
  EXPECT_TRUE(PageText(*window_).contains(u"DATA/TXT/GONE.htm"_s));
}

TEST_F(Reading, MissingMediaSaySo) {
  Open();
  OpenCollection();
  ClickRow(ListOf(*window_), 5);
  for (const QString& name : {u"attachment"_s, u"sound"_s, u"film"_s}) {
    const auto text = AnswerNextBox({});
    Click(*window_, name);
    EXPECT_TRUE(text->contains(u"پیدا نشد"_s)) << name.toStdString();
    EXPECT_TRUE(text->contains(u"DATA/TXT/GONE."_s)) << name.toStdString();
  }
  EXPECT_TRUE(asked_->opened.isEmpty() && asked_->films.isEmpty() && asked_->sounds.isEmpty());
}

TEST_F(Reading, TheMediaOfAnEntryAreOpened) {
  Open();
  OpenCollection();
  EXPECT_FALSE(IsSeen(*window_, u"attachment"_s));
  ClickRow(ListOf(*window_), 2);
  Click(*window_, u"attachment"_s);
  Click(*window_, u"film"_s);
  Click(*window_, u"sound"_s);
  EXPECT_EQ(asked_->opened, QStringList{u"TWO.pdf"_s});
  EXPECT_EQ(asked_->films, QStringList{u"TWO.mp4"_s});
  EXPECT_EQ(asked_->sounds, QStringList{u"play TWO.mp3"_s});
  Click(*window_, u"sound"_s);
  EXPECT_EQ(asked_->sounds.last(), u"stop"_s);
}

TEST_F(Reading, ASoundThatCantBePlayedSaysSo) {
  Open();
  OpenCollection();
  ClickRow(ListOf(*window_), 2);
  Click(*window_, u"sound"_s);
  const auto text = AnswerNextBox({});
  asked_->endOfLastSound(false);
  EXPECT_TRUE(text->contains(u"نمی\u200Cتوان پخش کرد"_s));
}

TEST_F(Reading, WhatIsNoSoundAndNoFilmIsToldAndNotPlayed) {
  Open();
  for (const char* medium : {"Data/TXT/TWO.mp3", "Data/TXT/TWO.mp4"}) {
    maker_.WriteBytes(QString::fromLatin1(medium), kPlaylist);
  }
  OpenCollection();
  ClickRow(ListOf(*window_), 2);
  for (const QString& name : {u"sound"_s, u"film"_s}) {
    const auto text = AnswerNextBox({});
    Click(*window_, name);
    EXPECT_TRUE(text->contains(u"نمی\u200Cتوان پخش کرد"_s)) << name.toStdString();
  }
  EXPECT_TRUE(asked_->sounds.isEmpty() && asked_->films.isEmpty());
}

// The link may have come after the book was opened, and the file behind it may be a sound.
TEST_F(Reading, ASoundOutsideTheBookIsNotPlayed) {
  Open();
  OpenCollection();
  ClickRow(ListOf(*window_), 2);
  const QString sound = maker_.PathOf(u"Data/TXT/TWO.mp3"_s);
  const QString outside = asked_->folder.filePath(u"outside.mp3"_s);
  ASSERT_TRUE(QFile::rename(sound, outside) && QFile::link(outside, sound));
  const auto text = AnswerNextBox({});
  Click(*window_, u"sound"_s);
  EXPECT_TRUE(text->contains(u"نمی\u200Cتوان پخش کرد"_s));
  EXPECT_TRUE(asked_->sounds.isEmpty());
}

TEST_F(Reading, AProgramIsStartedOnlyAfterYes) {
  Open();
  OpenCollection();
  ClickRow(ListOf(*window_), 4);
  const auto asked = AnswerNextBox(u"no"_s);
  Click(*window_, u"attachment"_s);
  EXPECT_TRUE(asked->contains(u"EXE.exe"_s));
  EXPECT_TRUE(asked_->started.isEmpty());
  AnswerNextBox(u"yes"_s);
  Click(*window_, u"attachment"_s);
  EXPECT_EQ(asked_->started, QStringList{u"EXE.exe"_s});
  EXPECT_TRUE(asked_->opened.isEmpty());
}

TEST_F(Reading, WhatTheSystemWouldRunIsAskedForWhateverItsName) {
  Open();
  OpenCollection();
  ClickRow(ListOf(*window_), 2);
  QFile attachment(maker_.PathOf(u"Data/TXT/TWO.pdf"_s));
  ASSERT_TRUE(attachment.setPermissions(attachment.permissions() | QFile::ExeOwner));
  const auto asked = AnswerNextBox(u"no"_s);
  Click(*window_, u"attachment"_s);
  EXPECT_TRUE(asked->contains(u"TWO.pdf"_s));
  EXPECT_TRUE(asked_->opened.isEmpty());
  AnswerNextBox(u"yes"_s);
  Click(*window_, u"attachment"_s);
  EXPECT_EQ(asked_->opened, QStringList{u"TWO.pdf"_s});  // a disk may say so of every file
  EXPECT_TRUE(asked_->started.isEmpty());
}

TEST_F(Reading, WhatIsNoKnownDocumentIsOpenedOnlyAfterYes) {
  MakeBook(maker_);
  maker_.WriteBytes(u"Data/TXT/EXE.desktop"_s, "bytes");
  maker_.Write(u"Data/_xml/aTitle1.xml"_s,
               u"<Tree>\r\n\t<node label=\"x\" src=\"DATA/TXT/EXE.htm\" mediaStatus=\"100\""
               " snd=\"0\" pas=\".desktop\" pic=\"0\" />\r\n</Tree>\r\n"_s);
  Show();
  OpenCollection();
  const auto asked = AnswerNextBox(u"no"_s);
  Click(*window_, u"attachment"_s);
  EXPECT_TRUE(asked->contains(u"EXE.desktop"_s));
  EXPECT_TRUE(asked_->opened.isEmpty());
  AnswerNextBox(u"yes"_s);
  Click(*window_, u"attachment"_s);
  EXPECT_EQ(asked_->opened, QStringList{u"EXE.desktop"_s});
  EXPECT_TRUE(asked_->started.isEmpty());
}

TEST_F(Reading, AListOfAddressesNamedAsASoundIsOpenedOnlyAfterYes) {
  MakeBook(maker_);
  maker_.Write(u"Data/_xml/aTitle1.xml"_s,
               u"<Tree>\r\n\t<node label=\"x\" src=\"DATA/TXT/LIST.htm\" mediaStatus=\"100\""
               " snd=\"0\" pas=\".mp3\" pic=\"0\" />\r\n</Tree>\r\n"_s);
  maker_.WriteBytes(u"Data/TXT/LIST.mp3"_s, kPlaylist);
  Show();
  OpenCollection();
  const auto asked = AnswerNextBox(u"no"_s);
  Click(*window_, u"attachment"_s);
  EXPECT_TRUE(asked->contains(u"LIST.mp3"_s));
  EXPECT_TRUE(asked_->opened.isEmpty());
  maker_.WriteBytes(u"Data/TXT/LIST.mp3"_s, QByteArray::fromStdString(media_tests::Mp3Frames(8)));
  Click(*window_, u"attachment"_s);
  EXPECT_EQ(asked_->opened, QStringList{u"LIST.mp3"_s});
}

TEST_F(Reading, AToolTipShowsATitleAsItIs) {
  EXPECT_EQ(viewer::AsToolTip(u"<b>a & \"b\""_s), u"<qt>&lt;b&gt;a &amp; &quot;b&quot;</qt>"_s);
}

TEST_F(Reading, EscInTheQuestionStartsNothing) {
  Open();
  OpenCollection();
  ClickRow(ListOf(*window_), 4);
  AnswerNextBox({});
  Click(*window_, u"attachment"_s);
  EXPECT_TRUE(asked_->started.isEmpty());
}

TEST_F(Reading, PrintingIsOfferedOnlyWhereTheBookAllowsIt) {
  Open();
  OpenCollection();
  EXPECT_FALSE(IsSeen(*window_, u"print"_s));
}

TEST_F(Reading, BackAndHomeLeadToTheIndex) {
  Open();
  OpenCollection();
  Click(*window_, u"back"_s);
  EXPECT_TRUE(IsSeen(*window_, u"a1"_s));
  OpenCollection();
  Click(*window_, u"home"_s);
  EXPECT_TRUE(IsSeen(*window_, u"a1"_s));
}

TEST_F(Reading, TheTextGrowsAndShrinks) {
  Open();
  OpenCollection();
  const auto* const page = qobject_cast<QTextEdit*>(&Find(*window_, u"page"_s));
  const int before = page->document()->defaultFont().pixelSize();
  Click(*window_, u"larger"_s);
  EXPECT_GT(page->document()->defaultFont().pixelSize(), before);
  Click(*window_, u"smaller"_s);
  EXPECT_EQ(page->document()->defaultFont().pixelSize(), before);
}

TEST_F(Reading, InTheSmallestWindowNoCaptionIsCut) {
  for (const int layout : {1, 2}) {
    Open({.layout = layout, .print = true});
    OpenCollection();
    ClickRow(ListOf(*window_), 2);
    window_->resize(window_->minimumSize());
    QCoreApplication::processEvents();
    int seen = 0;
    for (const char* name : {"previous", "attachment", "sound", "film", "print", "smaller",
                             "larger", "next", "home", "back", "find"}) {
      const QWidget& button = Find(*window_, QString::fromLatin1(name));
      if (!button.isVisible()) continue;
      ++seen;
      EXPECT_GE(button.width(), button.sizeHint().width()) << name;
    }
    EXPECT_GE(seen, 9);
    window_->resize(1040, 720);
    EXPECT_TRUE(IsSeen(*window_, u"larger"_s));
  }
}

TEST_F(Reading, TheSecondTemplateShowsTheContentsBeforeTheText) {
  Open({.layout = 2});
  OpenCollection();
  EXPECT_TRUE(IsSeen(*window_, u"contents"_s));
  EXPECT_FALSE(IsSeen(*window_, u"page"_s));
  ClickRow(ListOf(*window_), 2);
  EXPECT_FALSE(IsSeen(*window_, u"contents"_s));
  EXPECT_TRUE(PageText(*window_).contains(u"متن دوم"_s));
  Click(*window_, u"back"_s);
  EXPECT_TRUE(IsSeen(*window_, u"contents"_s));
  Click(*window_, u"back"_s);
  EXPECT_TRUE(IsSeen(*window_, u"a1"_s));
}

TEST_F(Reading, TheFirstTemplateShowsTheContentsBesideTheText) {
  Open();
  OpenCollection();
  EXPECT_TRUE(IsSeen(*window_, u"contents"_s));
  EXPECT_TRUE(IsSeen(*window_, u"page"_s));
}

TEST_F(Reading, NothingIsWrittenIntoTheBook) {
  MakeBook(maker_, {.music = true, .print = true});
  const QStringList before = TreeOf(maker_.Root());
  Show();
  OpenCollection();
  for (int row = 0; row < 6; ++row) ClickRow(ListOf(*window_), row == 1 ? 0 : row);
  Click(*window_, u"home"_s);
  Click(*window_, u"b1"_s);
  window_.reset();
  EXPECT_EQ(TreeOf(maker_.Root()), before);
}

}  // namespace
}  // namespace viewer_tests
