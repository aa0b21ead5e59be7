#include "platform/rtf/formats.h"

#include <algorithm>

namespace platform::rtf {
namespace {

int Size(int halfPoints) { return std::clamp(halfPoints, 0, kLargestHalfPoints); }

void SetBits(State& state, unsigned bits, bool on) {
  state.styles = static_cast<std::uint16_t>(on ? state.styles | bits : state.styles & ~bits);
}

void SetComplexStyle(State& state, Style style, Style known, bool on) {
  SetBits(state, style, on);
  SetBits(state, known, true);
}

}  // namespace

CharacterFormat Formats::Format() const {
  const State& state = Now();
  const bool complexSize = state.slot == FontSlot::kComplex && state.complexHalfPoints != kUnset;
  CharacterFormat format;
  format.font = fonts_.NameOf(FontNumber());
  format.halfPoints = complexSize ? state.complexHalfPoints : state.halfPoints;
  format.bold = HasStyle(kBold, kComplexBold, kHasComplexBold);
  format.italic = HasStyle(kItalic, kComplexItalic, kHasComplexItalic);
  format.underline = (state.styles & kUnderline) != 0;
  format.strikeOut = (state.styles & kStrikeOut) != 0;
  format.colour = colours_.Get(state.foreground);
  format.background = colours_.Get(state.background);
  return format;
}

bool Formats::HasStyle(Style plain, Style complex, Style known) const {
  const bool useComplex = Now().slot == FontSlot::kComplex && (Now().styles & known) != 0;
  return (Now().styles & (useComplex ? complex : plain)) != 0;
}

// The font in use was unknown until its table was read.
void Formats::CloseGroup() {
  const bool endsFonts = Goes(Destination::kFontTable);
  groups_.Close();
  if (endsFonts) UpdatePage();
}

void Formats::SetFallbackLength(int length) {
  if (Now().fallbackLength != length) groups_.Change().fallbackLength = length;
}

void Formats::SetDefaultFont(int font) {
  defaultFont_ = font;
  UpdatePage();
}

void Formats::SetDocumentPage(int page) {
  documentPage_ = page;
  UpdatePage();
}

void Formats::Obey(FormatWord word, int number) {
  if (word == FormatWord::kPlain) return MakePlain();
  if (word == FormatWord::kFont) return SetFont(number);
  if (word == FormatWord::kComplexFont) return SetAssociatedFont(number);
  if (keepsLook_) ObeyLook(word, number);
}

void Formats::ObeyLook(FormatWord word, int number) {
  State& state = groups_.Change();
  if (word == FormatWord::kPard) {
    state.alignment = State().alignment;
    state.direction = State().direction;
  }
  if (word == FormatWord::kSize) state.halfPoints = Size(number);
  if (word == FormatWord::kForeground) state.foreground = number;
  if (word == FormatWord::kBackground) state.background = number;
  // Elsewhere these words speak of the other kind of run, whose own words still follow.
  if (state.slot == FontSlot::kComplex) ObeyComplexLook(word, number);
}

void Formats::ObeyComplexLook(FormatWord word, int number) {
  State& state = groups_.Change();
  const bool on = number != 0;
  if (word == FormatWord::kComplexSize) state.complexHalfPoints = Size(number);
  if (word == FormatWord::kComplexBold) SetComplexStyle(state, kComplexBold, kHasComplexBold, on);
  if (word == FormatWord::kComplexItalic) {
    SetComplexStyle(state, kComplexItalic, kHasComplexItalic, on);
  }
}

void Formats::MakePlain() {
  const State before = Now();
  groups_.Change() = State{.page = before.page,
                           .fallbackLength = before.fallbackLength,
                           .destination = before.destination,
                           .alignment = before.alignment,
                           .direction = before.direction};
  UpdatePage();
}

void Formats::SetStyle(std::uint16_t style, bool on) {
  if (!keepsLook_ && (style & kDeleted) == 0) return;
  if (((Now().styles & style) != 0) != on) SetBits(groups_.Change(), style, on);
}

void Formats::SetSlot(FontSlot slot) {
  if (Now().slot == slot) return;
  groups_.Change().slot = slot;
  UpdatePage();
}

// \loch, \hich and \dbch mean nothing inside right-to-left runs.
void Formats::SetScript(FontSlot slot) {
  if (Now().slot != FontSlot::kComplex) SetSlot(slot);
}

void Formats::SetAlignment(Alignment alignment) {
  if (keepsLook_) groups_.Change().alignment = alignment;
}

void Formats::SetDirection(Direction direction) {
  if (keepsLook_) groups_.Change().direction = direction;
}

void Formats::SetFont(int font) {
  if (Goes(Destination::kFontTable)) {
    fonts_.Open(font);
    return SetPage(kDocumentCodePage);
  }
  State& state = groups_.Change();
  state.font = font;
  if (state.slot == FontSlot::kDouble) state.doubleFont = font;
  UpdatePage();
}

void Formats::SetFont(TextView name) { SetFont(fonts_.NumberOf(name)); }

// \af belongs to the kind of run that the word before it names.
void Formats::SetAssociatedFont(int font) {
  if (Now().slot == FontSlot::kPlain) return;
  State& state = groups_.Change();
  (state.slot == FontSlot::kComplex ? state.complexFont : state.doubleFont) = font;
  UpdatePage();
}

int Formats::FontNumber() const {
  const State& state = Now();
  int font = state.font;
  if (state.slot == FontSlot::kComplex && state.complexFont != kUnset) font = state.complexFont;
  if (state.slot == FontSlot::kDouble && state.doubleFont != kUnset) font = state.doubleFont;
  return font == kUnset ? defaultFont_ : font;
}

void Formats::UpdatePage() {
  if (!Goes(Destination::kFontTable)) SetPage(fonts_.CodePageOf(FontNumber()));
}

void Formats::SetPage(int number) {
  const FontPage& page = GetFontPage(number == kDocumentCodePage ? documentPage_ : number);
  if (Now().page != &page) groups_.Change().page = &page;
}

void Formats::Obey(TableWord word, int number) {
  if (Goes(Destination::kFontTable)) {
    if (word == TableWord::kCharset) SetFontPage(CodePageOfCharset(number));
    if (word == TableWord::kCodePage) SetFontPage(number);
  } else if (Goes(Destination::kColourTable)) {
    if (word == TableWord::kRed) colours_.SetPart(16, number);
    if (word == TableWord::kGreen) colours_.SetPart(8, number);
    if (word == TableWord::kBlue) colours_.SetPart(0, number);
  }
}

void Formats::SetFontPage(int page) {
  fonts_.SetCodePage(page);
  SetPage(page);
}

void Formats::EndTableEntry() {
  if (Goes(Destination::kFontTable)) fonts_.EndName();
  if (Goes(Destination::kColourTable)) colours_.EndEntry();
}

}  // namespace platform::rtf
