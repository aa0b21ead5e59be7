// A window with one rich-text box, small pictures and random documents for it.
#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QTextEdit>
#include <array>
#include <random>
#include <string>

#include "platform/rtf/document.h"
#include "platform/rtf/rtf.h"
#include "platform/windows/rich_text_box.h"
#include "tests/support/small_window.h"

namespace testing_support {

inline constexpr std::array kRichTextRows = std::to_array<platform::ControlRow>({
    {.name = u"matn",
     .kind = platform::ControlKind::kRichTextBox,
     .left = 150,
     .top = 150,
     .width = 6000,
     .height = 4500},
});
inline constexpr platform::WindowDefinition kRichTextWindow = {
    .name = u"Rich", .title = u"", .width = 6300, .height = 4800, .rows = kRichTextRows};

struct RichTextBench {
  RichTextBench() { window.Load(); }
  QTextEdit& Edit() const { return Robot::FindAs<QTextEdit>("Rich", "matn"); }
  void Select(platform::Position start, platform::Position length) {
    matn.SetSelStart(start);
    matn.SetSelLength(length);
  }
  void SelectAll() { Select(0, matn.TextLength()); }
  platform::rtf::Document Content() const { return platform::rtf::Read(matn.TextRTF()); }

  SmallWindow window{kRichTextWindow};
  platform::RichTextBox matn{window, u"matn"};
};

inline platform::Text RtfOf(const platform::rtf::Document& document) {
  return platform::rtf::WriteText(document);
}

// A picture of 4 by 3 pixels as a file ("PNG", "JPG", "BMP").
inline std::string PictureFile(const char* format, QRgb colour = 0xFF336699) {
  QImage image(4, 3, QImage::Format_RGB32);
  image.fill(colour);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, format);
  return bytes.toStdString();
}

// The same as rich text holds it.
inline platform::rtf::Picture RichPicture(platform::rtf::PictureKind kind, int twips = 1234) {
  constexpr std::size_t kBitmapFileHeader = 14;
  using platform::rtf::PictureKind;
  platform::rtf::Picture picture{kind, {}, twips, twips / 2};
  if (kind == PictureKind::kPng) picture.bytes = PictureFile("PNG");
  if (kind == PictureKind::kJpeg) picture.bytes = PictureFile("JPG");
  if (kind == PictureKind::kBitmap) picture.bytes = PictureFile("BMP").substr(kBitmapFileHeader);
  return picture;
}

// Documents that keep the model's rules, the same for the same seed.
class RandomDocuments {
 public:
  explicit RandomDocuments(unsigned seed) : random_(seed) {}

  platform::rtf::Document Next() {
    platform::rtf::Document document;
    const int paragraphs = 1 + Below(6);
    for (int i = 0; i < paragraphs; ++i) document.paragraphs.push_back(NextParagraph());
    return document;
  }

 private:
  int Below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
  bool Coin() { return Below(2) == 0; }

  platform::rtf::CharacterFormat NextFormat() {
    platform::rtf::CharacterFormat format;
    constexpr std::array<platform::TextView, 3> fonts = {u"", u"Tahoma", u"B Nazanin"};
    format.font = fonts[static_cast<std::size_t>(Below(3))];
    format.halfPoints = Coin() ? 0 : 13 + Below(30);
    format.bold = Coin();
    format.italic = Coin();
    format.underline = Coin();
    format.strikeOut = Coin();
    format.colour = Coin() ? platform::rtf::kAutomatic : Below(0x1000000);
    format.background = Coin() ? platform::rtf::kAutomatic : Below(0x1000000);
    return format;
  }

  platform::Text NextText() {
    constexpr std::array<platform::TextView, 14> pieces = {
        u"سلام",    u" ",      u"\u00A0", u"\u2028", u"\t",         u"مي\u200Cشود", u"\u200F",
        u"abc 12.", u"{}\\&<", u"ي",      u"\u00E9", u"\U0001F600", u"»",           u"  "};
    platform::Text text;
    const int count = 1 + Below(5);
    for (int i = 0; i < count; ++i) text += pieces[static_cast<std::size_t>(Below(14))];
    return text;
  }

  platform::rtf::Paragraph NextParagraph() {
    platform::rtf::Paragraph paragraph;
    paragraph.alignment = static_cast<platform::rtf::Alignment>(Below(4));
    paragraph.direction = static_cast<platform::rtf::Direction>(Below(2));
    const int runs = Below(5);
    for (int i = 0; i < runs; ++i) {
      const auto format = NextFormat();
      const bool alike = !paragraph.runs.empty() && paragraph.runs.back().format == format;
      if (alike || Below(6) == 0) {
        const auto kind = static_cast<platform::rtf::PictureKind>(Below(3));
        paragraph.runs.push_back({format, RichPicture(kind, 15 + Below(4000))});
      } else {
        paragraph.runs.push_back({format, NextText()});
      }
    }
    return paragraph;
  }

  std::mt19937 random_;
};

}  // namespace testing_support
