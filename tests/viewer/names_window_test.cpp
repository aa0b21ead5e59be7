// Names and titles out of a book, where the viewer shows them: hostile ones, too.
#include <gtest/gtest.h>

#include <QMessageBox>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QToolTip>

#include "tests/viewer/window_bench.h"
#include "viewer/look.h"
#include "viewer/window.h"

using namespace Qt::StringLiterals;

namespace viewer_tests {
namespace {

// What the next message box was like; it is closed with Esc.
struct BoxSeen {
  QString text;
  QSize size;
  bool isOnScreen = false;
};
std::shared_ptr<BoxSeen> LookAtNextBox() {
  auto seen = std::make_shared<BoxSeen>();
  QTimer::singleShot(0, qApp, [seen] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    seen->text = box->text();
    seen->size = box->size();
    seen->isOnScreen = true;
    const QRect screen = box->screen()->geometry();
    for (const QAbstractButton* button : box->buttons()) {
      const QRect place(button->mapToGlobal(QPoint()), button->size());
      seen->isOnScreen = seen->isOnScreen && screen.contains(place);
    }
    QTest::keyClick(box, Qt::Key_Escape);
  });
  return seen;
}

class Naming : public testing::Test {
 protected:
  // A book whose first collection has this one entry.
  void Open(const QString& label, const QString& stem, const QString& extension) {
    MakeBook(maker_);
    maker_.Write(u"Data/_xml/aTitle1.xml"_s,
                 u"<Tree>\r\n\t<node label=\"%1\" src=\"DATA/TXT/%2.htm\" mediaStatus=\"110\""
                 " snd=\"0\" pas=\"%3\" pic=\"0\" />\r\n</Tree>\r\n"_s.arg(label, stem, extension));
    window_ = std::make_unique<viewer::Window>(maker_.Root(), MachineOf(asked_));
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    Click(*window_, u"a1"_s);
  }
  std::shared_ptr<BoxSeen> BoxOf(const QString& button) {
    auto seen = LookAtNextBox();
    Click(*window_, button);
    return seen;
  }

  BookMaker maker_;
  std::shared_ptr<Asked> asked_ = std::make_shared<Asked>();
  std::unique_ptr<viewer::Window> window_;
};

const QString kLineEnds(150, u'\n');

TEST_F(Naming, AnAttachmentNamedOverManyLinesIsAskedForInOne) {
  maker_.WriteBytes(u"Data/TXT/N"_s + kLineEnds + u"M.exe"_s, "bytes");
  Open(u"x"_s, u"N"_s + kLineEnds + u"M"_s, u".exe"_s);
  const auto box = BoxOf(u"attachment"_s);
  EXPECT_TRUE(box->isOnScreen) << box->size.height();
  EXPECT_LT(box->size.height(), 300);
  EXPECT_TRUE(box->text.contains(u"M.exe\u2069\n"_s));
  EXPECT_TRUE(box->text.contains(u"\u2066N\uFFFD"_s));
  EXPECT_LE(box->text.count(u'\n'), 3);
  EXPECT_TRUE(asked_->opened.isEmpty() && asked_->started.isEmpty());
}

TEST_F(Naming, ALongAttachmentNameShowsItsBeginningAndItsEnd) {
  for (const QString& stem : {QString(200, u'W'), QString(70, QChar(0xFDFD))}) {
    maker_.WriteBytes(u"Data/TXT/A"_s + stem + u".exe"_s, "bytes");
    Open(u"x"_s, u"A"_s + stem, u".exe"_s);
    const auto box = BoxOf(u"attachment"_s);
    EXPECT_TRUE(box->isOnScreen) << box->size.width();
    EXPECT_TRUE(box->text.contains(u".exe\u2069"_s));
    EXPECT_TRUE(box->text.contains(u"\u2066A"_s));
    EXPECT_TRUE(box->text.contains(u'\u2026'));
  }
}

TEST_F(Naming, AMissingFileNamedOverManyLinesIsToldInOne) {
  Open(u"x"_s, u"N"_s + QString(3000, u'\n') + u"M"_s, u".pdf"_s);
  for (const QString& button : {u"attachment"_s, u"sound"_s}) {
    const auto box = BoxOf(button);
    EXPECT_TRUE(box->isOnScreen) << box->size.height();
    EXPECT_TRUE(box->text.contains(u"\u2066DATA/TXT/N\uFFFD"_s));
    EXPECT_TRUE(box->text.contains(button == u"sound"_s ? u"M.*\u2069"_s : u"M.pdf\u2069"_s));
  }
}

TEST_F(Naming, AMissingPageNamedOverManyLinesIsToldInOne) {
  Open(u"x"_s, u"N"_s + kLineEnds + u"M"_s, u".pdf"_s);
  const QString text = PageText(*window_);
  EXPECT_TRUE(text.contains(u"M.htm"_s));
  EXPECT_LE(text.count(u'\n'), 2) << text.toStdString();
}

TEST_F(Naming, NothingOfAMissingPageTurnsTheNoticeAround) {
  Open(u"x"_s, u"N\u202Efdp"_s, u".pdf"_s);
  EXPECT_TRUE(PageText(*window_).contains(u"DATA/TXT/N\uFFFDfdp.htm"_s));
}

TEST_F(Naming, ATitleWithControlsHasSignsForThem) {
  EXPECT_EQ(viewer::AsCaption(u"one\r\n two\u0007\u001Bthree"_s), u"one two\uFFFD\uFFFDthree"_s);
  const QString half = QString(399, u'a') + QString::fromUcs4(U"\U0001F600");
  EXPECT_EQ(viewer::AsCaption(half), QString(399, u'a') + u"\uFFFD\u2026"_s);
}

TEST_F(Naming, AToolTipOfALongWordFitsTheScreen) {
  Open(QString(5000, u'W'), u"ONE"_s, u".pdf"_s);
  QListView& list = ListOf(*window_);
  const QString tip = list.model()->index(0, 0).data(Qt::ToolTipRole).toString();
  QToolTip::showText(list.mapToGlobal(QPoint(5, 5)), tip, &list);
  const QWidget* const shown = TopLevel(u"qtooltip_label"_s);
  ASSERT_NE(shown, nullptr);
  EXPECT_LT(shown->width(), list.screen()->geometry().width());
  EXPECT_LT(shown->height(), list.screen()->geometry().height());
  QToolTip::hideText();
}

}  // namespace
}  // namespace viewer_tests
