// An input text as it comes from the disk, through the rebuilding of its paragraphs. The first byte
// is the words a line, the second says which options are on.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/text/encoding.h"
#include "platform/text/text.h"
#include "workbench/paragraphs.h"

namespace {

using platform::Text;
using platform::TextView;

void Require(bool holds) {
  if (!holds) std::abort();
}

// What no step adds or takes away.
Text Letters(Text text) {
  std::erase_if(text, [](char16_t c) { return TextView(u" \r\n\u200F#0").find(c) != Text::npos; });
  return text;
}

std::size_t CountOf(const Text& text, TextView wanted) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [wanted](char16_t c) { return wanted.find(c) != TextView::npos; }));
}

void CheckLines(const Text& rebuilt, const workbench::ParagraphRules& rules) {
  Require(rebuilt.empty() || rebuilt.ends_with(u"\r\n"));
  Require(!rebuilt.starts_with(u"\r\n"));
  Require(rebuilt.find(u"\r\n\u200F ") == Text::npos);
  if (rules.removeBreaks) Require(rebuilt.find(u"  ") == Text::npos);
  if (!rules.breakAtMarks) return;
  for (std::size_t at = 0; (at = rebuilt.find_first_of(u".!\u061F", at)) != Text::npos; ++at) {
    const TextView after = TextView(rebuilt).substr(at + 1);
    Require(after.starts_with(rebuilt[at] == u'\u061F' ? u"\r\n" : u"\u200F\r\n"));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const workbench::ParagraphRules rules{
      .removeBreaks = (data[1] & 1) != 0,
      .breakAtMarks = (data[1] & 2) != 0,
      .wordLimit = static_cast<std::int16_t>(static_cast<int>(data[0]) - 5)};
  const std::string_view bytes(reinterpret_cast<const char*>(data + 2), size - 2);
  const Text text = platform::DecodeMachineCodePage(bytes);
  const Text rebuilt = workbench::RebuildParagraphs(text, rules);
  Require(Letters(rebuilt) == Letters(text));
  // Three characters after a mark, one more at a blank, two at the end.
  Require(rebuilt.size() <= text.size() + 3 * CountOf(text, u".!\u061F") + CountOf(text, u" ") + 2);
  CheckLines(rebuilt, rules);
  return 0;
}
