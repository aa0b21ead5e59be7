#include "bench/texts.h"

#include <array>
#include <random>

#include "platform/text/encoding.h"

namespace bench {
namespace {

using platform::Text;
using platform::TextView;

constexpr std::array<TextView, 40> kWords = {
    u"كتاب", u"و",    u"باغ",   u"در",   u"كوير",  u"شهر",   u"از",  u"آب",     u"درخت",   u"مردم",
    u"به",   u"بهار", u"خانه",  u"كه",   u"پنجره", u"چشمه",  u"را",  u"گلستان", u"زمستان", u"راه",
    u"اين",  u"كوه",  u"آسمان", u"با",   u"شب",    u"روز",   u"آن",  u"داستان", u"پدر",    u"مادر",
    u"است",  u"ژاله", u"سفر",   u"براي", u"دريا",  u"قناتى", u"بود", u"كاروان", u"ستاره",  u"هستى"};

class Author {
 public:
  explicit Author(std::uint32_t seed) : random_(seed) {}

  // The generator's own numbers, as the library's distributions differ from one to the next.
  std::uint32_t Below(std::uint32_t count) { return static_cast<std::uint32_t>(random_() % count); }
  TextView Word() { return kWords[Below(kWords.size())]; }

  // Eight to fifteen words and a closing mark.
  void AddSentence(Text& text) {
    for (std::uint32_t words = 8 + Below(8); words > 0; --words) {
      text.append(Word());
      if (words > 1) text.append(Below(12) == 0 ? u"\u060C " : u" ");
    }
    constexpr std::array<TextView, 8> kMarks = {u".", u".", u".", u".",
                                                u".", u":", u"!", u"\u061F"};
    text.append(kMarks[Below(kMarks.size())]);
  }

  void AddParagraph(Text& text) {
    for (std::uint32_t sentences = 3 + Below(6); sentences > 0; --sentences) {
      AddSentence(text);
      if (sentences > 1) text += u' ';
    }
  }

  void AddRawParagraph(Text& text) {
    if (Below(4) == 0) text.append(u"<ircMAIN>");
    if (Below(4) == 0) text.append(u"&nbsp;");
    AddParagraph(text);
    if (Below(2) == 0) text += u' ';
    text.append(Below(8) == 0 ? TextView(u"</ircMAIN>") : platform::kCrLf);
    if (Below(2) == 0) text.append(u"  ");
  }

 private:
  std::mt19937 random_;
};

template <typename Add>
Text OfLength(std::size_t characters, std::uint32_t seed, Add add) {
  constexpr std::size_t kLongestParagraph = 2048;
  Author author(seed);
  Text text;
  text.reserve(characters + kLongestParagraph);
  while (text.size() < characters) add(author, text);
  text.resize(characters);
  return text;
}

void AppendUnit(std::string& rtf, char16_t unit) {
  rtf.append("\\u").append(std::to_string(unit)).append("?");
}

void AppendByte(std::string& rtf, char byte) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  const auto value = static_cast<unsigned char>(byte);
  rtf.append("\\'").append({kDigits[value >> 4], kDigits[value & 15]});
}

void AppendParagraph(std::string& rtf, TextView text, Spelling spelling) {
  rtf.append("\\pard\\rtlpar\\qr\\f0\\fs24 ");
  const std::string bytes = platform::EncodeMachineCodePage(text);
  std::size_t word = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == u' ') ++word;
    if (text[i] < 0x80) {
      rtf += bytes[i];
    } else if (spelling == Spelling::kUnits || (spelling == Spelling::kMixed && word % 2 == 0)) {
      AppendUnit(rtf, text[i]);
    } else {
      AppendByte(rtf, bytes[i]);
    }
  }
  rtf.append("\\par\r\n");
}

// `spellingOf` gives the spelling of the n-th paragraph.
template <typename SpellingOf>
std::string RichTextOf(std::size_t bytes, SpellingOf spellingOf) {
  constexpr std::size_t kLongestParagraph = 16384;
  std::string rtf;
  rtf.reserve(bytes + kLongestParagraph);
  rtf =
      "{\\rtf1\\ansi\\ansicpg1256\\uc1\\deff0"
      "{\\fonttbl{\\f0\\fswiss\\fcharset178 Tahoma;}}\r\n";
  Author author(1);
  for (std::size_t number = 0; rtf.size() < bytes; ++number) {
    Text paragraph;
    author.AddParagraph(paragraph);
    AppendParagraph(rtf, paragraph, spellingOf(number));
  }
  rtf += '}';
  return rtf;
}

}  // namespace

Text RawText(std::size_t characters, std::uint32_t seed) {
  return OfLength(characters, seed,
                  [](Author& author, Text& text) { author.AddRawParagraph(text); });
}

Text CleanText(std::size_t characters, std::uint32_t seed) {
  return OfLength(characters, seed, [](Author& author, Text& text) {
    if (!text.empty()) text.append(platform::kCrLf);
    author.AddParagraph(text);
  });
}

Text Heading(std::uint32_t seed) {
  Author author(seed);
  Text heading(author.Word());
  for (std::uint32_t words = 3 + author.Below(4); words > 0; --words) {
    heading.append(u" ").append(author.Word());
  }
  return heading;
}

std::string RichText(std::size_t bytes, Spelling spelling) {
  return RichTextOf(bytes, [spelling](std::size_t) { return spelling; });
}

std::string RichText(std::size_t bytes) {
  return RichTextOf(bytes, [](std::size_t number) { return static_cast<Spelling>(number % 3); });
}

}  // namespace bench
