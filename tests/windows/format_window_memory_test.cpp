// Operations over pure text whose only way to fail is that the memory runs out.
#include <gtest/gtest.h>

#include "tests/support/failing_memory.h"
#include "tests/support/format_desk.h"

namespace {

using platform::Text;
using testing_support::BytesAskedFor;
using testing_support::FailNextAllocation;
using testing_support::FormatDesk;
using testing_support::kSmallChange;
using testing_support::SizeInMemory;

class FormatWindowMemory : public testing::Test {
 protected:
  FormatWindowMemory() {
    desk.AddText("One.txt", u"alpha");
    desk.Open();
  }
  ~FormatWindowMemory() override { testing_support::LetAllocationsBe(); }

  void ExpectOutOfMemory(int number) {
    EXPECT_FALSE(testing_support::AllocationStillToFail());
    EXPECT_EQ(desk.LoggedFailures(number), 1);
    EXPECT_EQ(desk.form1.lastErrorText, u"Out of memory");
    EXPECT_TRUE(desk.robot.TakeBoxes().empty());
  }

  FormatDesk desk;
};

constexpr std::size_t kCharacters = 1U << 20U;
constexpr std::int16_t kCut = 32000;
constexpr std::int16_t kParagraphs = 20000;

TEST_F(FormatWindowMemory, Failure58ATitleThatCannotBeTakenOver) {
  const Text title(kCharacters, u't');
  FailNextAllocation(SizeInMemory(title));
  EXPECT_EQ(desk.form3.DelCrLf(title), u"");
  ExpectOutOfMemory(58);
  EXPECT_EQ(desk.form3.DelCrLf(title), title);
}

TEST_F(FormatWindowMemory, ATitleIsTakenOverInItsOwnSize) {
  const Text title(kCharacters, u't');
  EXPECT_LE(BytesAskedFor([&] { desk.form3.DelCrLf(title); }), SizeInMemory(title) + kSmallChange);
}

TEST_F(FormatWindowMemory, Failure65ATextThatCannotBeCut) {
  const Text text(kCharacters, u't');
  const Text cut = Text(kCut, u't') + u"...";
  EXPECT_EQ(desk.form3.BeBor(text, kCut), cut);
  FailNextAllocation(kCut);
  EXPECT_EQ(desk.form3.BeBor(text, kCut), u"");
  ExpectOutOfMemory(65);
}

// Of the long text nothing is copied but what is left of it: once as it is, and once in room for
// twice as much.
TEST_F(FormatWindowMemory, ATextIsCutInThreeTimesWhatIsLeftOfIt) {
  const Text text(kCharacters, u't');
  const Text cut(kCut, u't');
  EXPECT_LE(BytesAskedFor([&] { desk.form3.BeBor(text, kCut); }),
            3 * SizeInMemory(cut) + kSmallChange);
}

TEST_F(FormatWindowMemory, Failure83BlankParagraphsThatCannotBeMade) {
  const Text paragraphs = desk.form3.AddEntr(kParagraphs);
  FailNextAllocation(SizeInMemory(paragraphs) / 2);
  EXPECT_EQ(desk.form3.AddEntr(kParagraphs), u"");
  ExpectOutOfMemory(83);
}

TEST_F(FormatWindowMemory, BlankParagraphsAreMadeInTheirOwnSize) {
  const Text paragraphs = desk.form3.AddEntr(kParagraphs);
  EXPECT_LE(BytesAskedFor([&] { desk.form3.AddEntr(kParagraphs); }),
            SizeInMemory(paragraphs) + kSmallChange);
}

TEST_F(FormatWindowMemory, Failure85AnExtensionThatCannotBeHeld) {
  const Text path = u"C:\\a." + Text(kCharacters, u'x');
  FailNextAllocation(kCharacters);
  EXPECT_EQ(desk.form3.sndBin(path), u"");
  ExpectOutOfMemory(85);
}

TEST_F(FormatWindowMemory, AnExtensionIsHeldInTwiceItsSize) {
  const Text path = u"C:\\a." + Text(kCharacters, u'x');
  EXPECT_LE(BytesAskedFor([&] { desk.form3.sndBin(path); }), 2 * SizeInMemory(path) + kSmallChange);
}

}  // namespace
