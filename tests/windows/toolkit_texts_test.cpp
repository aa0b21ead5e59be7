// The toolkit's own words are Persian in every window: its menus, its buttons, what it tells a
// screen reader. No translation of the host takes part.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QTextBrowser>
#include <algorithm>
#include <string>
#include <vector>

#include "platform/qt/conversions.h"
#include "platform/text/text.h"
#include "support/window_catalogue.h"
#include "tests/support/context_menus.h"
#include "tests/support/small_window.h"

namespace {

using platform::WindowDefinition;
using testing::IsEmpty;
using testing_support::ContextMenu;
using testing_support::ContextMenuOf;
using testing_support::LatinAmong;
using testing_support::SmallWindow;
using testing_support::WidgetsWithMenus;

class ToolkitTexts : public testing::TestWithParam<const WindowDefinition*> {};

INSTANTIATE_TEST_SUITE_P(All, ToolkitTexts,
                         testing::Values(&support::Form1Definition(), &support::Form2Definition(),
                                         &support::Form3Definition(), &support::Form4Definition(),
                                         &support::Form5Definition(), &support::Form6Definition()),
                         [](const auto& each) { return platform::ToUtf8(each.param->name); });

TEST_P(ToolkitTexts, EveryMenuOfAWindowIsPersianAndReadsFromTheRight) {
  SmallWindow window(*GetParam());
  window.ShowActive();
  int menus = 0;
  for (QWidget* widget : WidgetsWithMenus(window.OnScreen())) {
    const ContextMenu opened = ContextMenuOf(*widget);
    if (opened.texts.empty()) continue;
    ++menus;
    const std::string name = widget->objectName().toStdString();
    EXPECT_THAT(LatinAmong(opened.texts), IsEmpty()) << name;
    EXPECT_EQ(opened.direction, Qt::RightToLeft) << name;
  }
  EXPECT_GT(menus, 0);
}

TEST(ToolkitMenu, KeepsTheNamesOfKeysAndHasNoMnemonics) {
  QLineEdit edit;
  edit.show();
  const ContextMenu opened = ContextMenuOf(edit);
  EXPECT_THAT(opened.texts, testing::Contains(QStringLiteral("كپي\tCtrl+C")));
  EXPECT_THAT(opened.texts, testing::Each(testing::Not(testing::Truly(
                                [](const QString& text) { return text.contains(u'&'); }))));
}

TEST(ToolkitMenu, OfALinkANumberAndABarIsPersian) {
  QTextBrowser browser;
  browser.setHtml(QStringLiteral("<a href=\"x\">نشاني</a>"));
  browser.show();
  QSpinBox number;
  number.show();
  QScrollBar bar(Qt::Horizontal);
  bar.setRange(0, 100);
  bar.show();
  for (QWidget* widget :
       {browser.viewport(), static_cast<QWidget*>(&number), static_cast<QWidget*>(&bar)}) {
    const ContextMenu opened = ContextMenuOf(*widget);
    EXPECT_GE(opened.texts.size(), 3U) << widget->metaObject()->className();
    EXPECT_THAT(LatinAmong(opened.texts), IsEmpty()) << widget->metaObject()->className();
  }
}

TEST(ToolkitMenu, LeavesTheNamesOfKeysThatAreWordsToo) {
  EXPECT_EQ(QKeySequence(Qt::Key_Copy).toString(QKeySequence::NativeText), QStringLiteral("Copy"));
}

// It is in the menus where the keyboard has a layout from right to left.
TEST(ToolkitMenu, OfControlCharactersIsPersian) {
  std::vector<QString> texts;
  for (const char* source :
       {"LRM Left-to-right mark", "RLM Right-to-left mark", "ZWJ Zero width joiner",
        "ZWNJ Zero width non-joiner", "ZWSP Zero width space",
        "LRE Start of left-to-right embedding", "RLE Start of right-to-left embedding",
        "LRO Start of left-to-right override", "RLO Start of right-to-left override",
        "PDF Pop directional formatting", "LRI Left-to-right isolate", "RLI Right-to-left isolate",
        "FSI First strong isolate", "PDI Pop directional isolate",
        "Insert Unicode control character"}) {
    texts.push_back(QCoreApplication::translate("QUnicodeControlCharacterMenu", source));
  }
  EXPECT_THAT(LatinAmong(texts), IsEmpty());
}

TEST(ToolkitButtons, OfEveryBoxArePersian) {
  QMessageBox box;
  box.setText(QStringLiteral("متن"));
  box.setDetailedText(QStringLiteral("جزئيات"));
  constexpr int kAll = 0x0fffff00;  // every standard button
  box.setStandardButtons(QMessageBox::StandardButtons(kAll));
  std::vector<QString> texts;
  for (const auto* button : box.findChildren<QAbstractButton*>()) texts.push_back(button->text());
  EXPECT_GE(texts.size(), 19U);
  EXPECT_THAT(LatinAmong(texts), IsEmpty());
}

TEST(ToolkitActions, AreDescribedToAScreenReaderInPersian) {
  std::vector<QString> texts;
  for (const QString& name :
       {QAccessibleActionInterface::pressAction(), QAccessibleActionInterface::increaseAction(),
        QAccessibleActionInterface::decreaseAction(), QAccessibleActionInterface::showMenuAction(),
        QAccessibleActionInterface::setFocusAction(), QAccessibleActionInterface::toggleAction(),
        QAccessibleActionInterface::scrollLeftAction(),
        QAccessibleActionInterface::scrollRightAction(),
        QAccessibleActionInterface::scrollUpAction(),
        QAccessibleActionInterface::scrollDownAction(),
        QAccessibleActionInterface::previousPageAction(),
        QAccessibleActionInterface::nextPageAction()}) {
    QPushButton button;
    auto* actions = QAccessible::queryAccessibleInterface(&button)->actionInterface();
    texts.push_back(actions->localizedActionName(name));
    texts.push_back(actions->localizedActionDescription(name));
  }
  EXPECT_EQ(std::ranges::count(texts, QString()), 0);
  EXPECT_THAT(LatinAmong(texts), IsEmpty());
}

}  // namespace
