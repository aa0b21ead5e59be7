// The text between the control words: bytes in the page of the font in use, "\'hh", and "\uN" with
// the substitutes that stand after it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "platform/rtf/fields.h"
#include "platform/rtf/formats.h"
#include "platform/rtf/output.h"
#include "platform/rtf/scanner.h"
#include "platform/text/text.h"

namespace platform::rtf {

template <typename Unit, typename Sink>
class TextReader {
 public:
  TextReader(Scanner<Unit>& scan, Formats& formats, Fields& fields, Output<Sink>& out)
      : scan_(scan), formats_(formats), fields_(fields), out_(out) {}

  // One that stands after "\uN" for readers without Unicode is stepped over.
  [[nodiscard]] bool TakesSubstitute() {
    if (substitutesLeft_ == 0) return false;
    --substitutesLeft_;
    return true;
  }
  // "\u" without a number has substitutes all the same.
  void ExpectSubstitutes() { substitutesLeft_ = formats_.Now().fallbackLength; }
  // A brace ends whatever was under way.
  void BreakOff() {
    FlushBytes();
    substitutesLeft_ = 0;
  }

  // Units that are neither "\" nor a brace nor a line end, as many as go at once.
  void TakeUnits() {
    if (!formats_.Shows() || !bytes_.empty() || !CopyLetters()) TakeUnit();
  }

  // "\'hh", and what follows as long as it is of the same kind.
  void TakeHexBytes() {
    const bool fast = substitutesLeft_ == 0 && formats_.Shows() && bytes_.empty();
    if (fast && CopyHexLetters()) return;
    const Unit* const at = scan_.At();
    if (!scan_.IsHexAt(at)) return scan_.Skip(scan_.Left());
    const unsigned byte = scan_.HexByte(at + 2);
    scan_.Skip(byte <= 0xFF ? 4 : 2);
    if (!TakesSubstitute() && byte <= 0xFF) AddByte(static_cast<unsigned char>(byte));
  }

  // Whether "\uN" stands next and is no substitute itself.
  bool IsAtUnicode() const { return substitutesLeft_ == 0 && scan_.IsUnicodeAt(scan_.At()); }
  // "\uN" and its substitutes, as long as one follows another.
  void TakeUnicode() {
    FlushBytes();
    const Unit* at = scan_.At();
    const bool shows = formats_.Shows();
    do {
      at += 2;
      const std::int64_t number = scan_.TakeNumber(at);
      if (shows && IsPlainNumber(number)) {
        out_.Put(static_cast<char16_t>(number));
      } else {
        AddNumber(number);
      }
      substitutesLeft_ = formats_.Now().fallbackLength;
      while (substitutesLeft_ > 0 && scan_.SkipSubstitute(at)) --substitutesLeft_;
    } while (substitutesLeft_ == 0 && scan_.IsUnicodeAt(at));
    scan_.MoveTo(at);
  }

  // A byte of text in the page in use. One that can't stand alone waits for the others.
  void AddByte(unsigned char byte) {
    const FontPage& page = *formats_.Now().page;
    if (trailExpected_ && !page.IsTrail(byte)) FlushBytes();
    if (page.HasSeveralBytes() && (byte >= 0x80 || trailExpected_)) {
      bytes_ += static_cast<char>(byte);
      trailExpected_ = !trailExpected_ && page.IsLead(byte);
      return;
    }
    FlushBytes();
    Add(page.Character(byte));
  }
  // Text in hand belongs to the page before a change.
  void FlushBytes() {
    if (bytes_.empty()) return;
    trailExpected_ = false;
    const std::string bytes = std::exchange(bytes_, {});
    AddAll(formats_.Now().page->Decode(bytes));
  }

