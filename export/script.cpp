#include "export/script.h"

#include <iterator>

namespace exporting {

using platform::Position;
using platform::Text;
using platform::TextView;

namespace {

constexpr TextView kMakeFolder = u"[ Make Folder ]";
constexpr TextView kCopyFolder = u"[ Copy Folder ]";
constexpr TextView kCopyFile = u"[ Copy File ]";
constexpr TextView kArrow = u"=>";

Position Length(TextView text) { return static_cast<Position>(text.size()); }

// A missing header makes the cut start before the text, a missing "[" makes it end before it
// starts: both are failures of Mid.
std::vector<Text> CutSection(TextView text, TextView header) {
  const Position start = platform::InStr(text, header);
  const Position end = platform::InStr(text, u"[", start + Length(header));
  std::vector<Text> pieces =
      platform::Split(platform::Mid(text, start, end - start - 1), platform::kCrLf);
  if (pieces.size() < 3) return {};
  return {std::make_move_iterator(pieces.begin() + 1), std::make_move_iterator(pieces.end() - 1)};
}

}  // namespace

ExportScript CutScript(TextView text) {
  ExportScript script;
  script.makeFolder = CutSection(text, kMakeFolder);
  script.copyFolder = CutSection(text, kCopyFolder);
  script.copyFile = CutSection(text, kCopyFile);
  return script;
}

CopyLine SplitCopyLine(TextView line) {
  const Position arrow = platform::InStr(line, kArrow);
  return {Text(platform::Trim(platform::Left(line, arrow - 1))),
          Text(platform::Trim(platform::Mid(line, arrow + Length(kArrow))))};
}

Text WithoutRootWord(TextView target) { return platform::Replace(target, u"root", u""); }

}  // namespace exporting
