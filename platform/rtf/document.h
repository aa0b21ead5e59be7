// Rich text as the tool knows it, between RTF on one side and a widget on the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "platform/text/text.h"

namespace platform::rtf {

enum class Alignment : std::uint8_t { kLeft, kRight, kCentre, kJustified };
enum class Direction : std::uint8_t { kRightToLeft, kLeftToRight };

// 0x00RRGGBB, or kAutomatic for the reader's own.
using Colour = std::int32_t;
inline constexpr Colour kAutomatic = -1;

// The largest size that rich text keeps, in half points.
inline constexpr int kLargestHalfPoints = 32767;
// The longest name of a font; the rest of a longer one is lost. A name is kept with every run.
inline constexpr std::size_t kLongestFontName = 64;

struct CharacterFormat {
  Text font;           // family name; empty: the box's own
  int halfPoints = 0;  // size; 0: the box's own
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikeOut = false;
  Colour colour = kAutomatic;
  Colour background = kAutomatic;
  bool operator==(const CharacterFormat&) const = default;
};

enum class PictureKind : std::uint8_t { kPng, kJpeg, kBitmap };

// The picture's bytes as its kind's file format has them (kBitmap: a DIB without file header); no
// bytes for a picture of a kind that can't be shown (a metafile), which keeps its place and size.
// The size is what it is to measure on paper, in twips, scaling included; 0 where nothing was said.
struct Picture {
  PictureKind kind = PictureKind::kPng;
  std::string bytes;
  int widthTwips = 0;
  int heightTwips = 0;
  bool operator==(const Picture&) const = default;
};

// A stretch of one format: text, or one picture. U+2028 in text is a line break inside the
// paragraph; text holds no other paragraph or line end (CR, LF, U+2029) and no NUL.
struct Run {
  CharacterFormat format;
  std::variant<Text, Picture> content;
  bool operator==(const Run&) const = default;
};

struct Paragraph {
  Alignment alignment = Alignment::kLeft;
  Direction direction = Direction::kRightToLeft;
  std::vector<Run> runs;
  bool operator==(const Paragraph&) const = default;
};

// At least one paragraph. Neighbouring runs of a paragraph differ in format or are pictures; no run
// of text is empty.
struct Document {
  std::vector<Paragraph> paragraphs;
  bool operator==(const Document&) const = default;
};

}  // namespace platform::rtf
