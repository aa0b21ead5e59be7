// What a rich text says about the look of its text: the groups' states, the tables at its head, and
// the words that change them.
#pragma once

#include <cstdint>

#include "platform/rtf/document.h"
#include "platform/rtf/font_page.h"
#include "platform/rtf/state.h"
#include "platform/rtf/tables.h"
#include "platform/rtf/words.h"

namespace platform::rtf {

class Formats {
 public:
  // Whoever wants text alone spares the words that change nothing but its look.
  explicit Formats(bool keepsLook)
      : keepsLook_(keepsLook), groups_(State{.page = &GetFontPage(kWesternCodePage)}) {}

  const State& Now() const { return groups_.Now(); }
  // Text goes to the body, and no recorded change took it out there.
  bool Shows() const { return Goes(Destination::kBody) && !IsDeleted(); }
  bool IsDeleted() const { return (Now().styles & kDeleted) != 0; }
  bool Goes(Destination destination) const { return Now().destination == destination; }
  CharacterFormat Format() const;

  void OpenGroup() { groups_.Open(); }
  void CloseGroup();
  std::size_t Depth() const { return groups_.Depth(); }
  bool ClosingRestores() const { return groups_.ClosingRestores(); }

  void Redirect(Destination destination) { groups_.Change().destination = destination; }
  void SetFallbackLength(int length);
  void SetDefaultFont(int font);
  void SetDocumentPage(int page);
  // `number` is the word's parameter; what holds without one is the callers' business.
  void Obey(FormatWord word, int number);
  void Obey(TableWord word, int number);
  // The font of this name, whether its table has it or not.
  void SetFont(TextView name);
  void SetStyle(std::uint16_t style, bool on);
  void SetSlot(FontSlot slot);
  void SetScript(FontSlot slot);
  void SetAlignment(Alignment alignment);
  void SetDirection(Direction direction);

  void AddToFontName(char16_t unit) { fonts_.AddToName(unit); }
  void EndTableEntry();

 private:
  void ObeyLook(FormatWord word, int number);
  void ObeyComplexLook(FormatWord word, int number);
  void MakePlain();
  void SetFont(int font);
  void SetAssociatedFont(int font);
  void SetFontPage(int page);
  int FontNumber() const;
  void UpdatePage();
  void SetPage(int number);
  bool HasStyle(Style plain, Style complex, Style known) const;

  bool keepsLook_;
  FontTable fonts_;
  ColourTable colours_;
  GroupStack groups_;
  int documentPage_ = kWesternCodePage;
  int defaultFont_ = 0;
};

}  // namespace platform::rtf
