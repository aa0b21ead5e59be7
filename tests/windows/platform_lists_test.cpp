// List boxes and drop-down lists.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QListWidget>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <array>

#include "platform/windows/controls.h"
#include "tests/support/small_window.h"

namespace {

using platform::ComboBox;
using platform::ControlKind;
using platform::ControlRow;
using platform::ListBox;
using platform::Text;
using platform::WindowDefinition;
using testing::ElementsAre;
using testing_support::FailureOf;
using testing_support::Robot;
using testing_support::SmallWindow;

constexpr std::array kRows = std::to_array<ControlRow>({
    {.name = u"lines",
     .kind = ControlKind::kListBox,
     .left = 150,
     .top = 150,
     .width = 2400,
     .height = 2400},
    {.name = u"combo",
     .kind = ControlKind::kComboBox,
     .left = 150,
     .top = 2700,
     .width = 2400,
     .height = 315},
});
constexpr WindowDefinition kWindow = {
    .name = u"Lists", .title = u"", .width = 3000, .height = 3300, .rows = kRows};

class PlatformLists : public testing::Test {
 protected:
  PlatformLists() {
    window.Load();
    for (const Text line : {u"a", u"b", u"c"}) lines.AddItem(line);
    lines.onClick = [this] { clicked.push_back(static_cast<int>(lines.ListIndex())); };
    lines.onMouseUp = [this] { released.push_back(static_cast<int>(lines.ListIndex())); };
  }
  std::vector<Text> Lines() const {
    std::vector<Text> all;
    for (int i = 0; i < lines.ListCount(); ++i) all.push_back(lines.List(i));
    return all;
  }
  static void Press(Qt::MouseButton button, int line) {
    auto& list = Robot::FindAs<QListWidget>("Lists", "lines");
    QTest::mouseClick(list.viewport(), button, Qt::NoModifier,
                      list.visualItemRect(list.item(line)).center());
    Robot::Settle();
  }

