#include "core/messages.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

#include "platform/text/text.h"
#include "tests/support/known_texts.h"

namespace {

using core::MessageText;
using core::NamesFailure;
using core::ShowsBox;
using platform::Text;
using testing_support::KnownMessage;

TEST(Messages, EachNumberOfTheTableHasItsText) {
  for (std::int16_t number = 1; number <= 29; ++number) {
    EXPECT_EQ(MessageText(number), KnownMessage(number)) << number;
  }
}

TEST(Messages, EveryTextOfTheTableEndsInTheRightToLeftMark) {
  for (std::int16_t number = 1; number <= 29; ++number) {
    EXPECT_TRUE(MessageText(number).ends_with(u"!\u200F")) << number;
  }
}

TEST(Messages, APluralHasItsHalfSpace) {
  EXPECT_TRUE(MessageText(1).starts_with(u"فايل\u200Fهاي "));
  EXPECT_NE(MessageText(15).find(u"رديف\u200Fها،"), Text::npos);
}

TEST(Messages, Numbers101And102ShareOneTextOfTwoLines) {
  EXPECT_EQ(MessageText(101), KnownMessage(101));
  EXPECT_EQ(MessageText(102), MessageText(101));
  EXPECT_EQ(platform::Split(MessageText(101), platform::kCrLf).size(), 2U);
}

TEST(Messages, ZeroNegativesAndThirtyShowTheFallback) {
  for (const std::int16_t number : std::to_array<std::int16_t>({0, -1, 30, -32768})) {
    EXPECT_EQ(MessageText(number), KnownMessage(0)) << number;
    EXPECT_TRUE(ShowsBox(number)) << number;
    EXPECT_FALSE(NamesFailure(number)) << number;
  }
}

TEST(Messages, Number42ShowsNoBoxAndOnlyLogsItsFailure) {
  EXPECT_FALSE(ShowsBox(42));
  EXPECT_TRUE(NamesFailure(42));
  EXPECT_EQ(MessageText(42), u"");
}

TEST(Messages, Number9ShowsItsBoxAndIsNoFailure) {
  EXPECT_TRUE(ShowsBox(9));
  EXPECT_FALSE(NamesFailure(9));
}

TEST(Messages, Number101LogsItsFailureAndShowsItsBox) {
  EXPECT_TRUE(NamesFailure(101));
  EXPECT_TRUE(ShowsBox(101));
}

TEST(Messages, From31To99NothingShows) {
  for (std::int16_t number = 31; number <= 99; ++number) {
    EXPECT_FALSE(ShowsBox(number)) << number;
    EXPECT_TRUE(NamesFailure(number)) << number;
  }
}

TEST(Messages, AnUnassignedNumberOf100OrMoreShowsAnEmptyBox) {
  for (const std::int16_t number : std::to_array<std::int16_t>({100, 103, 32767})) {
    EXPECT_TRUE(ShowsBox(number)) << number;
    EXPECT_TRUE(NamesFailure(number)) << number;
    EXPECT_EQ(MessageText(number), u"") << number;
  }
}

}  // namespace
