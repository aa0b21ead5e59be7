#include "platform/text/johab.h"

#include <array>
#include <string_view>

namespace platform {
namespace {

constexpr char16_t kFirstSyllable = u'\uAC00';
constexpr char16_t kFirstVowel = u'\u314F';
constexpr int kVowels = 21;
constexpr int kFinals = 28;

// Five bits each name the first consonant, the vowel and the last consonant of a syllable.
constexpr int kNone = -1;
constexpr int kFill = -2;  // the syllable lacks this part
using Parts = std::array<int, 32>;

constexpr Parts kInitials = {kNone, kFill, 0,     1,     2,     3,     4,     5,
                             6,     7,     8,     9,     10,    11,    12,    13,
                             14,    15,    16,    17,    18,    kNone, kNone, kNone,
                             kNone, kNone, kNone, kNone, kNone, kNone, kNone, kNone};
constexpr Parts kMedials = {kNone, kNone, kFill, 0,     1,  2,     3,     4,  kNone, kNone, 5,
                            6,     7,     8,     9,     10, kNone, kNone, 11, 12,    13,    14,
                            15,    16,    kNone, kNone, 17, 18,    19,    20, kNone, kNone};
constexpr Parts kLasts = {kNone, 0,  1,  2,  3,  4,  5,  6,     7,     8,    9,
                          10,    11, 12, 13, 14, 15, 16, kNone, 17,    18,   19,
                          20,    21, 22, 23, 24, 25, 26, 27,    kNone, kNone};
constexpr std::u16string_view kInitialLetters = u"ㄱㄲㄴㄷㄸㄹㅁㅂㅃㅅㅆㅇㅈㅉㅊㅋㅌㅍㅎ";
constexpr std::u16string_view kLastLetters =
    u"\u3000ㄱㄲㄳㄴㄵㄶㄷㄹㄺㄻㄼㄽㄾㄿㅀㅁㅂㅄㅅㅆㅇㅈㅊㅋㅌㅍㅎ";

// The two halves of a row of EUC-KR stand in one row of Johab.
constexpr int kRowLength = 94;
constexpr int kFirstColumn = 0xA1;

}  // namespace

char16_t JohabHangul(unsigned char lead, unsigned char trail) {
  const unsigned code = static_cast<unsigned>(lead) << 8 | trail;
  const int initial = kInitials[code >> 10 & 31];
  const int medial = kMedials[code >> 5 & 31];
  const int last = kLasts[code & 31];
  if (lead < 0x80 || initial == kNone || medial == kNone || last == kNone) return u'\0';
  if (initial != kFill && medial != kFill) {
    return static_cast<char16_t>(kFirstSyllable + (initial * kVowels + medial) * kFinals + last);
  }
  if (initial != kFill)
    return last == 0 ? kInitialLetters[static_cast<std::size_t>(initial)] : u'\0';
  if (medial != kFill) return last == 0 ? static_cast<char16_t>(kFirstVowel + medial) : u'\0';
  return kLastLetters[static_cast<std::size_t>(last)];
}

std::string EucKrOfJohab(unsigned char lead, unsigned char trail) {
  const bool signs = lead >= 0xD9 && lead <= 0xDE;
  const bool chinese = lead >= 0xE0 && lead <= 0xF9;
  const bool left = trail >= 0x31 && trail <= 0x7E;
  if (!(signs || chinese) || !(left || (trail >= 0x91 && trail <= 0xFE))) return {};
  const int row = signs ? 0xA1 + 2 * (lead - 0xD9) : 0xCA + 2 * (lead - 0xE0);
  const int place = trail - (left ? 0x31 : 0x43);
  return {static_cast<char>(row + place / kRowLength),
          static_cast<char>(kFirstColumn + place % kRowLength)};
}

}  // namespace platform
