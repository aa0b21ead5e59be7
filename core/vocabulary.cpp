#include "core/vocabulary.h"

namespace core {

platform::Text WithTodaysWords(platform::TextView record) {
  platform::Text words = platform::Replace(record, u"BookTXT", u"TXT");
  words = platform::Replace(words, u"BookTitle", u"Index");
  return platform::Replace(words, u"aBook0", u"aTitle0");
}

}  // namespace core