  // A number is signed and of 16 bits; some writers give whole code points.
  void AddNumber(std::int64_t number) {
    if (number >= -0x8000 && number <= 0xFFFF) return Add(static_cast<char16_t>(number));
    if (number < 0 || number > 0x10FFFF) return Add(u'\uFFFD');
    Add(static_cast<char16_t>(0xD7C0 + (number >> 10)));
    Add(static_cast<char16_t>(0xDC00 + (number & 0x3FF)));
  }
  void AddAll(TextView text) {
    for (const char16_t unit : text) Add(unit);
  }
  // A character, to where text goes.
  void Add(char16_t unit) {
    if (formats_.Shows()) return out_.PutShown(unit);
    if (formats_.Goes(Destination::kFontTable)) formats_.AddToFontName(unit);
    if (formats_.Goes(Destination::kFieldInstruction)) fields_.AddToInstruction(unit);
    if (formats_.Goes(Destination::kShapeName) && shapeName_.size() < kLongestShapeName) {
      shapeName_ += unit;
    }
  }

  TextView ShapeName() const { return shapeName_; }
  void ClearShapeName() { shapeName_.clear(); }

 private:
  static constexpr std::size_t kLongestShapeName = 8;

  void TakeUnit() {
    const char16_t unit = scan_.Code(scan_.Take());
    if (unit == u';') {
      FlushBytes();
      formats_.EndTableEntry();
    }
    if (unit <= 0xFF) return AddByte(static_cast<unsigned char>(unit));
    FlushBytes();
    Add(unit);
  }

  // The fast way of plain text: what the page has as letters, straight to the output.
  [[nodiscard]] bool CopyLetters() {
    const CharacterTable& letters = formats_.Now().page->Letters();
    const Unit* at = scan_.At();
    const Unit* const stop = at + std::min(scan_.Left(), out_.Room());
    char16_t* to = out_.To();
    for (char16_t unit = 0; at < stop && (unit = Letter(letters, *at)) != 0; ++at) *to++ = unit;
    const bool moved = at != scan_.At();
    scan_.MoveTo(at);
    out_.Advance(to);
    return moved;
  }

  static char16_t Letter(const CharacterTable& letters, Unit unit) {
    const char16_t code = Scanner<Unit>::Code(unit);
    if constexpr (sizeof(Unit) == 1) return letters[code];
    // Blanks stand between the letters of other scripts: a branch would be guessed wrongly at each.
    const char16_t itself = (code | 1) == kParagraphSeparator ? u'\0' : code;
    const char16_t ofPage = letters[code & 0xFF];
    return code > 0xFF ? itself : ofPage;
  }

  // Runs of "\'hh" are broken by blanks and marks all the time, so those go the same fast way.
  [[nodiscard]] bool CopyHexLetters() {
    constexpr std::size_t kHexUnits = 4;
    if (scan_.Left() < kHexUnits) return false;
    const CharacterTable& letters = formats_.Now().page->Letters();
    const Unit* at = scan_.At();
    const Unit* const lastHex = at + scan_.Left() - kHexUnits;
    const std::size_t room = out_.Room();
    char16_t* to = out_.To();
    const char16_t* const full = to + room;
    while (at <= lastHex && to < full) {
      const bool hex = scan_.HexSignStandsAt(at);
      const unsigned byte = hex ? scan_.HexByte(at + 2) : 0;
      const char16_t letter = hex ? (byte > 0xFF ? u'\0' : letters[byte]) : Letter(letters, *at);
      if (letter == 0) break;
      *to++ = letter;
      at += hex ? kHexUnits : 1;
    }
    const bool moved = at != scan_.At();
    scan_.MoveTo(at);
    out_.Advance(to);
    return moved;
  }

  // A control character that was written as a number is that character; the bare byte and the
  // control words are what ends paragraphs and lines.
  static bool IsPlainNumber(std::int64_t number) {
    return number > 0 && number < kLineSeparator && number != u'\r' && number != u'\n';
  }

  Scanner<Unit>& scan_;
  Formats& formats_;
  Fields& fields_;
  Output<Sink>& out_;
  int substitutesLeft_ = 0;     // how many characters are still to be skipped after "\uN"
  std::string bytes_;           // of characters of several bytes
  bool trailExpected_ = false;  // bytes_ ends in the middle of a character
  Text shapeName_;
};

}  // namespace platform::rtf
