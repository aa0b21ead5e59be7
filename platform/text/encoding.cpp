#include "platform/text/encoding.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <memory>

#include "platform/failure.h"
#include "platform/text/code_page.h"
#include "platform/text/utf8.h"

namespace platform {
namespace {

constexpr char16_t kLastAscii = 0x7F;

const CodePage& MachinePage() {
  static const CodePage* const kPage = FindCodePage(kMachineCodePage);
  if (kPage == nullptr) throw Failure(u"The machine's code page is not known");
  return *kPage;
}

std::unique_ptr<const MachineByteTable> MakeMachineBytes() {
  auto bytes = std::make_unique<MachineByteTable>();
  const CharacterTable& table = MachinePage().Characters();
  for (std::size_t value = 0; value < table.size(); ++value) {
    (*bytes)[table[value]] = static_cast<char>(value);
  }
  return bytes;
}

// Utf-16 bytes and units are the same thing on most machines.
void SwapUnlessLittleEndian(char16_t* units, std::size_t count) {
  if constexpr (std::endian::native != std::endian::little) {
    std::transform(units, units + count, units,
                   [](char16_t unit) { return static_cast<char16_t>((unit << 8) | (unit >> 8)); });
  }
}

}  // namespace

const MachineByteTable& MachineBytes() {
  static const std::unique_ptr<const MachineByteTable> kBytes = MakeMachineBytes();
  return *kBytes;
}

Text DecodeMachineCodePage(std::string_view bytes) { return MachinePage().Decode(bytes); }

std::string EncodeMachineCodePage(TextView text) {
  const MachineByteTable& table = MachineBytes();
  std::string bytes(text.size(), '\0');
  char* to = bytes.data();
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    const char byte = table[unit];
    *to++ = byte == '\0' && unit != u'\0' ? '?' : byte;
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

Text DecodeUnicode(std::string_view bytes) {
  if (bytes.starts_with(kUtf16Mark)) bytes.remove_prefix(kUtf16Mark.size());
  return DecodeUtf16(bytes);
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

}  // namespace platform