  SmallWindow window{kWindow};
  ListBox lines{window, u"lines"};
  ComboBox combo{window, u"combo"};
  std::vector<int> clicked;
  std::vector<int> released;
};

TEST_F(PlatformLists, EveryUseWhileUnloadedIsAFailure) {
  window.Unload();
  for (const auto& use : std::vector<std::function<void()>>{
           [&] { lines.ListCount(); }, [&] { lines.ListIndex(); }, [&] { lines.SetListIndex(0); },
           [&] { lines.List(0); }, [&] { lines.SetList(0, u""); }, [&] { lines.AddItem(u""); },
           [&] { lines.InsertItem(0, u""); }, [&] { lines.RemoveItem(0); },
           [&] { lines.Clear(); }}) {
    EXPECT_EQ(FailureOf(use), "Object was unloaded: lines");
  }
  for (const auto& use : std::vector<std::function<void()>>{
           [&] { combo.ListCount(); }, [&] { combo.ListIndex(); }, [&] { combo.SetListIndex(0); },
           [&] { combo.List(0); }, [&] { combo.Text(); }, [&] { combo.AddItem(u""); },
           [&] { combo.Clear(); }}) {
    EXPECT_EQ(FailureOf(use), "Object was unloaded: combo");
  }
}

TEST_F(PlatformLists, NothingIsSelectedAtFirst) {
  EXPECT_EQ(lines.ListIndex(), -1);
  window.ShowActive();
  lines.SetFocus();
  Robot::Settle();
  EXPECT_EQ(lines.ListIndex(), -1);
  EXPECT_TRUE(clicked.empty());
}

TEST_F(PlatformLists, TheSelectionIsSetAndTakenAwayByCode) {
  lines.SetListIndex(2);
  EXPECT_EQ(lines.ListIndex(), 2);
  lines.SetListIndex(-1);
  EXPECT_EQ(lines.ListIndex(), -1);
  EXPECT_TRUE(clicked.empty());
}

TEST_F(PlatformLists, AnIndexOutsideIsAFailure) {
  const std::string outside = "Invalid property array index";
  EXPECT_EQ(FailureOf([&] { lines.SetListIndex(3); }), outside);
  EXPECT_EQ(FailureOf([&] { lines.SetListIndex(-2); }), outside);
  EXPECT_EQ(FailureOf([&] { lines.List(-1); }), outside);
  EXPECT_EQ(FailureOf([&] { lines.List(3); }), outside);
  EXPECT_EQ(FailureOf([&] { lines.SetList(3, u"x"); }), outside);
  EXPECT_EQ(FailureOf([&] { lines.InsertItem(4, u"x"); }), outside);
  EXPECT_EQ(FailureOf([&] { lines.InsertItem(-1, u"x"); }), outside);
  EXPECT_EQ(FailureOf([&] { lines.RemoveItem(3); }), outside);
  EXPECT_EQ(FailureOf([&] { lines.RemoveItem(-1); }), outside);
  EXPECT_EQ(FailureOf([&] { lines.SetListIndex(platform::Position{1} << 32); }), outside);
  EXPECT_THAT(Lines(), ElementsAre(u"a", u"b", u"c"));
}

TEST_F(PlatformLists, LinesComeAndGo) {
  lines.InsertItem(0, u"first");
  lines.InsertItem(4, u"last");
  lines.RemoveItem(1);
  lines.SetList(1, u"B");
  EXPECT_THAT(Lines(), ElementsAre(u"first", u"B", u"c", u"last"));
  lines.Clear();
  EXPECT_EQ(lines.ListCount(), 0);
  EXPECT_EQ(lines.ListIndex(), -1);
}

TEST_F(PlatformLists, TheSelectionStaysWithItsLine) {
  lines.SetListIndex(1);
  lines.InsertItem(0, u"new");
  EXPECT_EQ(lines.ListIndex(), 2);
  lines.RemoveItem(0);
  EXPECT_EQ(lines.ListIndex(), 1);
  EXPECT_TRUE(clicked.empty());
}

TEST_F(PlatformLists, TheSelectionGoesWithItsLine) {
  lines.SetListIndex(1);
  lines.RemoveItem(1);
  EXPECT_EQ(lines.ListIndex(), -1);
  lines.SetListIndex(1);
  lines.RemoveItem(1);
  EXPECT_EQ(lines.ListIndex(), -1);
}

TEST_F(PlatformLists, AClickOnTheSelectedLineIsTold) {
  window.ShowActive();
  Press(Qt::LeftButton, 1);
  Press(Qt::LeftButton, 1);
  EXPECT_THAT(clicked, ElementsAre(1, 1));
  EXPECT_THAT(released, ElementsAre(1, 1));
}

TEST_F(PlatformLists, AnyButtonsReleaseIsTold) {
  window.ShowActive();
  Press(Qt::RightButton, 2);
  EXPECT_THAT(released, ElementsAre(2));
  EXPECT_TRUE(clicked.empty());
}

TEST_F(PlatformLists, AReleaseBelowTheLinesIsToldAndChoosesNothing) {
  window.ShowActive();
  auto& list = Robot::FindAs<QListWidget>("Lists", "lines");
  QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                    list.viewport()->rect().bottomLeft() + QPoint(5, -5));
  EXPECT_THAT(released, ElementsAre(-1));
  EXPECT_TRUE(clicked.empty());
}

TEST_F(PlatformLists, KeysChoose) {
  window.ShowActive();
  lines.SetListIndex(0);
  Robot::PressKey("Lists", "lines", Qt::Key_Down);
  Robot::PressKey("Lists", "lines", Qt::Key_End);
  Robot::PressKey("Lists", "lines", Qt::Key_End);
  EXPECT_THAT(clicked, ElementsAre(1, 2));
  EXPECT_TRUE(released.empty());
}

TEST_F(PlatformLists, AHandlerMayUnloadTheWindow) {
  lines.onClick = [this] { window.Unload(); };
  window.ShowActive();
  Press(Qt::LeftButton, 1);
  EXPECT_FALSE(window.IsLoaded());
  EXPECT_TRUE(released.empty());
}

TEST_F(PlatformLists, LinesKeepWhatTheyHold) {
  const Text odd = u"  رديف\u200Fها & \t<b>";
  lines.AddItem(odd);
  EXPECT_EQ(lines.List(3), odd);
}

