// What the marking commands make of texts and keys: the collection's title and label, a line of the
// entry list, the caption that counts open main titles, the function keys. No window, no table.
#pragma once

#include <cstdint>
#include <optional>

#include "core/entry_media.h"
#include "platform/text/text.h"
#include "support/marking_commands.h"

namespace workbench {

using support::Mark;

// How far a line of the entry list shows a title and a text.
inline constexpr std::int16_t kShownTitle = 20;
inline constexpr std::int16_t kShownText = 70;

// What a key of the text box means.
struct MarkingKey {
  enum class Action : std::uint8_t { kCommand, kToggleRemoval };
  Action action = Action::kCommand;
  Mark command = Mark::kTitle;  // for kCommand
  bool needsSelection = false;  // without one the key does nothing
};
// By the key's code (F1 is 112, F12 is 123); nothing for a key that has no meaning here.
[[nodiscard]] std::optional<MarkingKey> KeyMeaning(int keyCode);

// The collection's title with the selection added; the title as it is for a command that doesn't.
platform::Text TitleWith(Mark command, platform::TextView title, platform::TextView selection);

// A line of the entry list with its text put after its title. The text is already short.
platform::Text LineWithText(platform::TextView line, platform::TextView shortText);

// The line with a mark in front for each medium: each new mark goes in front of the others.
platform::Text LineWithMarks(platform::Text line, const core::PerMedium<bool>& attached);

// The caption of the button that opens a main title.
platform::Text MainTitleCaption(std::int64_t openTitles);

// Blanks at both ends removed, in place: the rich encoding of a passage can be large.
platform::Text Trimmed(platform::Text text);

// The label over the list: which collection is in hand, by its row letter and its number. Failure
// for a number above the ten ordinals and for what is no number.
platform::Text CollectionLabel(platform::TextView rowLetter, platform::TextView rowDigit);
// What the label says once every collection is built.
inline constexpr platform::TextView kAllCollectionsBuilt = u"پايان مجموعه\u200Fها!";

// Whether the field of the words a line may keep this text: its whole-number part lies from 10 to
// 30. Failure for a text that is no number.
[[nodiscard]] bool WordCountFits(platform::TextView text);

}  // namespace workbench
