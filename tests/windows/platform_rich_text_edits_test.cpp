// What a text box tells of its changes, against the text itself.
#include <gtest/gtest.h>

#include <QTextEdit>
#include <array>
#include <random>

#include "platform/windows/rich_text_box.h"
#include "tests/support/small_window.h"

namespace {

using platform::ControlKind;
using platform::ControlRow;
using platform::Text;
using platform::TextEdit;
using testing_support::Robot;
using testing_support::SmallWindow;

constexpr std::array kRows = std::to_array<ControlRow>({
    {.name = u"matn", .kind = ControlKind::kRichTextBox, .width = 3000, .height = 3000},
});
constexpr platform::WindowDefinition kWindow = {
    .name = u"Edits", .title = u"", .width = 3000, .height = 3000, .rows = kRows};

class RichTextEdits : public testing::Test {
 protected:
  RichTextEdits() {
    window.ShowActive();
    matn.SetText(u"");
    static_cast<void>(matn.TakeEdit());
  }
  // The text as the edits so far tell it.
  void Follow() {
    const std::optional<TextEdit> edit = matn.TakeEdit();
    if (!edit) return;
    ASSERT_GE(edit->start, 0);
    ASSERT_LE(edit->start + edit->removed, static_cast<platform::Position>(told.size()));
    told.replace(static_cast<std::size_t>(edit->start), static_cast<std::size_t>(edit->removed),
                 matn.EditedText(edit->start, edit->added));
  }

  SmallWindow window{kWindow};
  platform::RichTextBox matn{window, u"matn"};
  Text told;
};

TEST_F(RichTextEdits, TellNothingWhereNothingHasChanged) {
  EXPECT_FALSE(matn.TakeEdit());
  matn.SetText(u"alpha");
  EXPECT_TRUE(matn.TakeEdit());
  EXPECT_FALSE(matn.TakeEdit());
  matn.SetSelStart(2);
  EXPECT_FALSE(matn.TakeEdit());
}

// A passage that is taken out of a large text tells itself only.
TEST_F(RichTextEdits, ARemovalTellsNoTextAtAll) {
  matn.SetText(Text(100'000, u'x') + u"\r\nafter");
  static_cast<void>(matn.TakeEdit());
  matn.SetSelStart(10);
  matn.SetSelLength(500);
  matn.SetSelText(u"");
  const std::optional<TextEdit> edit = matn.TakeEdit();
  ASSERT_TRUE(edit);
  EXPECT_EQ(edit->start, 10);
  EXPECT_EQ(edit->removed, 500);
  EXPECT_EQ(edit->added, 0);
}

TEST_F(RichTextEdits, CountAParagraphsEndAsOne) {
  matn.SetText(u"a\r\nb");
  const std::optional<TextEdit> edit = matn.TakeEdit();
  ASSERT_TRUE(edit);
  EXPECT_EQ(edit->added, 3);
  EXPECT_EQ(matn.EditedText(), u"a\nb");
}

TEST_F(RichTextEdits, APartOfTheTextIsWhatThereIsOfIt) {
  matn.SetText(u"alpha\r\nbeta");
  EXPECT_EQ(matn.EditedText(3, 4), u"ha\nb");
  EXPECT_EQ(matn.EditedText(8, 100), u"ta");
  EXPECT_EQ(matn.EditedText(10, 1), u"");
  EXPECT_EQ(matn.EditedText(99, 1), u"");
}

// The toolkit sends events while it takes one text for another, when there is none at all.
TEST_F(RichTextEdits, AskedForInBetweenTheyBeginInTheText) {
  class : public QObject {
   public:
    std::function<void()> act;
    bool eventFilter(QObject* /*watched*/, QEvent* /*event*/) override {
      act();
      return false;
    }
  } watch;
  watch.act = [&] { Follow(); };
  QCoreApplication::instance()->installEventFilter(&watch);
  for (const Text& text : {Text(4000, u'x'), Text(), Text(u"a\r\nb"), Text()}) {
    matn.SetText(text);
    matn.SetSelStart(0);
    matn.SetSelLength(matn.TextLength());
    Follow();
    ASSERT_EQ(told, matn.EditedText());
  }
}

TEST_F(RichTextEdits, FollowedTheyGiveTheText) {
  std::mt19937 random(7);
  const auto below = [&](int end) {
    return static_cast<int>(random() % static_cast<unsigned>(end));
  };
  QTextEdit& edit = Robot::FindAs<QTextEdit>("Edits", "matn");
  for (int step = 0; step < 400; ++step) {
    const int length = static_cast<int>(matn.TextLength());
    matn.SetSelStart(below(length + 1));
    matn.SetSelLength(below(6));
    switch (below(7)) {
      case 0:
        matn.SetSelText(u"");
        break;
      case 1:
        matn.SetSelText(u"one\r\ntwo");
        break;
      case 2:
        matn.SetSelRTF(u"{\\rtf1 a\\b b\\par c}");
        break;
      case 3:
        edit.undo();
        break;
      case 4:
        matn.SetSelAlignment(platform::SelectionAlignment::kCentre);
        break;
      case 5:
        if (below(9) == 0) matn.SetText(u"anew\r\n");
        break;
      default:
        matn.SetSelText(u"x");
        if (below(2) == 0) matn.SetSelText(u"y");
        break;
    }
    if (below(3) == 0) continue;  // several changes are told as one
    Follow();
    ASSERT_EQ(told, matn.EditedText()) << "step " << step;
  }
}

}  // namespace
