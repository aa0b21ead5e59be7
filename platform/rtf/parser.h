// The reader's core, shared by the document and the plain text. It turns RTF into stretches of
// text, paragraph ends and pictures for a `Sink`, in one pass, without recursion.
//
// A sink says at compile time whether it keeps formats. If it does, it has
//   void AddText(TextView text, const CharacterFormat& format);
//   Picture& AddPicture(const CharacterFormat& format);  // filled in before the next call
//   void EndParagraph(Alignment alignment, Direction direction);
// and otherwise only
//   void AddText(TextView text);    // paragraph ends and line breaks as CR LF, pictures as blanks
//   void DropLastParagraphEnd();
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

#include "platform/rtf/document.h"
#include "platform/rtf/font_page.h"
#include "platform/rtf/formats.h"
#include "platform/rtf/picture_reader.h"
#include "platform/rtf/scanner.h"
#include "platform/rtf/state.h"
#include "platform/rtf/words.h"
#include "platform/text.h"

namespace platform::rtf {

inline constexpr char16_t kLineSeparator = u'\u2028';
inline constexpr char16_t kParagraphSeparator = u'\u2029';

template <typename Unit, typename Sink>
class Parser {
 public:
  Parser(std::basic_string_view<Unit> rtf, Sink& sink)
      : scan_(rtf), sink_(sink), formats_(kFormatted) {}

  void Run() {
    while (!scan_.AtEnd() && Step()) {
    }
    Finish();
  }

 private:
  static constexpr bool kFormatted = Sink::kKeepsFormat;
  static constexpr std::size_t kChunk = 8192;

  // What stands next. False at the end of the outermost group.
  bool Step() {
    switch (scan_.Peek(0)) {
      case u'\\':
        Backslash();
        return true;
      case u'{':
        OpenGroup();
        return true;
      case u'}':
        return CloseGroup();
      case u'\r':
      case u'\n':
      case u'\0':
        scan_.Skip(1);
        return true;
      default:
        TextUnits();
        return true;
    }
  }

  void Finish() {
    FlushBytes();
    picture_.Finish();
    const bool open = !ParagraphIsEmpty() || paragraphs_ == 0;
    Flush();
    if constexpr (kFormatted) {
      if (open) sink_.EndParagraph(Now().alignment, Now().direction);
    } else {
      if (!open) sink_.DropLastParagraphEnd();
    }
  }

  // Groups.

  const State& Now() const { return formats_.Now(); }

  void OpenGroup() {
    BreakOff();
    scan_.Skip(1);
    formats_.OpenGroup();
  }

  bool CloseGroup() {
    BreakOff();
    scan_.Skip(1);
    if (formats_.Depth() <= 1) return false;
    if (pictureDepth_ == formats_.Depth()) picture_.Finish();
    if (formats_.ClosingRestores()) FlushForChange();
    formats_.CloseGroup();
    return true;
  }

  // A brace ends whatever was under way: a character of several bytes, "\*", a substitute.
  void BreakOff() {
    FlushBytes();
    substitutesLeft_ = 0;
    optional_ = false;
  }

  // Text.

  void TextUnits() {
    if (substitutesLeft_ > 0) {
      --substitutesLeft_;
      scan_.Skip(1);
    } else if (picture_.IsOpen()) {
      TakePictureDigits();
    } else if (!formats_.Shows() || !bytes_.empty() || !CopyLetters()) {
      OneUnit();
    }
  }

  void OneUnit() {
    const char16_t unit = scan_.Code(scan_.Take());
    if (unit == u';') {
      FlushBytes();
      formats_.EndTableEntry();
    }
    if (unit <= 0xFF) return AddByte(static_cast<unsigned char>(unit));
    FlushBytes();
    Emit(unit);
  }

