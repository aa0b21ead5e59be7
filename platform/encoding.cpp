#include "platform/encoding.h"

#include <unicode/ucnv.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <map>
#include <memory>

#include "platform/failure.h"
#include "platform/utf8.h"

namespace platform {
namespace {

using Table = std::array<char16_t, 256>;
using Converter = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

constexpr int kUtf8CodePage = 65001;
constexpr int kFallbackCodePage = 1252;
constexpr int kLastCodePage = 65535;
constexpr char16_t kNoCharacter = u'\uFFFD';
constexpr char16_t kLastAscii = 0x7F;

struct NamedPage {
  int number;
  const char* name;
};

// The pages whose Windows number isn't in their name.
constexpr NamedPage kNamedPages[] = {
    {708, "iso-8859-6"},
    {10000, "macintosh"},
    {10006, "x-mac-greek"},
    {10007, "x-mac-cyrillic"},
    {10029, "x-mac-centraleurroman"},
    {10081, "x-mac-turkish"},
    {20127, "us-ascii"},
    {20866, "koi8-r"},
    {21866, "koi8-u"},
    {28591, "iso-8859-1"},
    {28592, "iso-8859-2"},
    {28593, "iso-8859-3"},
    {28594, "iso-8859-4"},
    {28595, "iso-8859-5"},
    {28596, "iso-8859-6"},
    {28597, "iso-8859-7"},
    {28598, "iso-8859-8"},
    {28599, "iso-8859-9"},
    {28603, "iso-8859-13"},
    {28605, "iso-8859-15"},
    {54936, "gb18030"},
};

Converter OpenConverter(const char* name) {
  UErrorCode status = U_ZERO_ERROR;
  Converter converter(ucnv_open(name, &status), &ucnv_close);
  if (U_FAILURE(status) != 0) converter.reset();
  return converter;
}

Converter OpenConverter(int codePage) {
  for (const NamedPage& page : kNamedPages) {
    if (page.number == codePage) return OpenConverter(page.name);
  }
  const std::string number = std::to_string(codePage);
  Converter windows = OpenConverter(("windows-" + number).c_str());
  return windows ? std::move(windows) : OpenConverter(("cp" + number).c_str());
}

char16_t CharacterOf(UConverter* converter, unsigned char value) {
  const char byte = static_cast<char>(value);
  char16_t character = kNoCharacter;
  UErrorCode status = U_ZERO_ERROR;
  ucnv_reset(converter);
  const int count = ucnv_toUChars(converter, &character, 1, &byte, 1, &status);
  return U_FAILURE(status) == 0 && count == 1 ? character : kNoCharacter;
}

// What the library says of a page, asked once for each page of the process.
struct Page {
  explicit Page(int codePage) : converter(OpenConverter(codePage)) {
    if (!converter) return;
    isSingleByte = ucnv_getMaxCharSize(converter.get()) == 1;
    if (isSingleByte) FillTable();
  }

  void FillTable() {
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                        &status);
    for (unsigned value = 0; value < table.size(); ++value) {
      table[value] = CharacterOf(converter.get(), static_cast<unsigned char>(value));
    }
  }

  Converter converter;
  Table table{};
  bool isSingleByte = false;
};

Page& PageOf(int codePage) {
  static std::map<int, Page> pages;
  return pages.try_emplace(codePage, codePage).first->second;
}

const Table& MachineTable() {
  static const Table* const kTable = SingleByteCodePage(kMachineCodePage);
  if (kTable == nullptr) throw Failure(u"The machine's code page is not installed");
  return *kTable;
}

// The byte of each 16-bit unit, "?" for those that the machine's page lacks.
using Bytes = std::array<char, 65536>;

std::unique_ptr<const Bytes> MakeMachineBytes() {
  auto bytes = std::make_unique<Bytes>();
  bytes->fill('?');
  const Table& table = MachineTable();
  for (std::size_t value = 0; value < table.size(); ++value) {
    (*bytes)[table[value]] = static_cast<char>(value);
  }
  return bytes;
}

Text DecodeByTable(const Table& table, std::string_view bytes) {
  Text text(bytes.size(), u'\0');
  std::transform(bytes.begin(), bytes.end(), text.begin(),
                 [&table](char byte) { return table[static_cast<unsigned char>(byte)]; });
  return text;
}

Text DecodeByLibrary(UConverter* converter, std::string_view bytes) {
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

// Utf-16 bytes and units are the same thing on most machines.
void SwapUnlessLittleEndian(char16_t* units, std::size_t count) {
  if constexpr (std::endian::native != std::endian::little) {
    std::transform(units, units + count, units,
                   [](char16_t unit) { return static_cast<char16_t>((unit << 8) | (unit >> 8)); });
  }
}

}  // namespace

Text DecodeMachineCodePage(std::string_view bytes) { return DecodeByTable(MachineTable(), bytes); }

std::string EncodeMachineCodePage(TextView text) {
  static const std::unique_ptr<const Bytes> kBytes = MakeMachineBytes();
  std::string bytes(text.size(), '\0');
  char* to = bytes.data();
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    *to++ = (*kBytes)[unit];
    if (unit > kLastAscii && IsSurrogate(unit)) i += FirstOfUtf16(text.substr(i)).length - 1;
  }
  bytes.resize(static_cast<std::size_t>(to - bytes.data()));
  return bytes;
}

Text DecodeUtf16(std::string_view bytes) {
  Text text(bytes.size() / sizeof(char16_t), u'\0');
  if (!text.empty()) std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
  SwapUnlessLittleEndian(text.data(), text.size());
  return text;
}

std::string EncodeUtf16(TextView text) {
  std::string bytes;
  AppendUtf16(bytes, text);
  return bytes;
}

void AppendUtf16(std::string& bytes, TextView text) {
  if constexpr (std::endian::native == std::endian::little) {
    bytes.append(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t));
  } else {
    Text swapped(text);
    SwapUnlessLittleEndian(swapped.data(), swapped.size());
    bytes.append(reinterpret_cast<const char*>(swapped.data()), swapped.size() * sizeof(char16_t));
  }
}

const std::array<char16_t, 256>* SingleByteCodePage(int codePage) {
  if (codePage < 0 || codePage > kLastCodePage) return nullptr;
  const Page& page = PageOf(codePage);
  return page.isSingleByte ? &page.table : nullptr;
}

Text DecodeCodePage(int codePage, std::string_view bytes) {
  if (codePage == kUtf8CodePage) return FromUtf8(bytes);
  if (const Table* const table = SingleByteCodePage(codePage)) return DecodeByTable(*table, bytes);
  const bool inRange = codePage >= 0 && codePage <= kLastCodePage;
  UConverter* const converter = inRange ? PageOf(codePage).converter.get() : nullptr;
  if (converter != nullptr) return DecodeByLibrary(converter, bytes);
  return codePage == kFallbackCodePage ? FromUtf8(bytes) : DecodeCodePage(kFallbackCodePage, bytes);
}

}  // namespace platform
