#include "platform/text/code_page.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

#include "platform/failure.h"
#include "platform/text/johab.h"
#include "platform/text/mac_pages.h"

namespace platform {
namespace {

constexpr char16_t kNoCharacter = u'\uFFFD';
constexpr std::size_t kAsciiEnd = 0x80;
constexpr unsigned char kLastAscii = 0x7F;

// A page by the library's name for it.
struct NamedPage {
  int number;
  const char* name;
};

constexpr const char* kShiftJis = "windows-932";
constexpr const char* kChinese = "windows-936-2000";
constexpr const char* kKorean = "windows-949-2000";
constexpr const char* kTaiwanese = "windows-950-2000";

constexpr auto kSingleBytePages = std::to_array<NamedPage>({
    {437, "ibm-437"},       {708, "iso-8859-6"},       {720, "ibm-720"},
    {737, "ibm-737"},       {775, "ibm-775"},          {819, "iso-8859-1"},
    {850, "ibm-850"},       {852, "ibm-852"},          {855, "ibm-855"},
    {857, "ibm-857"},       {858, "ibm-858"},          {860, "ibm-860"},
    {861, "ibm-861"},       {862, "ibm-862"},          {863, "ibm-863"},
    {864, "ibm-864"},       {865, "ibm-865"},          {866, "ibm-866"},
    {869, "ibm-869"},       {874, "windows-874"},      {1250, "windows-1250"},
    {1251, "windows-1251"}, {1252, "windows-1252"},    {1253, "windows-1253"},
    {1254, "windows-1254"}, {1255, "windows-1255"},    {1256, "windows-1256"},
    {1257, "windows-1257"}, {1258, "windows-1258"},    {10000, "macintosh"},
    {10006, "x-mac-greek"}, {10007, "x-mac-cyrillic"}, {10021, "windows-874"},
    {10029, "x-mac-ce"},    {10081, "x-mac-turkish"},  {20127, "us-ascii"},
    {20866, "koi8-r"},      {21866, "koi8-u"},         {28591, "iso-8859-1"},
    {28592, "iso-8859-2"},  {28593, "iso-8859-3"},     {28594, "iso-8859-4"},
    {28595, "iso-8859-5"},  {28596, "iso-8859-6"},     {28597, "iso-8859-7"},
    {28598, "iso-8859-8"},  {28599, "iso-8859-9"},     {28603, "iso-8859-13"},
    {28605, "iso-8859-15"},
});

// The Mac's East Asian pages are those of Windows but for some signs.
constexpr auto kDoubleBytePages = std::to_array<NamedPage>({
    {932, kShiftJis},
    {936, kChinese},
    {949, kKorean},
    {950, kTaiwanese},
    {10001, kShiftJis},
    {10002, kTaiwanese},
    {10003, kKorean},
    {10008, kChinese},
});

constexpr auto kOtherPages = std::to_array<NamedPage>({
    {54936, "gb18030"},
    {57002, "windows-57002"},
    {57003, "windows-57003"},
    {57004, "windows-57004"},
    {57005, "windows-57005"},
    {57006, "windows-57006"},
    {57007, "windows-57007"},
    {57008, "windows-57008"},
    {57009, "windows-57009"},
    {57010, "windows-57010"},
    {57011, "windows-57011"},
});

constexpr int kMacArabicPage = 10004;
constexpr int kMacHebrewPage = 10005;
constexpr int kJohabPage = 1361;
constexpr int kUtf8Page = 65001;

// Where the library's tables aren't those that Unicode publishes for the DOS pages.
struct Correction {
  int number;
  unsigned char byte;
  char16_t character;
};
constexpr auto kCorrections = std::to_array<Correction>({
    {437, 0xE6, u'\u00B5'},
    {852, 0xAA, u'\u00AC'},
    {860, 0xE6, u'\u00B5'},
    {861, 0xE6, u'\u00B5'},
    {862, 0xE6, u'\u00B5'},
    {863, 0xE6, u'\u00B5'},
    {864, 0xD7, u'\uFEC1'},
    {864, 0xD8, u'\uFEC5'},
    {865, 0xE6, u'\u00B5'},
    {869, 0x88, u'\u00B7'},
    {869, 0xEF, u'\u0384'},
});

using Converter = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

// The library itself gives U+001A in place of some bytes.
void PutReplacement(const void*, UConverterToUnicodeArgs* to, const char*, int32_t,
                    UConverterCallbackReason reason, UErrorCode* status) {
  if (reason > UCNV_IRREGULAR) return;
  *status = U_ZERO_ERROR;
  ucnv_cbToUWriteUChars(to, &kNoCharacter, 1, 0, status);
}

Converter OpenConverter(const char* name) {
  UErrorCode status = U_ZERO_ERROR;
  Converter converter(ucnv_open(name, &status), &ucnv_close);
  ucnv_setToUCallBack(converter.get(), &PutReplacement, nullptr, nullptr, nullptr, &status);
  if (U_FAILURE(status) != 0) throw Failure(u"A code page is not installed");
  return converter;
}

Text DecodeBy(UConverter* converter, std::string_view bytes) {
  Text text;
  std::array<char16_t, 512> buffer;
  const char* from = bytes.data();
  const char* const end = from + bytes.size();
  UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
  ucnv_reset(converter);
  while (status == U_BUFFER_OVERFLOW_ERROR) {
    char16_t* to = buffer.data();
    status = U_ZERO_ERROR;
    ucnv_toUnicode(converter, &to, buffer.data() + buffer.size(), &from, end, nullptr, 1, &status);
    text.append(buffer.data(), to);
  }
  if (U_FAILURE(status) != 0) throw Failure(u"Text can't be read in its code page");
  return text;
}

// The DOS pages of the library exchange three control characters.
CharacterTable AsciiTable() {
  CharacterTable table{};
  for (std::size_t byte = 0; byte < kAsciiEnd; ++byte) table[byte] = static_cast<char16_t>(byte);
  return table;
}

CharacterTable TableOf(const NamedPage& page) {
  const Converter converter = OpenConverter(page.name);
  CharacterTable table = AsciiTable();
  for (std::size_t value = kAsciiEnd; value < table.size(); ++value) {
    const char byte = static_cast<char>(value);
    table[value] = DecodeBy(converter.get(), {&byte, 1}).front();
  }
  for (const Correction& correction : kCorrections) {
    if (correction.number == page.number) table[correction.byte] = correction.character;
  }
  return table;
}

CharacterTable TableOf(TextView upperHalf) {
  CharacterTable table = AsciiTable();
  std::copy(upperHalf.begin(), upperHalf.end(), table.begin() + kAsciiEnd);
  return table;
}

class SingleBytePage : public CodePage {
 public:
  explicit SingleBytePage(const CharacterTable& table) : CodePage(table) {}