  // The fast way of plain text: what the page has as letters, straight into the chunk.
  bool CopyLetters() {
    const CharacterTable& letters = Now().page->Letters();
    const Unit* at = scan_.At();
    const Unit* const stop = at + std::min(scan_.Left(), Room());
    char16_t* to = To();
    for (char16_t unit = 0; at < stop && (unit = Letter(letters, *at)) != 0; ++at) *to++ = unit;
    const bool moved = at != scan_.At();
    scan_.MoveTo(at);
    Advance(to);
    return moved;
  }

  static char16_t Letter(const CharacterTable& letters, Unit unit) {
    const char16_t code = Scanner<Unit>::Code(unit);
    if constexpr (sizeof(Unit) > 1) {
      if (code > 0xFF) return code == kLineSeparator || code == kParagraphSeparator ? u'\0' : code;
    }
    return letters[code];
  }

  void HexBytes() {
    const bool fast = substitutesLeft_ == 0 && formats_.Shows() && bytes_.empty();
    if (fast && CopyHexLetters()) return;
    const Unit* const at = scan_.At();
    if (!scan_.IsHexAt(at)) return scan_.Skip(scan_.Left());
    const unsigned byte = scan_.HexByte(at + 2);
    scan_.Skip(byte <= 0xFF ? 4 : 2);
    if (substitutesLeft_ > 0) {
      --substitutesLeft_;
    } else if (byte <= 0xFF) {
      AddByte(static_cast<unsigned char>(byte));
    }
  }

  // Runs of "\'hh" are broken by blanks and marks all the time, so those go the same fast way.
  bool CopyHexLetters() {
    constexpr std::size_t kHexUnits = 4;
    if (scan_.Left() < kHexUnits) return false;
    const CharacterTable& letters = Now().page->Letters();
    const Unit* at = scan_.At();
    const Unit* const lastHex = at + scan_.Left() - kHexUnits;
    const std::size_t room = Room();
    char16_t* to = To();
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
    Advance(to);
    return moved;
  }

  // "\uN" and its substitutes, as long as one follows another.
  void UnicodeUnits() {
    FlushBytes();
    const Unit* at = scan_.At();
    const bool shows = formats_.Shows();
    do {
      at += 2;
      const std::int64_t number = scan_.TakeNumber(at);
      if (shows && IsPlainNumber(number)) {
        Put(static_cast<char16_t>(number));
      } else {
        EmitNumber(number);
      }
      substitutesLeft_ = Now().fallbackLength;
      while (substitutesLeft_ > 0 && scan_.SkipSubstitute(at)) --substitutesLeft_;
    } while (substitutesLeft_ == 0 && scan_.IsUnicodeAt(at));
    scan_.MoveTo(at);
  }

  // A control character that was written as a number is that character; the bare byte and the
  // control words are what ends paragraphs and lines.
  static bool IsPlainNumber(std::int64_t number) {
    return number > 0 && number < kLineSeparator && number != u'\r' && number != u'\n';
  }

  // Numbers are signed and of 16 bits; some writers give whole code points.
  void EmitNumber(std::int64_t number) {
    if (number >= -0x8000 && number <= 0xFFFF) return Emit(static_cast<char16_t>(number));
    if (number < 0 || number > 0x10FFFF) return Emit(u'\uFFFD');
    Emit(static_cast<char16_t>(0xD7C0 + (number >> 10)));
    Emit(static_cast<char16_t>(0xDC00 + (number & 0x3FF)));
  }

  // A byte of text in the page in use. One that can't stand alone waits for the others.
  void AddByte(unsigned char byte) {
    const FontPage& page = *Now().page;
    if (trailExpected_ && !page.IsTrail(byte)) FlushBytes();
    if (page.HasSeveralBytes() && (byte >= 0x80 || trailExpected_)) {
      bytes_ += static_cast<char>(byte);
      trailExpected_ = !trailExpected_ && page.IsLead(byte);
      return;
    }
    FlushBytes();
    Emit(page.Character(byte));
  }