TEST_F(PlatformLists, ADropDownListHasNoSelectionUntilSomebodyChooses) {
  combo.AddItem(u"one");
  combo.AddItem(u"two");
  EXPECT_EQ(combo.ListIndex(), -1);
  EXPECT_EQ(combo.Text(), u"");
  combo.SetListIndex(1);
  combo.AddItem(u"three");
  EXPECT_EQ(combo.ListIndex(), 1);
  EXPECT_EQ(combo.Text(), u"two");
  EXPECT_EQ(combo.List(2), u"three");
  EXPECT_EQ(combo.ListCount(), 3);
  combo.SetListIndex(-1);
  EXPECT_EQ(combo.Text(), u"");
  combo.SetListIndex(2);
  combo.Clear();
  EXPECT_EQ(combo.ListIndex(), -1);
  EXPECT_EQ(combo.ListCount(), 0);
}

TEST_F(PlatformLists, ADropDownListsIndexOutsideIsAFailure) {
  combo.AddItem(u"one");
  const std::string outside = "Invalid property array index";
  EXPECT_EQ(FailureOf([&] { combo.SetListIndex(1); }), outside);
  EXPECT_EQ(FailureOf([&] { combo.List(-1); }), outside);
  EXPECT_EQ(FailureOf([&] { combo.List(1); }), outside);
}

TEST_F(PlatformLists, ADropDownListIsChosenFromByKeys) {
  combo.AddItem(u"one");
  combo.AddItem(u"two");
  window.ShowActive();
  Robot::Choose("Lists", "combo", 1);
  EXPECT_EQ(combo.ListIndex(), 1);
  EXPECT_EQ(combo.Text(), u"two");
}

// One notch towards the reader, with the pointer over the drop-down list.
void TurnWheelOver(QWidget& widget) {
  const QPointF middle = widget.rect().center();
  QWheelEvent notch(middle, widget.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&widget, &notch);
  Robot::Settle();
}

// A collection's key stands in brackets after its name: for a reader from right to left, on the
// left of it.
TEST_F(PlatformLists, ADropDownListReadsFromRightToLeft) {
  combo.AddItem(u"رديف اول");
  combo.AddItem(u"رديف اول  (a1)");
  window.Show();
  const auto rightHalf = [&](int index) {
    combo.SetListIndex(index);
    const QImage shown = Robot::FindAs<QComboBox>("Lists", "combo").grab().toImage();
    return shown.copy(shown.width() * 3 / 4, 0, shown.width() / 4, shown.height());
  };
  const QImage name = rightHalf(0);
  EXPECT_EQ(rightHalf(1), name);
  EXPECT_NE(rightHalf(-1), name);
}

TEST_F(PlatformLists, AWheelThatPassesOverADropDownChoosesNothingElse) {
  for (const Text line : {u"a", u"b", u"c"}) combo.AddItem(line);
  combo.SetListIndex(0);
  window.Show();
  auto& widget = Robot::FindAs<QComboBox>("Lists", "combo");
  Robot::Find("Lists", "lines").setFocus();
  TurnWheelOver(widget);
  EXPECT_EQ(combo.ListIndex(), 0);
  EXPECT_FALSE(widget.hasFocus());
  widget.setFocus();
  TurnWheelOver(widget);
  EXPECT_EQ(combo.ListIndex(), 1);
}

// The list places its lines by a rule of its own, and nobody sees or feels a difference to the
// toolkit's: the same lines stand in both, and both are told the same.
class PlatformListBesideTheToolkits : public PlatformLists {
 protected:
  PlatformListBesideTheToolkits() {
    lines.Clear();
    for (int i = 0; i < 100; ++i) lines.AddItem(u"سطر " + platform::FromNumber(i));
    lines.SetList(40, Text(u"سطري بسيار درازتر از آن كه در پهناي اين فهرست جا شود و بريده نگردد"));
    window.ShowActive();
    plain_ = new QListWidget(&window.OnScreen());
    plain_->setGeometry(Own().geometry());
    plain_->setLayoutDirection(Own().layoutDirection());
    plain_->setItemDelegate(Own().itemDelegate());  // places are compared, not letters
    plain_->setUniformItemSizes(true);
    plain_->setTextElideMode(Qt::ElideRight);
    plain_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (int i = 0; i < 100; ++i) plain_->addItem(Own().item(i)->text());
    plain_->show();
    Robot::Settle();
    InBoth([](QListWidget& list) { list.setCurrentRow(0); });
  }

