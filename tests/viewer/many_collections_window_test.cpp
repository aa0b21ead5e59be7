// An index of any length: what is made for it, and that every collection is in reach.
#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QScrollBar>
#include <QSet>
#include <QTest>
#include <algorithm>

#include "tests/viewer/window_bench.h"
#include "viewer/window.h"

using namespace Qt::StringLiterals;

namespace viewer_tests {
namespace {

constexpr int kVeryMany = 100'000;
constexpr int kMostCards = 400;

class ManyCollections : public testing::TestWithParam<int> {
 protected:
  // a1, a2, ... under their keys as titles; then b1 and c1.
  void Open(int count) {
    MakeBook(maker_, {.layout = GetParam()});
    QString index = u"<strings>\r\n\t<aTitle0>Designed</aTitle0>\r\n"_s;
    for (int i = 1; i < count - 1; ++i) {
      index += u"\t<aTitle%1 vol=\"txt\">a%1</aTitle%1>\r\n"_s.arg(i);
    }
    for (const QString& key : {u"b"_s, u"c"_s}) {
      index += u"\t<%1Title1 vol=\"txt\">%2</%1Title1>\r\n"_s.arg(key, key + u'1');
    }
    maker_.Write(u"Data/_xml/Index.xml"_s, index);
    window_ = std::make_unique<viewer::Window>(maker_.Root(), MachineOf(asked_));
    window_->show();
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  }
  QWidget& Shelves() const { return Find(*window_, u"shelves"_s); }
  QScrollBar& Bar() const {
    return *window_->findChild<QAbstractScrollArea*>(u"index"_s)->verticalScrollBar();
  }
  qsizetype Cards() const { return Shelves().findChildren<QAbstractButton*>().size(); }
  static QString Focused() {
    const QWidget* const focused = QApplication::focusWidget();
    return focused ? focused->accessibleName() : QString();
  }
  void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
  // All of it within what can be seen of the index.
  bool IsInView(const QString& key) const {
    const auto* const card = Shelves().findChild<QWidget*>(key);
    return card && card->isVisible() && Shelves().rect().contains(card->geometry());
  }

  BookMaker maker_;
  std::shared_ptr<Asked> asked_ = std::make_shared<Asked>();
  std::unique_ptr<viewer::Window> window_;
};
INSTANTIATE_TEST_SUITE_P(Templates, ManyCollections, testing::Values(1, 2));

TEST_P(ManyCollections, HaveCardsOnlyWhereTheReaderIs) {
  Open(kVeryMany);
  EXPECT_LT(Cards(), kMostCards);
  for (const int place : {Bar().maximum() / 3, Bar().maximum(), 0}) {
    Bar().setValue(place);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_LT(Cards(), kMostCards) << place;
  }
  EXPECT_TRUE(IsInView(u"a1"_s));
}

TEST_P(ManyCollections, AreReachedByTheMouse) {
  Open(kVeryMany);
  Bar().setValue(Bar().maximum());
  ASSERT_TRUE(IsInView(u"c1"_s));
  Bar().setValue(Bar().maximum() / 2);
  Bar().triggerAction(QAbstractSlider::SliderPageStepAdd);
  const auto cards = Shelves().findChildren<QAbstractButton*>();
  const auto seen = std::ranges::find_if(
      cards, [this](const QAbstractButton* card) { return IsInView(card->objectName()); });
  ASSERT_NE(seen, cards.end());
  const QString key = (*seen)->objectName();
  QTest::mouseClick(*seen, Qt::LeftButton);
  EXPECT_EQ(window_->windowTitle(), key);
  Click(*window_, u"home"_s);
  Bar().setValue(Bar().maximum());
  Click(*window_, u"c1"_s);
  EXPECT_EQ(window_->windowTitle(), u"c1"_s);
  Click(*window_, u"home"_s);
  EXPECT_TRUE(IsInView(u"c1"_s));
  EXPECT_EQ(Focused(), u"c1"_s);
}

TEST_P(ManyCollections, EndAndHomeLeadToTheLastAndTheFirst) {
  Open(kVeryMany);
  EXPECT_EQ(Focused(), u"a1"_s);
  Press(Qt::Key_End);
  EXPECT_EQ(Focused(), u"c1"_s);
  EXPECT_TRUE(IsInView(u"c1"_s));
  Press(Qt::Key_Up);
  Press(Qt::Key_Up);
  EXPECT_TRUE(Focused().startsWith(u"a9999"_s)) << Focused().toStdString();
  EXPECT_TRUE(IsInView(Focused()));
  Press(Qt::Key_Home);
  EXPECT_EQ(Focused(), u"a1"_s);
  EXPECT_TRUE(IsInView(u"a1"_s));
}

TEST_P(ManyCollections, TheTabKeyGoesThroughAllInTheirOrder) {
  Open(700);
  for (int i = 1; i <= 698; ++i) {
    ASSERT_EQ(Focused(), u"a%1"_s.arg(i));
    ASSERT_TRUE(IsInView(Focused()));
    Press(Qt::Key_Tab);
  }
  EXPECT_EQ(Focused(), u"b1"_s);
  Press(Qt::Key_Backtab);
  EXPECT_EQ(Focused(), u"a698"_s);
  for (int i = 0; i < 3; ++i) Press(Qt::Key_Tab);
  EXPECT_FALSE(Shelves().isAncestorOf(QApplication::focusWidget()));
  Press(Qt::Key_Backtab);
  EXPECT_EQ(Focused(), u"c1"_s);
}

TEST_P(ManyCollections, TheArrowsGoThroughAllLines) {
  Open(700);
  QSet<QString> met;
  while (!met.contains(Focused())) {
    met += Focused();
    ASSERT_TRUE(IsInView(Focused()));
    Press(Qt::Key_Down);
  }
  EXPECT_EQ(Focused(), u"c1"_s);
  EXPECT_GT(met.size(), 50);
}

TEST_P(ManyCollections, TheArrowsGoOnFromWhereTheFocusIs) {
  Open(kVeryMany);
  Bar().setValue(Bar().maximum() / 2);
  EXPECT_EQ(Focused(), u"a1"_s);
  Press(Qt::Key_Left);
  EXPECT_EQ(Focused(), u"a2"_s);
  EXPECT_TRUE(IsInView(u"a2"_s));
}

// Gives the focus to the last one it finds, until there is none that it doesn't know.
TEST_P(ManyCollections, AScreenReaderFindsAll) {
  Open(700);
  QSet<QString> met;
  for (qsizetype before = -1; before < met.size();) {
    before = met.size();
    QAccessibleInterface* const shelves = QAccessible::queryAccessibleInterface(&Shelves());
    QAccessibleInterface* last = nullptr;
    for (int i = 0; i < shelves->childCount(); ++i) {
      QAccessibleInterface* const child = shelves->child(i);
      const QString name = child->text(QAccessible::Name);
      if (!met.contains(name)) last = child;
      met += name;
      EXPECT_EQ(child->role(), QAccessible::Button);
    }
    if (last) last->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  EXPECT_EQ(met.size(), 700);
}

TEST_P(ManyCollections, AnOrdinaryBookHasAllItsCards) {
  Open(90);
  EXPECT_EQ(Cards(), 90);
}

}  // namespace
}  // namespace viewer_tests
