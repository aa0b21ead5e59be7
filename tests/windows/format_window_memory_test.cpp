// Operations over pure text whose only way to fail is that the memory runs out.
#include <gtest/gtest.h>

#include "tests/support/failing_memory.h"
#include "tests/support/format_desk.h"

namespace {

using testing_support::FailNextAllocation;
using testing_support::FormatDesk;

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

TEST_F(FormatWindowMemory, Failure58ATitleThatCannotBeTakenOver) {
  const platform::Text title(kCharacters, u't');
  FailNextAllocation(kCharacters);
  EXPECT_EQ(desk.form3.DelCrLf(title), u"");
  ExpectOutOfMemory(58);
  EXPECT_EQ(desk.form3.DelCrLf(title), title);
}

TEST_F(FormatWindowMemory, Failure65ATextThatCannotBeCut) {
  const platform::Text text(kCharacters, u't');
  FailNextAllocation(kCharacters);
  EXPECT_EQ(desk.form3.BeBor(text, 32000), platform::Text(32000, u't') + u"...");
  testing_support::LetAllocationsBe();
  FailNextAllocation(32000);
  EXPECT_EQ(desk.form3.BeBor(text, 32000), u"");
  ExpectOutOfMemory(65);
}

TEST_F(FormatWindowMemory, Failure83BlankParagraphsThatCannotBeMade) {
  FailNextAllocation(100000);
  EXPECT_EQ(desk.form3.AddEntr(20000), u"");
  ExpectOutOfMemory(83);
}

TEST_F(FormatWindowMemory, Failure85AnExtensionThatCannotBeHeld) {
  const platform::Text path = u"C:\\a." + platform::Text(kCharacters, u'x');
  FailNextAllocation(kCharacters);
  EXPECT_EQ(desk.form3.sndBin(path), u"");
  ExpectOutOfMemory(85);
}

}  // namespace
