// Memory that runs out in the middle of a build ends it like any other failure.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "tests/faults/left_book.h"
#include "tests/faults/road.h"
#include "tests/support/failing_memory.h"

namespace {

using faults::Road;

// What a conversion that failed costs: the text of one page, or its picture or the tag of that,
// whichever was in hand.
std::string BookName(const testing_support::Desk& desk) {
  if (desk.LoggedFailures(67) > 0) return "road-without_text";
  if (desk.LoggedFailures(68) == 0) return "road";
  return desk.Has("Data/IMG/rose.gif") ? "road-without_tag" : "road-without_picture";
}

// Memory is short from a file operation on, so that the request which fails is one of the pass and
// none of the toolkit's: the first of that many bytes behind the first such operation.
struct Shortage {
  std::string operation;
  std::string pathEnd;
  std::size_t bytes;
};

void PrintTo(const Shortage& shortage, std::ostream* out) {
  *out << shortage.operation << " " << shortage.pathEnd << ", " << shortage.bytes << " bytes";
}

class BuildWithoutMemory : public testing::TestWithParam<Shortage> {
 protected:
  ~BuildWithoutMemory() override { testing_support::LetAllocationsBe(); }

  static void MakeShort(testing_support::Desk& desk) {
    desk.files.onOperation = [&desk, shortage = GetParam()](const std::string& name) {
      if (!name.starts_with(shortage.operation) || !name.ends_with(shortage.pathEnd)) return;
      testing_support::FailNextAllocation(shortage.bytes);
      desk.files.onOperation = nullptr;
    };
  }
};

TEST_P(BuildWithoutMemory, LosesNothingAndCanBeStartedAgain) {
  Road road;
  ASSERT_TRUE(road.Go(1, "build"));
  MakeShort(road.desk);
  road.desk.robot.AnswerYes();
  road.desk.form3.MakeFile();
  ASSERT_FALSE(testing_support::AllocationStillToFail());

  EXPECT_EQ(road.desk.form1.lastErrorText, u"Out of memory");
  const std::string wrong = faults::WrongAnyTime(road.desk);
  EXPECT_TRUE(wrong.empty()) << wrong;
  const int failed = road.desk.LoggedFailures(57);
  EXPECT_EQ(failed + road.desk.LoggedFailures(67) + road.desk.LoggedFailures(68), 1);
  EXPECT_EQ(road.desk.form3.IsVisible(), failed == 1);
  EXPECT_EQ(road.TableIsWhole(), failed == 1);
  ASSERT_TRUE(road.Go(3)) << road.Step();
  const std::string wrongAtTheEnd = faults::WrongAtTheEnd(road.desk, BookName(road.desk));
  EXPECT_TRUE(wrongAtTheEnd.empty()) << wrongAtTheEnd;
}

INSTANTIATE_TEST_SUITE_P(
    Each, BuildWithoutMemory,
    testing::Values(Shortage{"FileExists", "Index.xml", 200}, Shortage{"ReadAll", "Index.xml", 400},
                    Shortage{"DeleteFile", "aTitle1.xml", 600}, Shortage{"FileExists", ".htm", 200},
                    Shortage{"FileExists", ".htm", 400}, Shortage{"FileExists", ".htm", 800},
                    Shortage{"FileExists", ".htm", 1600}, Shortage{"CopyFile", "rose.gif", 400},
                    Shortage{"CopyFile", ".mp3", 200}));

}  // namespace
