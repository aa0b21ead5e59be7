#include "platform/text/text.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <charconv>

#include "platform/failure.h"
#include "platform/text/text_search.h"
#include "platform/text/utf8.h"

namespace platform {
namespace {

constexpr char16_t kBlank = u' ';
constexpr char32_t kReplacement = 0xFFFD;

[[noreturn]] void FailArgument() { throw Failure(u"Invalid procedure call or argument"); }

std::size_t OffsetOf(Position start) {
  if (start < 1) FailArgument();
  return static_cast<std::size_t>(start - 1);
}

std::size_t LengthOf(Position length) {
  if (length < 0) FailArgument();
  return static_cast<std::size_t>(length);
}

std::size_t CountHits(TextView text, TextView find) {
  std::size_t hits = 0;
  ForEachHit(text, find, 0, [&hits](std::size_t) { return ++hits != 0; });
  return hits;
}

// Hebrew, Arabic and all up to Burmese: most of what the tool sees, and asking the library costs.
bool IsOfScriptWithoutCase(char16_t unit) { return unit >= 0x0590 && unit < 0x10A0; }

char16_t LowerUnit(char16_t unit) {
  if (unit < 0x80) return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
  if (IsOfScriptWithoutCase(unit)) return unit;
  return static_cast<char16_t>(u_tolower(unit));
}

char16_t UpperUnit(char16_t unit) {
  if (unit < 0x80) return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
  if (IsOfScriptWithoutCase(unit)) return unit;
  return static_cast<char16_t>(u_toupper(unit));
}

template <typename Mapping>
Text MapUnits(TextView text, Mapping mapping) {
  Text result(text);
  for (char16_t& unit : result) unit = mapping(unit);
  return result;
}

}  // namespace

Position InStr(TextView text, TextView find, Position start) {
  const std::size_t from = OffsetOf(start);
  if (from >= text.size()) return 0;
  if (find.empty()) return start;
  Position found = 0;
  ForEachHit(text, find, from, [&found](std::size_t at) {
    found = static_cast<Position>(at) + 1;
    return false;
  });
  return found;
}

Position InStrRev(TextView text, TextView find) {
  if (find.empty()) return static_cast<Position>(text.size());
  const std::size_t at = text.rfind(find);
  return at == TextView::npos ? 0 : static_cast<Position>(at) + 1;
}

TextView Mid(TextView text, Position start) {
  return text.substr(std::min(OffsetOf(start), text.size()));
}

TextView Mid(TextView text, Position start, Position length) {
  return Mid(text, start).substr(0, LengthOf(length));
}

TextView Left(TextView text, Position length) { return text.substr(0, LengthOf(length)); }

TextView DotExtension(TextView path) { return Mid(path, InStrRev(path, u".")); }

TextView After(TextView text, TextView mark) {
  const std::size_t at = mark.empty() ? TextView::npos : text.rfind(mark);
  return at == TextView::npos ? text : text.substr(at + mark.size());
}

Text Replace(TextView text, TextView find, TextView with) {
  Text result;
  std::size_t taken = 0;
  ForEachHit(text, find, 0, [&](std::size_t at) {
    // A quarter more than the text seldom falls short.
    if (taken == 0) result.reserve(text.size() + (with.size() > find.size() ? text.size() / 4 : 0));
    result.append(text, taken, at - taken);
    result.append(with);
    taken = at + find.size();
    return true;
  });
  if (taken == 0) return Text(text);
  result.append(text, taken);
  return result;
}

std::vector<Text> Split(TextView text, TextView separator) {
  std::vector<Text> pieces;
  pieces.reserve(CountHits(text, separator) + 1);
  std::size_t from = 0;
  ForEachHit(text, separator, 0, [&](std::size_t at) {
    pieces.emplace_back(text.substr(from, at - from));
    from = at + separator.size();
    return true;
  });
  pieces.emplace_back(text.substr(from));
  return pieces;
}

TextView Trim(TextView text) {
  const std::size_t first = text.find_first_not_of(kBlank);
  if (first == TextView::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlank) - first + 1);
}

Text LCase(TextView text) { return MapUnits(text, LowerUnit); }

Text UCase(TextView text) { return MapUnits(text, UpperUnit); }

bool EqualsIgnoringCase(TextView a, TextView b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char16_t one, char16_t other) {
    return one == other || LowerUnit(one) == LowerUnit(other);
  });
}

Text WithAsciiDigits(TextView text) {
  return MapUnits(text, [](char16_t unit) {
    const int digit = unit < 0x80 ? -1 : u_charDigitValue(unit);
    return digit < 0 ? unit : static_cast<char16_t>(u'0' + digit);
  });
}

Text FromNumber(std::int64_t value) {
  char digits[24];
  const auto written = std::to_chars(digits, digits + sizeof digits, value);
  return Text(digits, written.ptr);
}

Text FromUtf8(std::string_view utf8) {
  Text text;
  text.reserve(utf8.size());
  while (!utf8.empty()) {
    const Utf8Step step = FirstOfUtf8(utf8);
    AppendCharacter(text, step.length == 0 ? kReplacement : step.character);
    utf8.remove_prefix(std::max<std::size_t>(step.length, 1));
  }
  return text;
}

std::string ToUtf8(TextView text) {
  std::string utf8;
  utf8.reserve(text.size());
  while (!text.empty()) {
    const Utf16Step step = FirstOfUtf16(text);
    AppendCharacter(utf8, IsSurrogate(step.character) ? kReplacement : step.character);
    text.remove_prefix(step.length);
  }
  return utf8;
}

}  // namespace platform
