#include "platform/rtf/font_page.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace platform::rtf {
namespace {

struct Charset {
  int charset;
  int page;
};

// RTF 1.9.1, Font Table: \fcharset.
constexpr auto kCharsets = std::to_array<Charset>(
    {{0, 1252},   {2, kSymbolCodePage}, {77, 10000}, {78, 10001}, {79, 10003}, {80, 10008},
     {81, 10002}, {83, 10005},          {84, 10004}, {85, 10006}, {86, 10081}, {87, 10021},
     {88, 10029}, {89, 10007},          {128, 932},  {129, 949},  {130, 1361}, {134, 936},
     {136, 950},  {161, 1253},          {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256},
     {179, 1256}, {180, 1256},          {181, 1255}, {186, 1257}, {204, 1251}, {222, 874},
     {238, 1250}, {254, 437},           {255, 437}});

constexpr unsigned char kSymbolBullet = 0xB7;

CharacterTable SymbolTable() {
  CharacterTable table{};
  for (std::size_t byte = 0; byte < table.size(); ++byte) {
    table[byte] = static_cast<char16_t>(byte < 0x80 ? byte : 0xF000 + byte);
  }
  table[kSymbolBullet] = u'\u2022';  // every font has it
  return table;
}

bool IsLetter(char16_t unit) {
  return unit >= 0x20 && unit != u'\\' && unit != u'{' && unit != u'}';
}

}  // namespace

FontPage::FontPage(int number, const CodePage* page)
    : number_(number), page_(page), all_(page == nullptr ? SymbolTable() : page->Characters()) {
  std::transform(all_.begin(), all_.end(), letters_.begin(),
                 [](char16_t unit) { return IsLetter(unit) ? unit : u'\0'; });
}

const FontPage& GetFontPage(int number) {
  static std::vector<std::unique_ptr<const FontPage>> pages;
  for (const auto& page : pages) {
    if (page->Number() == number) return *page;
  }
  const CodePage* const page = number == kSymbolCodePage ? nullptr : FindCodePage(number);
  if (page == nullptr && number != kSymbolCodePage) return GetFontPage(kWesternCodePage);
  return *pages.emplace_back(std::make_unique<const FontPage>(number, page));
}

int CodePageOfCharset(int charset) {
  const auto found = std::find_if(kCharsets.begin(), kCharsets.end(),
                                  [charset](Charset entry) { return entry.charset == charset; });
  return found == kCharsets.end() ? kDocumentCodePage : found->page;
}

}  // namespace platform::rtf