  Text Decode(std::string_view bytes) const override {
    const CharacterTable& table = Characters();
    Text text(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [&table](char byte) { return table[static_cast<unsigned char>(byte)]; });
    return text;
  }
};

using ByteSet = std::bitset<256>;

ByteSet Range(std::size_t first, std::size_t last) {
  ByteSet set;
  for (std::size_t byte = first; byte <= last; ++byte) set.set(byte);
  return set;
}

class LibraryPage : public CodePage {
 public:
  LibraryPage(const char* name, const ByteSet& leads, const ByteSet& trails)
      : CodePage(leads, trails), converter_(OpenConverter(name)) {}

  Text Decode(std::string_view bytes) const override { return DecodeBy(converter_.get(), bytes); }

 private:
  Converter converter_;
};

class Utf8Page : public CodePage {
 public:
  Utf8Page() : CodePage(ByteSet(), ByteSet()) {}

  Text Decode(std::string_view bytes) const override { return FromUtf8(bytes); }
};

class JohabPage : public CodePage {
 public:
  JohabPage()
      : CodePage(Range(0x84, 0xD3) | Range(0xD8, 0xDE) | Range(0xE0, 0xF9),
                 Range(0x31, 0x7E) | Range(0x81, 0xFE)),
        korean_(OpenConverter(kKorean)) {}

