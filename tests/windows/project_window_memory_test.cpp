// What the project window does when the memory runs out in operations that can fail in no other
// way.
#include <gtest/gtest.h>

#include "tests/support/failing_memory.h"
#include "tests/support/project_desk.h"

namespace {

using platform::Text;
using testing_support::BytesAskedFor;
using testing_support::FailNextAllocation;
using testing_support::kSmallChange;
using testing_support::ProjectDesk;
using testing_support::SizeInMemory;

// Takes the memory away when the date is asked for the n-th time, in the middle of an operation.
class TreacherousClock : public platform::Clock {
 public:
  TreacherousClock(int questions, std::size_t bytes) : questions_(questions), bytes_(bytes) {}
  Text GeneralDate() override {
    if (--questions_ == 0) FailNextAllocation(bytes_);
    return u"now";
  }
  std::uint64_t Ticks() override { return 1; }

 private:
  int questions_;
  std::size_t bytes_;
};

class ProjectWindowMemory : public testing::Test {
 protected:
  ~ProjectWindowMemory() override { testing_support::LetAllocationsBe(); }
  ProjectDesk desk;
};

constexpr std::size_t kCharacters = 1U << 20U;

TEST_F(ProjectWindowMemory, Failure45APathThatCannotBeSlashedComesBackAsItStands) {
  desk.Start();
  const Text path(kCharacters, u'p');
  // The copy that comes back as it stands is there.
  FailNextAllocation(SizeInMemory(path), 1);
  EXPECT_EQ(desk.form1.DoSlash(path), path);
  EXPECT_FALSE(testing_support::AllocationStillToFail());
  EXPECT_EQ(desk.LogLines().back(), "Error occurred => Error number is 45 (Out of memory)");
  EXPECT_EQ(desk.form1.DoSlash(path), path + u"\\");
}

// Twice the path as it is, and once in room for twice as much.
TEST_F(ProjectWindowMemory, APathIsSlashedInFourTimesItsSize) {
  desk.Start();
  const Text path(kCharacters, u'p');
  EXPECT_LE(BytesAskedFor([&] { desk.form1.DoSlash(path); }),
            4 * SizeInMemory(path) + kSmallChange);
}

TEST_F(ProjectWindowMemory, Failure39TheWindowOpensWithTheStepsAfterTheFailureUndone) {
  // Two lines in each of two new logs: the date is asked for once a banner and once a line.
  constexpr int kQuestionsUpToTheStartLine = 6;
  desk.form1.InitVocabulary();
  // Nothing else up to the failure is as large as the vocabulary record.
  TreacherousClock clock(kQuestionsUpToTheStartLine, SizeInMemory(desk.form1.vocabulary));
  core::Machine machine{desk.files, clock, desk.random, desk.machine.programFolder,
                        desk.machine.systemLogPath};
  core::Form1 form1(machine);
  form1.Show();
  EXPECT_TRUE(form1.IsVisible());
  EXPECT_EQ(form1.lastErrorText, u"Out of memory");
  EXPECT_EQ(form1.vocabulary, u"");
  EXPECT_EQ(form1.dataName.ListCount(), 0);
  EXPECT_FALSE(form1.bMus(0).Value());
  EXPECT_TRUE(
      desk.Log().ends_with("now: Zorvand v2.9.220 started.\r\n"
                           "now: Error occurred => Error number is 39 (Out of memory)\r\n"));
  form1.LogMe(u"The window is usable");
  EXPECT_TRUE(desk.Log().ends_with("now: The window is usable\r\n"));
}

}  // namespace
