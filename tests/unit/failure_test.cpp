#include "platform/failure.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace {

using platform::CatchingFailure;
using platform::Failure;
using platform::Ignoring;
using platform::Text;

Text DescriptionOf(const std::function<void()>& body) {
  Text caught = u"nothing caught";
  CatchingFailure(body, [&](const Text& description) { caught = description; });
  return caught;
}

TEST(Failure, HasItsDescriptionInBothForms) {
  const Failure failure(u"\u0641\u0627\u064A\u0644 lost");
  EXPECT_EQ(failure.Description(), u"\u0641\u0627\u064A\u0644 lost");
  EXPECT_STREQ(failure.what(), "\xD9\x81\xD8\xA7\xD9\x8A\xD9\x84 lost");
}

TEST(CatchingFailure, GivesTheDescriptionOfAFailure) {
  EXPECT_EQ(DescriptionOf([] { throw Failure(u"Type mismatch"); }), u"Type mismatch");
}

TEST(CatchingFailure, DoesNothingWhereNothingFails) {
  EXPECT_EQ(DescriptionOf([] {}), u"nothing caught");
}

TEST(CatchingFailure, CountsTheStandardLibrarysExceptions) {
  EXPECT_EQ(DescriptionOf([] { throw std::bad_alloc(); }), u"Out of memory");
  EXPECT_EQ(DescriptionOf([] { throw std::length_error("too long"); }), u"too long");
}

TEST(CatchingFailure, EndsAfterTheUnwindingAndOnce) {
  struct Guard {
    bool& unwound;
    ~Guard() { unwound = true; }
  };
  bool unwound = false;
  int endings = 0;
  CatchingFailure(
      [&] {
        const Guard guard{unwound};
        throw Failure(u"x");
      },
      [&](const Text&) {
        EXPECT_TRUE(unwound);
        ++endings;
      });
  EXPECT_EQ(endings, 1);
}

TEST(CatchingFailure, AFailureOfTheEndingGoesToTheCaller) {
  EXPECT_THROW(CatchingFailure([] { throw Failure(u"first"); },
                               [](const Text&) { throw Failure(u"second"); }),
               Failure);
}

TEST(CatchingFailure, NestsWithTheInnerOneAnswering) {
  EXPECT_EQ(DescriptionOf([] {
              EXPECT_EQ(DescriptionOf([] { throw Failure(u"inner"); }), u"inner");
              throw Failure(u"outer");
            }),
            u"outer");
}

TEST(Ignoring, DropsTheFailureOfOneStatement) {
  int done = 0;
  Ignoring([&] {
    ++done;
    throw Failure(u"x");
  });
  Ignoring([&] { ++done; });
  EXPECT_EQ(done, 2);
}

}  // namespace
