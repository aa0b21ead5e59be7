#include "recovery/text_code.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>

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

void AppendOther(std::string& bytes, char16_t unit) {
  bytes += kOther;
  bytes += static_cast<char>(unit & 0xFF);
  bytes += static_cast<char>(unit >> 8);
}

void AppendUnit(std::string& bytes, char16_t unit) {
  const char byte = platform::MachineBytes()[unit];
  if (byte == kOther) return AppendOther(bytes, unit);
  bytes += byte;
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

// What the window's rich text consists of besides letters; each is one byte, its place here counted
// from 1. The places stand on the disk: each keeps its meaning for good. A longer one stands before
// its own beginning.
constexpr std::array<TextView, 5> kWords = {
    u"\\par\r\n\\pard\\rtlpar\\qr",
    u"\\par\r\n",
    u"\\pard\\rtlpar\\qr",
    u"\\plain",
    u"\\u1740?",  // the Persian yeh, which the code page lacks
};

// The first unit that no byte of a word takes; below it only line ends and tabs stand for
// themselves.
constexpr char16_t kFirstPlain = 0x20;

bool IsPlain(char16_t unit) {
  if (unit < kFirstPlain) return unit == u'\r' || unit == u'\n' || unit == u'\t';
  return unit < kFirstFolded;
}

// What such a text begins with.
constexpr TextView kHead =
    u"{\\rtf1\\ansi\\ansicpg1256\\uc1\\deff0{\\fonttbl{\\f0\\fnil\\fcharset178 ";
constexpr char kHeadByte = '\b';
static_assert(kWords.size() < kHeadByte);

// Most letters take so much, and no text grows by more than the second on its way back.
constexpr std::size_t kUnitsOfLetter = 4;
constexpr std::size_t kMostUnits = 8;

constexpr std::string_view kHexDigits = "0123456789abcdef";
constexpr std::size_t kNoDigit = 16;

constexpr std::array<std::uint8_t, kFirstFolded> kHexValues = [] {
  std::array<std::uint8_t, kFirstFolded> values{};
  values.fill(kNoDigit);
  for (std::size_t i = 0; i < kHexDigits.size(); ++i) {
    values[static_cast<unsigned char>(kHexDigits[i])] = static_cast<std::uint8_t>(i);
  }
  return values;
}();

std::size_t HexValue(char16_t unit) {
  return unit < kHexValues.size() ? kHexValues[unit] : kNoDigit;
}

// So many bytes at a time.
constexpr std::size_t kRun = 256;

// Takes off the text what most of it is: bytes of the code page as our own writer writes them,
// "\\'d3", and what stands for itself.
bool FoldRun(std::string& bytes, TextView& text) {
  std::array<char, kRun> run;
  std::size_t length = 0;
  std::size_t at = 0;
  for (; length < run.size() && at < text.size(); ++length) {
    if (text[at] != u'\\') {
      if (!IsPlain(text[at])) break;
      run[length] = static_cast<char>(text[at++]);
      continue;
    }
    if (text.size() - at < kUnitsOfLetter || text[at + 1] != u'\'') break;
    const std::size_t high = HexValue(text[at + 2]);
    const std::size_t low = HexValue(text[at + 3]);
    if (high == kNoDigit || high < (kFirstFolded >> 4) || low == kNoDigit) break;
    run[length] = static_cast<char>(high << 4 | low);
    at += kUnitsOfLetter;
  }
  bytes.append(run.data(), length);
  text.remove_prefix(at);
  return at > 0;
}

// Takes one of the words off the text.
bool FoldWord(std::string& bytes, TextView& text) {
  for (std::size_t i = 0; i < kWords.size(); ++i) {
    if (!text.starts_with(kWords[i])) continue;
    bytes += static_cast<char>(i + 1);
    text.remove_prefix(kWords[i].size());
    return true;
  }
  return false;
}

// Takes a character that the code page lacks off the text, as our own writer writes it: "\u", a
// signed number of 16 bits without needless zeros, "?".
bool FoldUnit(std::string& bytes, TextView& text) {
  constexpr std::size_t kMostDigits = 5;
  if (!text.starts_with(u"\\u")) return false;
  std::size_t at = 2;
  const bool negative = at < text.size() && text[at] == u'-';
  if (negative) ++at;
  const std::size_t digits = at;
  std::int32_t number = 0;
  while (at < text.size() && at - digits < kMostDigits && text[at] >= u'0' && text[at] <= u'9') {
    number = number * 10 + (text[at++] - u'0');
  }
  if (at == digits || text[digits] == u'0' || at == text.size() || text[at] != u'?') return false;
  if (negative) number = -number;
  if (number < INT16_MIN || number > INT16_MAX) return false;
  const auto unit = static_cast<char16_t>(number);
  if (unit < kFirstFolded) return false;
  AppendOther(bytes, unit);
  text.remove_prefix(at + 1);
  return true;
}

void UnfoldUnit(Text& text, char16_t unit) {
  if (unit < kFirstFolded) throw platform::Failure(u"A rich text folds a plain letter");
  std::array<char, 8> digits{};
  const auto end = std::to_chars(digits.begin(), digits.end(), static_cast<std::int16_t>(unit)).ptr;
  text.append(u"\\u").append(digits.begin(), end) += u'?';
}

// Takes off the bytes what most of them are.
bool UnfoldRun(Text& text, std::string_view& bytes) {
  std::array<char16_t, kUnitsOfLetter * kRun> run;
  char16_t* to = run.data();
  std::size_t at = 0;
  for (; at < std::min(kRun, bytes.size()); ++at) {
    const auto byte = static_cast<unsigned char>(bytes[at]);
    if (byte >= kFirstFolded) {
      *to++ = u'\\';
      *to++ = u'\'';
      *to++ = static_cast<char16_t>(kHexDigits[byte >> 4]);
      *to++ = static_cast<char16_t>(kHexDigits[byte & 0xF]);
    } else if (IsPlain(byte)) {
      *to++ = byte;
    } else {
      break;
    }
  }
  text.append(run.data(), to);
  bytes.remove_prefix(at);
  return at > 0;
}

// Takes off the bytes what a run doesn't.
void UnfoldOther(Text& text, std::string_view& bytes) {
  if (bytes.front() == kOther) return UnfoldUnit(text, TakeUnit(bytes));
  const auto word = std::size_t{static_cast<unsigned char>(bytes.front())} - 1;
  if (word >= kWords.size()) throw platform::Failure(u"A rich text folds an unknown word");
  text += kWords[word];
  bytes.remove_prefix(1);
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

bool Fold(std::string& bytes, TextView richText) {
  if (!richText.starts_with(u"{\\rtf")) return false;
  const std::size_t begin = bytes.size();
  const std::size_t whole = richText.size();
  if (richText.starts_with(kHead)) {
    bytes += kHeadByte;
    richText.remove_prefix(kHead.size());
  }
  while (!richText.empty()) {
    if (FoldRun(bytes, richText) || FoldWord(bytes, richText) || FoldUnit(bytes, richText)) {
      continue;
    }
    if (!IsPlain(richText.front())) break;
    bytes += static_cast<char>(richText.front());
    richText.remove_prefix(1);
  }
  if (richText.empty() && whole <= kMostUnits * (bytes.size() - begin)) return true;
  bytes.resize(begin);
  return false;
}

Text Unfolded(std::string_view bytes) {
  const std::size_t most = kMostUnits * bytes.size();
  Text text;
  text.reserve(kUnitsOfLetter * bytes.size());
  if (!bytes.empty() && bytes.front() == kHeadByte) {
    text += kHead;
    bytes.remove_prefix(1);
  }
  while (!bytes.empty()) {
    if (!UnfoldRun(text, bytes)) UnfoldOther(text, bytes);
    if (text.size() > most) throw platform::Failure(u"A rich text is longer than it can be");
  }
  return text;
}

}  // namespace recovery
