// Fields that show a character which stands in their instruction alone: SYMBOL (ISO/IEC 29500-1,
// 17.16.5.63). Of every other field the result is what is read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/rtf/font_page.h"
#include "platform/text/text.h"

namespace platform::rtf {

struct Symbol {
  enum class Code : std::uint8_t { kFont, kAnsi, kShiftJis, kUnicode };

  int number = 0;
  Code code = Code::kFont;
  Text font;           // empty: the one in use
  int halfPoints = 0;  // 0: the size in use
  bool operator==(const Symbol&) const = default;
};

// Nothing for any other instruction and for one without a number.
[[nodiscard]] std::optional<Symbol> ReadSymbol(TextView instruction);

// `ofFont` is the page of the font that it stands in.
Text CharacterOf(const Symbol& symbol, const FontPage& ofFont);

// Remembers the symbol until its field ends. Groups are named by their depth.
class Fields {
 public:
  void BeginInstruction(std::size_t group) {
    instruction_.clear();
    instructionGroup_ = group;
  }
  // The rest of a long one is lost.
  void AddToInstruction(char16_t unit) {
    if (instruction_.size() < kLongestInstruction) instruction_ += unit;
  }
  // `shown` is how much text there has been: a field whose result adds some has no need of the
  // symbol.
  void EndGroup(std::size_t group, std::size_t shown) {
    if (group != instructionGroup_) return;
    instructionGroup_ = kNone;
    symbol_ = ReadSymbol(instruction_);
    fieldGroup_ = group - 1;
    shown_ = shown;
  }
  // The symbol that the field, whose group ends, is to show.
  [[nodiscard]] std::optional<Symbol> TakeSymbol(std::size_t group, std::size_t shown) {
    if (group != fieldGroup_) return std::nullopt;
    fieldGroup_ = kNone;
    return shown == shown_ ? symbol_ : std::nullopt;
  }

 private:
  static constexpr std::size_t kNone = 0;
  static constexpr std::size_t kLongestInstruction = 256;

  Text instruction_;
  std::size_t instructionGroup_ = kNone;
  std::size_t fieldGroup_ = kNone;
  std::optional<Symbol> symbol_;
  std::size_t shown_ = 0;
};

}  // namespace platform::rtf
