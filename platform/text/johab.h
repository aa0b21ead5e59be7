// Johab, the combining code of Korean (Windows 1361; KS X 1001:1992, annex 3), which ICU lacks.
#pragma once

#include <string>

namespace platform {

// The Hangul, a syllable or a letter, that two bytes stand for; NUL where they stand for none.
char16_t JohabHangul(unsigned char lead, unsigned char trail);

// Two bytes that stand for a sign or a Chinese character, as EUC-KR has them; empty where they
// stand for none.
std::string EucKrOfJohab(unsigned char lead, unsigned char trail);

}  // namespace platform
