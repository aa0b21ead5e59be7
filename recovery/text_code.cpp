#include "recovery/text_code.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "platform/failure.h"
#include "platform/text/encoding.h"

namespace recovery {

using platform::Text;
using platform::TextView;

namespace {

// Stands before the two bytes of a unit that the code page lacks.
constexpr char kOther = '\0';
constexpr std::size_t kOtherLength = 3;

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
    u"\u06CC",  // the Persian yeh, which the code page lacks
};

// The first unit that no byte of a word takes; below it only line ends and tabs stand for
// themselves.
constexpr char16_t kFirstPlain = 0x20;

bool IsPlain(unsigned unit) {
  return unit >= kFirstPlain || unit == u'\r' || unit == u'\n' || unit == u'\t';
}

// What such a text begins with.
constexpr TextView kHead =
    u"{\\rtf1\\ansi\\ansicpg1256\\uc1\\deff0{\\fonttbl{\\f0\\fnil\\fcharset178 ";
constexpr char kHeadByte = '\b';
static_assert(kWords.size() < kHeadByte);

// No text grows by more on its way back.
constexpr std::size_t kMostUnits = 8;

// So many bytes at a time.
constexpr std::size_t kRun = 256;

// Takes off the text what most of it is: letters that the code page has, and what stands for
// itself. A backslash may begin a word.
bool FoldRun(std::string& bytes, TextView& text) {
  const platform::MachineByteTable& letters = platform::MachineBytes();
  std::array<char, kRun> run;
  std::size_t length = 0;
  for (; length < std::min(run.size(), text.size()) && text[length] != u'\\'; ++length) {
    const char byte = letters[text[length]];
    if (!IsPlain(static_cast<unsigned char>(byte))) break;
    run[length] = byte;
  }
  bytes.append(run.data(), length);
  text.remove_prefix(length);
  return length > 0;
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

void FoldUnit(std::string& bytes, TextView& text) {
  if (text.front() == u'\\') {
    bytes += '\\';
  } else {
    AppendOther(bytes, text.front());
  }
  text.remove_prefix(1);
}

// Takes off the bytes what most of them are.
bool UnfoldRun(Text& text, std::string_view& bytes) {
  const std::array<char16_t, 256>& units = UnitsOfBytes();
  std::array<char16_t, kRun> run;
  std::size_t length = 0;
  for (; length < std::min(run.size(), bytes.size()); ++length) {
    const auto byte = static_cast<unsigned char>(bytes[length]);
    if (!IsPlain(byte)) break;
    run[length] = units[byte];
  }
  text.append(run.data(), length);
  bytes.remove_prefix(length);
  return length > 0;
}

// Takes off the bytes what a run doesn't.
void UnfoldOther(Text& text, std::string_view& bytes) {
  if (bytes.front() == kOther) {
    text += TakeUnit(bytes);
    return;
  }
  const auto word = static_cast<std::size_t>(bytes.front()) - 1;
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
    if (!FoldRun(bytes, richText) && !FoldWord(bytes, richText)) FoldUnit(bytes, richText);
  }
  if (whole <= kMostUnits * (bytes.size() - begin)) return true;
  bytes.resize(begin);
  return false;
}

Text Unfolded(std::string_view bytes) {
  const std::size_t most = kMostUnits * bytes.size();
  Text text;
  text.reserve(bytes.size());
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
