// An input text as it comes from the disk, through the clean-up and the page builders.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/text/encoding.h"
#include "platform/text/text.h"
#include "workbench/book_formats.h"
#include "workbench/clean_up.h"

namespace {

using platform::Replace;
using platform::Text;

Text TenReplacements(Text text) {
  text = Replace(text, u"&nbsp;", u" ");
  text = Replace(text, u"<ircMAIN>", u" ");
  text = Replace(text, u"</ircMAIN>", u"\r\n");
  text = Replace(text, u" \r\n", u"\r\n");
  text = Replace(text, u"\r\n ", u"\r\n");
  text = Replace(text, u"\r\n ", u"\r\n");
  text = Replace(text, u"\u0649", u"\u064A");
  text = Replace(text, u"!", u"!\u200F");
  text = Replace(text, u".", u".\u200F");
  return Replace(text, u":", u":\u200F");
}

Text Body(const Text& text, const Text& head) {
  return head + u"<p>" + Replace(text, u"\r\n", u"</p>\r\n<p>") + u"</p>";
}

void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const Text text = platform::DecodeMachineCodePage(bytes);
  const Text clean = workbench::Rep(text);
  Require(clean == TenReplacements(text));

  Require(workbench::SetMatn(clean, u"p") == Body(clean, workbench::AddEntr(1, u"p")));
  Require(workbench::SetShenas(clean, u"p") == Body(clean, u"<p></p>\r\n<p></p>\r\n"));

  const Text line = workbench::RemCrLf(clean);
  Require(line.find(u"\r\n") == Text::npos);
  Require(line.empty() || (line.front() != u' ' && line.back() != u' '));

  const auto limit = static_cast<std::int16_t>(size == 0 ? 1 : 1 + data[0]);
  const Text shown = workbench::BeBor(clean, limit);
  const bool fits = clean.size() <= static_cast<std::size_t>(limit);
  Require(fits ? shown == clean
               : shown.ends_with(u"...") && clean.starts_with(shown.substr(0, shown.size() - 3)));
  return 0;
}
