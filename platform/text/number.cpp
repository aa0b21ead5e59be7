#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

#include "platform/failure.h"
#include "platform/text/text.h"

namespace platform {
namespace {

constexpr char16_t kArabicDecimalMark = u'\u066B';

[[noreturn]] void FailNoNumber() { throw Failure(u"Type mismatch"); }
[[noreturn]] void FailOverflow() { throw Failure(u"Overflow"); }

// The unit as a number's ASCII text has it; NUL for one that no number has.
char NumberUnit(char16_t unit) {
  if (unit >= u'0' && unit <= u'9') return static_cast<char>(unit);
  if (unit >= u'\u0660' && unit <= u'\u0669') return static_cast<char>('0' + (unit - u'\u0660'));
  if (unit >= u'\u06F0' && unit <= u'\u06F9') return static_cast<char>('0' + (unit - u'\u06F0'));
  if (unit == kArabicDecimalMark) return '.';
  if (unit == u'E') return 'e';
  return unit == u'.' || unit == u'e' || unit == u'+' || unit == u'-' ? static_cast<char>(unit)
                                                                      : '\0';
}

std::string NumberUnits(TextView text) {
  std::string ascii;
  for (const char16_t unit : text) ascii += NumberUnit(unit);
  return ascii;
}

// Whether a number that no double can hold is too large, and not too small.
bool IsLarge(std::string_view ascii) {
  const std::size_t mark = std::min(ascii.find('e'), ascii.size());
  const std::string_view digits = ascii.substr(0, mark);
  std::string_view power = ascii.substr(std::min(mark + 1, ascii.size()));
  if (power.starts_with('+')) power.remove_prefix(1);
  std::int32_t exponent = 0;
  const std::errc error = std::from_chars(power.data(), power.data() + power.size(), exponent).ec;
  if (error == std::errc::result_out_of_range) return !power.starts_with('-');
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const std::size_t first = digits.find_first_of("123456789");
  return static_cast<Position>(point) - static_cast<Position>(first) + exponent > 0;
}

}  // namespace

double ToNumber(TextView text) {
  const std::string ascii = NumberUnits(Trim(text));
  std::string_view number = ascii;
  if (number.starts_with('+')) number.remove_prefix(1);
  if (number.size() < ascii.size() && number.starts_with('-')) FailNoNumber();
  const char* const end = number.data() + number.size();
  double value = 0;
  const auto [after, error] = std::from_chars(number.data(), end, value);
  if (error == std::errc::invalid_argument || after != end) FailNoNumber();
  if (error == std::errc()) return value;
  if (IsLarge(number)) FailOverflow();
  return number.starts_with('-') ? -0.0 : 0.0;
}

std::int16_t ToInt16(double value) {
  using Limits = std::numeric_limits<std::int16_t>;
  const double whole = std::nearbyint(value);
  if (!(whole >= Limits::min() && whole <= Limits::max())) FailOverflow();
  return static_cast<std::int16_t>(whole);
}

std::int16_t ToInt16(TextView text) { return ToInt16(ToNumber(text)); }

}  // namespace platform
