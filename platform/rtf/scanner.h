// RTF's own signs: groups, control words and symbols, hexadecimal bytes, binary data. Knows where
// the input ends and nothing of what the words mean.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "platform/rtf/words.h"

namespace platform::rtf {

struct ControlWord {
  std::array<char, kLongestWord> letters;
  std::size_t length;  // of the word as it stands; may be above kLongestWord
  std::uint32_t hash;
  bool hasParameter;
  std::int64_t parameter;

  const Word* Find() const {
    return length > letters.size() ? nullptr : FindWord({letters.data(), length}, hash);
  }
};

// The upper and the lower half of a byte by its digit; kNoDigit where it is none.
inline constexpr std::uint16_t kNoDigit = 0x8000;
constexpr std::array<std::uint16_t, 256> MakeDigits(unsigned shift) {
  std::array<std::uint16_t, 256> digits{};
  digits.fill(kNoDigit);
  for (unsigned i = 0; i < 10; ++i) digits['0' + i] = static_cast<std::uint16_t>(i << shift);
  for (unsigned i = 0; i < 6; ++i) {
    digits['a' + i] = digits['A' + i] = static_cast<std::uint16_t>((10 + i) << shift);
  }
  return digits;
}
inline constexpr auto kHighDigits = MakeDigits(4);
inline constexpr auto kLowDigits = MakeDigits(0);

// `Unit` is char, or char16_t for text in which units above 0xFF may occur.
template <typename Unit>
class Scanner {
 public:
  explicit Scanner(std::basic_string_view<Unit> rtf)
      : at_(rtf.data()), end_(rtf.data() + rtf.size()) {}

  bool AtEnd() const { return at_ == end_; }
  std::size_t Left() const { return static_cast<std::size_t>(end_ - at_); }
  const Unit* At() const { return at_; }
  void MoveTo(const Unit* at) { at_ = at; }
  void Skip(std::size_t count) { at_ += std::min(count, Left()); }
  Unit Take() { return *at_++; }
  // The unit so far after the next one; 0 past the end.
  char16_t Peek(std::size_t offset) const { return offset < Left() ? Code(at_[offset]) : u'\0'; }

  static constexpr char16_t Code(Unit unit) {
    if constexpr (sizeof(Unit) == 1) {
      return static_cast<unsigned char>(unit);
    } else {
      return unit;
    }
  }
  static constexpr bool IsDigit(Unit unit) { return unit >= '0' && unit <= '9'; }
  static constexpr bool IsText(Unit unit) {
    return unit != '\\' && unit != '{' && unit != '}' && unit != '\r' && unit != '\n' && unit != 0;
  }
  static constexpr bool IsBlank(Unit unit) {
    return unit == ' ' || unit == '\r' || unit == '\n' || unit == 0;
  }
  static constexpr bool IsLetter(Unit unit) {
    return (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z');
  }

  // The byte of the two digits at `digits`, or a value above 0xFF.
  static unsigned HexByte(const Unit* digits) {
    const char16_t high = Code(digits[0]);
    const char16_t low = Code(digits[1]);
    if constexpr (sizeof(Unit) > 1) {
      if ((high | low) > 0xFF) return kNoDigit;
    }
    return static_cast<unsigned>(kHighDigits[high] | kLowDigits[low]);
  }
  // Whether "\'" stands at `at`, where two units are left.
  static bool HexSignStandsAt(const Unit* at) {
    constexpr std::array<Unit, 2> kSign = {'\\', '\''};
    return std::memcmp(at, kSign.data(), sizeof kSign) == 0;
  }
  // Whether "\'" stands at `at`, with two units after it.
  bool IsHexAt(const Unit* at) const { return end_ - at >= 4 && HexSignStandsAt(at); }
  // Whether "\u" and a number stands at `at`.
  bool IsUnicodeAt(const Unit* at) const {
    if (end_ - at < 3 || at[0] != '\\' || at[1] != 'u') return false;
    return IsDigit(at[2]) || (at[2] == '-' && end_ - at > 3 && IsDigit(at[3]));
  }

  // Whether the "\*" taken last is the first thing since `start`, and a control word the next one.
  // Blanks and line ends don't count.
  bool StarOpensGroup(const Unit* start) const {
    const Unit* before = at_ - 2;
    while (before > start && IsBlank(before[-1])) --before;
    const Unit* after = at_;
    while (after < end_ && IsBlank(*after)) ++after;
    return before == start && end_ - after >= 2 && after[0] == '\\' && IsLetter(after[1]);
  }

  // Steps over one unit of text, or one "\'hh", which stand for a character that "\u" has given.
  [[nodiscard]] bool SkipSubstitute(const Unit*& at) const {
    if (IsHexAt(at) && HexByte(at + 2) <= 0xFF) {
      at += 4;
    } else if (at < end_ && IsText(*at)) {
      ++at;
    } else {
      return false;
    }
    return true;
  }

  // Reads a number with its sign, if there is one, and the one blank that ends it.
  std::int64_t TakeNumber(const Unit*& at) const {
    const bool negative = at < end_ && *at == '-';
    if (negative) ++at;
    std::int64_t number = 0;
    while (at < end_ && IsDigit(*at)) number = std::min(number * 10 + (*at++ - '0'), kLargest);
    if (at < end_ && *at == ' ') ++at;
    return negative ? -number : number;
  }

  // From the first letter after "\" to after the blank that ends the word.
  ControlWord TakeControlWord() {
    ControlWord word{{}, 0, kWordHashSeed, false, 0};
    for (; at_ < end_ && IsLetter(*at_); ++at_, ++word.length) {
      const char letter = static_cast<char>(*at_);
      if (word.length < word.letters.size()) word.letters[word.length] = letter;
      word.hash = HashStep(word.hash, letter);
    }
    word.hasParameter = Left() > 0 && (IsDigit(*at_) || (*at_ == '-' && IsDigitAt(at_ + 1)));
    if (word.hasParameter) {
      word.parameter = TakeNumber(at_);
    } else if (at_ < end_ && *at_ == ' ') {
      ++at_;
    }
    return word;
  }

  // Up to the "}" of the group in which the scanner stands, or to the end.
  void SkipGroup() {
    for (std::size_t depth = 0;;) {
      while (at_ < end_ && *at_ != '\\' && *at_ != '{' && *at_ != '}') ++at_;
      if (at_ == end_) return;
      if (*at_ == '\\') {
        SkipEscape();
        continue;
      }
      if (*at_ == '{') ++depth;
      if (*at_ == '}' && depth-- == 0) return;
      ++at_;
    }
  }

  // The data of \bin: no more than there is.
  std::basic_string_view<Unit> TakeBinary(std::int64_t count) {
    const auto wanted = static_cast<std::uint64_t>(std::max<std::int64_t>(count, 0));
    const Unit* const from = at_;
    at_ += std::min<std::uint64_t>(wanted, Left());
    return {from, static_cast<std::size_t>(at_ - from)};
  }

 private:
  static constexpr std::int64_t kLargest = 1'000'000'000'000;

  bool IsDigitAt(const Unit* at) const { return at < end_ && IsDigit(*at); }

  void SkipEscape() {
    const bool mayBeBinary = Peek(1) == 'b' && Peek(2) == 'i' && Peek(3) == 'n';
    if (!mayBeBinary) return Skip(2);
    ++at_;
    const ControlWord word = TakeControlWord();
    if (word.length == 3) TakeBinary(word.parameter);
  }

  const Unit* at_;
  const Unit* end_;
};

}  // namespace platform::rtf
