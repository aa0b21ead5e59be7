// The six windows as they come on the screen: every caption fits, every control can be reached and
// has a name for those who can't see it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QTest>
#include <QTextLayout>
#include <map>

#include "platform/caption.h"
#include "support/window_catalogue.h"
#include "tests/support/small_window.h"

namespace {

using platform::ControlKind;
using platform::ControlRow;
using platform::kNoIndex;
using platform::WindowDefinition;
using testing::IsEmpty;
using testing_support::Robot;
using testing_support::SmallWindow;

std::vector<const WindowDefinition*> AllWindows() {
  return {&support::Form1Definition(), &support::Form2Definition(), &support::Form3Definition(),
          &support::Form4Definition(), &support::Form5Definition(), &support::Form6Definition()};
}

QString NameOf(const ControlRow& row) {
  const QString name = QString::fromStdU16String(platform::Text(row.name));
  return row.index == kNoIndex ? name : QStringLiteral("%1(%2)").arg(name).arg(row.index);
}

QString Shown(platform::TextView text) {
  return QString::fromStdU16String(platform::ShownCaption(text));
}

// How wide the caption may be, and how high.
QSize RoomOf(const QWidget& widget, const ControlRow& row) {
  if (row.kind == ControlKind::kLabel) return widget.contentsRect().size();
  if (row.kind == ControlKind::kButton) {
    const QStyle::SubElement contents = QStyle::SE_PushButtonContents;
    QStyleOptionButton option;
    option.initFrom(&widget);
    const QSize inside = widget.style()->subElementRect(contents, &option, &widget).size();
    return {inside.width(), widget.height()};
  }
  const QStyle::SubElement contents = row.kind == ControlKind::kOption
                                          ? QStyle::SE_RadioButtonContents
                                          : QStyle::SE_CheckBoxContents;
  QStyleOptionButton option;
  option.initFrom(&widget);
  option.rect.adjust(0, 0, -row.markInset / 15, 0);
  return widget.style()->subElementRect(contents, &option, &widget).size();
}

bool HasCaption(const ControlRow& row) {
  return !row.text.empty() &&
         (row.kind == ControlKind::kLabel || row.kind == ControlKind::kButton ||
          row.kind == ControlKind::kCheckBox || row.kind == ControlKind::kOption);
}

std::vector<std::string> CaptionsThatDoNotFit(const SmallWindow& window) {
  std::vector<std::string> cut;
  for (const ControlRow& row : window.Definition().rows) {
    if (!HasCaption(row)) continue;
    const auto& widget = *window.OnScreen().findChild<QWidget*>(NameOf(row));
    const QSize needed = widget.fontMetrics().size(0, Shown(row.text));
    const QSize room = RoomOf(widget, row);
    if (needed.width() <= room.width() && needed.height() <= room.height()) continue;
    cut.push_back(QStringLiteral("%1 needs %2x%3 and has %4x%5")
                      .arg(NameOf(row))
                      .arg(needed.width())
                      .arg(needed.height())
                      .arg(room.width())
                      .arg(room.height())
                      .toStdString());
  }
  return cut;
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

TEST_P(PlatformCatalogue, EveryCaptionFitsItsControlAtItsDesignSize) {
  EXPECT_THAT(CaptionsThatDoNotFit(window), IsEmpty());
}

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
TEST(PlatformCatalogueNames, FieldsBearTheirLabels) {
  const std::string words =
      "حذف تمامي پاراگراف\u200Cها و ايجاد پاراگراف بر اساس           كلمه در هر سطر";
  const std::map<std::string, std::map<const char*, std::string>> expected = {
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
        {"soutB", "صوت متصل به پاراگراف:\u200F"},
        {"filmB", "فيلم متصل به پاراگراف:\u200F"},
        {"Command2", "فيلم متصل به پاراگراف:\u200F"},
        {"IMN(0)", "عنوان تصوير:\u200F"}}}};
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

// The number of words a line is typed into a gap of the caption around it.
TEST(PlatformCatalogueGap, TheGapInTheCaptionHoldsTheNumberOfWords) {
  SmallWindow window(support::Form3Definition());
  window.Show();
  const auto& box = Robot::FindAs<QCheckBox>("Form3", "P22");
  const auto& field = Robot::Find("Form3", "chnd");
  const QString caption = box.text();
  const auto gap = caption.indexOf(QStringLiteral("   "));
  ASSERT_GT(gap, 0);
  auto end = gap;
  while (caption[end] == u' ') ++end;
  QTextLayout layout(caption, box.font());
  QTextOption rightToLeft;
  rightToLeft.setTextDirection(Qt::RightToLeft);
  layout.setTextOption(rightToLeft);
  layout.beginLayout();
  QTextLine line = layout.createLine();
  line.setLineWidth(100000);
  layout.endLayout();
  const double start = line.cursorToX(0);
  const ControlRow* row = nullptr;
  for (const ControlRow& each : window.Definition().rows) {
    if (each.name == u"P22") row = &each;
  }
  QStyleOptionButton option;
  option.initFrom(&box);
  option.rect.adjust(0, 0, -row->markInset / 15, 0);
  const QRect contents = box.style()->subElementRect(QStyle::SE_CheckBoxContents, &option, &box);
  const double right = box.mapTo(&window.OnScreen(), contents.topRight()).x() + 1;
  const double gapRight = right - (start - line.cursorToX(static_cast<int>(gap)));
  const double gapLeft = right - (start - line.cursorToX(static_cast<int>(end)));
  const QPoint corner = field.mapTo(&window.OnScreen(), QPoint());
  EXPECT_LE(gapLeft, corner.x());
  EXPECT_GE(gapRight, corner.x() + field.width());
}

}  // namespace
