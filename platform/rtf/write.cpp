#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <memory>
#include <utility>

#include "platform/encoding.h"
#include "platform/rtf/rtf.h"

namespace platform::rtf {
namespace {

// Every font is written with the Arabic charset, so that the bytes of this page stand under it.
constexpr int kArabicCharset = 178;
static_assert(kMachineCodePage == 1256);

// What a unit is written as: an ASCII letter as itself, a byte of the page in hexadecimal, and
// kSpelled by a control word.
constexpr char kSpelled = '\0';
using Bytes = std::array<char, 65536>;

bool StandsForItself(char16_t unit) {
  return unit >= 0x20 && unit < 0x7F && unit != u'\\' && unit != u'{' && unit != u'}';
}

bool IsByte(char16_t unit) { return unit >= 0x80 && unit != u'\uFFFD' && unit != u'\u00A0'; }

std::unique_ptr<const Bytes> MakeBytes() {
  auto bytes = std::make_unique<Bytes>();
  bytes->fill(kSpelled);
  const std::array<char16_t, 256>* const page = SingleByteCodePage(kMachineCodePage);
  for (std::size_t value = 0; page != nullptr && value < page->size(); ++value) {
    const char16_t unit = (*page)[value];
    if (StandsForItself(unit) || IsByte(unit)) (*bytes)[unit] = static_cast<char>(value);
  }
  return bytes;
}

const Bytes& ByteTable() {
  static const std::unique_ptr<const Bytes> kBytes = MakeBytes();
  return *kBytes;
}

constexpr std::array<std::array<char, 2>, 256> MakeHex() {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::array<std::array<char, 2>, 256> hex{};
  for (std::size_t i = 0; i < hex.size(); ++i) hex[i] = {kDigits[i >> 4], kDigits[i & 15]};
  return hex;
}

constexpr auto kHex = MakeHex();

char* PutHex(char* to, char byte) {
  const std::array<char, 2>& digits = kHex[static_cast<unsigned char>(byte)];
  return std::copy(digits.begin(), digits.end(), to);
}

char* Put(char* to, std::string_view text) { return std::copy(text.begin(), text.end(), to); }

// "\uN?" with a signed number of 16 bits.
constexpr std::ptrdiff_t kLongestUnit = 9;

char* PutSpelled(char* to, char16_t unit) {
  switch (unit) {
    case u'\\':
      return Put(to, "\\\\");
    case u'{':
      return Put(to, "\\{");
    case u'}':
      return Put(to, "\\}");
    case u'\t':
      return Put(to, "\\tab ");
    case u'\u2028':
      return Put(to, "\\line ");
    case u'\u00A0':
      return Put(to, "\\~");
    default:
      to = Put(to, "\\u");
      to = std::to_chars(to, to + kLongestUnit, static_cast<std::int16_t>(unit)).ptr;
      return Put(to, "?");
  }
}

char* PutUnit(char* to, const Bytes& bytes, char16_t unit) {
  const char byte = bytes[unit];
  if (byte == kSpelled) return PutSpelled(to, unit);
  if (unit < 0x80) {
    *to++ = byte;
    return to;
  }
  *to++ = '\\';
  *to++ = '\'';
  return PutHex(to, byte);
}

std::string_view WordOf(Alignment alignment) {
  switch (alignment) {
    case Alignment::kLeft:
      return "\\ql";
    case Alignment::kRight:
      return "\\qr";
    case Alignment::kCentre:
      return "\\qc";
    case Alignment::kJustified:
      break;
  }
  return "\\qj";
}

std::string_view WordOf(PictureKind kind) {
  switch (kind) {
    case PictureKind::kPng:
      return "\\pngblip";
    case PictureKind::kJpeg:
      return "\\jpegblip";
    case PictureKind::kBitmap:
      break;
  }
  return "\\dibitmap0";
}

// Things by number, in the order of their first use.
template <typename Thing>
class Numbering {
 public:
  explicit Numbering(Thing first) { NumberOf(first); }

  int NumberOf(const Thing& thing) {
    const auto next = static_cast<int>(things_.size());
    const auto [entry, isNew] = numbers_.try_emplace(thing, next);
    if (isNew) things_.push_back(&entry->first);
    return entry->second;
  }
  const std::vector<const Thing*>& InOrder() const { return things_; }

 private:
  std::map<Thing, int> numbers_;
  std::vector<const Thing*> things_;
};

class Writer {
 public:
  std::string Write(const Document& document) {
    for (const Paragraph& paragraph : document.paragraphs) Number(paragraph);
    AddHead();
    for (const Paragraph& paragraph : document.paragraphs) AddParagraph(paragraph);
    out_ += '}';
    return std::move(out_);
  }

 private:
  // The tables stand before the text that uses them.
  void Number(const Paragraph& paragraph) {
    for (const Run& run : paragraph.runs) {
      fonts_.NumberOf(run.format.font);
      colours_.NumberOf(run.format.colour);
      colours_.NumberOf(run.format.background);
    }
  }

