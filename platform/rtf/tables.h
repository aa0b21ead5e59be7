// The font and the colour table at the head of a rich text.
#pragma once

#include <cstddef>
#include <map>
#include <vector>

#include "platform/rtf/document.h"
#include "platform/rtf/font_page.h"
#include "platform/text.h"

namespace platform::rtf {

class FontTable {
 public:
  // What follows belongs to the font of this number, until its name ends.
  void Open(int number) {
    open_ = numbers_.insert_or_assign(number, fonts_.size()).first->second;
    fonts_.emplace_back();
  }
  void EndName() { open_ = kNone; }
  void AddToName(char16_t unit) {
    if (open_ == kNone || fonts_[open_].name.size() == kLongestFontName) return;
    fonts_[open_].name += unit;
  }
  void SetCodePage(int page) {
    if (open_ != kNone) fonts_[open_].page = page;
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
    int page = kDocumentCodePage;
    Text name;
  };
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  const Font* Find(int number) const {
    const auto found = numbers_.find(number);
    return found == numbers_.end() ? nullptr : &fonts_[found->second];
  }

  std::vector<Font> fonts_;
  std::map<int, std::size_t> numbers_;
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
