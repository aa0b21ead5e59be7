// The words that a book is made of: its folders, files, tags and credit line, in one record.
#pragma once

#include "platform/text/text.h"

namespace core {

inline constexpr platform::TextView kTxtFolder = u"TXT";
inline constexpr platform::TextView kXmlFolder = u"_xml";

// Eight fields separated by "|": page folder, XML folder, index file, root element of a page,
// paragraph element of a page, paragraph element of an identity page, credit line, page extension.
inline constexpr platform::TextView kVocabularyRecord =
    u"TXT|_xml|Index.xml|pgTitle|pgMain|pgMain|"
    u"<aTitle0>Designed by: Kelvar Media (www.kelvar.example)</aTitle0>|htm";

// The record with the words of the older book layout replaced by today's.
platform::Text WithTodaysWords(platform::TextView record);

}  // namespace core
