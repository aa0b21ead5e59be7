// What a random editor does in the workbench.
#pragma once

#include <cstdint>
#include <string>

namespace kill_test {

enum class Deed : std::uint8_t {
  kOpenText,
  kTitle,
  kTitleInBrackets,
  kIdentity,
  kHeading,
  kHeadingText,
  kMainTitle,
  kMainTitleEnd,
  kDelete,
  kTypeTitle,
  kTypeText,
  kRebuild,
  kEditTitle,
  kAttach,
  kDeleteRow,
  kPictureInText,
  kEntryPicture,
  kGalleryMode,
  kGalleryPicture,
};
inline constexpr int kDeeds = static_cast<int>(Deed::kGalleryPicture) + 1;

struct Operation {
  Deed deed = Deed::kOpenText;
  int row = 0;            // of the list, or of the picture browser
  int from = 0;           // of a passage in the text, or where is typed
  int length = 0;         // of a passage
  std::string word = {};  // what is typed
};
// Stands for an empty word among others.
inline const std::string kNoWord = "-";

}  // namespace kill_test
