// What has been read on its way to the sink: characters are gathered to stretches of one format.
//
// A sink says at compile time whether it keeps formats. If it does, it has
//   void AddText(TextView text, const CharacterFormat& format);
//   Picture& AddPicture(const CharacterFormat& format);  // filled in before the next call
//   void EndParagraph(Alignment alignment, Direction direction);
// and otherwise only
//   void AddText(TextView text);    // paragraph ends and line breaks as CR LF, pictures as blanks
//   void DropLastParagraphEnd();
#pragma once

#include <array>
#include <cstddef>

#include "platform/rtf/document.h"
#include "platform/rtf/formats.h"
#include "platform/text/text.h"

namespace platform::rtf {

inline constexpr char16_t kLineSeparator = u'\u2028';
inline constexpr char16_t kParagraphSeparator = u'\u2029';

template <typename Sink>
class Output {
 public:
  static constexpr bool kFormatted = Sink::kKeepsFormat;

  Output(Sink& sink, const Formats& formats) : sink_(sink), formats_(formats) {}

  // How many units and pictures there have been.
  std::size_t Count() const { return sent_ + used_; }

  // Any character but the signs of line and paragraph ends.
  void Put(char16_t unit) {
    if (used_ == kChunk) Flush();
    chunk_[used_++] = unit;
  }
  // For whoever writes many characters at once: as many as there is room for, from To() on.
  std::size_t Room() {
    if (used_ == kChunk) Flush();
    return kChunk - used_;
  }
  char16_t* To() { return chunk_.data() + used_; }
  void Advance(const char16_t* to) { used_ = static_cast<std::size_t>(to - chunk_.data()); }

  // A character as bytes have it: some of them end paragraphs or lines, others show nothing.
  void PutShown(char16_t unit) {
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
      sink_.EndParagraph(formats_.Now().alignment, formats_.Now().direction);
    } else {
      Put(u'\r');
      Put(u'\n');
    }
    ++paragraphs_;
    paragraphStart_ = Count();
  }
  bool ParagraphIsEmpty() const { return Count() == paragraphStart_; }

  // Only where formats are kept.
  Picture& AddPicture() {
    Flush();
    ++sent_;
    return sink_.AddPicture(formats_.Format());
  }

  // Text in hand belongs to the format before a change.
  void BeforeChange() {
    if constexpr (kFormatted) Flush();
  }

  void Finish() {
    const bool open = !ParagraphIsEmpty() || paragraphs_ == 0;
    Flush();
    if constexpr (kFormatted) {
      if (open) sink_.EndParagraph(formats_.Now().alignment, formats_.Now().direction);
    } else {
      if (!open) sink_.DropLastParagraphEnd();
    }
  }

 private:
  static constexpr std::size_t kChunk = 8192;

  void BreakLine() {
    if constexpr (kFormatted) {
      Put(kLineSeparator);
    } else {
      Put(u'\r');
      Put(u'\n');
    }
  }

  void Flush() {
    if (used_ == 0) return;
    const TextView text(chunk_.data(), used_);
    if constexpr (kFormatted) {
      sink_.AddText(text, formats_.Format());
    } else {
      sink_.AddText(text);
    }
    sent_ += used_;
    used_ = 0;
  }

  Sink& sink_;
  const Formats& formats_;
  std::size_t sent_ = 0;  // units and pictures that the sink has got
  std::size_t paragraphs_ = 0;
  std::size_t paragraphStart_ = 0;
  std::size_t used_ = 0;
  std::array<char16_t, kChunk> chunk_;
};

}  // namespace platform::rtf
