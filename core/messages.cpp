#include "core/messages.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"

namespace core {

namespace {

using platform::Text;
using platform::TextView;

struct Message {
  std::int16_t number;
  TextView text;
};

constexpr std::array kMessages = std::to_array<Message>({
    {message::kNoInputTexts, u"فايل\u200Fهاي ورودي پيدا نشد!\u200F"},
    {message::kDetailsMissing, u"همه مشخصات بايد تكميل شود!\u200F"},
    {message::kFolderMissing, u"شاخه انتخابي يافت نشد!\u200F"},
    {message::kFileMade, u"فايل ساخته شد!\u200F"},
    {message::kNoRowToEdit, u"پاراگرافي براي ويرايش وجود ندارد!\u200F"},
    {message::kAttachmentMissing, u"تصوير انتخابي يافت نشد!\u200F"},
    {message::kSoundMissing, u"صوت انتخابي يافت نشد!\u200F"},
    {message::kFilmMissing, u"فيلم انتخابي يافت نشد!\u200F"},
    {message::kInputFolderMissing, u"مسير متون ورودي يافت نشد!\u200F"},
    {message::kProjectFolderMissing, u"مسير ساخت خروجي يافت نشد!\u200F"},
    {message::kCollectionPictureMissing, u"تصوير مجموعه يافت نشد!\u200F"},
    {message::kFirstMusicMissing, u"موزيك اول يافت نشد!\u200F"},
    {message::kSecondMusicMissing, u"موزيك دوم يافت نشد!\u200F"},
    {message::kBackgroundMissing, u"تصوير پيش\u200Fزمينه يافت نشد!\u200F"},
    {message::kNoCollectionWaits,
     u"بر اساس تعداد مجموعه انتخاب شده در رديف\u200Fها، متني براي تبديل وجود ندارد!\u200F"},
    {message::kInputFolderNotSet, u"مسير متون ورودي تعيين نشده است!\u200F"},
    {message::kFirstCountNotSet, u"تعداد مجموعه در رديف اول معين نشده است!\u200F"},
    {message::kSecondCountNotSet, u"تعداد مجموعه در رديف دوم معين نشده است!\u200F"},
    {message::kThirdCountNotSet, u"تعداد مجموعه در رديف سوم معين نشده است!\u200F"},
    {message::kFirstMusicNotSet, u"مسير موزيك اول وارد نشده است!\u200F"},
    {message::kSecondMusicNotSet, u"مسير موزيك دوم وارد نشده است!\u200F"},
    {message::kCollectionPictureNotSet, u"مسير تصوير مجموعه وارد نشده است!\u200F"},
    {message::kProjectFolderNotSet, u"مسير ساخت خروجي وارد نشده است!\u200F"},
    {message::kBackgroundNotSet, u"مسير تصوير پيش\u200Fزمينه وارد نشده است!\u200F"},
    {message::kNoImageMark, u"امكان درج تصوير وجود ندارد!\u200F"},
    {message::kExportFolderMissing, u"شاخه مورد نظر براي گرفتن خروجي وجود ندارد!\u200F"},
    {message::kNoExportScript, u"شيوه\u200Fنامه گرفتن خروجي يافت نشد!\u200F"},
    {message::kExportFailed, u"بروز اشكال در گرفتن خروجي!\u200F"},
    {message::kExportReady, u"خروجي گرفته شده آماده رايت بر روي سي\u200Fدي است!\u200F"},
});

constexpr TextView kUnusablePath =
    u"امكان گرفتن خروجي در مسير انتخاب شده وجود ندارد!\u200F\r\n"
    u"مسير ديگري را انتخاب كنيد!\u200F";

constexpr TextView kFallback = u"بروز اشكال غير قابل كنترل!\u200F";

}  // namespace

Text MessageText(std::int16_t number) {
  const auto* const found = std::ranges::find(kMessages, number, &Message::number);
  if (found != kMessages.end()) return Text(found->text);
  if (number == failure::kNext || number == failure::kExport) return Text(kUnusablePath);
  return number < failure::kFirst ? Text(kFallback) : Text();
}

bool NamesFailure(std::int16_t number) { return number >= failure::kFirst; }

bool ShowsBox(std::int16_t number) { return number >= 100 || number < failure::kFirst; }

}  // namespace core
