#include "core/messages.h"

#include <array>
#include <cstddef>

namespace core {

namespace {

using platform::Text;
using platform::TextView;

// Numbers 1 to 29.
constexpr std::array<TextView, 29> kMessages = {
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
};

constexpr TextView kUnusablePath =
    u"امكان گرفتن خروجي در مسير انتخاب شده وجود ندارد!\u200F\r\n"
    u"مسير ديگري را انتخاب كنيد!\u200F";

constexpr TextView kFallback = u"بروز اشكال غير قابل كنترل!\u200F";

constexpr std::int16_t kFirstFailure = 31;

}  // namespace

Text MessageText(std::int16_t number) {
  if (number >= 1 && number <= static_cast<std::int16_t>(kMessages.size())) {
    return Text(kMessages[static_cast<std::size_t>(number - 1)]);
  }
  if (number == 101 || number == 102) return Text(kUnusablePath);
  return number < kFirstFailure ? Text(kFallback) : Text();
}

bool NamesFailure(std::int16_t number) { return number >= kFirstFailure; }

bool ShowsBox(std::int16_t number) { return number >= 100 || number < kFirstFailure; }

}  // namespace core
