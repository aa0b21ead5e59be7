#include <locale.h>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include "platform/failure.h"
#include "platform/text.h"

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

// Takes a number's parts from the front of its text.
class NumberParts {
 public:
  explicit NumberParts(std::string_view rest) : rest_(rest) {}

  bool Take(char wanted) {
    if (rest_.empty() || rest_.front() != wanted) return false;
    rest_.remove_prefix(1);
    return true;
  }
  void TakeSign() {
    if (!Take('-')) Take('+');
  }
  bool TakeDigits() {
    const std::size_t behind = rest_.find_first_not_of("0123456789");
    const std::size_t count = behind == std::string_view::npos ? rest_.size() : behind;
    rest_.remove_prefix(count);
    return count > 0;
  }
  bool AtEnd() const { return rest_.empty(); }

 private:
  std::string_view rest_;
};

bool IsNumber(std::string_view ascii) {
  NumberParts parts(ascii);
  parts.TakeSign();
  bool digits = parts.TakeDigits();
  if (parts.Take('.')) digits = parts.TakeDigits() || digits;
  if (!digits) return false;
  if (parts.Take('e')) {
    parts.TakeSign();
    if (!parts.TakeDigits()) return false;
  }
  return parts.AtEnd();
}

// The process's own locale may have another decimal mark.
double InPlainLocale(const std::string& ascii) {
  static const locale_t kPlain = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(ascii.c_str(), nullptr, kPlain);
}

}  // namespace

double ToNumber(TextView text) {
  const std::string ascii = NumberUnits(Trim(text));
  if (!IsNumber(ascii)) FailNoNumber();
  const double value = InPlainLocale(ascii);
  if (std::isinf(value)) FailOverflow();
  return value;
}

std::int16_t ToInt16(double value) {
  using Limits = std::numeric_limits<std::int16_t>;
  const double whole = std::nearbyint(value);
  if (!(whole >= Limits::min() && whole <= Limits::max())) FailOverflow();
  return static_cast<std::int16_t>(whole);
}

std::int16_t ToInt16(TextView text) { return ToInt16(ToNumber(text)); }

}  // namespace platform
