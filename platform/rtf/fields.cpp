#include "platform/rtf/fields.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <system_error>

#include "platform/text/utf8.h"

namespace platform::rtf {
namespace {

constexpr int kLastCharacter = 0x10FFFF;
constexpr double kLargestPoints = 16383;

// Takes words, quoted texts and switches from the front of an instruction.
class Instruction {
 public:
  explicit Instruction(TextView rest) : rest_(rest) { SkipBlanks(); }

  bool AtEnd() const { return rest_.empty(); }
  // The letter of a switch; NUL if none stands next.
  char16_t TakeSwitch() {
    if (!rest_.starts_with(u'\\')) return u'\0';
    const char16_t letter = rest_.size() > 1 ? rest_[1] : u' ';
    rest_.remove_prefix(std::min<std::size_t>(rest_.size(), 2));
    SkipBlanks();
    return letter;
  }
  TextView TakeWord() {
    const bool quoted = rest_.starts_with(u'"');
    if (quoted) rest_.remove_prefix(1);
    const std::size_t length =
        std::min(rest_.find_first_of(quoted ? u"\"" : u" \\\""), rest_.size());
    const TextView word = rest_.substr(0, length);
    rest_.remove_prefix(std::min(length + (quoted ? 1 : 0), rest_.size()));
    SkipBlanks();
    return word;
  }

 private:
  void SkipBlanks() {
    while (rest_.starts_with(u' ')) rest_.remove_prefix(1);
  }

  TextView rest_;
};

template <typename Number>
std::optional<Number> NumberOf(std::string_view digits, auto... base) {
  Number number = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, number, base...);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

std::optional<int> CharacterNumber(TextView word) {
  std::string digits = ToUtf8(word);
  const bool hexadecimal = digits.starts_with("0x") || digits.starts_with("0X");
  const auto number = NumberOf<int>(hexadecimal ? digits.substr(2) : digits, hexadecimal ? 16 : 10);
  return number && *number > 0 && *number <= kLastCharacter ? number : std::nullopt;
}

int HalfPoints(TextView word) {
  const auto points = NumberOf<double>(ToUtf8(word));
  const bool usable = points && *points > 0 && *points <= kLargestPoints;
  return usable ? static_cast<int>(std::lround(2 * *points)) : 0;
}

void ObeySwitch(char16_t letter, Instruction& rest, Symbol& symbol) {
  if (letter == u'a') symbol.code = Symbol::Code::kAnsi;
  if (letter == u'j') symbol.code = Symbol::Code::kShiftJis;
  if (letter == u'u') symbol.code = Symbol::Code::kUnicode;
  if (letter == u'f') symbol.font = rest.TakeWord();
  if (letter == u's') symbol.halfPoints = HalfPoints(rest.TakeWord());
}

const FontPage& PageOf(const Symbol& symbol, const FontPage& ofFont) {
  if (symbol.code == Symbol::Code::kAnsi) return GetFontPage(kWesternCodePage);
  if (symbol.code == Symbol::Code::kShiftJis) return GetFontPage(kShiftJisCodePage);
  return ofFont;
}

// Signs may be named by where they stand in the private area.
bool IsSign(int number) { return number >= 0xF000 && number <= 0xF0FF; }

}  // namespace

std::optional<Symbol> ReadSymbol(TextView instruction) {
  Instruction rest(instruction);
  if (!EqualsIgnoringCase(rest.TakeWord(), u"SYMBOL")) return std::nullopt;
  const std::optional<int> number = CharacterNumber(rest.TakeWord());
  if (!number) return std::nullopt;
  Symbol symbol;
  symbol.number = *number;
  while (!rest.AtEnd()) {
    if (const char16_t letter = rest.TakeSwitch()) {
      ObeySwitch(LCase({&letter, 1})[0], rest, symbol);
    } else {
      rest.TakeWord();
    }
  }
  return symbol;
}

Text CharacterOf(const Symbol& symbol, const FontPage& ofFont) {
  const FontPage& page = PageOf(symbol, ofFont);
  const auto low = static_cast<unsigned char>(symbol.number & 0xFF);
  const bool sign = page.Number() == kSymbolCodePage && IsSign(symbol.number);
  if (symbol.number < 0x80 || sign) return Text(1, page.Character(low));
  if (symbol.number <= 0xFF && !page.HasSeveralBytes()) return Text(1, page.Character(low));
  if (symbol.number <= 0xFFFF && page.HasSeveralBytes()) {
    const auto high = static_cast<unsigned char>(symbol.number >> 8);
    if (high == 0) return page.Decode({reinterpret_cast<const char*>(&low), 1});
    return page.Decode(std::string{static_cast<char>(high), static_cast<char>(low)});
  }
  Text character;
  AppendCharacter(character, static_cast<char32_t>(symbol.number));
  return character;
}

}  // namespace platform::rtf
