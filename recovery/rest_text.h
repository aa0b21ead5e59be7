// A large text that is changed again and again, mostly near the same place: what lies between two
// changes is all that moves.
#pragma once

#include "platform/text/text.h"

namespace recovery {

class RestText {
 public:
  // Failure for a part that the text doesn't have.
  void Change(platform::Position start, platform::Position removed, platform::TextView added);
  platform::Position Length() const;
  platform::Text Whole() const;

 private:
  platform::Text before_;  // the place of the last change
  platform::Text after_;   // the same, its characters from the last to the first
};

}  // namespace recovery
