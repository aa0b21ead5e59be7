#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <utility>

#include "platform/rtf/rtf.h"
#include "platform/text/encoding.h"

namespace platform::rtf {
namespace {

// Every font is written with the Arabic charset, so that the bytes of this page stand under it.
constexpr int kArabicCharset = 178;
static_assert(kMachineCodePage == 1256);

constexpr std::array<bool, 128> MakeStandsForItself() {
  std::array<bool, 128> stands{};
  for (std::size_t unit = 0x20; unit < 0x7F; ++unit) {
    stands[unit] = unit != '\\' && unit != '{' && unit != '}';
  }
  return stands;
}

constexpr auto kStandsForItself = MakeStandsForItself();

bool StandsForItself(char16_t unit) {
  return unit < kStandsForItself.size() && kStandsForItself[unit];
}

constexpr std::array<std::array<char, 2>, 256> MakeHex() {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::array<std::array<char, 2>, 256> hex{};
  for (std::size_t i = 0; i < hex.size(); ++i) hex[i] = {kDigits[i >> 4], kDigits[i & 15]};
  return hex;
}

constexpr auto kHex = MakeHex();

// RTF is made as bytes of 7 bits (Unit is char) or as text (char16_t), in which what can't be taken
// for a byte stands for itself.
template <typename Unit>
Unit* PutHex(Unit* to, char byte) {
  const std::array<char, 2>& digits = kHex[static_cast<unsigned char>(byte)];
  return std::copy(digits.begin(), digits.end(), to);
}

template <typename Unit>
Unit* Put(Unit* to, std::string_view text) {
  return std::copy(text.begin(), text.end(), to);
}

// The digits of a number, in a buffer of their own.
class Digits {
 public:
  explicit Digits(int number)
      : end_(std::to_chars(digits_.data(), digits_.data() + digits_.size(), number).ptr) {}
  std::string_view View() const { return {digits_.data(), end_}; }

