// What the files of a book are made of. They look like XML and HTML and are neither: plain text
// put together, nothing escaped, the index file never closed. The viewer takes them byte by byte.
#pragma once

#include <cstdint>

#include "core/entry_media.h"
#include "platform/text/text.h"

namespace workbench {

// The names that the vocabulary record gives, its fields 0 to 7 in this order.
struct Vocabulary {
  platform::Text txtFolder;
  platform::Text xmlFolder;
  platform::Text indexFile;
  platform::Text pageTag;
  platform::Text mainTag;
  platform::Text identTag;
  platform::Text creditLine;
  platform::Text pageExt;
};
// Failure for a record of fewer than eight fields.
Vocabulary SplitVocabulary(platform::TextView record);

// The depth that a row of a collection file stands at: so many tabs.
using Depth = std::int32_t;

// Pages.

// A line break, then `count` blank paragraphs, each a line. The window's failure number is 83.
platform::Text AddEntr(std::int16_t count, platform::TextView mainTag);
// The body of an ordinary page: a line break and a blank paragraph, then one paragraph a line.
platform::Text SetMatn(platform::TextView text, platform::TextView mainTag);
// The body of an identity page: two empty paragraphs, then one paragraph a line.
platform::Text SetShenas(platform::TextView text, platform::TextView identTag);
// The first line of a page.
platform::Text PageTitleLine(platform::TextView title, platform::TextView pageTag);

// The index file.

platform::Text IndexHead(platform::TextView creditLine);
// `name` is the collection's, as "aTitle1".
platform::Text OpenTag(platform::TextView name, bool gallery);
platform::Text CloseTag(platform::TextView name);
platform::Text IndexLine(platform::TextView openTag, platform::TextView title,
                         platform::TextView closeTag);
// The index without the first line of the collection that the tags belong to; its line break stays.
// As it is where one of the tags is missing. Failure where that line starts the text, without even
// a tab before it.
platform::Text WithoutOldLine(platform::TextView index, platform::TextView openTag,
                              platform::TextView closeTag);
// Whether the collection that the tag belongs to has more than one line.
bool HasTwoLines(platform::TextView index, platform::TextView openTag);

// Collection files and gallery files.

platform::Text HeadLines(bool gallery);
platform::TextView EndLine(bool gallery);
// A line that opens a main title, one that closes it, and one of a picture. Failure for a depth
// below 0.
platform::Text MainTitleLine(Depth depth, platform::TextView text);
platform::Text MainEndLine(Depth depth);
platform::Text PictureLine(Depth depth, platform::TextView title, platform::TextView stem);

// What the line of an entry tells. The paths are those of the entry table, empty for none.
struct EntryNode {
  platform::TextView title = {};
  platform::TextView file = {};  // the page's or the gallery file's name
  bool gallery = false;
  core::PerMedium<bool> has = {};
  platform::TextView attachment = {};  // what sndBin gave
  platform::TextView background = {};  // what PasBin gave
};
// Failure for a depth below 0.
platform::Text NodeLine(Depth depth, const EntryNode& node);

// The attributes that tell an attachment's kind and a background's file; empty for an empty path.
// Failure for a path without a dot (the window's numbers are 85 and 84).
platform::Text sndBin(platform::TextView path);
platform::Text PasBin(platform::TextView path, platform::TextView stem);

}  // namespace workbench
