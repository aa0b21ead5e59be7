// Pictures inside a page's text: the numbered mark that stands for one, and the image tag that it
// becomes.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "platform/column.h"
#include "platform/files/file_system.h"
#include "platform/text/text.h"

namespace workbench {

// How many blank paragraphs end a page, by whether its text held a mark (see AddEntr).
inline constexpr std::int16_t kTailWithImages = 50;
inline constexpr std::int16_t kTailWithoutImages = 7;

// Brings a picture into the book under its own file name. Called once for each distinct mark.
using BringImage = std::function<void(const platform::Text& source, platform::TextView fileName)>;

// Replaces every mark "<pgMain> {k}</pgMain>" in `text` by the image tag of inlineImage(k), in the
// order in which the marks first occur; true if there was one. The page's tail is the caller's.
// Failure for a mark whose k is no 16-bit number or that isn't closed, and where `bring` fails;
// `text` then holds the tags of all marks that came before (the window's number is 68). Linear in
// the text, however many marks it has.
[[nodiscard]] bool PutImageTags(platform::Text& text,
                                const platform::Column<platform::Text>& inlineImage,
                                const BringImage& bring);

// Where the paragraph in front of the one with the caret ends; nothing if the caret stands in the
// first one. `text` has CR LF at a paragraph's end; both positions count that as one, from 0.
[[nodiscard]] std::optional<platform::Position> EndOfParagraphBefore(platform::TextView text,
                                                                     platform::Position caret);

// Copies a picture that exists to a target that doesn't, or whose bytes a disk has lost; else does
// nothing.
void CopyIfMissing(platform::FileSystem& files, platform::TextView source,
                   platform::TextView target);

}  // namespace workbench
