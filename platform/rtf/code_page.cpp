#include "platform/rtf/code_page.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "platform/encoding.h"

namespace platform::rtf {
namespace {

constexpr int kShiftJis = 932;
constexpr int kUtf8 = 65001;

constexpr auto kKnownPages = std::to_array<int>({kSymbolCodePage,
                                                 437,
                                                 708,
                                                 720,
                                                 819,
                                                 850,
                                                 852,
                                                 857,
                                                 858,
                                                 860,
                                                 862,
                                                 863,
                                                 864,
                                                 865,
                                                 866,
                                                 874,
                                                 932,
                                                 936,
                                                 949,
                                                 950,
                                                 1250,
                                                 1251,
                                                 1252,
                                                 1253,
                                                 1254,
                                                 1255,
                                                 1256,
                                                 1257,
                                                 1258,
                                                 10000,
                                                 10001,
                                                 10002,
                                                 10003,
                                                 10004,
                                                 10005,
                                                 10006,
                                                 10007,
                                                 10008,
                                                 10029,
                                                 10081,
                                                 28591,
                                                 28596,
                                                 65001});
constexpr auto kSeveralBytePages = std::to_array<int>({932, 936, 949, 950, 65001});

struct Charset {
  int charset;
  int page;
};

// RTF 1.9.1, Font Table: \fcharset.
constexpr auto kCharsets = std::to_array<Charset>(
    {{0, 1252},   {2, kSymbolCodePage}, {77, 10000}, {78, 932},   {79, 949},   {80, 936},
     {81, 950},   {83, 10005},          {84, 10004}, {85, 10006}, {86, 10081}, {87, 874},
     {88, 10029}, {89, 10007},          {128, 932},  {129, 949},  {130, 949},  {134, 936},
     {136, 950},  {161, 1253},          {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256},
     {179, 1256}, {180, 1256},          {181, 1255}, {186, 1257}, {204, 1251}, {222, 874},
     {238, 1250}, {254, 437},           {255, 437}});

bool Holds(auto& numbers, int number) {
  return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

constexpr unsigned char kSymbolBullet = 0xB7;

char16_t SymbolCharacter(std::size_t byte) {
  if (byte == kSymbolBullet) return u'\u2022';  // every font has it
  return static_cast<char16_t>(byte < 0x80 ? byte : 0xF000 + byte);
}

// Pages of several bytes: ASCII, and nothing for the rest.
char16_t AsciiCharacter(std::size_t byte) { return static_cast<char16_t>(byte < 0x80 ? byte : 0); }

void FillBy(char16_t (*character)(std::size_t), std::array<char16_t, 256>& table) {
  for (std::size_t byte = 0; byte < table.size(); ++byte) table[byte] = character(byte);
}

bool IsLetter(char16_t unit) {
  return unit >= 0x20 && unit != u'\\' && unit != u'{' && unit != u'}';
}

// The library may lack a page that RTF knows.
bool CanBeRead(int number) {
  return number == kSymbolCodePage || number == kWesternCodePage ||
         Holds(kSeveralBytePages, number) ||
         (Holds(kKnownPages, number) && SingleByteCodePage(number) != nullptr);
}

}  // namespace

CodePage::CodePage(int pageNumber)
    : number(pageNumber), severalBytes(Holds(kSeveralBytePages, pageNumber)) {
  const std::array<char16_t, 256>* table =
      number == kSymbolCodePage || severalBytes ? nullptr : SingleByteCodePage(number);
  if (table != nullptr) {
    all = *table;
  } else {
    FillBy(number == kSymbolCodePage ? SymbolCharacter : AsciiCharacter, all);
  }
  std::transform(all.begin(), all.end(), letters.begin(),
                 [](char16_t unit) { return IsLetter(unit) ? unit : u'\0'; });
}

bool CodePage::IsLead(unsigned char byte) const {
  if (!severalBytes || number == kUtf8) return false;
  if (number == kShiftJis) return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
  return byte >= 0x81 && byte <= 0xFE;
}

const CodePage& GetCodePage(int number) {
  static std::vector<std::unique_ptr<const CodePage>> pages;
  for (const auto& page : pages) {
    if (page->number == number) return *page;
  }
  if (!CanBeRead(number)) return GetCodePage(kWesternCodePage);
  return *pages.emplace_back(std::make_unique<const CodePage>(number));
}

int CodePageOfCharset(int charset) {
  const auto found = std::find_if(kCharsets.begin(), kCharsets.end(),
                                  [charset](Charset entry) { return entry.charset == charset; });
  return found == kCharsets.end() ? kDocumentCodePage : found->page;
}

}  // namespace platform::rtf