 private:
  std::array<char, 16> digits_{};
  const char* end_;
};

// "\uN?" with a signed number of 16 bits.
constexpr std::ptrdiff_t kLongestUnit = 9;

template <typename Unit>
Unit* PutSpelled(Unit* to, char16_t unit) {
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
      to = Put(to, Digits(static_cast<std::int16_t>(unit)).View());
      return Put(to, "?");
  }
}

template <typename Unit>
bool StandsForItselfAs(char16_t unit) {
  if constexpr (sizeof(Unit) > 1) {
    if (unit > 0xFF) return unit != u'\u2028' && unit != u'\u2029';
  }
  return StandsForItself(unit);
}

template <typename Unit>
Unit* PutUnit(Unit* to, const MachineByteTable& bytes, char16_t unit) {
  if (StandsForItselfAs<Unit>(unit)) {
    *to++ = static_cast<Unit>(unit);
    return to;
  }
  const char byte = bytes[unit];
  if (byte == '\0' || unit < 0x80 || unit == u'\u00A0') return PutSpelled(to, unit);
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

template <typename Unit>
class Writer {
 public:
  std::basic_string<Unit> Write(const Document& document) {
    for (const Paragraph& paragraph : document.paragraphs) Number(paragraph);
    out_.reserve(LikelySize(document));
    AddHead();
    for (const Paragraph& paragraph : document.paragraphs) AddParagraph(paragraph);
    Add("}");
    return std::move(out_);
  }

 private:
  // As bytes most letters take four. A text that grows instead is copied again and again.
  static std::size_t LikelySize(const Document& document) {
    constexpr std::size_t kPerLetter = sizeof(Unit) > 1 ? 1 : 4;
    constexpr std::size_t kPerParagraph = 64;
    std::size_t letters = 0;
    for (const Paragraph& paragraph : document.paragraphs) {
      for (const Run& run : paragraph.runs) {
        if (const Text* const text = std::get_if<Text>(&run.content)) letters += text->size();
      }
    }
    return kPerLetter * letters + kPerParagraph * (document.paragraphs.size() + 1);
  }

  void Add(std::string_view bytes) { out_.append(bytes.begin(), bytes.end()); }

  // The tables stand before the text that uses them.
  void Number(const Paragraph& paragraph) {
    for (const Run& run : paragraph.runs) {
      fonts_.NumberOf(run.format.font);
      colours_.NumberOf(run.format.colour);
      colours_.NumberOf(run.format.background);
    }
  }

  void AddHead() {
    Add("{\\rtf1\\ansi\\ansicpg");
    AddNumber(kMachineCodePage);
    Add("\\uc1\\deff0");
    AddFonts();
    AddColours();
    Add(kEnd);
  }

  void AddFonts() {
    Add("{\\fonttbl");
    int number = 0;
    for (const Text* const name : fonts_.InOrder()) {
      Add("{");
      AddWord("\\f", number++);
      Add("\\fnil");
      AddWord("\\fcharset", kArabicCharset);
      wordIsOpen_ = true;
      AddFontName(*name);
      Add(";}");
    }
    Add("}");
  }

  // The ";" that belongs to a name must not end it.
  void AddFontName(TextView name) {
    for (std::size_t end = 0; (end = name.find(u';')) != TextView::npos;
         name.remove_prefix(end + 1)) {
      AddText(name.substr(0, end));
      Add("\\u59?");
      wordIsOpen_ = false;
    }
    AddText(name);
    if (wordIsOpen_) Add(" ");
    wordIsOpen_ = false;
  }

  void AddColours() {
    if (colours_.InOrder().size() == 1) return;
    Add("{\\colortbl");
    for (const Colour* const colour : colours_.InOrder()) {
      if (*colour != kAutomatic) AddColour(*colour);
      Add(";");
    }
    Add("}");
  }

  void AddColour(Colour colour) {
    AddWord("\\red", colour >> 16 & 0xFF);
    AddWord("\\green", colour >> 8 & 0xFF);
    AddWord("\\blue", colour & 0xFF);
  }

  void AddParagraph(const Paragraph& paragraph) {
    Add("\\pard");
    Add(paragraph.direction == Direction::kRightToLeft ? "\\rtlpar" : "\\ltrpar");
    Add(WordOf(paragraph.alignment));
    wordIsOpen_ = true;
    for (const Run& run : paragraph.runs) AddRun(run);
    Add("\\par");
    Add(kEnd);
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
    Add("\\plain");
    if (const int font = fonts_.NumberOf(format.font)) AddWord("\\f", font);
    if (format.halfPoints != 0) AddWord("\\fs", format.halfPoints);
    if (format.bold) Add("\\b");
    if (format.italic) Add("\\i");
    if (format.underline) Add("\\ul");
    if (format.strikeOut) Add("\\strike");
    if (const int colour = colours_.NumberOf(format.colour)) AddWord("\\cf", colour);
    if (const int colour = colours_.NumberOf(format.background)) AddWord("\\highlight", colour);
    format_ = format;
    wordIsOpen_ = true;
  }

  void AddPicture(const Picture& picture) {
    Add("{\\pict");
    Add(WordOf(picture.kind));
    if (picture.widthTwips != 0) AddWord("\\picwgoal", picture.widthTwips);
    if (picture.heightTwips != 0) AddWord("\\pichgoal", picture.heightTwips);
    AddHexLines(picture.bytes);
    Add("}");
    wordIsOpen_ = false;
  }

  void AddHexLines(std::string_view bytes) {
    constexpr std::size_t kBytesPerLine = 64;
    std::array<Unit, 2 * kBytesPerLine> line;
    for (; !bytes.empty(); bytes.remove_prefix(std::min(kBytesPerLine, bytes.size()))) {
      Unit* to = line.data();
      for (const char byte : bytes.substr(0, kBytesPerLine)) to = PutHex(to, byte);
      Add(kEnd);
      out_.append(line.data(), to);
    }
  }

  void AddText(TextView text) {
    constexpr std::size_t kBlock = 1024;
    std::array<Unit, kBlock * kLongestUnit> block;
    if (wordIsOpen_ && !text.empty() && StandsForItself(text.front())) Add(" ");
    if (!text.empty()) wordIsOpen_ = false;
    const MachineByteTable& bytes = MachineBytes();
    for (; !text.empty(); text.remove_prefix(std::min(kBlock, text.size()))) {
      Unit* to = block.data();
      for (const char16_t unit : text.substr(0, kBlock)) to = PutUnit(to, bytes, unit);
      out_.append(block.data(), to);
    }
  }

  void AddWord(std::string_view word, int number) {
    Add(word);
    AddNumber(number);
  }
  void AddNumber(int number) { Add(Digits(number).View()); }

  static constexpr std::string_view kEnd = "\r\n";

  std::basic_string<Unit> out_;
  Numbering<Text> fonts_{Text()};
  Numbering<Colour> colours_{kAutomatic};
  CharacterFormat format_;   // that of the text so far
  bool wordIsOpen_ = false;  // a control word stands last: text must not run into it
};

}  // namespace

std::string Write(const Document& document) { return Writer<char>().Write(document); }

Text WriteText(const Document& document) { return Writer<char16_t>().Write(document); }

}  // namespace platform::rtf
