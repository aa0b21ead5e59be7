// The menu's items over a text too large for the memory that is left: the window stays open with
// its text, and a second try works. Deleting a selection and opening the menu hold no text.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QTextEdit>

#include "tests/support/failing_memory.h"
#include "tests/support/format_desk.h"

namespace {

using platform::Text;
using testing_support::BytesAskedFor;
using testing_support::FailNextAllocation;
using testing_support::FormatDesk;
using testing_support::kSmallChange;
using testing_support::Robot;
using testing_support::SizeInMemory;

constexpr int kLines = 300;

Text LargeText(char16_t letter) {
  Text text;
  for (int line = 0; line < kLines; ++line) text += Text(200, letter) + u"\r\n";
  return text;
}

class ParagraphMemory : public testing::Test {
 protected:
  ParagraphMemory() {
    desk.OpenOn(u"Head\r\nText");
    FormatDesk::FileHeading("Head", "Text");
    desk.form3.table.entryText.Set(0, LargeText(u'a'));
    QApplication::clipboard()->setText("kept");
  }
  ~ParagraphMemory() override { testing_support::LetAllocationsBe(); }

  static QTextEdit& Matn() { return Robot::FindAs<QTextEdit>("Form6", "matn"); }
  static QString Copied() { return QApplication::clipboard()->text(); }
  static void OpenMenuOnTheWholeText() {
    Robot::PressKey("Form6", "matn", Qt::Key_A, Qt::ControlModifier);
    Robot::RightClick("Form6", "matn");
  }
  static void Choose(const QString& item) {
    OpenMenuOnTheWholeText();
    Robot::ChooseFromMenu("popM", item);
  }
  static std::size_t BytesChosenWith(const QString& item) {
    OpenMenuOnTheWholeText();
    return BytesAskedFor([&] { Robot::ChooseFromMenu("popM", item); });
  }
  // Chooses the item when the memory runs out: text and selection stay as they are.
  void ChooseInVain(const QString& item, int number) {
    Robot::PressKey("Form6", "matn", Qt::Key_A, Qt::ControlModifier);
    const QString before = Matn().toPlainText();
    const QString selected = Matn().textCursor().selectedText();
    Robot::RightClick("Form6", "matn");
    FailNextAllocation(SizeInMemory(LargeText(u'a')) / 2);
    Robot::ChooseFromMenu("popM", item);
    EXPECT_FALSE(testing_support::AllocationStillToFail());
    EXPECT_TRUE(desk.form6.IsVisible());
    EXPECT_EQ(Matn().toPlainText(), before);
    EXPECT_EQ(Matn().textCursor().selectedText(), selected);
    EXPECT_EQ(desk.LoggedFailures(number), 1);
    EXPECT_EQ(desk.form1.lastErrorText, u"Out of memory");
    EXPECT_TRUE(desk.robot.TakeBoxes().empty());
  }

  FormatDesk desk;
};

TEST_F(ParagraphMemory, Failure74ATextThatCannotBeCopiedLeavesTheClipboard) {
  desk.InEntry(0, [this] {
    ChooseInVain("copyM", 74);
    EXPECT_EQ(Copied(), "kept");
    Choose("copyM");
    EXPECT_EQ(Copied(), Matn().toPlainText());
  });
  EXPECT_EQ(desk.AllLoggedFailures(), 1);
}

TEST_F(ParagraphMemory, Failure75ATextThatCannotBeCopiedIsNotCutEither) {
  desk.InEntry(0, [this] {
    ChooseInVain("cutM", 75);
    EXPECT_EQ(Copied(), "kept");
    const QString text = Matn().toPlainText();
    Choose("cutM");
    EXPECT_EQ(Copied(), text);
    EXPECT_EQ(Matn().toPlainText(), "");
  });
  EXPECT_EQ(desk.AllLoggedFailures(), 1);
}

// As much as the tool and the toolkit were seen to ask for, and a third of the text to spare.
TEST_F(ParagraphMemory, ATextIsCopiedPastedAndCutInAFewTimesItsSize) {
  const std::size_t text = SizeInMemory(LargeText(u'a'));
  desk.InEntry(0, [text] {
    EXPECT_LE(BytesChosenWith("copyM"), 16 * text / 5 + kSmallChange);
    EXPECT_LE(BytesChosenWith("pasteM"), 26 * text / 5 + kSmallChange);
    EXPECT_LE(BytesChosenWith("cutM"), 31 * text / 10 + kSmallChange);
  });
}

TEST_F(ParagraphMemory, Failure79ATextThatCannotBePastedLeavesWhatIsSelected) {
  const QString large(kLines * 200, u'b');
  QApplication::clipboard()->setText(large);
  desk.InEntry(0, [this, &large] {
    ChooseInVain("pasteM", 79);
    EXPECT_EQ(Copied(), large);
    Choose("pasteM");
    EXPECT_EQ(Matn().toPlainText(), large);
  });
  EXPECT_EQ(desk.AllLoggedFailures(), 1);
}

}  // namespace
