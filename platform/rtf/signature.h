// How rich text begins.
#pragma once

#include <algorithm>
#include <string_view>

#include "platform/failure.h"

namespace platform::rtf {

// The text from its "{\rtf" on. Failure if anything but blanks and line breaks stands before it.
template <typename Unit>
std::basic_string_view<Unit> FromSignature(std::basic_string_view<Unit> rtf) {
  constexpr std::string_view kSignature = "{\\rtf";
  const auto isSpace = [](Unit unit) {
    return unit == ' ' || unit == '\t' || unit == '\r' || unit == '\n';
  };
  rtf.remove_prefix(
      static_cast<std::size_t>(std::find_if_not(rtf.begin(), rtf.end(), isSpace) - rtf.begin()));
  const auto start = rtf.substr(0, kSignature.size());
  if (!std::equal(start.begin(), start.end(), kSignature.begin(), kSignature.end())) {
    throw Failure(u"The text is no rich text");
  }
  return rtf;
}

}  // namespace platform::rtf
