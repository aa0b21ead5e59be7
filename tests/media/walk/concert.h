// Goes through a book with music, a sound and a film, and says what is heard and seen.
#pragma once

namespace media_tests {

void HearABook();

}  // namespace media_tests
