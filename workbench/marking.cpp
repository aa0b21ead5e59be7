#include "workbench/marking.h"

#include <array>
#include <cmath>
#include <utility>

#include "core/selector.h"

namespace workbench {

namespace {

using platform::Text;
using platform::TextView;

constexpr TextView kArrow = u"   =>   ";
constexpr double kFewestWords = 10;
constexpr double kMostWords = 30;

struct KeyRow {
  int code;
  MarkingKey meaning;
};

constexpr MarkingKey OnSelection(Mark command) {
  return {.action = MarkingKey::Action::kCommand, .command = command, .needsSelection = true};
}

constexpr MarkingKey Always(Mark command) {
  return {.action = MarkingKey::Action::kCommand, .command = command, .needsSelection = false};
}

constexpr std::array kKeys = std::to_array<KeyRow>({
    {112, OnSelection(Mark::kMainTitle)},
    {113, OnSelection(Mark::kHeading)},
    {114, OnSelection(Mark::kHeadingText)},
    {115, Always(Mark::kMainTitleEnd)},
    {116, OnSelection(Mark::kTitle)},
    {117, OnSelection(Mark::kIdentity)},
    {118, {.action = MarkingKey::Action::kToggleRemoval}},
    {122, OnSelection(Mark::kDelete)},
    {123, Always(Mark::kBuild)},
});

// What stands before the selection in the title, and what behind it.
std::pair<TextView, TextView> Around(Mark command, bool titleIsEmpty) {
  switch (command) {
    case Mark::kTitle:
      return {titleIsEmpty ? u"" : u" ", u""};
    case Mark::kTitleInBrackets:
      return {u" (", u")"};
    case Mark::kTitleBehindDash:
      return {u" - ", u""};
    case Mark::kTitleBehindColon:
      return {u": ", u""};
    default:
      return {u"؛ ", u""};
  }
}

bool AddsToTitle(Mark command) {
  return command == Mark::kTitle ||
         (command >= Mark::kTitleInBrackets && command <= Mark::kTitleBehindSemicolon);
}

Text RowWord(TextView rowLetter) {
  Text word = platform::Replace(rowLetter, u"a", u"اول");
  word = platform::Replace(word, u"b", u"دوم");
  return platform::Replace(word, u"c", u"سوم");
}

}  // namespace

std::optional<MarkingKey> KeyMeaning(int keyCode) {
  for (const KeyRow& key : kKeys) {
    if (key.code == keyCode) return key.meaning;
  }
  return std::nullopt;
}

Text TitleWith(Mark command, TextView title, TextView selection) {
  Text longer(title);
  if (!AddsToTitle(command)) return longer;
  const auto [before, behind] = Around(command, title.empty());
  longer += before;
  longer += selection;
  longer += behind;
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
