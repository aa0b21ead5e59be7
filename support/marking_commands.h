// The marking commands of the workbench: number, key, caption, hint and what each does to the
// collection's title, a row a command.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/text/text.h"

namespace support {

// The numbers of the commands, which are the indices of their buttons.
enum class Mark : std::int16_t {
  kTitle = 0,
  kIdentity = 1,
  kHeading = 2,
  kHeadingText = 3,
  kDelete = 4,
  kTitleInBrackets = 5,
  kTitleAfterDash = 6,
  kTitleAfterColon = 7,
  kTitleAfterSemicolon = 8,
  kMainTitle = 9,
  kMainTitleEnd = 10,
  kBuild = 11,
  kGalleryMode = 12,
  kBuildGallery = 13,
};

// The code of a function key: F1 is 112, F12 is 123.
constexpr int FunctionKey(int number) { return 111 + number; }

struct MarkingCommand {
  Mark mark;
  platform::TextView caption;
  platform::TextView hint = {};
  int key = 0;                  // 0: none
  bool needsSelection = false;  // without one the key does nothing
  bool addsToTitle = false;     // the selection, with these around it
  platform::TextView before = {};
  platform::TextView after = {};
};

inline constexpr std::array kMarkingCommands = std::to_array<MarkingCommand>({
    {.mark = Mark::kTitle,
     .caption = u"عنوان",
     .hint = u"F5 :كليد ميانبر",
     .key = FunctionKey(5),
     .needsSelection = true,
     .addsToTitle = true,
     .before = u" "},
    {.mark = Mark::kIdentity,
     .caption = u"شناسنامه",
     .hint = u"F6 :كليد ميانبر",
     .key = FunctionKey(6),
     .needsSelection = true},
    {.mark = Mark::kHeading,
     .caption = u"تيتر",
     .hint = u"F2 :كليد ميانبر",
     .key = FunctionKey(2),
     .needsSelection = true},
    {.mark = Mark::kHeadingText,
     .caption = u"متن مرتبط",
     .hint = u"F3 :كليد ميانبر",
     .key = FunctionKey(3),
     .needsSelection = true},
    {.mark = Mark::kDelete,
     .caption = u"حذف متن",
     .hint = u"F11 :كليد ميانبر",
     .key = FunctionKey(11),
     .needsSelection = true},
    {.mark = Mark::kTitleInBrackets,
     .caption = u"( )",
     .addsToTitle = true,
     .before = u" (",
     .after = u")"},
    {.mark = Mark::kTitleAfterDash, .caption = u"-", .addsToTitle = true, .before = u" - "},
    {.mark = Mark::kTitleAfterColon, .caption = u":", .addsToTitle = true, .before = u": "},
    {.mark = Mark::kTitleAfterSemicolon, .caption = u"؛", .addsToTitle = true, .before = u"؛ "},
    {.mark = Mark::kMainTitle,
     .caption = u"تيتر اصلي (0)\u200F",
     .hint = u"F1 :كليد ميانبر",
     .key = FunctionKey(1),
     .needsSelection = true},
    {.mark = Mark::kMainTitleEnd,
     .caption = u"پايان",
     .hint = u"F4 :كليد ميانبر",
     .key = FunctionKey(4)},
    {.mark = Mark::kBuild, .caption = u"ساخت فايل", .key = FunctionKey(12)},
    // The hints of the last two name a key that means another command.
    {.mark = Mark::kGalleryMode, .caption = u"ايجاد گالري تصوير", .hint = u"F6 :كليد ميانبر"},
    {.mark = Mark::kBuildGallery,
     .caption = u"ساخت گالري از تصاوير انتخاب شده",
     .hint = u"F6 :كليد ميانبر"},
});

// Turns the tick box on and off that takes passages out of the text.
inline constexpr int kRemovalKey = FunctionKey(7);
inline constexpr platform::TextView kRemovalHint = u"F7 :كليد ميانبر";

constexpr const MarkingCommand& CommandOf(Mark mark) {
  std::size_t row = 0;
  while (kMarkingCommands[row].mark != mark) ++row;
  return kMarkingCommands[row];
}

}  // namespace support
