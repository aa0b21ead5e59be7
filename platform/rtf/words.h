// The control words that the reader understands (RTF 1.9.1, Appendix B), and what each stands for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace platform::rtf {

enum class Family : std::uint8_t {
  kText,          // value: the character
  kDestination,   // value: DestinationWord
  kFormat,        // value: FormatWord
  kToggle,        // value: a Style bit, set unless the parameter is 0
  kUntoggle,      // value: Style bits
  kSlot,          // value: FontSlot
  kScript,        // value: FontSlot; means nothing inside right-to-left runs
  kAlignment,     // value: Alignment
  kDirection,     // value: Direction
  kTable,         // value: TableWord, inside the font and the colour table
  kPicture,       // value: PictureWord
  kCharacterSet,  // value: the code page
  kDocument,      // value: DocumentWord
  kNothing,       // a format that isn't kept, known so that "{\*" before it doesn't hide the group
};

enum class DestinationWord : std::uint8_t {
  kSkipped,  // holds no text of the body
  kFontTable,
  kColourTable,
  kObject,
  kObjectResult,
  kShape,
  kShapeName,
  kShapeValue,
  kShapeText,
  kFieldInstruction,    // \fldinst
  kAlternatives,        // \upr: an 8-bit text, and in it the same in Unicode
  kUnicodeAlternative,  // \ud
  kPicture,
  kShownPicture,     // \shppict
  kFallbackPicture,  // \nonshppict
};

enum class FormatWord : std::uint8_t {
  kPlain,
  kPard,
  kFont,
  kComplexFont,
  kSize,
  kComplexSize,
  kComplexBold,
  kComplexItalic,
  kForeground,
  kBackground,
};

enum class TableWord : std::uint8_t { kCharset, kCodePage, kRed, kGreen, kBlue };

enum class PictureWord : std::uint8_t { kPng, kJpeg, kBitmap, kWidth, kHeight, kScaleX, kScaleY };

enum class DocumentWord : std::uint8_t {
  kCodePage,
  kDefaultFont,
  kFallbackLength,
  kUnicode,
  kBinary,
  kPageEnd,  // ends a paragraph that holds something
};

// Which of a run's fonts its bytes belong to.
enum class FontSlot : std::uint8_t { kPlain, kComplex, kDouble };

enum Style : std::uint16_t {
  kBold = 1,
  kItalic = 2,
  kUnderline = 4,
  kStrikeOut = 8,
  kDeleted = 32,
  kComplexBold = 64,
  kComplexItalic = 128,
  kHasComplexBold = 256,
  kHasComplexItalic = 512,
};

struct Word {
  std::string_view name;
  Family family;
  std::uint16_t value;
};

inline constexpr std::size_t kLongestWord = 20;
inline constexpr std::uint32_t kWordHashSeed = 2166136261U;

// One step of the hash by which FindWord finds its word (Fowler, Noll, Vo).
constexpr std::uint32_t HashStep(std::uint32_t hash, char letter) {
  return (hash ^ static_cast<unsigned char>(letter)) * 16777619U;
}

// The word of this name, whose hash the caller has made while reading; nullptr if it is unknown.
const Word* FindWord(std::string_view name, std::uint32_t hash);

}  // namespace platform::rtf