  static QListWidget& Own() { return Robot::FindAs<QListWidget>("Lists", "lines"); }
  QListWidget& Plain() const { return *plain_; }
  void InBoth(const std::function<void(QListWidget&)>& act) const {
    for (QListWidget* list : {&Own(), plain_}) {
      list->raise();
      list->setFocus();
      act(*list);
      Robot::Settle();
    }
  }
  void ExpectTheSame(const std::string& when) const {
    EXPECT_EQ(Own().currentRow(), Plain().currentRow()) << when;
    EXPECT_EQ(Own().verticalScrollBar()->value(), Plain().verticalScrollBar()->value()) << when;
    EXPECT_EQ(Own().verticalScrollBar()->maximum(), Plain().verticalScrollBar()->maximum()) << when;
    std::vector<QImage> pictures;
    InBoth([&](QListWidget& list) { pictures.push_back(list.grab().toImage()); });
    EXPECT_TRUE(pictures[0] == pictures[1]) << when;
  }

 private:
  QListWidget* plain_ = nullptr;
};

TEST_F(PlatformListBesideTheToolkits, KeysLeadToTheSameLine) {
  ExpectTheSame("at first");
  for (const int key :
       {Qt::Key_Down, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_Up, Qt::Key_PageUp,
        Qt::Key_End, Qt::Key_Down, Qt::Key_Up, Qt::Key_PageUp, Qt::Key_Left, Qt::Key_Right,
        Qt::Key_Home, Qt::Key_Up, Qt::Key_PageUp, Qt::Key_PageDown}) {
    InBoth([&](QListWidget& list) { QTest::keyClick(&list, static_cast<Qt::Key>(key)); });
    ExpectTheSame("key " + std::to_string(key));
  }
}

TEST_F(PlatformListBesideTheToolkits, ClicksAndTheWheelDoTheSame) {
  for (const int y : {3, 30, 75, 158}) {
    InBoth([&](QListWidget& list) {
      QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, {20, y});
      list.verticalScrollBar()->setValue(list.verticalScrollBar()->value() + 7);
    });
    ExpectTheSame("click at " + std::to_string(y));
  }
}

TEST_F(PlatformListBesideTheToolkits, CodeScrollsToTheSamePlace) {
  using Hint = QAbstractItemView::ScrollHint;
  for (const int row : {0, 50, 99, 20, 40}) {
    for (const Hint hint : {Hint::EnsureVisible, Hint::PositionAtTop, Hint::PositionAtBottom,
                            Hint::PositionAtCenter}) {
      InBoth([&](QListWidget& list) { list.scrollTo(list.model()->index(row, 0), hint); });
      ExpectTheSame("row " + std::to_string(row) + ", hint " + std::to_string(hint));
    }
    InBoth([&](QListWidget& list) { list.setCurrentRow(row); });
    ExpectTheSame("current row " + std::to_string(row));
  }
}

TEST_F(PlatformListBesideTheToolkits, LinesComeAndGoInBoth) {
  InBoth([](QListWidget& list) {
    list.insertItem(100, "last");
    list.setCurrentRow(100);
  });
  ExpectTheSame("a line after the last");
  InBoth([](QListWidget& list) { list.item(97)->setText("another text"); });
  ExpectTheSame("another text");
  InBoth([](QListWidget& list) { delete list.takeItem(50); });
  ExpectTheSame("a line gone");
  InBoth([](QListWidget& list) {
    QFont large = list.font();
    large.setPointSize(24);
    list.setFont(large);
  });
  ExpectTheSame("a larger font");
  InBoth([](QListWidget& list) { list.resize(100, 90); });
  ExpectTheSame("a smaller list");
  InBoth([](QListWidget& list) { list.clear(); });
  ExpectTheSame("no line");
}

}  // namespace