  void FlushBytes() {
    if (bytes_.empty()) return;
    trailExpected_ = false;
    const std::string bytes = std::exchange(bytes_, {});
    for (const char16_t unit : Now().page->Decode(bytes)) Emit(unit);
  }

  void Emit(char16_t unit) {
    if (formats_.Goes(Destination::kFontTable)) {
      formats_.AddToFontName(unit);
    } else if (formats_.Goes(Destination::kShapeName)) {
      if (shapeName_.size() < kShapePicture.size() + 1) shapeName_ += unit;
    } else if (formats_.Shows()) {
      EmitShown(unit);
    }
  }

  void EmitShown(char16_t unit) {
    const bool endsParagraph =
        unit == u'\r' || unit == u'\n' || unit == u'\f' || unit == kParagraphSeparator;
    if (endsParagraph) {
      EndParagraph();
    } else if (unit == u'\v' || unit == kLineSeparator) {
      BreakLine();
    } else if (unit >= 0x20 || unit == u'\t') {
      Put(unit);
    }
  }

  void EndParagraph() {
    if (!formats_.Goes(Destination::kBody)) return;
    if constexpr (kFormatted) {
      Flush();
      sink_.EndParagraph(Now().alignment, Now().direction);
    } else {
      Put(u'\r');
      Put(u'\n');
    }
    ++paragraphs_;
    paragraphStart_ = Emitted();
  }

  void BreakLine() {
    if constexpr (kFormatted) {
      Put(kLineSeparator);
    } else {
      Put(u'\r');
      Put(u'\n');
    }
  }

  bool ParagraphIsEmpty() const { return Emitted() == paragraphStart_; }

  // The chunk: text that the sink hasn't got yet.

  std::size_t Emitted() const { return emitted_ + used_; }
  std::size_t Room() {
    if (used_ == kChunk) Flush();
    return kChunk - used_;
  }
  char16_t* To() { return chunk_.data() + used_; }
  void Advance(const char16_t* to) { used_ = static_cast<std::size_t>(to - chunk_.data()); }
  void Put(char16_t unit) {
    if (used_ == kChunk) Flush();
    chunk_[used_++] = unit;
  }
  // Text in hand belongs to the format before the change.
  void FlushForChange() {
    if constexpr (kFormatted) Flush();
  }
  void Flush() {
    if (used_ == 0) return;
    const TextView text(chunk_.data(), used_);
    if constexpr (kFormatted) {
      sink_.AddText(text, formats_.Format());
    } else {
      sink_.AddText(text);
    }
    emitted_ += used_;
    used_ = 0;
  }

  // Control words and symbols.

  void Backslash() {
    const char16_t next = scan_.Peek(1);
    if (next == u'\'') return HexBytes();
    if (substitutesLeft_ == 0 && scan_.IsUnicodeAt(scan_.At())) return UnicodeUnits();
    scan_.Skip(1);
    if (scan_.AtEnd()) return;
    if (scan_.IsLetter(*scan_.At())) {
      ObeyWord(scan_.TakeControlWord());
    } else {
      ObeySymbol(scan_.Code(scan_.Take()));
    }
  }

  void ObeySymbol(char16_t symbol) {
    if (substitutesLeft_ > 0) {
      --substitutesLeft_;
      return;
    }
    const bool escaped = symbol == u'\\' || symbol == u'{' || symbol == u'}';
    if (escaped) return AddByte(static_cast<unsigned char>(symbol));
    FlushBytes();
    if (symbol == u'*') optional_ = true;
    if (symbol == u'~') Emit(u'\u00A0');
    if (symbol == u'_') Emit(u'\u2011');
    if (symbol == u'-') Emit(u'\u00AD');
    if (symbol == u'\t') Emit(u'\t');
    if (symbol == u'\r' || symbol == u'\n') EndParagraph();
  }

