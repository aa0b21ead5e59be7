#include "workbench/marking.h"

#include <cmath>

#include "core/selector.h"

namespace workbench {

namespace {

using platform::Text;
using platform::TextView;

constexpr TextView kArrow = u"   =>   ";
constexpr double kFewestWords = 10;
constexpr double kMostWords = 30;

Text RowWord(TextView rowLetter) {
  Text word = platform::Replace(rowLetter, u"a", u"اول");
  word = platform::Replace(word, u"b", u"دوم");
  return platform::Replace(word, u"c", u"سوم");
}

}  // namespace

std::optional<MarkingKey> KeyMeaning(int keyCode) {
  if (keyCode == support::kRemovalKey) return MarkingKey{MarkingKey::Action::kToggleRemoval};
  for (const support::MarkingCommand& row : support::kMarkingCommands) {
    if (row.key == 0 || row.key != keyCode) continue;
    return MarkingKey{MarkingKey::Action::kCommand, row.mark, row.needsSelection};
  }
  return std::nullopt;
}

// The first passage of a title stands alone.
Text TitleWith(Mark command, TextView title, TextView selection) {
  const support::MarkingCommand& row = support::CommandOf(command);
  Text longer(title);
  if (!row.addsToTitle) return longer;
  if (command != Mark::kTitle || !title.empty()) longer += row.before;
  longer += selection;
  longer += row.after;
  return longer;
}

Text LineWithText(TextView line, TextView shortText) {
  Text whole(line);
  whole += kArrow;
  whole += shortText;
  return whole;
}

Text LineWithMarks(Text line, const core::PerMedium<bool>& attached) {
  for (const core::MediumRow& each : core::kMedia) {
    if (attached[each.medium]) line.insert(0, each.mark);
  }
  return line;
}

Text MainTitleCaption(std::int64_t openTitles) {
  Text caption = u"تيتر اصلي (";
  caption += platform::FromNumber(openTitles);
  caption += u")\u200F";
  return caption;
}

Text Trimmed(Text text) {
  text.erase(text.find_last_not_of(u' ') + 1);
  text.erase(0, text.find_first_not_of(u' '));
  return text;
}

Text CollectionLabel(TextView rowLetter, TextView rowDigit) {
  Text label = u"عنوان مجموعه ";
  label += core::Ordinal(platform::ToInt16(rowDigit) - 1);
  label += u" در رديف ";
  label += RowWord(rowLetter);
  label += u":";
  return label;
}

bool WordCountFits(TextView text) {
  const double words = std::trunc(platform::ToNumber(text));
  return words >= kFewestWords && words <= kMostWords;
}

}  // namespace workbench
