#include "media/bytes.h"

#include <gtest/gtest.h>

#include <limits>

namespace media {
namespace {

constexpr std::string_view kBytes{"\x01\x02\x80\xFF", 4};
constexpr std::size_t kFar = std::numeric_limits<std::size_t>::max() - 8;

TEST(MediaBytes, NumbersInEitherOrder) {
  EXPECT_EQ(BigEndian(kBytes, 0, 4), 0x010280FFU);
  EXPECT_EQ(LittleEndian(kBytes, 0, 4), 0xFF800201U);
  EXPECT_EQ(BigEndian(kBytes, 1, 2), 0x0280U);
  EXPECT_EQ(LittleEndian(kBytes, 1, 2), 0x8002U);
}

TEST(MediaBytes, PastTheEndIsZero) {
  EXPECT_EQ(BigEndian(kBytes, 3, 2), 0xFF00U);
  EXPECT_EQ(LittleEndian(kBytes, 3, 8), 0xFFU);
  EXPECT_EQ(BigEndian(kBytes, kFar, 8), 0U);
  EXPECT_EQ(LittleEndian({}, 0, 8), 0U);
}

TEST(MediaBytes, AWordIsThereWholeOrNot) {
  EXPECT_TRUE(HasWord(kBytes, 1, "\x02\x80"));
  EXPECT_FALSE(HasWord(kBytes, 3, "\xFF\xFF"));
  EXPECT_FALSE(HasWord(kBytes, kFar, "a"));
  EXPECT_TRUE(HasWord(kBytes, 4, ""));
}

}  // namespace
}  // namespace media