  void ObeyWord(const ControlWord& control) {
    const Word* const word = control.Find();
    if (substitutesLeft_ > 0) {
      --substitutesLeft_;
      if (word != nullptr && IsBinary(*word)) scan_.TakeBinary(control.parameter);
      return;
    }
    FlushBytes();
    const bool optional = std::exchange(optional_, false);
    if (word == nullptr) {
      if (optional) scan_.SkipGroup();
    } else if (picture_.IsOpen()) {
      ExecuteInPicture(*word, control, optional);
    } else {
      Execute(*word, control);
    }
  }

  static bool IsBinary(const Word& word) {
    return word.family == Family::kDocument &&
           word.value == static_cast<std::uint16_t>(DocumentWord::kBinary);
  }

  static int Parameter(const ControlWord& control, int otherwise) {
    constexpr std::int64_t kLargest = std::numeric_limits<int>::max();
    if (!control.hasParameter) return otherwise;
    return static_cast<int>(std::clamp(control.parameter, -kLargest, kLargest));
  }

  void Execute(const Word& word, const ControlWord& control) {
    switch (word.family) {
      case Family::kText:
        return ExecuteText(word.value);
      case Family::kDestination:
        FlushForChange();
        return ExecuteDestination(static_cast<DestinationWord>(word.value));
      case Family::kDocument:
        return ExecuteDocument(static_cast<DocumentWord>(word.value), control);
      case Family::kCharacterSet:
        return formats_.SetDocumentPage(word.value);
      case Family::kTable:
        return formats_.Obey(static_cast<TableWord>(word.value), Parameter(control, 0));
      case Family::kAlignment:
        return formats_.SetAlignment(static_cast<Alignment>(word.value));
      case Family::kDirection:
        return formats_.SetDirection(static_cast<Direction>(word.value));
      case Family::kPicture:
      case Family::kNothing:
        return;
      default:
        FlushForChange();
        return ExecuteLook(word, control);
    }
  }

  void ExecuteLook(const Word& word, const ControlWord& control) {
    const auto format = static_cast<FormatWord>(word.value);
    const auto slot = static_cast<FontSlot>(word.value);
    if (word.family == Family::kFormat) formats_.Obey(format, FormatParameter(format, control));
    if (word.family == Family::kToggle) formats_.SetStyle(word.value, Parameter(control, 1) != 0);
    if (word.family == Family::kUntoggle) formats_.SetStyle(word.value, false);
    if (word.family == Family::kSlot) formats_.SetSlot(slot);
    if (word.family == Family::kScript) formats_.SetScript(slot);
  }

  static int FormatParameter(FormatWord word, const ControlWord& control) {
    constexpr int kUsualHalfPoints = 24;
    const bool isSize = word == FormatWord::kSize || word == FormatWord::kComplexSize;
    const bool isStyle = word == FormatWord::kComplexBold || word == FormatWord::kComplexItalic;
    return Parameter(control, isSize ? kUsualHalfPoints : isStyle ? 1 : 0);
  }

  void ExecuteText(char16_t character) {
    if (character == kParagraphSeparator) return EndParagraph();
    Emit(character);
  }

  void ExecuteDocument(DocumentWord word, const ControlWord& control) {
    switch (word) {
      case DocumentWord::kCodePage:
        return formats_.SetDocumentPage(Parameter(control, kWesternCodePage));
      case DocumentWord::kDefaultFont:
        FlushForChange();
        return formats_.SetDefaultFont(Parameter(control, 0));
      case DocumentWord::kFallbackLength:
        return formats_.SetFallbackLength(std::max(Parameter(control, 1), 0));
      case DocumentWord::kUnicode:
        substitutesLeft_ = Now().fallbackLength;
        return;
      case DocumentWord::kBinary:
        scan_.TakeBinary(control.parameter);
        return;
      case DocumentWord::kPageEnd:
        if (!ParagraphIsEmpty()) EndParagraph();
        return;
    }
  }

  // Destinations.

