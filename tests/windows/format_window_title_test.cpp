// The field of the collection's title.
#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include "tests/support/format_desk.h"

namespace {

using testing_support::FormatDesk;
using testing_support::Robot;

class FormatWindowTitle : public testing::Test {
 protected:
  FormatWindowTitle() {
    desk.OpenOn(u"alpha");
    Robot::Type("Form3", "bname", "باغ و گل");
    Field().end(false);
  }
  static QLineEdit& Field() { return Robot::FindAs<QLineEdit>("Form3", "bname"); }
  // A key with Ctrl on a Persian keyboard: the toolkit, which goes by the letter on the key, knows
  // none of its own commands in it, and only the character tells which one it is.
  static void PressPersian(char16_t letter, char character) {
    QKeyEvent pressed(QEvent::KeyPress, letter, Qt::ControlModifier,
                      QString(QLatin1Char(character)));
    QApplication::sendEvent(&Field(), &pressed);
  }

  FormatDesk desk;
};

TEST_F(FormatWindowTitle, CtrlAOfAnyKeyboardSelectsAllOfIt) {
  PressPersian(u'ش', '\x01');
  EXPECT_EQ(Field().selectedText(), "باغ و گل");
  EXPECT_EQ(Field().text(), "باغ و گل");
  EXPECT_EQ(desk.form3.bname.SelStart(), 0);
}

TEST_F(FormatWindowTitle, AnotherControlKeySelectsNothing) {
  PressPersian(u'ذ', '\x02');
  EXPECT_EQ(Field().selectedText(), "");
  EXPECT_EQ(Field().text(), "باغ و گل");
}

TEST_F(FormatWindowTitle, TheKeyGoesOnToTheToolkitAsUsual) {
  Robot::PressKey("Form3", "bname", Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(Field().selectedText(), "باغ و گل");
  Robot::PressKey("Form3", "bname", Qt::Key_Delete);
  EXPECT_EQ(FormatDesk::Shown("bname"), "");
}

}  // namespace
