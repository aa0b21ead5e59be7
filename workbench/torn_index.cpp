#include "workbench/torn_index.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/text/encoding.h"
#include "workbench/book_formats.h"

namespace workbench {

using platform::kCrLf;
using platform::Text;
using platform::TextView;

namespace {

constexpr std::array<TextView, 3> kRows = {u"aTitle", u"bTitle", u"cTitle"};

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

TextView WithoutDigits(TextView text) {
  while (!text.empty() && IsDigit(text.back())) text.remove_suffix(1);
  return text;
}

bool IsBeginningOf(TextView piece, TextView whole) { return whole.starts_with(piece); }

// "aTitle1".
bool IsName(TextView text) {
  const TextView row = WithoutDigits(text);
  return row.size() < text.size() && std::ranges::find(kRows, row) != kRows.end();
}

// From the tab on; empty where no such tag can stand there.
TextView NameIn(TextView line) {
  constexpr TextView kBefore = u"\t<";
  if (!line.starts_with(kBefore)) return {};
  const TextView name = line.substr(kBefore.size());
  return name.substr(0, name.find(u' '));
}

// Nothing, too, and up to the tag's end, so that no title is lost with it.
bool IsBeginningOfOpenTag(TextView line) {
  if (IsBeginningOf(line, u"\t<")) return true;
  if (!line.starts_with(u"\t<")) return false;
  const TextView name = NameIn(line);
  const TextView tag = line.substr(1);
  const auto begins = [&](TextView row) { return IsBeginningOf(name, row); };
  if (tag.size() == name.size() + 1) return IsName(name) || std::ranges::any_of(kRows, begins);
  return IsName(name) &&
         (IsBeginningOf(tag, OpenTag(name, false)) || IsBeginningOf(tag, OpenTag(name, true)));
}

// A collection's line as the tool writes it, with its title or a part of that, but no close tag.
bool IsUnclosed(TextView line) {
  const TextView name = NameIn(line);
  if (!IsName(name)) return false;
  const TextView tag = line.substr(1);
  return (tag.starts_with(OpenTag(name, false)) || tag.starts_with(OpenTag(name, true))) &&
         tag.find(CloseTag(name)) == TextView::npos;
}

// The close tag may be there in part.
Text Closed(TextView line) {
  const Text close = CloseTag(NameIn(line));
  std::size_t there = std::min(line.size(), close.size());
  while (!line.ends_with(TextView(close).substr(0, there))) --there;
  line.remove_suffix(there);
  return Text(line) + close;
}

// The end of a collection's line that has lost its beginning: of its close tag, at the least.
bool IsRestOfLine(TextView rest) {
  if (rest.empty()) return true;
  if (!rest.ends_with(u'>')) return false;
  rest.remove_suffix(1);
  const TextView tag = WithoutDigits(rest);
  return std::ranges::any_of(kRows, [&](TextView row) {
    const Text close = Text(u"</").append(row);
    return tag.ends_with(close) || TextView(close).ends_with(tag);
  });
}

class Mending {
 public:
  explicit Mending(TextView name) : name_(name) {}

  // A line without its line end, which the text's last one may not have.
  void Take(TextView line, bool isEnded) {
    for (bool isFirst = true;; isFirst = false) {
      const std::size_t lost = line.find(u'\0');
      TextView piece = line.substr(0, lost);
      // What the line end before it has left.
      if (!isFirst && piece.starts_with(u'\n')) piece.remove_prefix(1);
      const bool isWhole = isEnded && lost == TextView::npos;
      if (isFirst || piece.starts_with(u'\t')) {
        TakeBeginning(piece, isWhole);
      } else if (!IsRestOfLine(piece)) {
        Add(piece, true);
      }
      if (lost == TextView::npos) return;
      line.remove_prefix(std::min(line.find_first_not_of(u'\0', lost), line.size()));
    }
  }
  Text& Whole() { return whole_; }

 private:
  void TakeBeginning(TextView line, bool isWhole) {
    if (isWhole) return Add(line, true);
    if (line.ends_with(u'\r')) return Add(line.substr(0, line.size() - 1), true);
    if (IsBeginningOfOpenTag(line)) return;
    if (!IsUnclosed(line)) return Add(line, false);
    if (NameIn(line) != name_) Add(Closed(line), true);
  }

  void Add(TextView line, bool isEnded) {
    if (isOpen_) whole_.append(kCrLf);
    whole_.append(line);
    if (isEnded) whole_.append(kCrLf);
    isOpen_ = !isEnded;
  }

  TextView name_;
  Text whole_;
  bool isOpen_ = false;  // its last line isn't ended
};

// Whether what stands before the first NUL, or all there is, is a head that isn't whole. One line
// of it may have been written by hand.
bool IsPartOfHead(TextView text, TextView head, bool isCut) {
  const std::size_t lost = text.find(u'\0');
  const TextView before = text.substr(0, lost);
  if (before.size() >= head.size() || !head.starts_with(before)) return false;
  return lost != TextView::npos || isCut || !before.ends_with(kCrLf);
}

Text Mended(TextView text, TextView head, TextView name, bool isCut) {
  Mending mending(name);
  if (IsPartOfHead(text, head, isCut)) {
    mending.Whole() = head;
    text.remove_prefix(std::min(text.find(u'\0'), text.size()));
  }
  while (!text.empty()) {
    const std::size_t end = text.find(kCrLf);
    const bool isEnded = end != TextView::npos;
    mending.Take(text.substr(0, end), isEnded);
    text.remove_prefix(isEnded ? end + kCrLf.size() : text.size());
  }
  if (mending.Whole().empty()) return Text(head);
  return std::move(mending.Whole());
}

// A character, if it is UTF-16 as far as can be seen: another encoding has bytes in any number.
bool IsCutInside(std::string_view bytes) {
  return bytes.size() % 2 != 0 &&
         (bytes.starts_with(platform::kUtf16Mark) || bytes.starts_with('\0') ||
          platform::kUtf16Mark.starts_with(bytes));
}

}  // namespace

std::optional<Text> MendedIndex(std::string_view bytes, TextView head, TextView name) {
  const bool isCut = IsCutInside(bytes);
  if (bytes.size() % 2 != 0 && !isCut) return std::nullopt;
  const Text text = platform::DecodeUnicode(bytes);
  Text mended = Mended(text, head, name, isCut);
  if (mended == text && !isCut) return std::nullopt;
  return mended;
}

}  // namespace workbench
