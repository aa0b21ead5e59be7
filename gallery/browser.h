// A picture browser: five rows of a scrolling list, each with a thumbnail, a tick that takes the
// picture into a gallery and a title for it. Two windows have one; what they differ in is here.
// Nothing here catches a failure.
#pragma once

#include <cstddef>

#include "gallery/folder_pictures.h"
#include "gallery/slots.h"
#include "platform/text/text.h"
#include "platform/windows/controls.h"

namespace gallery {

// The controls of one browser, arrays by row, and how much of the folder's path its label shows.
struct Browser {
  const platform::ControlArray<platform::Frame>& IMF;
  const platform::ControlArray<platform::ImageBox>& IMG;
  const platform::ControlArray<platform::Label>& IMJ;
  const platform::ControlArray<platform::CheckBox>& IMC;
  const platform::ControlArray<platform::TextBox>& IMN;
  platform::ScrollBar& VSC;
  platform::Label& ShPath;
  platform::Position longestPath;
};

// Draws the browser with picture `first` of the folder in its top row. `root` is the folder with
// its final "\". Five pictures are decoded, whatever the folder holds. Failure if one can't be.
void Show(const Browser& browser, std::ptrdiff_t first, const FolderPictures& folder,
          platform::TextView root, const Slots& chosen);

// Empties the rows and scrolls to the top, which draws the browser anew if it wasn't there. The
// chosen pictures stay.
void Blank(const Browser& browser);

// The row's tick was changed: takes its picture with its title into the gallery, or out of it.
// Failure in the middle leaves what was done.
void AddRow(const Browser& browser, std::ptrdiff_t row, platform::TextView root,
            const Slots& chosen);
void RemoveRow(const Browser& browser, std::ptrdiff_t row, platform::TextView root,
               const Slots& chosen);

}  // namespace gallery
