#include "workbench/stems.h"

namespace workbench {

using platform::Text;

char16_t RandN(platform::Clock& clock, platform::Random& random) {
  random.Seed(clock.Ticks());
  const int x = platform::ToInt16(random.Next() * 34.0);
  return static_cast<char16_t>(x > 9 ? x + 87 : x + u'0');
}

Text NewN(platform::Clock& clock, platform::Random& random) {
  constexpr int kStemLength = 14;
  Text stem;
  for (int i = 0; i < kStemLength; ++i) stem += RandN(clock, random);
  return platform::UCase(stem);
}

}  // namespace workbench