  Text Decode(std::string_view bytes) const override {
    Text text;
    for (; !bytes.empty(); bytes.remove_prefix(1)) {
      const auto byte = static_cast<unsigned char>(bytes[0]);
      const auto next = static_cast<unsigned char>(bytes.size() > 1 ? bytes[1] : '\0');
      const bool pair = IsLead(byte) && IsTrail(next);
      text += pair ? CharacterOf(byte, next) : byte <= kLastAscii ? char16_t{byte} : kNoCharacter;
      if (pair) bytes.remove_prefix(1);
    }
    return text;
  }

 private:
  char16_t CharacterOf(unsigned char lead, unsigned char trail) const {
    if (const char16_t hangul = JohabHangul(lead, trail)) return hangul;
    const std::string korean = EucKrOfJohab(lead, trail);
    return korean.empty() ? kNoCharacter : DecodeBy(korean_.get(), korean).front();
  }

  Converter korean_;
};

// As Microsoft publishes them.
std::unique_ptr<CodePage> MakeDoubleBytePage(const NamedPage& page) {
  const std::string_view name = page.name;
  const ByteSet leads =
      name == kShiftJis ? Range(0x81, 0x9F) | Range(0xE0, 0xFC) : Range(0x81, 0xFE);
  ByteSet trails = Range(0x40, 0x7E) | Range(0x80, 0xFE);
  if (name == kShiftJis) trails = Range(0x40, 0x7E) | Range(0x80, 0xFC);
  if (name == kKorean) trails = Range(0x41, 0x5A) | Range(0x61, 0x7A) | Range(0x81, 0xFE);
  if (name == kTaiwanese) trails = Range(0x40, 0x7E) | Range(0xA1, 0xFE);
  return std::make_unique<LibraryPage>(page.name, leads, trails);
}

const NamedPage* Find(const auto& pages, int number) {
  const auto found = std::find_if(pages.begin(), pages.end(), [number](const NamedPage& page) {
    return page.number == number;
  });
  return found == pages.end() ? nullptr : &*found;
}

std::unique_ptr<CodePage> MakePage(int number) {
  if (number == kMacArabicPage) return std::make_unique<SingleBytePage>(TableOf(kMacArabic));
  if (number == kMacHebrewPage) return std::make_unique<SingleBytePage>(TableOf(kMacHebrew));
  if (number == kUtf8Page) return std::make_unique<Utf8Page>();
  if (number == kJohabPage) return std::make_unique<JohabPage>();
  if (const NamedPage* const page = Find(kSingleBytePages, number)) {
    return std::make_unique<SingleBytePage>(TableOf(*page));
  }
  if (const NamedPage* const page = Find(kDoubleBytePages, number)) {
    return MakeDoubleBytePage(*page);
  }
  if (const NamedPage* const page = Find(kOtherPages, number)) {
    return std::make_unique<LibraryPage>(page->name, ByteSet(), ByteSet());
  }
  return nullptr;
}

}  // namespace

CodePage::CodePage(const Bytes& leads, const Bytes& trails)
    : severalBytes_(true), characters_(AsciiTable()), leads_(leads), trails_(trails) {}

const CodePage* FindCodePage(int number) {
  static std::map<int, std::unique_ptr<const CodePage>> pages;
  const auto known = pages.find(number);
  if (known != pages.end()) return known->second.get();
  std::unique_ptr<const CodePage> page = MakePage(number);
  return page ? pages.emplace(number, std::move(page)).first->second.get() : nullptr;
}

}  // namespace platform
