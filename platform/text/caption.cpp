#include "platform/text/caption.h"

#include <unicode/uchar.h>

namespace platform {

Text ShownCaption(TextView caption) {
  constexpr char16_t kMark = u'\u200F';
  constexpr char16_t kHalfSpace = u'\u200C';
  Text shown(caption);
  for (std::size_t i = 1; i + 1 < shown.size(); ++i) {
    if (shown[i] == kMark && u_isalpha(shown[i - 1]) && u_isalpha(shown[i + 1])) {
      shown[i] = kHalfSpace;
    }
  }
  return shown;
}

}  // namespace platform
