// What hangs on an entry beside its text: a file, a sound, a film and a background. What is done
// for each of them is a loop over these rows; a new kind is a new row, and the compiler names the
// switches that miss it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "core/numbers.h"
#include "platform/text/text.h"

namespace core {

enum class Medium : std::uint8_t { kAttachment, kSound, kFilm, kBackground };

// What an image box can show, as a file chooser's pattern.
inline constexpr platform::TextView kPicturePattern = u"*.gif;*.jpg;*.bmp";

struct MediumRow {
  Medium medium;
  platform::TextView chooserKey;  // what pendingTarget says while its chooser is open
  platform::TextView pattern;     // of the files to choose from
  std::int16_t pickFailure;       // the number of a failure while it is asked for
  std::int16_t missing;           // the message where its file is gone; 0: nobody looks for it
  platform::TextView mark;        // in front of the entry's line in the list
  bool movesUp;                   // with its row when one above it is deleted
  bool inMediaStatus;             // has a digit of its own in the entry's node
};

// In the order in which a build copies them.
inline constexpr std::array kMedia = std::to_array<MediumRow>({
    {Medium::kAttachment, u"C6d5", u"*.*", failure::kPickAttachment, message::kAttachmentMissing,
     u"§ ", true, true},
    {Medium::kSound, u"C6d1", u"*.mp3", failure::kPickSound, message::kSoundMissing, u"~ ", true,
     true},
    {Medium::kFilm, u"C6d2", u"*.flv", failure::kPickFilm, message::kFilmMissing, u"# ", true,
     true},
    {Medium::kBackground, u"Pasz", kPicturePattern, failure::kClickBackground, 0, u"^ ", false,
     false},
});

// Failure-free: every kind has its row.
constexpr const MediumRow& RowOf(Medium medium) {
  std::size_t row = 0;
  while (kMedia[row].medium != medium) ++row;
  return kMedia[row];
}

// Something of which each kind has one.
template <typename T>
class PerMedium {
 public:
  constexpr T& operator[](Medium medium) { return values_[static_cast<std::size_t>(medium)]; }
  constexpr const T& operator[](Medium medium) const {
    return values_[static_cast<std::size_t>(medium)];
  }

 private:
  std::array<T, kMedia.size()> values_{};
};

}  // namespace core
