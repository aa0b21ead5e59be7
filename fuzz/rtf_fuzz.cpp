// Any bytes as rich text: what is read holds together, whoever wrote it.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <variant>

#include "platform/failure.h"
#include "platform/rtf/rtf.h"

namespace {

using platform::Text;
using platform::rtf::Document;
using platform::rtf::Paragraph;
using platform::rtf::Run;

void Require(bool holds) {
  if (!holds) std::abort();
}

void Append(Text& text, const Run& run) {
  if (const Text* const content = std::get_if<Text>(&run.content)) {
    text += platform::Replace(*content, u"\u2028", platform::kCrLf);
  } else {
    text += u' ';
  }
}

Text TextOf(const Document& document) {
  Text text;
  for (const Paragraph& paragraph : document.paragraphs) {
    if (&paragraph != &document.paragraphs.front()) text += platform::kCrLf;
    for (const Run& run : paragraph.runs) Append(text, run);
  }
  return text;
}

// The model's rules, as far as nobody but the reader can keep them.
void RequireRules(const Document& document) {
  Require(!document.paragraphs.empty());
  for (const Paragraph& paragraph : document.paragraphs) {
    const Run* before = nullptr;
    for (const Run& run : paragraph.runs) {
      const Text* const text = std::get_if<Text>(&run.content);
      if (text != nullptr) {
        Require(!text->empty());
        const bool sameAsBefore = before != nullptr && before->format == run.format &&
                                  std::holds_alternative<Text>(before->content);
        Require(!sameAsBefore);
      }
      before = &run;
    }
  }
}

void CheckRichText(std::string_view rtf) {
  const Document document = platform::rtf::Read(rtf);
  RequireRules(document);
  const Text text = platform::rtf::PlainText(rtf);
  Require(text == TextOf(document));
  Require(text.size() <= 2 * rtf.size());
  const std::string written = platform::rtf::Write(document);
  Require(platform::rtf::Read(written) == document);
  Require(platform::rtf::PlainText(written) == text);
  const Text wide(reinterpret_cast<const unsigned char*>(rtf.data()),
                  reinterpret_cast<const unsigned char*>(rtf.data()) + rtf.size());
  Require(platform::rtf::Read(platform::TextView(wide)) == document);
  Require(platform::rtf::PlainText(platform::TextView(wide)) == text);
}

// Units of 16 bits, which needn't be bytes.
void CheckWideText(std::string_view bytes) {
  Text text = u"{\\rtf1 ";
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const auto low = static_cast<unsigned char>(bytes[i]);
    const auto high = static_cast<unsigned char>(bytes[i + 1]);
    text += static_cast<char16_t>(low | (high < 0x80 ? 0 : high) << 8);
  }
  const Document document = platform::rtf::Read(platform::TextView(text));
  Require(platform::rtf::PlainText(platform::TextView(text)) == TextOf(document));
  Require(platform::rtf::Read(platform::rtf::Write(document)) == document);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  CheckRichText("{\\rtf1" + std::string(bytes));
  CheckWideText(bytes);
  platform::CatchingFailure([&] { CheckRichText(bytes); }, [](const Text&) {});
  return 0;
}
