// Pictures in a page keep within the column, however wide the window is made.
#include <gtest/gtest.h>

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextFrame>

#include "tests/viewer/window_bench.h"
#include "viewer/window.h"

using namespace Qt::StringLiterals;

namespace viewer_tests {
namespace {

constexpr QSize kWide(1200, 700);
constexpr QSize kNarrow(720, 700);

class PictureWidth : public testing::Test {
 protected:
  void Open(int paragraphs, QSize picture) {
    MakeBook(maker_);
    MakePicture(maker_, u"Data/IMG/Wide.jpg"_s, picture);
    QString text = u"<pgTitle>title</pgTitle>\r\n\r\n"_s;
    for (int i = 1; i <= paragraphs; ++i) {
      text +=
          u"<pgMain>w%1 "_s.arg(i) + u"متنی بلند از باغ انار "_s.repeated(12) + u"</pgMain>\r\n"_s;
      if (i % 10 == 0) text += u"<IMG src=\"Data/IMG/Wide.jpg\">\r\n"_s;
    }
    maker_.Write(u"Data/TXT/ONE.htm"_s, text);
    window_ = std::make_unique<viewer::Window>(maker_.Root(), MachineOf(asked_));
    window_->resize(kWide);
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    Click(*window_, u"a1"_s);
  }
  QTextEdit& Page() { return *qobject_cast<QTextEdit*>(&Find(*window_, u"page"_s)); }
  QScrollBar& Bar() { return *Page().verticalScrollBar(); }
  // Of each picture that is laid out.
  std::vector<QSizeF> Pictures() {
    std::vector<QSizeF> sizes;
    for (QTextBlock block = Page().document()->begin(); block.isValid(); block = block.next()) {
      for (auto each = block.begin(); !each.atEnd(); ++each) {
        const QTextCharFormat format = each.fragment().charFormat();
        if (!format.isImageFormat()) continue;
        sizes.emplace_back(format.toImageFormat().width(), format.toImageFormat().height());
      }
    }
    return sizes;
  }
  double Column() {
    const QTextFrameFormat format = Page().document()->rootFrame()->frameFormat();
    return Page().viewport()->width() - format.leftMargin() - format.rightMargin();
  }
  void ExpectPicturesAsWideAsTheColumn() {
    const std::vector<QSizeF> sizes = Pictures();
    ASSERT_FALSE(sizes.empty());
    for (const QSizeF& size : sizes) {
      EXPECT_NEAR(size.width(), Column(), 1);
      EXPECT_NEAR(size.width(), size.height() * 4, 8);
    }
    EXPECT_LE(Page().document()->idealWidth(), Page().viewport()->width());
  }
  QString FirstWordSeen() {
    const QTextCursor cursor = Page().cursorForPosition({Page().viewport()->width() / 2, 2});
    return cursor.block().text().section(u' ', 0, 0);
  }
  void ScrollToTheEndOfTheSection() {
    for (int last = -1; last != Bar().maximum();) {
      last = Bar().maximum();
      Bar().setValue(last);
    }
  }

  BookMaker maker_;
  std::shared_ptr<Asked> asked_ = std::make_shared<Asked>();
  std::unique_ptr<viewer::Window> window_;
};

TEST_F(PictureWidth, FollowsTheWindowBothWays) {
  Open(60, {1600, 400});
  const double before = Column();
  ExpectPicturesAsWideAsTheColumn();
  window_->resize(kNarrow);
  ASSERT_LT(Column(), before);
  ExpectPicturesAsWideAsTheColumn();
  window_->resize(kWide);
  ASSERT_EQ(Column(), before);
  ExpectPicturesAsWideAsTheColumn();
}

TEST_F(PictureWidth, OfWhatIsLaidOutLaterIsThatOfTheWindowAsItIsNow) {
  Open(60, {1600, 400});
  window_->resize(kNarrow);
  const std::size_t before = Pictures().size();
  ScrollToTheEndOfTheSection();
  EXPECT_GE(Pictures().size(), before);
  ExpectPicturesAsWideAsTheColumn();
}

TEST_F(PictureWidth, ASmallPictureStaysAsItIs) {
  Open(20, {90, 60});
  window_->resize(kNarrow);
  window_->resize(kWide);
  ASSERT_FALSE(Pictures().empty());
  for (const QSizeF& size : Pictures()) EXPECT_EQ(size, QSizeF(90, 60));
}

TEST_F(PictureWidth, TheReaderStaysAtTheSameParagraph) {
  Open(200, {1600, 400});
  ScrollToTheEndOfTheSection();
  for (int step = 1; step < 8; ++step) {
    Bar().setValue(Bar().maximum() * step / 8);
    const QString before = FirstWordSeen();
    window_->resize(kNarrow);
    EXPECT_EQ(FirstWordSeen(), before);
    window_->resize(kWide);
    EXPECT_EQ(FirstWordSeen(), before);
  }
}

TEST_F(PictureWidth, InALaterSectionToo) {
  Open(2'500, {1600, 400});
  ASSERT_TRUE(IsSeen(*window_, u"nextSection"_s));
  Click(*window_, u"nextSection"_s);
  Bar().setValue(Bar().maximum() / 2);
  const QString before = FirstWordSeen();
  window_->resize(kNarrow);
  ExpectPicturesAsWideAsTheColumn();
  EXPECT_EQ(FirstWordSeen(), before);
}

TEST_F(PictureWidth, APictureTakesNoMoreRoomThanItself) {
  Open(10, {400, 400});
  ScrollToTheEndOfTheSection();
  const QTextBlock block = Page().document()->lastBlock();
  ASSERT_EQ(block.text(), QString(QChar::ObjectReplacementCharacter));
  const double height = Page().document()->documentLayout()->blockBoundingRect(block).height();
  EXPECT_GE(height, 400);
  EXPECT_LT(height, 440);
}

}  // namespace
}  // namespace viewer_tests
