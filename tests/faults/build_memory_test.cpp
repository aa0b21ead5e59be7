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
// none of the toolkit's: the first after the first such operation that is as large as this part of
// a text of the book.
struct Shortage {
  std::string operation;
  std::string pathEnd;
  std::string text;
  std::size_t part = 1;  // a half is 2
};

void PrintTo(const Shortage& shortage, std::ostream* out) {
  *out << shortage.operation << " " << shortage.pathEnd << ", " << shortage.text << " / "
       << shortage.part;
}

std::size_t BytesOf(const Shortage& shortage) {
  return faults::Expected("road").at(shortage.text).size() / shortage.part;
}

class BuildWithoutMemory : public testing::TestWithParam<Shortage> {
 protected:
  ~BuildWithoutMemory() override { testing_support::LetAllocationsBe(); }

  static void MakeShort(testing_support::Desk& desk) {
    desk.files.onOperation = [&desk, shortage = GetParam(),
                              bytes = BytesOf(GetParam())](const std::string& name) {
      if (!name.starts_with(shortage.operation) || !name.ends_with(shortage.pathEnd)) return;
      testing_support::FailNextAllocation(bytes);
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

constexpr const char* kIndex = "_xml/Index.xml";
constexpr const char* kCollection = "_xml/aTitle1.xml";
constexpr const char* kPage = "TXT/NAME1.htm";

INSTANTIATE_TEST_SUITE_P(Each, BuildWithoutMemory,
                         testing::Values(Shortage{"FileExists", "Index.xml", kIndex, 2},
                                         Shortage{"ReadAll", "Index.xml", kIndex},
                                         Shortage{"DeleteFile", "aTitle1.xml", kCollection},
                                         Shortage{"FileExists", ".htm", kPage, 16},
                                         Shortage{"FileExists", ".htm", kPage, 8},
                                         Shortage{"FileExists", ".htm", kPage, 4},
                                         Shortage{"FileExists", ".htm", kPage, 2},
                                         Shortage{"CopyFile", "rose.gif", kPage, 8},
                                         Shortage{"CopyFile", ".mp3", kCollection, 2}));

}  // namespace
