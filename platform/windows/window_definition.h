// What a window is made of before it exists: rows of a table. All measures are twips (1440 to the
// inch, 15 to a pixel), from the top left of the parent.
#pragma once

#include <cstdint>
#include <span>

#include "platform/text/text.h"

namespace platform {

using Twips = int;

enum class ControlKind : std::uint8_t {
  kFrame,
  kLine,  // a frame that is only a thin line
  kPicture,
  kLabel,
  kTextBox,
  kRichTextBox,
  kButton,
  kCheckBox,
  kOption,
  kListBox,
  kComboBox,
  kDriveList,
  kFolderList,
  kFileList,
  kImage,
  kScrollBar,
  kTimer,
  kMenu,      // opens when it is told to
  kMenuItem,  // its parent is a menu
};

// Whether controls of this kind have a place on the window.
constexpr bool IsPlaced(ControlKind kind) {
  return kind != ControlKind::kTimer && kind != ControlKind::kMenu &&
         kind != ControlKind::kMenuItem;
}

enum class Artwork : std::uint8_t {
  kNone,
  kBanner,
  kTextsIcon,
  kCollectionIcon,
  kMusicIcon,
  kPatternIcon,
  kExportIcon,
  kNextButton,
  kHelpButton,
  kExportButton,
  kChooserButton,
  kWindowIcon,
};

inline constexpr int kNoIndex = -1;

// What is added to a measure of a control when its window grows. kStacked is for the tops of an
// array's controls that stand one below the other: each begins where the one before it ends.
enum class Growth : std::uint8_t { kNone, kByWidth, kByHeight, kByFifthOfHeight, kStacked };

struct Growths {
  Growth left = Growth::kNone;
  Growth top = Growth::kNone;
  Growth width = Growth::kNone;
  Growth height = Growth::kNone;
};

struct ControlRow {
  TextView name;
  int index = kNoIndex;  // of a control array, else kNoIndex
  ControlKind kind = ControlKind::kLabel;
  Twips left = 0;
  Twips top = 0;
  Twips width = 0;
  Twips height = 0;
  TextView text = {};     // caption or content
  TextView hint = {};     // shown when the pointer rests on it
  TextView namedBy = {};  // the control in the same frame whose caption says what this one holds
  TextView parent = {};   // name of the frame it stands in; empty: the window itself
  int parentIndex = kNoIndex;
  bool hidden = false;
  bool ticked = false;
  bool centred = false;
  bool rightAligned = false;  // a label above its field; one beside it clings to it on the left
  bool defaultButton = false;
  bool leftToRight = false;  // holds paths or other text that runs from left to right
  bool path = false;         // a text box into which a path is typed
  bool tabStop = true;
  bool enabled = true;
  int interval = 0;  // of a timer, milliseconds
  Artwork artwork = Artwork::kNone;
  Growths grows = {};
  Twips gapLeft = 0;    // of a tick box: where its caption leaves room for another control
  Twips gapWidth = 0;   // 0: nowhere
  Twips markInset = 0;  // of a tick box: how far its mark keeps from the right edge
};

enum class Border : std::uint8_t { kFixed, kFixedTool, kSizable };
enum class OpensAt : std::uint8_t { kScreenCentre, kOwnerCentre };

struct WindowDefinition {
  TextView name;
  TextView title;
  Twips width = 0;   // of the inside
  Twips height = 0;  // of the inside
  Border border = Border::kFixed;
  OpensAt opensAt = OpensAt::kScreenCentre;
  bool hasIcon = false;
  bool escapeCloses = false;  // the Escape key is its close button
  std::span<const ControlRow> rows = {};
};

}  // namespace platform
