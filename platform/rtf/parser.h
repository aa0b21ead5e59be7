// The reader's core, shared by the document and the plain text. It turns RTF into stretches of
// text, paragraph ends and pictures for a sink (output.h), in one pass, without recursion. Here
// stand the groups, the control words and what they open; text_reader.h reads what is between them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <utility>

#include "platform/rtf/fields.h"
#include "platform/rtf/formats.h"
#include "platform/rtf/output.h"
#include "platform/rtf/picture_reader.h"
#include "platform/rtf/scanner.h"
#include "platform/rtf/state.h"
#include "platform/rtf/text_reader.h"
#include "platform/rtf/words.h"
#include "platform/text/text.h"

namespace platform::rtf {

template <typename Unit, typename Sink>
class Parser {
 public:
  Parser(std::basic_string_view<Unit> rtf, Sink& sink)
      : scan_(rtf),
        formats_(kFormatted),
        out_(sink, formats_),
        text_(scan_, formats_, fields_, out_) {}

  void Run() {
    while (!scan_.AtEnd() && Step()) {
    }
    text_.FlushBytes();
    picture_.Finish();
    out_.Finish();
  }

 private:
  static constexpr bool kFormatted = Sink::kKeepsFormat;

  // What stands next. False at the end of the outermost group.
  [[nodiscard]] bool Step() {
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

  void TextUnits() {
    if (text_.TakesSubstitute()) {
      scan_.Skip(1);
    } else if (picture_.IsOpen()) {
      TakePictureDigits();
    } else {
      text_.TakeUnits();
    }
  }

  // Groups.

  void OpenGroup() {
    BreakOff();
    scan_.Skip(1);
    groupStart_ = scan_.At();
    formats_.OpenGroup();
  }

  [[nodiscard]] bool CloseGroup() {
    BreakOff();
    scan_.Skip(1);
    const std::size_t depth = formats_.Depth();
    if (depth <= 1) return false;
    if (pictureDepth_ == depth) picture_.Finish();
    fields_.EndGroup(depth, out_.Count());
    if (const auto symbol = fields_.TakeSymbol(depth, out_.Count())) ShowSymbol(*symbol);
    if (formats_.ClosingRestores()) out_.BeforeChange();
    formats_.CloseGroup();
    return true;
  }

  void BreakOff() {
    text_.BreakOff();
    optional_ = false;
  }

  // Control words and symbols.

  void Backslash() {
    if (scan_.Peek(1) == u'\'') return text_.TakeHexBytes();
    if (text_.IsAtUnicode()) return text_.TakeUnicode();
    scan_.Skip(1);
    if (scan_.AtEnd()) return;
    if (scan_.IsLetter(*scan_.At())) {
      ObeyWord(scan_.TakeControlWord());
    } else {
      ObeySymbol(scan_.Code(scan_.Take()));
    }
  }

  void ObeySymbol(char16_t symbol) {
    if (text_.TakesSubstitute()) return;
    const bool escaped = symbol == u'\\' || symbol == u'{' || symbol == u'}';
    if (escaped) return text_.AddByte(static_cast<unsigned char>(symbol));
    text_.FlushBytes();
    if (symbol == u'*') optional_ = scan_.StarOpensGroup(groupStart_);
    if (symbol == u'~') text_.Add(u'\u00A0');
    if (symbol == u'_') text_.Add(u'\u2011');
    if (symbol == u'-') text_.Add(u'\u00AD');
    if (symbol == u'\t') text_.Add(u'\t');
    if (symbol == u'\r' || symbol == u'\n') out_.EndParagraph();
  }

  // Only a group's first word can open a destination. After it "\*" hides nothing: some writers
  // put it before words that are formats.
  void ObeyWord(const ControlWord& control) {
    const Word* const word = control.Find();
    if (text_.TakesSubstitute()) {
      if (word != nullptr && IsBinary(*word)) scan_.TakeBinary(control.parameter);
      return;
    }
    text_.FlushBytes();
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
        out_.BeforeChange();
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
        out_.BeforeChange();
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
    if (character == kParagraphSeparator) return out_.EndParagraph();
    text_.Add(character);
  }

  void ExecuteDocument(DocumentWord word, const ControlWord& control) {
    switch (word) {
      case DocumentWord::kCodePage:
        return formats_.SetDocumentPage(Parameter(control, kWesternCodePage));
      case DocumentWord::kDefaultFont:
        out_.BeforeChange();
        return formats_.SetDefaultFont(Parameter(control, 0));
      case DocumentWord::kFallbackLength:
        return formats_.SetFallbackLength(std::max(Parameter(control, 1), 0));
      case DocumentWord::kUnicode:
        return text_.ExpectSubstitutes();
      case DocumentWord::kBinary:
        scan_.TakeBinary(control.parameter);
        return;
      case DocumentWord::kPageEnd:
        if (!out_.ParagraphIsEmpty()) out_.EndParagraph();
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
        return RedirectOrSkip(Destination::kNowhere);
      case DestinationWord::kFieldInstruction:
        fields_.BeginInstruction(formats_.Depth());
        return RedirectOrSkip(Destination::kFieldInstruction);
      case DestinationWord::kObjectResult:
      case DestinationWord::kShapeText:
        return RedirectFrom(Destination::kNowhere, Destination::kBody);
      case DestinationWord::kShapeName:
        text_.ClearShapeName();
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

  // What leads out of the body, or out of what isn't shown; elsewhere it is of no use.
  void RedirectOrSkip(Destination to) {
    const bool inBody = formats_.Goes(Destination::kBody) || formats_.Goes(Destination::kNowhere);
    return inBody ? formats_.Redirect(to) : scan_.SkipGroup();
  }

  // Fields.

  // In the font and the size that the field names; its group is about to end.
  void ShowSymbol(const Symbol& symbol) {
    if (!formats_.Shows()) return;
    out_.BeforeChange();
    formats_.SetSlot(FontSlot::kPlain);
    if (!symbol.font.empty()) formats_.SetFont(symbol.font);
    if (symbol.halfPoints != 0) formats_.Obey(FormatWord::kSize, symbol.halfPoints);
    if (symbol.code == Symbol::Code::kUnicode) return text_.AddNumber(symbol.number);
    text_.AddAll(CharacterOf(symbol, *formats_.Now().page));
  }

  // Pictures.

  bool PictureIsWanted() const {
    const bool ofShape =
        formats_.Goes(Destination::kShapeValue) && text_.ShapeName() == kShapePicture;
    return (ofShape || formats_.Goes(Destination::kBody)) && !formats_.IsDeleted();
  }

  void BeginPicture() {
    if (!PictureIsWanted()) return scan_.SkipGroup();
    if constexpr (kFormatted) {
      picture_.Begin(out_.AddPicture());
      pictureDepth_ = formats_.Depth();
      formats_.Redirect(Destination::kPicture);
    } else {
      out_.Put(u' ');
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
  Formats formats_;
  Fields fields_;
  Output<Sink> out_;
  TextReader<Unit, Sink> text_;
  PictureReader picture_;
  std::size_t pictureDepth_ = 0;      // of its group
  bool pictureShown_ = false;         // \shppict has been read, its \nonshppict not yet
  const Unit* groupStart_ = nullptr;  // after the brace that was opened last
  bool optional_ = false;             // "\*" stands in front
};

}  // namespace platform::rtf
