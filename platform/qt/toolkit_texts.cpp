#include "platform/qt/toolkit_texts.h"

#include <QMenu>
#include <QTranslator>
#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <string_view>

#include "platform/qt/conversions.h"
#include "platform/qt/menu_style.h"
#include "platform/text/caption.h"

namespace platform {
namespace {

struct Phrase {
  std::string_view source;  // without its mnemonic
  TextView persian;
};

constexpr std::array kMenus = std::to_array<Phrase>({
    {"Undo", u"واگرد"},
    {"Redo", u"انجام دوباره"},
    {"Cut", u"برش"},
    {"Copy", u"كپي"},
    {"Copy Link Location", u"كپي نشاني پيوند"},
    {"Paste", u"چسباندن"},
    {"Delete", u"حذف"},
    {"Clear", u"پاك كردن"},
    {"Select All", u"انتخاب همه"},
    {"Step up", u"يك گام بالا"},
    {"Step down", u"يك گام پايين"},
    {"Scroll here", u"رفتن به اينجا"},
    {"Top", u"بالاترين جا"},
    {"Bottom", u"پايين\u200Fترين جا"},
    {"Page up", u"يك صفحه بالا"},
    {"Page down", u"يك صفحه پايين"},
    {"Scroll up", u"يك سطر بالا"},
    {"Scroll down", u"يك سطر پايين"},
    {"Left edge", u"لبه چپ"},
    {"Right edge", u"لبه راست"},
    {"Page left", u"يك صفحه به چپ"},
    {"Page right", u"يك صفحه به راست"},
    {"Scroll left", u"كمي به چپ"},
    {"Scroll right", u"كمي به راست"},
});

constexpr std::array kControlCharacters = std::to_array<Phrase>({
    {"Insert Unicode control character", u"درج نويسه كنترلي"},
    {"LRM Left-to-right mark", u"نشانه چپ به راست"},
    {"RLM Right-to-left mark", u"نشانه راست به چپ"},
    {"ZWJ Zero width joiner", u"اتصال مجازي"},
    {"ZWNJ Zero width non-joiner", u"فاصله مجازي (نيم\u200Fفاصله)\u200F"},
    {"ZWSP Zero width space", u"فاصله بدون پهنا"},
    {"LRE Start of left-to-right embedding", u"آغاز جايدهي چپ به راست"},
    {"RLE Start of right-to-left embedding", u"آغاز جايدهي راست به چپ"},
    {"LRO Start of left-to-right override", u"آغاز اجبار چپ به راست"},
    {"RLO Start of right-to-left override", u"آغاز اجبار راست به چپ"},
    {"PDF Pop directional formatting", u"پايان جايدهي يا اجبار جهت"},
    {"LRI Left-to-right isolate", u"آغاز جداسازي چپ به راست"},
    {"RLI Right-to-left isolate", u"آغاز جداسازي راست به چپ"},
    {"FSI First strong isolate", u"آغاز جداسازي با جهت نخستين حرف"},
    {"PDI Pop directional isolate", u"پايان جداسازي"},
});

constexpr std::array kButtons = std::to_array<Phrase>({
    {"OK", u"تأييد"},
    {"Cancel", u"انصراف"},
    {"Close", u"بستن"},
    {"Yes", u"بله"},
    {"Yes to All", u"بله براي همه"},
    {"No", u"خير"},
    {"No to All", u"خير براي همه"},
    {"Open", u"باز كردن"},
    {"Save", u"ذخيره"},
    {"Save All", u"ذخيره همه"},
    {"Don't Save", u"بدون ذخيره"},
    {"Abort", u"توقف"},
    {"Retry", u"تلاش دوباره"},
    {"Ignore", u"ناديده گرفتن"},
    {"Discard", u"دور انداختن"},
    {"Close without Saving", u"بستن بدون ذخيره"},
    {"Help", u"راهنما"},
    {"Apply", u"اعمال"},
    {"Reset", u"بازنشاني"},
    {"Restore Defaults", u"بازگشت به پيش\u200Fفرض\u200Fها"},
    {"Show Details...", u"نمايش جزئيات..."},
    {"Hide Details...", u"پنهان كردن جزئيات..."},
});

constexpr std::array kActions = std::to_array<Phrase>({
    {"Press", u"فشردن"},
    {"Triggers the action", u"كار را انجام مي\u200Fدهد"},
    {"Increase", u"افزايش"},
    {"Increase the value", u"مقدار را زياد مي\u200Fكند"},
    {"Decrease", u"كاهش"},
    {"Decrease the value", u"مقدار را كم مي\u200Fكند"},
    {"ShowMenu", u"نمايش منو"},
    {"Shows the menu", u"منو را نشان مي\u200Fدهد"},
    {"SetFocus", u"رفتن به اينجا"},
    {"Sets the focus", u"صفحه كليد را به اينجا مي\u200Fآورد"},
    {"Toggle", u"تغيير حالت"},
    {"Toggles the state", u"حالت را عوض مي\u200Fكند"},
    {"Scroll Left", u"پيمايش به چپ"},
    {"Scrolls to the left", u"به چپ مي\u200Fپيمايد"},
    {"Scroll Right", u"پيمايش به راست"},
    {"Scrolls to the right", u"به راست مي\u200Fپيمايد"},
    {"Scroll Up", u"پيمايش به بالا"},
    {"Scrolls up", u"به بالا مي\u200Fپيمايد"},
    {"Scroll Down", u"پيمايش به پايين"},
    {"Scrolls down", u"به پايين مي\u200Fپيمايد"},
    {"Previous Page", u"صفحه قبل"},
    {"Goes back a page", u"يك صفحه به عقب مي\u200Fرود"},
    {"Next Page", u"صفحه بعد"},
    {"Goes to the next page", u"به صفحه بعد مي\u200Fرود"},
    {"Open the combo box selection popup", u"فهرست را باز مي\u200Fكند"},
});

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
    return PersianOf(plain);
  }
};

class PersianMenus : public QObject {
 public:
  using QObject::QObject;

 protected:
  // A menu is polished just before it finds its place. By itself it would read as the field under
  // it does, and a path reads from left to right.
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Polish) return false;
    if (auto* menu = qobject_cast<QMenu*>(watched)) MakeRightToLeft(*menu);
    return false;
  }
};

}  // namespace

QString PersianOf(std::string_view source) {
  for (const std::span<const Phrase> phrases :
       {std::span<const Phrase>(kMenus), std::span<const Phrase>(kControlCharacters),
        std::span<const Phrase>(kButtons), std::span<const Phrase>(kActions)}) {
    const auto found = std::ranges::find(phrases, source, &Phrase::source);
    if (found != phrases.end()) return ToQString(ShownCaption(found->persian));
  }
  return {};
}

void MakeToolkitSpeakPersian(QApplication& application) {
  QCoreApplication::installTranslator(new PersianTexts(&application));
  application.installEventFilter(new PersianMenus(&application));
}

}  // namespace platform
