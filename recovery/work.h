// The work on one collection as a record keeps it: what is filed, and what of the workbench's
// fields belongs to it.
//
// A record has whatever the three functions here and filed::ForEachColumn name, and nothing else.
// The numbers that they give stand in records on the disk: each keeps its meaning for good, and
// what is new gets the next, and the records a new version (recovery/piece.h).
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "filed/filed_work.h"
#include "platform/text/text.h"
#include "platform/text/text_edit.h"

namespace recovery {

// Whose work it is.
struct Collection {
  platform::Text bookFolder;
  platform::Text key;  // "a1"

  bool operator==(const Collection&) const = default;
};

struct Fields {
  platform::Text title;          // the collection's, as far as it got
  platform::Text restFile;       // the input text that the rest is of
  platform::Text chosenImage;    // the picture chosen last for a text
  platform::Text galleryFolder;  // that the picture browsers show
  bool restIsUntouched = false;  // it is what was read from its file, in which it stands still
};

struct Work {
  filed::FiledWork filed;
  Fields fields;
  Collection collection;
  platform::Text rest;  // of the input text, not filed yet; "\n" at a paragraph's end
};

// What there is of so many characters of the rest from `start` on. The whole of a large text is
// dear.
using RestPart = std::function<platform::Text(platform::Position start, platform::Position count)>;

// The same as the workbench has it.
struct LiveWork {
  filed::FiledWork& filed;
  Fields fields;
  Collection collection;
  std::optional<platform::TextEdit> restEdit;  // since it was looked at last
  RestPart rest;
  platform::Position restLength = 0;
};

// Whether there is nothing that an editor would want back: a text that was only opened, and gallery
// mode without a picture, are nothing.
bool HoldsNothing(const LiveWork& work);
bool HoldsNothing(const Work& work);

// `work` is a Work or a LiveWork.
template <typename AnyWork, typename Visit>
void ForEachText(AnyWork& work, const Visit& visit) {
  visit(0, work.collection.bookFolder);
  visit(1, work.collection.key);
  visit(2, work.fields.title);
  visit(3, work.fields.restFile);
  visit(4, work.fields.chosenImage);
  visit(5, work.fields.galleryFolder);
  visit(6, work.filed.lastMainText);
}

template <typename AnyWork, typename Visit>
void ForEachNumber(AnyWork& work, const Visit& visit) {
  visit(0, work.filed.entryCount);
  visit(1, work.filed.mainOpen);
  visit(2, work.filed.imageCount);
  visit(3, work.filed.galleryMode);
  visit(4, work.fields.restIsUntouched);
}

inline constexpr std::size_t kEntryCountNumber = 0;
inline constexpr std::size_t kCollectionTexts = 2;  // the first so many say whose work it is
inline constexpr std::size_t kTextFields = 7;
inline constexpr std::size_t kNumberFields = 5;
inline constexpr int kLinesColumn = 12;  // after those of the entry table

// The columns of the table and, as one more, the lines of the list.
template <typename Visit>
void ForEachColumn(filed::FiledWork& filed, const Visit& visit) {
  filed::ForEachColumn(filed.table, visit);
  visit(kLinesColumn, filed.lines.Rows());
}

// How many rows the longest of them has.
std::ptrdiff_t LongestColumn(filed::FiledWork& filed);
// How many characters the text that is left and the rows have. Looks at each row, at no character.
std::uint64_t CharactersOf(LiveWork& work);

}  // namespace recovery
