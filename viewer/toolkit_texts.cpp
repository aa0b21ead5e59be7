#include "viewer/toolkit_texts.h"

#include <QTranslator>
#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <string_view>

namespace viewer {
namespace {

struct Phrase {
  std::string_view source;  // without its mnemonic
  std::u16string_view persian;
};

constexpr std::array kMenus = std::to_array<Phrase>({
    {"Undo", u"واگرد"},
    {"Redo", u"انجام دوباره"},
    {"Cut", u"برش"},
    {"Copy", u"کپی"},
    {"Copy Link Location", u"کپی نشانی پیوند"},
    {"Paste", u"چسباندن"},
    {"Delete", u"حذف"},
    {"Clear", u"پاک کردن"},
    {"Select All", u"انتخاب همه"},
    {"Step up", u"یک گام بالا"},
    {"Step down", u"یک گام پایین"},
    {"Scroll here", u"رفتن به این\u200Cجا"},
    {"Top", u"بالاترین جا"},
    {"Bottom", u"پایین\u200Cترین جا"},
    {"Page up", u"یک صفحه بالا"},
    {"Page down", u"یک صفحه پایین"},
    {"Scroll up", u"یک سطر بالا"},
    {"Scroll down", u"یک سطر پایین"},
    {"Left edge", u"لبه\u200Cی چپ"},
    {"Right edge", u"لبه\u200Cی راست"},
    {"Page left", u"یک صفحه به چپ"},
    {"Page right", u"یک صفحه به راست"},
    {"Scroll left", u"کمی به چپ"},
    {"Scroll right", u"کمی به راست"},
    {"Insert Unicode control character", u"درج نویسه\u200Cی کنترلی"},
    {"LRM Left-to-right mark", u"نشانه\u200Cی چپ به راست"},
    {"RLM Right-to-left mark", u"نشانه\u200Cی راست به چپ"},
    {"ZWJ Zero width joiner", u"اتصال مجازی"},
    {"ZWNJ Zero width non-joiner", u"نیم\u200Cفاصله"},
    {"ZWSP Zero width space", u"فاصله\u200Cی بدون پهنا"},
    {"LRE Start of left-to-right embedding", u"آغاز جای\u200Cدهی چپ به راست"},
    {"RLE Start of right-to-left embedding", u"آغاز جای\u200Cدهی راست به چپ"},
    {"LRO Start of left-to-right override", u"آغاز اجبار چپ به راست"},
    {"RLO Start of right-to-left override", u"آغاز اجبار راست به چپ"},
    {"PDF Pop directional formatting", u"پایان جای\u200Cدهی یا اجبار جهت"},
    {"LRI Left-to-right isolate", u"آغاز جداسازی چپ به راست"},
    {"RLI Right-to-left isolate", u"آغاز جداسازی راست به چپ"},
    {"FSI First strong isolate", u"آغاز جداسازی با جهت نخستین حرف"},
    {"PDI Pop directional isolate", u"پایان جداسازی"},
});

constexpr std::array kButtons = std::to_array<Phrase>({
    {"OK", u"تأیید"},
    {"Cancel", u"انصراف"},
    {"Close", u"بستن"},
    {"Yes", u"بله"},
    {"Yes to All", u"بله برای همه"},
    {"No", u"خیر"},
    {"No to All", u"نه برای همه"},
    {"Open", u"باز کردن"},
    {"Save", u"ذخیره"},
    {"Save All", u"ذخیره\u200Cی همه"},
    {"Abort", u"توقف"},
    {"Retry", u"تلاش دوباره"},
    {"Ignore", u"نادیده گرفتن"},
    {"Discard", u"دور انداختن"},
    {"Close without Saving", u"بستن بدون ذخیره"},
    {"Help", u"راهنما"},
    {"Apply", u"اعمال"},
    {"Reset", u"بازنشانی"},
    {"Restore Defaults", u"بازگشت به پیش\u200Cفرض\u200Cها"},
    {"Show Details...", u"نمایش جزئیات..."},
    {"Hide Details...", u"پنهان کردن جزئیات..."},
});

constexpr std::array kActions = std::to_array<Phrase>({
    {"Press", u"فشردن"},
    {"Triggers the action", u"کار را انجام می\u200Cدهد"},
    {"Increase", u"افزایش"},
    {"Increase the value", u"مقدار را زیاد می\u200Cکند"},
    {"Decrease", u"کاهش"},
    {"Decrease the value", u"مقدار را کم می\u200Cکند"},
    {"ShowMenu", u"نمایش منو"},
    {"Shows the menu", u"منو را نشان می\u200Cدهد"},
    {"SetFocus", u"رفتن به این\u200Cجا"},
    {"Sets the focus", u"صفحه\u200Cکلید را به این\u200Cجا می\u200Cآورد"},
    {"Toggle", u"تغییر حالت"},
    {"Toggles the state", u"حالت را عوض می\u200Cکند"},
    {"Scroll Left", u"پیمایش به چپ"},
    {"Scrolls to the left", u"به چپ می\u200Cپیماید"},
    {"Scroll Right", u"پیمایش به راست"},
    {"Scrolls to the right", u"به راست می\u200Cپیماید"},
    {"Scroll Up", u"پیمایش به بالا"},
    {"Scrolls up", u"به بالا می\u200Cپیماید"},
    {"Scroll Down", u"پیمایش به پایین"},
    {"Scrolls down", u"به پایین می\u200Cپیماید"},
    {"Previous Page", u"صفحه\u200Cی قبل"},
    {"Goes back a page", u"یک صفحه به عقب می\u200Cرود"},
    {"Next Page", u"صفحه\u200Cی بعد"},
    {"Goes to the next page", u"به صفحه\u200Cی بعد می\u200Cرود"},
    {"Open the combo box selection popup", u"فهرست را باز می\u200Cکند"},
});

constexpr std::array kFolderDialog = std::to_array<Phrase>({
    {"Look in:", u"جا:"},
    {"Back", u"عقب"},
    {"Go back", u"رفتن به عقب"},
    {"Forward", u"جلو"},
    {"Go forward", u"رفتن به جلو"},
    {"Parent Directory", u"پوشه\u200Cی بالاتر"},
    {"Go to the parent directory", u"رفتن به پوشه\u200Cی بالاتر"},
    {"Create New Folder", u"ساختن پوشه\u200Cی تازه"},
    {"Create a New Folder", u"ساختن پوشه\u200Cی تازه"},
    {"New Folder", u"پوشه\u200Cی تازه"},
    {"List View", u"نمای فهرست"},
    {"Change to list view mode", u"نمایش به شکل فهرست"},
    {"Detail View", u"نمای جزئیات"},
    {"Change to detail view mode", u"نمایش با جزئیات"},
    {"Sidebar", u"کناره"},
    {"List of places and bookmarks", u"فهرست جاها و نشانه\u200Cها"},
    {"Files", u"فایل\u200Cها"},
    {"Files of type:", u"نوع فایل\u200Cها:"},
    {"File name:", u"نام فایل:"},
    {"Directory:", u"پوشه:"},
    {"Directories", u"پوشه\u200Cها"},
    {"Choose", u"برگزیدن"},
    {"Find Directory", u"یافتن پوشه"},
    {"All Files (*)", u"همه\u200Cی فایل\u200Cها (*)"},
    {"Rename", u"تغییر نام"},
    {"Remove", u"برداشتن"},
    {"Show hidden files", u"نمایش پنهان\u200Cها"},
    {"Show ", u"نمایش "},
    {"Recent Places", u"جاهای تازه"},
    {"Computer", u"رایانه"},
    {"Drive", u"دیسک"},
    {"Folder", u"پوشه"},
    {"File", u"فایل"},
    {"Name", u"نام"},
    {"Size", u"اندازه"},
    {"Type", u"نوع"},
    {"Date Modified", u"زمان تغییر"},
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     u"%1\nاین پوشه پیدا نشد. نام آن را دوباره ببینید."},
    {"%1\nFile not found.\nPlease verify the correct file name was given.",
     u"%1\nاین فایل پیدا نشد. نام آن را دوباره ببینید."},
    {"%1 already exists.\nDo you want to replace it?", u"%1 هست. جایگزین شود؟"},
    {"'%1' is write protected.\nDo you want to delete it anyway?",
     u"«%1» در برابر نوشتن محافظت شده است. با این همه حذف شود؟"},
    {"Are you sure you want to delete '%1'?", u"«%1» حذف شود؟"},
    {"Could not delete directory.", u"پوشه حذف نشد."},
});

constexpr std::array kPrintDialog = std::to_array<Phrase>({
    {"Print", u"چاپ"},
    {"Printer", u"چاپگر"},
    {"Name:", u"نام:"},
    {"Properties", u"ویژگی\u200Cها"},
    {"Printer Properties", u"ویژگی\u200Cهای چاپگر"},
    {"Location:", u"جا:"},
    {"Preview", u"پیش\u200Cنمایش"},
    {"Type:", u"نوع:"},
    {"Output file:", u"فایل خروجی:"},
    {"Options >>", u"گزینه\u200Cها >>"},
    {"Options <<", u"گزینه\u200Cها <<"},
    {"Options", u"گزینه\u200Cها"},
    {"Advanced", u"پیشرفته"},
    {"Print to File (PDF)", u"چاپ در فایل (PDF)"},
    {"Local file", u"فایل در همین رایانه"},
    {"Write PDF file", u"نوشتن فایل PDF"},
    {"Print To File ...", u"چاپ در فایل ..."},
    {"Print range", u"چه صفحه\u200Cهایی"},
    {"Print all", u"همه"},
    {"Pages from", u"صفحه\u200Cهای"},
    {"to", u"تا"},
    {"Pages", u"صفحه\u200Cها"},
    {"Specify pages or ranges separated by commas. Ranges are specified by two numbers separated "
     "by a hyphen. E.g: 3,5-7,9 prints pages 3, 5, 6, 7 and 9.",
     u"صفحه\u200Cها را با ویرگول لاتین جدا کنید و بازه\u200Cها را با خط تیره بنویسید؛ برای نمونه "
     u"3,5-7,9 صفحه\u200Cهای ۳ و ۵ و ۶ و ۷ و ۹ را چاپ می\u200Cکند."},
    {"Current Page", u"همین صفحه"},
    {"Selection", u"بخش برگزیده"},
    {"Page Set:", u"مجموعه\u200Cی صفحه\u200Cها:"},
    {"All Pages", u"همه\u200Cی صفحه\u200Cها"},
    {"Odd Pages", u"صفحه\u200Cهای فرد"},
    {"Even Pages", u"صفحه\u200Cهای زوج"},
    {"Output Settings", u"تنظیم\u200Cهای خروجی"},
    {"Copies", u"نسخه\u200Cها"},
    {"Copies:", u"شمار نسخه\u200Cها:"},
    {"Collate", u"دسته دسته"},
    {"Reverse", u"از آخر"},
    {"Color Mode", u"رنگ"},
    {"Color", u"رنگی"},
    {"Grayscale", u"خاکستری"},
    {"Double Sided Printing", u"چاپ دورو"},
    {"Off", u"خاموش"},
    {"None", u"هیچ"},
    {"Long side binding", u"صحافی از سوی بلند"},
    {"Short side binding", u"صحافی از سوی کوتاه"},
    {"Page Setup", u"برپایی صفحه"},
    {"Paper", u"کاغذ"},
    {"Page size:", u"اندازه\u200Cی کاغذ:"},
    {"Width:", u"پهنا:"},
    {"Height:", u"بلندی:"},
    {"Paper source:", u"جای کاغذ:"},
    {"Orientation", u"جهت کاغذ"},
    {"Portrait", u"ایستاده"},
    {"Landscape", u"خوابیده"},
    {"Reverse landscape", u"خوابیده\u200Cی وارونه"},
    {"Reverse portrait", u"ایستاده\u200Cی وارونه"},
    {"Margins", u"حاشیه\u200Cها"},
    {"top margin", u"حاشیه\u200Cی بالا"},
    {"left margin", u"حاشیه\u200Cی چپ"},
    {"right margin", u"حاشیه\u200Cی راست"},
    {"bottom margin", u"حاشیه\u200Cی پایین"},
    {"Page Layout", u"چیدمان صفحه"},
    {"Page order:", u"ترتیب صفحه\u200Cها:"},
    {"Pages per sheet:", u"صفحه در هر برگ:"},
    {"Millimeters (mm)", u"میلی\u200Cمتر"},
    {"Inches (in)", u"اینچ"},
    {"Points (pt)", u"پوینت"},
    {"Pica (P̸)", u"پیکا"},
    {"Didot (DD)", u"دیدو"},
    {"Cicero (CC)", u"سیسرو"},
    {"mm", u"م\u200Cم"},
    {"in", u"اینچ"},
    {"pt", u"پوینت"},
    {"P̸", u"پیکا"},
    {"DD", u"دیدو"},
    {"CC", u"سیسرو"},
    {"Custom", u"دلخواه"},
    {"Automatic", u"خودکار"},
    {"Left to Right, Top to Bottom", u"چپ به راست، بالا به پایین"},
    {"Left to Right, Bottom to Top", u"چپ به راست، پایین به بالا"},
    {"Right to Left, Bottom to Top", u"راست به چپ، پایین به بالا"},
    {"Right to Left, Top to Bottom", u"راست به چپ، بالا به پایین"},
    {"Bottom to Top, Left to Right", u"پایین به بالا، چپ به راست"},
    {"Bottom to Top, Right to Left", u"پایین به بالا، راست به چپ"},
    {"Top to Bottom, Left to Right", u"بالا به پایین، چپ به راست"},
    {"Top to Bottom, Right to Left", u"بالا به پایین، راست به چپ"},
    {"1 (1x1)", u"۱"},
    {"2 (2x1)", u"۲"},
    {"4 (2x2)", u"۴"},
    {"6 (2x3)", u"۶"},
    {"9 (3x3)", u"۹"},
    {"16 (4x4)", u"۱۶"},
    {"%1 is a directory.\nPlease choose a different file name.",
     u"%1 پوشه است. نام دیگری برگزینید."},
    {"File %1 is not writable.\nPlease choose a different file name.",
     u"در %1 نمی\u200Cتوان نوشت. نام دیگری برگزینید."},
    {"%1 already exists.\nDo you want to overwrite it?", u"%1 هست. روی آن نوشته شود؟"},
    {"Invalid Pages Definition", u"صفحه\u200Cها نادرست نوشته شده\u200Cاند"},
    {"%1 does not follow the correct syntax. Please use ',' to separate ranges and pages, '-' to "
     "define ranges and make sure ranges do not intersect with each other.",
     u"%1 نادرست است. صفحه\u200Cها را با «,» جدا کنید و بازه\u200Cها را با «-» بنویسید؛ "
     u"بازه\u200Cها نباید روی هم بیفتند."},
    {"Duplex Settings Conflicts", u"ناسازگاری در چاپ دورو"},
    {"There are conflicts in duplex settings. Do you want to fix them?",
     u"تنظیم\u200Cهای چاپ دورو ناسازگارند. درست شوند؟"},
    {"Page Setup Conflicts", u"ناسازگاری در برپایی صفحه"},
    {"There are conflicts in page setup options. Do you want to fix them?",
     u"گزینه\u200Cهای برپایی صفحه ناسازگارند. درست شوند؟"},
    {"Advanced Option Conflicts", u"ناسازگاری در گزینه\u200Cهای پیشرفته"},
    {"There are conflicts in some advanced options. Do you want to fix them?",
     u"برخی گزینه\u200Cهای پیشرفته ناسازگارند. درست شوند؟"},
    {"There are conflicts in some options. Please fix them.",
     u"برخی گزینه\u200Cها ناسازگارند. درستشان کنید."},
    {"Options 'Pages Per Sheet' and 'Page Set' cannot be used together.\nPlease turn one of those "
     "options off.",
     u"«صفحه در هر برگ» و «مجموعه\u200Cی صفحه\u200Cها» با هم نمی\u200Cشوند. یکی را کنار بگذارید."},
});

constexpr std::array kPrintJobs = std::to_array<Phrase>({
    {"Job", u"کار چاپ"},
    {"Job Options", u"گزینه\u200Cهای کار چاپ"},
    {"Job Control", u"زمان و اولویت"},
    {"Scheduled printing:", u"زمان چاپ:"},
    {"Billing information:", u"یادداشت حساب:"},
    {"Job priority:", u"اولویت:"},
    {"Banner Pages", u"برگ\u200Cهای جداکننده"},
    {"Banner page at end", u"برگ جداکننده در پایان"},
    {"End:", u"پایان:"},
    {"Banner page at start", u"برگ جداکننده در آغاز"},
    {"Start:", u"آغاز:"},
    {"Print Immediately", u"هم\u200Cاکنون"},
    {"Hold Indefinitely", u"نگه داشتن"},
    {"Day (06:00 to 17:59)", u"روز (۶:۰۰ تا ۱۷:۵۹)"},
    {"Night (18:00 to 05:59)", u"شب (۱۸:۰۰ تا ۵:۵۹)"},
    {"Second Shift (16:00 to 23:59)", u"نوبت دوم (۱۶:۰۰ تا ۲۳:۵۹)"},
    {"Third Shift (00:00 to 07:59)", u"نوبت سوم (۰:۰۰ تا ۷:۵۹)"},
    {"Weekend (Saturday to Sunday)", u"شنبه و یکشنبه"},
    {"Specific Time", u"زمانی دیگر"},
    {"Standard", u"معمولی"},
    {"Unclassified", u"بدون رده"},
    {"Confidential", u"محرمانه"},
    {"Classified", u"رده\u200Cبندی شده"},
    {"Secret", u"سری"},
    {"Top Secret", u"بسیار سری"},
    {"Page", u"صفحه"},
});

constexpr std::array kAll = {
    std::span<const Phrase>(kMenus),       std::span<const Phrase>(kButtons),
    std::span<const Phrase>(kActions),     std::span<const Phrase>(kFolderDialog),
    std::span<const Phrase>(kPrintDialog), std::span<const Phrase>(kPrintJobs)};

class PersianTexts : public QTranslator {
 public:
  using QTranslator::QTranslator;
  bool isEmpty() const override { return false; }
  // The same English words mean the same in all of the toolkit, so of its contexts only that of the
  // keys' names matters: those stay as they are on the keys.
  QString translate(const char* context, const char* source, const char*, int) const override {
    if (context == std::string_view("QShortcut")) return {};
    std::string plain(source);
    std::erase(plain, '&');
    for (const std::span<const Phrase> phrases : kAll) {
      const auto found = std::ranges::find(phrases, plain, &Phrase::source);
      if (found != phrases.end()) return QString::fromUtf16(found->persian.data());
    }
    return {};
  }
};

}  // namespace

void MakeToolkitSpeakPersian(QCoreApplication& application) {
  QCoreApplication::installTranslator(new PersianTexts(&application));
}

}  // namespace viewer
