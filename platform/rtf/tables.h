// The font and the colour table at the head of a rich text.
#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <map>
#include <vector>

#include "platform/rtf/document.h"
#include "platform/rtf/font_page.h"
#include "platform/text/text.h"

namespace platform::rtf {

class FontTable {
 public:
  // What follows belongs to the font of this number, until its name ends.
  void Open(int number) {
    open_ = numbers_.insert_or_assign(number, fonts_.size()).first->second;
    fonts_.push_back({number, kDocumentCodePage, Text()});
  }
  void EndName() {
    if (open_ != kNone) names_.insert_or_assign(LCase(fonts_[open_].name), fonts_[open_].number);
    open_ = kNone;
  }
  void AddToName(char16_t unit) {
    if (open_ == kNone || fonts_[open_].name.size() == kLongestFontName) return;
    fonts_[open_].name += unit;
  }
  void SetCodePage(int page) {
    if (open_ != kNone) fonts_[open_].page = page;
  }

  // That of the font of this name; one that is in no table gets a number of its own.
  int NumberOf(TextView name) {
    const auto found = names_.find(LCase(name.substr(0, kLongestFontName)));
    if (found != names_.end()) return found->second;
    const int number = nextNumber_++;
    Open(number);
    for (const char16_t unit : name) AddToName(unit);
    SetCodePage(ShowsSigns(name) ? kSymbolCodePage : kDocumentCodePage);
    EndName();
    return number;
  }
  // kDocumentCodePage where the font is unknown or leaves it open.
  int CodePageOf(int number) const {
    const Font* const font = Find(number);
    return font == nullptr ? kDocumentCodePage : font->page;
  }
  // Empty where the font is unknown.
  Text NameOf(int number) const {
    const Font* const font = Find(number);
    return font == nullptr ? Text() : font->name;
  }

 private:
  struct Font {
    int number = 0;
    int page = kDocumentCodePage;
    Text name;
  };
  // No writer numbers its fonts like that.
  static constexpr int kFirstOwnNumber = std::numeric_limits<int>::min() / 2;
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  // The fonts of signs that word processors bring along.
  static bool ShowsSigns(TextView name) {
    constexpr TextView kNames[] = {u"Symbol", u"Wingdings", u"Wingdings 2", u"Wingdings 3",
                                   u"Webdings"};
    return std::ranges::any_of(kNames,
                               [name](TextView signs) { return EqualsIgnoringCase(name, signs); });
  }

  const Font* Find(int number) const {
    const auto found = numbers_.find(number);
    return found == numbers_.end() ? nullptr : &fonts_[found->second];
  }

  std::vector<Font> fonts_;
  std::map<int, std::size_t> numbers_;
  std::map<Text, int> names_;  // in lower case
  int nextNumber_ = kFirstOwnNumber;
  std::size_t open_ = kNone;
};

class ColourTable {
 public:
  // `shift` is 16 for red, 8 for green, 0 for blue.
  void SetPart(int shift, int value) {
    if (next_ == kAutomatic) next_ = 0;
    next_ = (next_ & ~(0xFF << shift)) | ((value & 0xFF) << shift);
  }
  void EndEntry() {
    colours_.push_back(next_);
    next_ = kAutomatic;
  }
  Colour Get(int number) const {
    const auto index = static_cast<std::size_t>(number);
    return number >= 0 && index < colours_.size() ? colours_[index] : kAutomatic;
  }

 private:
  std::vector<Colour> colours_;
  Colour next_ = kAutomatic;
};

}  // namespace platform::rtf
