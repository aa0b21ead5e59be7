// An export script and a page as they come from the disk, through the rules of the export.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <vector>

#include "core/settings.h"
#include "export/print_page.h"
#include "export/script.h"
#include "platform/failure.h"
#include "platform/text/encoding.h"
#include "platform/text/text.h"

namespace {

using platform::Text;
using platform::TextView;

void Require(bool holds) {
  if (!holds) std::abort();
}

// Nothing where it fails.
template <typename Call>
auto Tried(Call call) -> std::optional<decltype(call())> {
  std::optional<decltype(call())> result;
  platform::CatchingFailure([&] { result = call(); }, [](const Text&) {});
  return result;
}

Text Replaced(TextView text, TextView what, TextView by) {
  Text result;
  for (std::size_t at = text.find(what); at != TextView::npos; at = text.find(what)) {
    result.append(text.substr(0, at)).append(by);
    text.remove_prefix(at + what.size());
  }
  return result.append(text);
}

// The lines of a section, written as its layout is told: the header's line and the last piece
// before the bracket are none of them.
std::optional<std::vector<Text>> SectionLines(TextView text, TextView header) {
  const std::size_t start = text.find(header);
  if (start == TextView::npos) return std::nullopt;
  const std::size_t bracket = text.find(u'[', start + header.size());
  if (bracket == TextView::npos) return std::nullopt;
  TextView body = text.substr(start, bracket - start - 1);
  std::vector<Text> lines;
  for (bool isHeader = true;; isHeader = false) {
    const std::size_t end = body.find(u"\r\n");
    if (end == TextView::npos) return lines;
    if (!isHeader) lines.emplace_back(body.substr(0, end));
    body.remove_prefix(end + 2);
  }
}

bool IsTrimmed(TextView side) {
  return side.empty() || (side.front() != u' ' && side.back() != u' ');
}

void CheckCopyLine(TextView line) {
  const auto sides = Tried([&] { return exporting::SplitCopyLine(line); });
  const std::size_t arrow = line.find(u"=>");
  Require(sides.has_value() == (arrow != TextView::npos));
  if (!sides) return;
  Require(IsTrimmed(sides->source) && IsTrimmed(sides->target));
  Require(line.substr(0, arrow).find(sides->source) != TextView::npos);
  Require(line.substr(arrow + 2).ends_with(
              sides->target + Text(line.size() - line.find_last_not_of(u' ') - 1, u' ')) ||
          sides->target.empty());
  Require(exporting::WithoutRootWord(sides->target) == Replaced(sides->target, u"root", u""));
}

void CheckScript(TextView text) {
  const auto script = Tried([&] { return exporting::CutScript(text); });
  const auto makeFolder = SectionLines(text, u"[ Make Folder ]");
  const auto copyFolder = SectionLines(text, u"[ Copy Folder ]");
  const auto copyFile = SectionLines(text, u"[ Copy File ]");
  Require(script.has_value() == (makeFolder && copyFolder && copyFile));
  if (!script) return CheckCopyLine(text);
  Require(script->makeFolder == makeFolder && script->copyFolder == copyFolder &&
          script->copyFile == copyFile);
  std::ranges::for_each(script->copyFolder, CheckCopyLine);
  std::ranges::for_each(script->copyFile, CheckCopyLine);
}

Text Body(TextView page) {
  constexpr TextView kTitleEnd = u"</pgTitle>";
  const std::size_t end = page.find(kTitleEnd);
  page.remove_prefix(end != TextView::npos ? end + kTitleEnd.size()
                                           : std::min<std::size_t>(page.size(), 9));
  Text body = Replaced(page, u"<pgMain>", u"<p align=\"right\">");
  body = Replaced(body, u"</pgMain>", u"</p>");
  return Replaced(body, u"Data/IMG", u"../IMG");
}

void CheckTitle(TextView page) {
  const auto title = Tried([&] { return core::TaggedText(page, u"pgTitle"); });
  const std::size_t open = page.find(u"<pgTitle>");
  const std::size_t close = page.find(u"</pgTitle>");
  if (open == TextView::npos) return Require(title == Text());
  Require(title.has_value() == (close != TextView::npos && close > open));
  if (title) Require(*title == page.substr(open + 9, close - open - 9));
}

// The first character cuts the text in two: the template and the page.
void CheckPage(TextView text) {
  const std::size_t length = text.empty() ? 0 : std::min<std::size_t>(text[0] % 256, text.size());
  const TextView pageTemplate = text.substr(0, length);
  const TextView page = text.substr(length);
  CheckTitle(page);
  const Text title = Tried([&] { return core::TaggedText(page, u"pgTitle"); }).value_or(u"");
  const Text body = exporting::PrintBody(page);
  Require(body == Body(page));
  Require(exporting::PageTemplate(platform::Text(pageTemplate)).Filled(title, body) ==
          Replaced(Replaced(pageTemplate, u"%Title%", title), u"%Matn%", body));
  const TextView extension = pageTemplate.substr(pageTemplate.rfind(u'.') + 1);
  Require(exporting::IsPageFile(pageTemplate) ==
          (extension.size() == 3 && platform::LCase(extension) == u"htm"));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  CheckScript(platform::DecodeMachineCodePage(bytes));
  CheckPage(platform::DecodeMachineCodePage(bytes));
  CheckPage(platform::DecodeUtf16(bytes));
  return 0;
}
