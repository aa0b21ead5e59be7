// Text as the whole tool holds it: UTF-16 code units. Positions count from 1; 0 means
// "not found". Every operation is linear in its text (what is sought counts as short) and none
// depends on the locale.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

using Text = std::u16string;
using TextView = std::u16string_view;
// A position or a length in characters (UTF-16 units). Signed, so that a wrong length can be seen.
using Position = std::int64_t;

inline constexpr TextView kCrLf = u"\r\n";
inline constexpr TextView kRightToLeftMark = u"\u200F";

// The first position of `find` at or after `start`, 0 if there is none. Failure if start < 1.
// An empty `find` is found at `start` as long as that lies inside the text.
Position InStr(TextView text, TextView find, Position start = 1);
// The last position of `find`, 0 if there is none. An empty `find` is found at the last character.
Position InStrRev(TextView text, TextView find);
// The text from `start` on, or `length` characters of it; shorter where the text ends.
// Failure if start < 1 or length < 0.
TextView Mid(TextView text, Position start);
TextView Mid(TextView text, Position start, Position length);
// The first `length` characters. Failure if length < 0.
TextView Left(TextView text, Position length);
// All of `path` from its last "." on, the dot included. Failure if there is no dot.
TextView DotExtension(TextView path);
// All of `text` after the last occurrence of `mark`; the whole text where there is none.
TextView After(TextView text, TextView mark);

// Every occurrence of `find` replaced, in one scan from left to right without overlap. An empty
// `find` occurs nowhere.
Text Replace(TextView text, TextView find, TextView with);
// The pieces between the separators; one piece at least, also for an empty text.
std::vector<Text> Split(TextView text, TextView separator);
// The text without the blanks (U+0020, nothing else) at both ends.
TextView Trim(TextView text);
// Letter by letter, one unit to one unit (Unicode simple case mapping).
Text LCase(TextView text);
Text UCase(TextView text);
bool EqualsIgnoringCase(TextView a, TextView b);

// The number that the text shows: blanks around, a sign, decimal digits (ASCII, Arabic or Persian),
// a decimal mark ("." or U+066B), an exponent. Failure for anything else, an empty text included,
// and for a number beyond the range of double.
double ToNumber(TextView text);
// Rounded to a whole number, halves to the even one. Failure outside -32768..32767.
std::int16_t ToInt16(double value);
std::int16_t ToInt16(TextView text);
Text FromNumber(std::int64_t value);
// Every decimal digit of any script as its ASCII one.
Text WithAsciiDigits(TextView text);

// UTF-8 both ways; each byte that is no UTF-8 and each lone surrogate becomes U+FFFD.
Text FromUtf8(std::string_view utf8);
std::string ToUtf8(TextView text);

}  // namespace platform