  void ExecuteDestination(DestinationWord word) {
    switch (word) {
      case DestinationWord::kSkipped:
        return scan_.SkipGroup();
      case DestinationWord::kFontTable:
        return formats_.Redirect(Destination::kFontTable);
      case DestinationWord::kColourTable:
        return formats_.Redirect(Destination::kColourTable);
      case DestinationWord::kObject:
      case DestinationWord::kShape:
        return formats_.Redirect(Destination::kNowhere);
      case DestinationWord::kObjectResult:
      case DestinationWord::kShapeText:
        return RedirectFrom(Destination::kNowhere, Destination::kBody);
      case DestinationWord::kShapeName:
        shapeName_.clear();
        return RedirectFrom(Destination::kNowhere, Destination::kShapeName);
      case DestinationWord::kShapeValue:
        return RedirectFrom(Destination::kNowhere, Destination::kShapeValue);
      case DestinationWord::kAlternatives:
        return RedirectFrom(Destination::kBody, Destination::kAlternatives);
      case DestinationWord::kUnicodeAlternative:
        return RedirectFrom(Destination::kAlternatives, Destination::kBody);
      case DestinationWord::kPicture:
        return BeginPicture();
      case DestinationWord::kShownPicture:
        pictureShown_ = true;
        return;
      case DestinationWord::kFallbackPicture:
        if (std::exchange(pictureShown_, false)) scan_.SkipGroup();
        return;
    }
  }

  void RedirectFrom(Destination from, Destination to) {
    if (formats_.Goes(from)) formats_.Redirect(to);
  }

  // Pictures.

  bool PictureIsWanted() const {
    const bool ofShape = formats_.Goes(Destination::kShapeValue) && shapeName_ == kShapePicture;
    return (ofShape || formats_.Goes(Destination::kBody)) && !formats_.IsHidden();
  }

  void BeginPicture() {
    if (!PictureIsWanted()) return scan_.SkipGroup();
    if constexpr (kFormatted) {
      picture_.Begin(sink_.AddPicture(formats_.Format()));
      pictureDepth_ = formats_.Depth();
      ++emitted_;
      formats_.Redirect(Destination::kPicture);
    } else {
      Put(u' ');
      scan_.SkipGroup();
    }
  }

  void ExecuteInPicture(const Word& word, const ControlWord& control, bool optional) {
    if (word.family == Family::kPicture) {
      picture_.Obey(static_cast<PictureWord>(word.value), Parameter(control, 0));
    } else if (IsBinary(word)) {
      for (const Unit unit : scan_.TakeBinary(control.parameter)) {
        picture_.AddByte(static_cast<char>(unit));
      }
    } else if (optional || word.family == Family::kDestination) {
      scan_.SkipGroup();
    }
  }

  void TakePictureDigits() {
    const Unit* at = scan_.At();
    const Unit* const end = at + scan_.Left();
    for (; at < end && scan_.IsText(*at); ++at) picture_.AddDigit(scan_.Code(*at));
    scan_.MoveTo(at);
  }

  static constexpr TextView kShapePicture = u"pib";

  Scanner<Unit> scan_;
  Sink& sink_;
  Formats formats_;
  PictureReader picture_;
  std::size_t pictureDepth_ = 0;  // of its group

  int substitutesLeft_ = 0;     // how many characters are still to be skipped behind "\uN"
  bool optional_ = false;       // "\*" stands in front
  std::string bytes_;           // of characters of several bytes
  bool trailExpected_ = false;  // bytes_ ends in the middle of a character
  Text shapeName_;

  bool pictureShown_ = false;  // \\shppict has been read, its \\nonshppict not yet

  std::size_t emitted_ = 0;  // units and pictures that the sink has got
  std::size_t paragraphs_ = 0;
  std::size_t paragraphStart_ = 0;
  std::size_t used_ = 0;
  std::array<char16_t, kChunk> chunk_;
};

}  // namespace platform::rtf