  void AddHead() {
    out_ += "{\\rtf1\\ansi\\ansicpg";
    AddNumber(kMachineCodePage);
    out_ += "\\uc1\\deff0";
    AddFonts();
    AddColours();
    out_ += kEnd;
  }

  void AddFonts() {
    out_ += "{\\fonttbl";
    int number = 0;
    for (const Text* const name : fonts_.InOrder()) {
      out_ += "{";
      AddWord("\\f", number++);
      out_ += "\\fnil";
      AddWord("\\fcharset", kArabicCharset);
      wordIsOpen_ = true;
      AddFontName(*name);
      out_ += ";}";
    }
    out_ += "}";
  }

  // The ";" that belongs to a name must not end it.
  void AddFontName(TextView name) {
    for (std::size_t end; (end = name.find(u';')) != TextView::npos; name.remove_prefix(end + 1)) {
      AddText(name.substr(0, end));
      out_ += "\\u59?";
      wordIsOpen_ = false;
    }
    AddText(name);
    if (wordIsOpen_) out_ += ' ';
    wordIsOpen_ = false;
  }

  void AddColours() {
    if (colours_.InOrder().size() == 1) return;
    out_ += "{\\colortbl";
    for (const Colour* const colour : colours_.InOrder()) {
      if (*colour != kAutomatic) AddColour(*colour);
      out_ += ';';
    }
    out_ += "}";
  }

  void AddColour(Colour colour) {
    AddWord("\\red", colour >> 16 & 0xFF);
    AddWord("\\green", colour >> 8 & 0xFF);
    AddWord("\\blue", colour & 0xFF);
  }

  void AddParagraph(const Paragraph& paragraph) {
    out_ += "\\pard";
    out_ += paragraph.direction == Direction::kRightToLeft ? "\\rtlpar" : "\\ltrpar";
    out_ += WordOf(paragraph.alignment);
    wordIsOpen_ = true;
    for (const Run& run : paragraph.runs) AddRun(run);
    out_ += "\\par";
    out_ += kEnd;
    wordIsOpen_ = false;
  }

  void AddRun(const Run& run) {
    if (run.format != format_) AddFormat(run.format);
    if (const Picture* const picture = std::get_if<Picture>(&run.content)) {
      AddPicture(*picture);
    } else {
      AddText(std::get<Text>(run.content));
    }
  }

  void AddFormat(const CharacterFormat& format) {
    out_ += "\\plain";
    if (const int font = fonts_.NumberOf(format.font)) AddWord("\\f", font);
    if (format.halfPoints != 0) AddWord("\\fs", format.halfPoints);
    if (format.bold) out_ += "\\b";
    if (format.italic) out_ += "\\i";
    if (format.underline) out_ += "\\ul";
    if (format.strikeOut) out_ += "\\strike";
    if (const int colour = colours_.NumberOf(format.colour)) AddWord("\\cf", colour);
    if (const int colour = colours_.NumberOf(format.background)) AddWord("\\highlight", colour);
    format_ = format;
    wordIsOpen_ = true;
  }

  void AddPicture(const Picture& picture) {
    out_ += "{\\pict";
    out_ += WordOf(picture.kind);
    if (picture.widthTwips != 0) AddWord("\\picwgoal", picture.widthTwips);
    if (picture.heightTwips != 0) AddWord("\\pichgoal", picture.heightTwips);
    AddHexLines(picture.bytes);
    out_ += "}";
    wordIsOpen_ = false;
  }

  void AddHexLines(std::string_view bytes) {
    constexpr std::size_t kBytesPerLine = 64;
    std::array<char, 2 * kBytesPerLine> line;
    for (; !bytes.empty(); bytes.remove_prefix(std::min(kBytesPerLine, bytes.size()))) {
      char* to = line.data();
      for (const char byte : bytes.substr(0, kBytesPerLine)) to = PutHex(to, byte);
      out_ += kEnd;
      out_.append(line.data(), to);
    }
  }

  void AddText(TextView text) {
    constexpr std::size_t kBlock = 1024;
    std::array<char, kBlock * kLongestUnit> block;
    if (wordIsOpen_ && !text.empty() && StandsForItself(text.front())) out_ += ' ';
    if (!text.empty()) wordIsOpen_ = false;
    const Bytes& bytes = ByteTable();
    for (; !text.empty(); text.remove_prefix(std::min(kBlock, text.size()))) {
      char* to = block.data();
      for (const char16_t unit : text.substr(0, kBlock)) to = PutUnit(to, bytes, unit);
      out_.append(block.data(), to);
    }
  }

  void AddWord(std::string_view word, int number) {
    out_ += word;
    AddNumber(number);
  }
  void AddNumber(int number) {
    std::array<char, 16> digits;
    out_.append(digits.data(),
                std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr);
  }

  static constexpr std::string_view kEnd = "\r\n";

  std::string out_;
  Numbering<Text> fonts_{Text()};
  Numbering<Colour> colours_{kAutomatic};
  CharacterFormat format_;   // that of the text so far
  bool wordIsOpen_ = false;  // a control word stands last: text must not run into it
};

}  // namespace

std::string Write(const Document& document) { return Writer().Write(document); }

}  // namespace platform::rtf
