#include "recovery/text_code.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/failure.h"
#include "platform/text/encoding.h"

namespace recovery {

using platform::Text;
using platform::TextView;

namespace {

// Stands before the two bytes of a unit that the code page lacks.
constexpr char kOther = '\0';
constexpr std::size_t kOtherLength = 3;
constexpr char16_t kFirstFolded = 0x80;

void AppendUnit(std::string& bytes, char16_t unit) {
  const char byte = platform::MachineBytes()[unit];
  bytes += byte;
  if (byte != kOther) return;
  bytes += static_cast<char>(unit & 0xFF);
  bytes += static_cast<char>(unit >> 8);
}

const std::array<char16_t, 256>& UnitsOfBytes() {
  static const std::array<char16_t, 256> kUnits = [] {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    std::array<char16_t, 256> units{};
    std::ranges::copy(platform::DecodeMachineCodePage(all), units.begin());
    return units;
  }();
  return kUnits;
}

// Takes the first unit off the bytes.
char16_t TakeUnit(std::string_view& bytes) {
  const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const bool other = bytes.front() == kOther;
  if (other && bytes.size() < kOtherLength) throw platform::Failure(u"A text breaks off");
  const auto unit = other ? static_cast<char16_t>(at(1) | at(2) << 8) : UnitsOfBytes()[at(0)];
  bytes.remove_prefix(other ? kOtherLength : 1);
  return unit;
}

struct Escape {
  char16_t unit = 0;
  std::size_t length = 0;
};

// The escape that the text begins with, if that is how our own writer writes a character: "\u",
// a signed number of 16 bits without needless zeros, "?".
std::optional<Escape> EscapeAt(TextView text) {
  constexpr std::size_t kMostDigits = 5;
  if (!text.starts_with(u"\\u")) return std::nullopt;
  std::size_t at = 2;
  const bool negative = at < text.size() && text[at] == u'-';
  if (negative) ++at;
  const std::size_t digits = at;
  std::int32_t number = 0;
  while (at < text.size() && at - digits < kMostDigits && text[at] >= u'0' && text[at] <= u'9') {
    number = number * 10 + (text[at++] - u'0');
  }
  if (at == digits || text[digits] == u'0' || at == text.size() || text[at] != u'?') return {};
  if (negative) number = -number;
  if (number < INT16_MIN || number > INT16_MAX) return std::nullopt;
  const auto unit = static_cast<char16_t>(number);
  if (unit < kFirstFolded) return std::nullopt;
  return Escape{unit, at + 1};
}

// Called for each letter of a book, so without a text of its own.
void AppendEscape(Text& text, char16_t unit) {
  std::array<char, 8> digits{};
  const auto end = std::to_chars(digits.begin(), digits.end(), static_cast<std::int16_t>(unit)).ptr;
  text.append(u"\\u").append(digits.begin(), end) += u'?';
}

}  // namespace

void AppendCoded(std::string& bytes, TextView text) {
  for (const char16_t unit : text) AppendUnit(bytes, unit);
}

Text Decoded(std::string_view bytes) {
  Text text;
  text.reserve(bytes.size());
  while (!bytes.empty()) text += TakeUnit(bytes);
  return text;
}

bool IsFoldable(TextView text) {
  return text.starts_with(u"{\\rtf") &&
         std::ranges::all_of(text, [](char16_t unit) { return unit != 0 && unit < kFirstFolded; });
}

void AppendFolded(std::string& bytes, TextView richText) {
  while (!richText.empty()) {
    const std::optional<Escape> escape = EscapeAt(richText);
    AppendUnit(bytes, escape ? escape->unit : richText.front());
    richText.remove_prefix(escape ? escape->length : 1);
  }
}

Text Unfolded(std::string_view bytes) {
  Text text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const char16_t unit = TakeUnit(bytes);
    if (unit < kFirstFolded) {
      text += unit;
    } else {
      AppendEscape(text, unit);
    }
  }
  return text;
}

}  // namespace recovery
