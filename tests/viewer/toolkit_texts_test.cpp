// The toolkit's own words are Persian in the viewer: its menus, its buttons, the dialogs for
// printing and for choosing a folder. No translation of the host takes part.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QScrollBar>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "tests/viewer/window_bench.h"
#include "viewer/toolkit_texts.h"
#include "viewer/window.h"

using namespace Qt::StringLiterals;
using testing::IsEmpty;

namespace viewer_tests {
namespace {

// A format's name is no English.
bool HasLatin(QString text) {
  text.remove(u"PDF"_s);
  const QString words = text.section(u'\t', 0, 0);
  return std::ranges::any_of(words, [](QChar letter) {
    return letter.script() == QChar::Script_Latin && letter.isLetter();
  });
}

std::vector<std::string> Latin(const QStringList& texts) {
  std::vector<std::string> latin;
  for (const QString& text : texts) {
    if (HasLatin(text)) latin.push_back(text.toStdString());
  }
  return latin;
}

QStringList TextsOf(const QMenu& menu) {
  QStringList texts;
  for (const QAction* action : menu.actions()) {
    texts << action->text();
    if (action->menu() != nullptr) texts << TextsOf(*action->menu());
  }
  return texts;
}

// The menu that a right click into the widget opens; no texts where none opens.
QStringList MenuOf(QWidget& widget) {
  QStringList texts;
  const auto take = [&] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) return;
    texts = TextsOf(*menu);
    menu->close();
  };
  QTimer::singleShot(0, &widget, take);  // some menus run a loop of their own
  const QPoint at(3, 3);
  QContextMenuEvent click(QContextMenuEvent::Mouse, at, widget.mapToGlobal(at));
  QApplication::sendEvent(&widget, &click);
  QApplication::processEvents();
  return texts;
}

// The sizes of paper and the places on the disk have names of their own.
bool HoldsNames(const QComboBox& combo) {
  return std::set<QString>{u"pageSizeCombo"_s, u"lookInCombo"_s, u"printers"_s}.contains(
      combo.objectName());
}

QStringList TextsOf(const QComboBox& combo) {
  QStringList texts;
  for (int i = 0; i < combo.count() && !HoldsNames(combo); ++i) texts << combo.itemText(i);
  return texts;
}

QStringList TextsOf(const QTabWidget& tabs) {
  QStringList texts;
  for (int i = 0; i < tabs.count(); ++i) texts << tabs.tabText(i);
  return texts;
}

QStringList TextsOf(const QHeaderView& header) {
  QStringList texts;
  for (int i = 0; i < header.count(); ++i) {
    texts << header.model()->headerData(i, Qt::Horizontal).toString();
  }
  return texts;
}

QStringList TextsOf(QWidget& dialog) {
  QStringList texts = {dialog.windowTitle()};
  const auto take = [&]<typename Kind>(QStringList (*textsOf)(const Kind&)) {
    for (const auto* widget : dialog.findChildren<Kind*>()) texts << textsOf(*widget);
  };
  take(+[](const QLabel& label) { return QStringList{label.text()}; });
  take(+[](const QAbstractButton& button) { return QStringList{button.text()}; });
  take(+[](const QGroupBox& group) { return QStringList{group.title()}; });
  take(+[](const QDoubleSpinBox& box) { return QStringList{box.suffix()}; });
  take(+[](const QComboBox& combo) { return TextsOf(combo); });
  take(+[](const QTabWidget& tabs) { return TextsOf(tabs); });
  take(+[](const QHeaderView& header) { return TextsOf(header); });
  for (auto* widget : dialog.findChildren<QWidget*>()) texts << widget->toolTip();
  for (auto* edit : dialog.findChildren<QLineEdit*>()) texts << MenuOf(*edit);
  return texts;
}

class ToolkitTexts : public testing::Test {
 protected:
  static void SetUpTestSuite() { viewer::MakeToolkitSpeakPersian(*qApp); }

  // Looks at the dialog that comes up next, and at what `open` opens over it.
  void LookAtNextDialog(const std::function<void(QDialog&)>& open = nullptr) {
    QTimer::singleShot(0, qApp, [this, open] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      if (open) open(*dialog);
      seen_ << TextsOf(*dialog);
      dialog->reject();
    });
  }

  QStringList seen_;
};

TEST_F(ToolkitTexts, OfThePrintDialogAndItsPropertiesArePersian) {
  LookAtNextDialog([this](QDialog& dialog) {
    LookAtNextDialog();
    dialog.findChild<QAbstractButton*>(u"properties"_s)->click();
  });
  viewer::TheMachine().print([](QPrinter&) { FAIL() << "nobody has printed"; }, nullptr);
  EXPECT_TRUE(seen_.contains(u"چاپ"_s));
  EXPECT_TRUE(seen_.contains(u"حاشیه\u200Cها"_s));
  EXPECT_THAT(Latin(seen_), IsEmpty());
}

TEST_F(ToolkitTexts, OfTheFolderDialogArePersian) {
  LookAtNextDialog();
  EXPECT_EQ(viewer::TheMachine().chooseFolder(nullptr), QString());
  EXPECT_TRUE(seen_.contains(u"انصراف"_s));
  EXPECT_THAT(Latin(seen_), IsEmpty());
}

TEST_F(ToolkitTexts, OfEveryStandardButtonArePersian) {
  QMessageBox box;
  box.setStandardButtons(QMessageBox::StandardButtons(0x0fffff00));
  QStringList texts;
  for (const auto* button : box.findChildren<QAbstractButton*>()) texts << button->text();
  EXPECT_GE(texts.size(), 18);
  EXPECT_THAT(Latin(texts), IsEmpty());
}

TEST_F(ToolkitTexts, OfTheMenusOverAPageAndTheSearchArePersian) {
  BookMaker maker;
  MakeBook(maker);
  viewer::Window window(maker.Root(), MachineOf(std::make_shared<Asked>()));
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  Click(window, u"a2"_s);
  int menus = 0;
  const auto look = [&](QWidget& widget) {
    const QStringList texts = MenuOf(widget);
    if (!texts.isEmpty()) ++menus;
    EXPECT_THAT(Latin(texts), IsEmpty()) << widget.objectName().toStdString();
  };
  for (auto* edit : window.findChildren<QLineEdit*>()) look(*edit);
  for (auto* page : window.findChildren<QTextEdit*>()) look(*page->viewport());
  for (auto* bar : window.findChildren<QScrollBar*>()) look(*bar);
  EXPECT_GE(menus, 3);
}

}  // namespace
}  // namespace viewer_tests
