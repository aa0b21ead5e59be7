// The pop-up menu over the text of an entry, and the clipboard.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QImage>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QTextEdit>
#include <filesystem>

#include "tests/support/gallery_desk.h"

namespace {

using testing::ElementsAre;
using testing_support::FormatDesk;
using testing_support::GalleryDesk;
using testing_support::Robot;

class ParagraphMenu : public testing::Test {
 protected:
  ParagraphMenu() {
    desk.OpenOn(u"Head\r\nsome bold text");
    FormatDesk::FileHeading("Head", "some bold text");
    QApplication::clipboard()->clear();
  }
  void InEntry(const std::function<void()>& act) { desk.InEntry(0, act); }
  // Opens the menu with that selected.
  static void OpenMenu(const QString& selected) {
    if (selected.isEmpty()) {
      Robot::Select("Form6", "matn", 0, 0);
    } else {
      Robot::Select("Form6", "matn", selected);
    }
    Robot::RightClick("Form6", "matn");
  }
  static QMenu* Menu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
  // The items that can be chosen.
  static std::vector<std::string> Choices() {
    std::vector<std::string> names;
    for (const QAction* item : Menu()->actions()) {
      if (item->isEnabled()) names.push_back(item->objectName().toStdString());
    }
    return names;
  }
  static void CloseMenu() {
    Menu()->close();
    Robot::Settle();
  }
  static QTextEdit& Matn() { return Robot::FindAs<QTextEdit>("Form6", "matn"); }
  static QString Text() { return Matn().toPlainText(); }
  static void MakeBold(const QString& passage) {
    Robot::Select("Form6", "matn", passage);
    Matn().setFontWeight(QFont::Bold);
  }
  static void ExpectPlainOnClipboard(const QString& text) {
    EXPECT_EQ(QApplication::clipboard()->text(), text);
    EXPECT_EQ(QApplication::clipboard()->mimeData()->formats(), QStringList("text/plain"));
  }

  GalleryDesk desk;
};

TEST_F(ParagraphMenu, HasItsItemsInOrder) {
  InEntry([] {
    OpenMenu({});
    std::vector<std::string> texts;
    for (const QAction* item : Menu()->actions()) texts.push_back(item->text().toStdString());
    EXPECT_THAT(texts,
                ElementsAre("درج تصوير در متن", "كپي متن", "برش متن", "چسباندن متن", "حذف متن"));
    EXPECT_EQ(Menu()->layoutDirection(), Qt::RightToLeft);
    CloseMenu();
  });
}

TEST_F(ParagraphMenu, WithoutSelectionAndClipboardOnlyThePictureCanBeChosen) {
  InEntry([] {
    OpenMenu({});
    EXPECT_THAT(Choices(), ElementsAre("picM"));
    CloseMenu();
  });
}

TEST_F(ParagraphMenu, ASelectionCanBeCopiedCutAndDeleted) {
  InEntry([] {
    OpenMenu("bold");
    EXPECT_THAT(Choices(), ElementsAre("picM", "copyM", "cutM", "delM"));
    CloseMenu();
  });
}

TEST_F(ParagraphMenu, ATextOnTheClipboardCanBePastedAndAPictureCanNot) {
  InEntry([] {
    QApplication::clipboard()->setText("x");
    OpenMenu({});
    EXPECT_THAT(Choices(), ElementsAre("picM", "pasteM"));
    CloseMenu();
    QApplication::clipboard()->setImage(QImage(4, 4, QImage::Format_RGB32));
    OpenMenu({});
    EXPECT_THAT(Choices(), ElementsAre("picM"));
    CloseMenu();
  });
}

TEST_F(ParagraphMenu, WithoutTheMarksFileThePictureCanNotBeChosen) {
  std::filesystem::remove(desk.HostPath("Resources/img.bin"));
  InEntry([] {
    OpenMenu("bold");
    EXPECT_THAT(Choices(), ElementsAre("copyM", "cutM", "delM"));
    CloseMenu();
  });
}

TEST_F(ParagraphMenu, DoesNotOpenForTheLeftButton) {
  InEntry([] {
    Robot::Click("Form6", "matn");
    EXPECT_EQ(Menu(), nullptr);
  });
}

TEST_F(ParagraphMenu, OpensByItsKey) {
  InEntry([] {
    QContextMenuEvent pressed(QContextMenuEvent::Keyboard, {5, 5},
                              Matn().mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(Matn().viewport(), &pressed);
    ASSERT_NE(Menu(), nullptr);
    CloseMenu();
  });
}

TEST_F(ParagraphMenu, CopyingTakesThePlainTextAndLeavesTheSelection) {
  InEntry([] {
    MakeBold("bold");
    OpenMenu("bold");
    Robot::ChooseFromMenu("popM", "copyM");
    ExpectPlainOnClipboard("bold");
    EXPECT_EQ(Text(), "some bold text");
    EXPECT_EQ(Matn().textCursor().selectedText(), "bold");
  });
}

TEST_F(ParagraphMenu, CuttingBoldTextGivesPlainTextBackWhenItIsPasted) {
  InEntry([] {
    MakeBold("bold");
    OpenMenu("bold");
    Robot::ChooseFromMenu("popM", "cutM");
    ExpectPlainOnClipboard("bold");
    EXPECT_EQ(Text(), "some  text");
    OpenMenu("some");
    Robot::ChooseFromMenu("popM", "pasteM");
    EXPECT_EQ(Text(), "bold  text");
    Robot::Select("Form6", "matn", "bold");
    EXPECT_LT(Matn().fontWeight(), QFont::Bold);
  });
}

TEST_F(ParagraphMenu, LinesThatAreCopiedAreLinesWhenTheyArePasted) {
  InEntry([] {
    QApplication::clipboard()->setText("one\ntwo");
    OpenMenu("bold");
    Robot::ChooseFromMenu("popM", "pasteM");
    EXPECT_EQ(Text(), "some one\ntwo text");
    OpenMenu("one\ntwo");
    Robot::ChooseFromMenu("popM", "copyM");
    EXPECT_EQ(QApplication::clipboard()->text(), "one\ntwo");
  });
}

TEST_F(ParagraphMenu, DeletingLeavesTheClipboard) {
  InEntry([] {
    QApplication::clipboard()->setText("kept");
    OpenMenu("bold");
    Robot::ChooseFromMenu("popM", "delM");
    EXPECT_EQ(Text(), "some  text");
    EXPECT_EQ(QApplication::clipboard()->text(), "kept");
  });
}

TEST_F(ParagraphMenu, PastingWithAnEmptyClipboardDoesNothing) {
  InEntry([this] {
    Robot::Select("Form6", "matn", "bold");
    desk.form6.pasteM_Click();
    EXPECT_EQ(Text(), "some bold text");
  });
}

TEST_F(ParagraphMenu, Failures74To76And78And79TheWindowIsGone) {
  QApplication::clipboard()->setText("text");
  desk.form6.copyM_Click();
  desk.form6.cutM_Click();
  desk.form6.delM_Click();
  desk.form6.matn_MouseUp(2);
  desk.form6.pasteM_Click();
  for (const int number : {74, 75, 76, 78, 79}) EXPECT_EQ(desk.LoggedFailures(number), 1) << number;
}

}  // namespace
