// The windows as they come on the screen: every control can be reached, in the order in which
// it is read, and has a name for those who can't see it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QRadioButton>
#include <QTest>
#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/window_catalogue.h"
#include "tests/support/small_window.h"

namespace {

using platform::ControlRow;
using platform::kNoIndex;
using platform::WindowDefinition;
using testing::IsEmpty;
using testing_support::Robot;
using testing_support::SmallWindow;

std::vector<const WindowDefinition*> AllWindows() {
  return {&support::Form1Definition(),   &support::Form2Definition(), &support::Form3Definition(),
          &support::Form4Definition(),   &support::Form5Definition(), &support::Form6Definition(),
          &support::RecoveryDefinition()};
}

QString NameOf(const ControlRow& row) {
  const QString name = QString::fromStdU16String(platform::Text(row.name));
  return row.index == kNoIndex ? name : QStringLiteral("%1(%2)").arg(name).arg(row.index);
}

class PlatformCatalogue : public testing::TestWithParam<const WindowDefinition*> {
 protected:
  PlatformCatalogue() { window.ShowActive(); }
  SmallWindow window{*GetParam()};
};

std::string WindowName(const testing::TestParamInfo<const WindowDefinition*>& info) {
  return platform::ToUtf8(info.param->name);
}

INSTANTIATE_TEST_SUITE_P(All, PlatformCatalogue, testing::ValuesIn(AllWindows()), WindowName);

TEST_P(PlatformCatalogue, EveryControlBearsItsName) {
  for (const ControlRow& row : window.Definition().rows) {
    if (!platform::IsPlaced(row.kind)) continue;
    EXPECT_EQ(window.OnScreen().findChildren<QWidget*>(NameOf(row)).size(), 1)
        << NameOf(row).toStdString();
  }
}

TEST_P(PlatformCatalogue, EveryControlThatTakesTheFocusHasAnAccessibleName) {
  std::vector<std::string> nameless;
  for (const ControlRow& row : window.Definition().rows) {
    if (!platform::IsPlaced(row.kind) || !row.tabStop) continue;
    const auto& widget = *window.OnScreen().findChild<QWidget*>(NameOf(row));
    if (widget.accessibleName().isEmpty()) nameless.push_back(NameOf(row).toStdString());
  }
  EXPECT_THAT(nameless, IsEmpty());
}

TEST_P(PlatformCatalogue, TabGoesThroughTheControlsInTheOrderOfTheRows) {
  std::vector<QWidget*> order;
  for (const ControlRow& row : window.Definition().rows) {
    if (!platform::IsPlaced(row.kind) || !row.tabStop) continue;
    auto* widget = window.OnScreen().findChild<QWidget*>(NameOf(row));
    const auto* option = qobject_cast<QRadioButton*>(widget);
    if (option != nullptr && !option->isChecked()) continue;
    if (widget->isVisible() && widget->isEnabled()) order.push_back(widget);
  }
  ASSERT_FALSE(order.empty());
  order.front()->setFocus();
  for (std::size_t i = 1; i < order.size(); ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    while (qobject_cast<QRadioButton*>(QApplication::focusWidget()) != nullptr &&
           QApplication::focusWidget() != order[i]) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    ASSERT_EQ(QApplication::focusWidget()->objectName().toStdString(),
              order[i]->objectName().toStdString());
  }
}

// By the label that an editor who sees reads for it; a button beside a field fills that field.
std::map<std::string, std::map<const char*, std::string>> LabelsOfFields() {
  const std::string words =
      "حذف تمامي پاراگراف\u200Cها و ايجاد پاراگراف بر اساس           كلمه در هر سطر";
  return {{"Recovery", {}},
          {"Form1",
           {{"title", "رديف اول:\u200F"},
            {"matn", "رديف دوم:\u200F"},
            {"shenas", "رديف سوم:\u200F"},
            {"Text1", "مسير متون ورودي:\u200F"},
            {"Command9", "مسير متون ورودي:\u200F"},
            {"idir", "مسير ساخت خروجي:\u200F"},
            {"Command2", "مسير ساخت خروجي:\u200F"},
            {"dataName", "انتخاب:\u200F"},
            {"index", "تصوير مجموعه:\u200F"},
            {"Command5", "تصوير مجموعه:\u200F"},
            {"Mus1", "موزيك اول:\u200F"},
            {"Command6", "موزيك اول:\u200F"},
            {"Mus2", "موزيك دوم:\u200F"},
            {"Command7", "موزيك دوم:\u200F"},
            {"Back", "تصوير پيش\u200Cزمينه:\u200F"},
            {"Command8", "تصوير پيش\u200Cزمينه:\u200F"},
            {"ExBox", "مسير ايجاد نرم\u200Cافزار:\u200F"},
            {"Command1", "مسير ايجاد نرم\u200Cافزار:\u200F"}}},
          {"Form2", {{"Dir1", "Select folder"}}},
          {"Form3",
           {{"books", "متن\u200Cهاي ورودي:\u200F"},
            {"bname", "عنوان مجموعه:"},
            {"bindex", "عناوين فهرست:\u200F"},
            {"matn", "Format data"},
            {"chnd", words},
            {"IMN(3)", "عنوان تصوير:\u200F"}}},
          {"Form4", {{"Box1", "Help"}}},
          {"Form5", {{"File1", "فهرست فايل\u200Cهاي قابل انتخاب:\u200F"}, {"Dir1", "Select file"}}},
          {"Form6",
           {{"bname", "عنوان فهرست:\u200F"},
            {"matn", "Edit paragraph"},
            {"picB", "فايل ضميمه پاراگراف:\u200F"},
            {"Command5", "فايل ضميمه پاراگراف:\u200F"},
            {"soutB", "صوت متصل به پاراگراف:\u200F"},
            {"Command1", "صوت متصل به پاراگراف:\u200F"},
            {"filmB", "فيلم متصل به پاراگراف:\u200F"},
            {"Command2", "فيلم متصل به پاراگراف:\u200F"},
            {"IMN(0)", "عنوان تصوير:\u200F"}}}};
}

TEST(PlatformCatalogueNames, FieldsBearTheirLabels) {
  const auto expected = LabelsOfFields();
  for (const WindowDefinition* definition : AllWindows()) {
    SmallWindow window(*definition);
    window.Load();
    const QString name = QString::fromStdU16String(platform::Text(definition->name));
    for (const auto& [control, label] : expected.at(name.toStdString())) {
      EXPECT_EQ(Robot::Find(name, control).accessibleName().toStdString(), label)
          << name.toStdString() << " " << control;
    }
  }
}

// Whether a reader of Persian comes to `second` before `first`: it stands to the right in the same
// line, or above in the same column.
bool StandsBefore(const QRect& second, const QRect& first) {
  const bool sameLine = second.top() < first.bottom() && first.top() < second.bottom();
  const bool sameColumn = second.left() < first.right() && first.left() < second.right();
  const bool right = second.left() + 2 > first.right();
  const bool above = second.bottom() - 2 < first.top();
  return (sameLine && right) || (sameColumn && above) || (right && above);
}

// The controls that Tab comes to, from the first one on.
std::vector<const QWidget*> TabRound(const QWidget& window) {
  QWidget* start = window.nextInFocusChain();
  while (!start->isVisible() || !(start->focusPolicy() & Qt::TabFocus)) {
    start = start->nextInFocusChain();
  }
  start->setFocus();
  std::vector<const QWidget*> round;
  for (const QWidget* at = QApplication::focusWidget(); std::ranges::find(round, at) == round.end();
       at = QApplication::focusWidget()) {
    if (at->window() != &window) throw std::runtime_error("the focus has left the window");
    round.push_back(at);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  return round;
}

std::vector<std::string> BackwardSteps(const SmallWindow& window) {
  const std::vector<const QWidget*> round = TabRound(window.OnScreen());
  const auto placeOf = [&](const QWidget* widget) {
    return QRect(widget->mapTo(&window.OnScreen(), QPoint()), widget->size());
  };
  std::vector<std::string> steps;
  for (auto first = round.begin(); first != round.end(); ++first) {
    for (auto second = std::next(first); second != round.end(); ++second) {
      if (!StandsBefore(placeOf(*second), placeOf(*first))) continue;
      steps.push_back((*first)->objectName().toStdString() + " before " +
                      (*second)->objectName().toStdString());
    }
  }
  return steps;
}

TEST(PlatformCatalogueReading, AFieldAboveOrToTheRightThatComesLaterIsABackwardStep) {
  using platform::ControlRow;
  const auto field = [](platform::TextView name, int left, int top) {
    return ControlRow{.name = name,
                      .kind = platform::ControlKind::kTextBox,
                      .left = left,
                      .top = top,
                      .width = 900,
                      .height = 300};
  };
  const std::array<ControlRow, 3> rows = {field(u"low", 1500, 900), field(u"high", 1500, 300),
                                          field(u"right", 3000, 300)};
  const WindowDefinition definition{
      .name = u"Rows", .title = u"Rows", .width = 4500, .height = 1500, .rows = rows};
  SmallWindow window(definition);
  window.ShowActive();
  EXPECT_THAT(
      BackwardSteps(window),
      testing::UnorderedElementsAre("low before high", "low before right", "high before right"));
}

// Top to bottom and right to left; which of two columns comes first where one begins lower is free.
TEST_P(PlatformCatalogue, TabRunsAsAPersianReadersEye) {
  EXPECT_THAT(BackwardSteps(window), IsEmpty());
}

// With the picture browser open and nothing else to go to.
class PlatformCatalogueBrowser : public PlatformCatalogue {};

INSTANTIATE_TEST_SUITE_P(Both, PlatformCatalogueBrowser,
                         testing::Values(&support::Form3Definition(), &support::Form6Definition()),
                         WindowName);

TEST_P(PlatformCatalogueBrowser, TabRunsAsAPersianReadersEye) {
  auto& browser = Robot::Find(QString::fromStdString(WindowName({GetParam(), 0})), "Frame4");
  for (auto* each : window.OnScreen().findChildren<QWidget*>()) {
    if (!browser.isAncestorOf(each)) each->setFocusPolicy(Qt::NoFocus);
  }
  browser.show();
  const std::size_t folderAndBar = 2;
  const std::size_t titleAndTick = 2;
  const std::size_t build = GetParam()->name == u"Form3" ? 1 : 0;
  EXPECT_EQ(TabRound(window.OnScreen()).size(),
            folderAndBar + titleAndTick * support::kPictureCells + build);
  EXPECT_THAT(BackwardSteps(window), IsEmpty());
}

}  // namespace
