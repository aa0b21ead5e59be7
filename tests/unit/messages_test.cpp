#include "core/messages.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

#include "platform/text/text.h"

namespace {

using core::MessageText;
using core::NamesFailure;
using core::ShowsBox;
using platform::Text;

// As the editor reads them, without the zero-width marks.
Text Read(std::int16_t number) {
  return platform::Replace(MessageText(number), platform::kRightToLeftMark, u"");
}

constexpr auto kTexts = std::to_array<platform::TextView>({
    u"فايل\u200Fهاي ورودي پيدا نشد!\u200F",
    u"همه مشخصات بايد تكميل شود!\u200F",
    u"شاخه انتخابي يافت نشد!\u200F",
    u"فايل ساخته شد!\u200F",
    u"پاراگرافي براي ويرايش وجود ندارد!\u200F",
    u"تصوير انتخابي يافت نشد!\u200F",
    u"صوت انتخابي يافت نشد!\u200F",
    u"فيلم انتخابي يافت نشد!\u200F",
    u"مسير متون ورودي يافت نشد!\u200F",
    u"مسير ساخت خروجي يافت نشد!\u200F",
    u"تصوير مجموعه يافت نشد!\u200F",
    u"موزيك اول يافت نشد!\u200F",
    u"موزيك دوم يافت نشد!\u200F",
    u"تصوير پيش\u200Fزمينه يافت نشد!\u200F",
    u"بر اساس تعداد مجموعه انتخاب شده در رديف\u200Fها، متني براي تبديل وجود ندارد!\u200F",
    u"مسير متون ورودي تعيين نشده است!\u200F",
    u"تعداد مجموعه در رديف اول معين نشده است!\u200F",
    u"تعداد مجموعه در رديف دوم معين نشده است!\u200F",
    u"تعداد مجموعه در رديف سوم معين نشده است!\u200F",
    u"مسير موزيك اول وارد نشده است!\u200F",
    u"مسير موزيك دوم وارد نشده است!\u200F",
    u"مسير تصوير مجموعه وارد نشده است!\u200F",
    u"مسير ساخت خروجي وارد نشده است!\u200F",
    u"مسير تصوير پيش\u200Fزمينه وارد نشده است!\u200F",
    u"امكان درج تصوير وجود ندارد!\u200F",
    u"شاخه مورد نظر براي گرفتن خروجي وجود ندارد!\u200F",
    u"شيوه\u200Fنامه گرفتن خروجي يافت نشد!\u200F",
    u"بروز اشكال در گرفتن خروجي!\u200F",
    u"خروجي گرفته شده آماده رايت بر روي سي\u200Fدي است!\u200F",
});

TEST(Messages, EachNumberOfTheTableHasItsText) {
  for (std::size_t i = 0; i < kTexts.size(); ++i) {
    EXPECT_EQ(MessageText(static_cast<std::int16_t>(i + 1)), kTexts[i]) << i + 1;
  }
}

TEST(Messages, TheTableStartsWithTheInputFilesAndEndsWithTheReadyExport) {
  EXPECT_EQ(Read(1), u"فايلهاي ورودي پيدا نشد!");
  EXPECT_EQ(Read(4), u"فايل ساخته شد!");
  EXPECT_EQ(Read(9), u"مسير متون ورودي يافت نشد!");
  EXPECT_EQ(Read(10), u"مسير ساخت خروجي يافت نشد!");
  EXPECT_EQ(Read(24), u"مسير تصوير پيشزمينه وارد نشده است!");
  EXPECT_EQ(Read(25), u"امكان درج تصوير وجود ندارد!");
  EXPECT_EQ(Read(29), u"خروجي گرفته شده آماده رايت بر روي سيدي است!");
}

TEST(Messages, TheCountsAreNamedInTheOrderOfTheRows) {
  EXPECT_EQ(Read(17), u"تعداد مجموعه در رديف اول معين نشده است!");
  EXPECT_EQ(Read(18), u"تعداد مجموعه در رديف دوم معين نشده است!");
  EXPECT_EQ(Read(19), u"تعداد مجموعه در رديف سوم معين نشده است!");
}

TEST(Messages, EveryTextOfTheTableEndsInTheRightToLeftMark) {
  for (std::int16_t number = 1; number <= 29; ++number) {
    EXPECT_TRUE(MessageText(number).ends_with(u"!\u200F")) << number;
  }
}

TEST(Messages, APluralHasItsHalfSpace) {
  EXPECT_EQ(MessageText(1), u"فايل\u200Fهاي ورودي پيدا نشد!\u200F");
  EXPECT_NE(MessageText(15).find(u"رديف\u200Fها،"), Text::npos);
}

TEST(Messages, Numbers101And102ShareOneTextOfTwoLines) {
  EXPECT_EQ(Read(101),
            u"امكان گرفتن خروجي در مسير انتخاب شده وجود ندارد!\r\n"
            u"مسير ديگري را انتخاب كنيد!");
  EXPECT_EQ(MessageText(102), MessageText(101));
}

TEST(Messages, ZeroNegativesAndThirtyShowTheFallback) {
  for (const std::int16_t number : std::to_array<std::int16_t>({0, -1, 30, -32768})) {
    EXPECT_EQ(Read(number), u"بروز اشكال غير قابل كنترل!") << number;
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
