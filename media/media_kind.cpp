#include "media/media_kind.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "media/bytes.h"
#include "media/kinds.h"

namespace media {
namespace {

constexpr std::size_t kTagHead = 10;
constexpr int kMostTags = 8;
constexpr std::size_t kMostPadding = 65'536;

// How far players look for the words by which they know a list.
constexpr std::size_t kProbed = 1'048'576;

struct Tags {
  std::uint64_t end = 0;
  bool any = false;
};

// The length of the ID3v2 tag at `at`, 0 if there is none. Source: id3.org, "ID3 tag
// version 2.4.0".
std::uint64_t TagLength(const Source& source, std::uint64_t at) {
  const std::string head = source.Read(at, kTagHead);
  if (head.size() < kTagHead || !HasWord(head, 0, "ID3")) return 0;
  std::uint64_t length = 0;
  for (std::size_t i = 6; i < kTagHead; ++i) {
    const std::uint64_t seven = BigEndian(head, i, 1);
    if (seven > 0x7F) return 0;
    length = length << 7U | seven;
  }
  const bool hasFoot = (BigEndian(head, 5, 1) & 0x10U) != 0;
  return kTagHead + length + (hasFoot ? kTagHead : 0);
}

// After the tags stand zeros in many a file.
Tags TagsOf(const Source& source) {
  Tags tags;
  for (int i = 0; i < kMostTags; ++i) {
    const std::uint64_t length = TagLength(source, tags.end);
    if (length == 0) break;
    tags.any = true;
    tags.end += length;
  }
  if (!tags.any) return tags;
  const std::string padding = source.Read(tags.end, kMostPadding);
  tags.end += std::min(padding.find_first_not_of('\0'), padding.size());
  return tags;
}

// Some players look for such a word on every line of the first mebibyte, not only at its beginning.
// Each is so long that no film holds it by chance.
bool NamesOthers(const Source& source) {
  constexpr std::array<std::string_view, 6> kWords = {"#EXTM3U",
                                                      "c=IN IP",
                                                      "ffconcat version",
                                                      "dash:profile:",
                                                      "<SmoothStreamingMedia",
                                                      "<CompositionPlaylist"};
  const std::string probed = source.Read(0, kProbed);
  return std::ranges::any_of(
      kWords, [&probed](std::string_view word) { return probed.find(word) != std::string::npos; });
}

// Passes reads on as far as they go. A film has some for each of its pieces; what wants more of
// them than the longest film isn't known, as each may cost the disk a turn.
class Spared {
 public:
  explicit Spared(const Source& source) : source_(source) {}

  Source Bytes() {
    return {source_.Size(), [this](std::uint64_t at, std::size_t count) {
              return ++reads_ > kMostReads ? std::string() : source_.Read(at, count);
            }};
  }
  bool IsSpent() const { return reads_ > kMostReads; }

 private:
  static constexpr int kMostReads = 90'000;

  const Source& source_;
  int reads_ = 0;
};

struct Question {
  MediaKind kind;
  bool (*holds)(const Source&);
  bool mayHaveTags = false;  // where an ID3v2 tag may stand before it
};

constexpr std::array<Question, 10> kQuestions = {{{MediaKind::kMp3, IsMp3, true},
                                                  {MediaKind::kAac, IsAac, true},
                                                  {MediaKind::kFlac, IsFlac, true},
                                                  {MediaKind::kWave, IsWave},
                                                  {MediaKind::kOgg, IsOgg},
                                                  {MediaKind::kMp4, IsMp4},
                                                  {MediaKind::kFlv, IsFlv},
                                                  {MediaKind::kAvi, IsAvi},
                                                  {MediaKind::kMatroska, IsMatroska},
                                                  {MediaKind::kMpeg, IsMpeg}}};

// Asked last: a film may hold such a sound near its beginning. The player gets what begins with the
// sound, without the junk.
std::optional<KnownMedium> SoundAfterJunk(const Source& medium, std::uint64_t start) {
  const std::optional<std::string> junk = BytesBeforeMp3(medium);
  if (!junk || !IsJunk(*junk) || NamesOthers(medium)) return std::nullopt;
  if (NamesOthers(medium.From(junk->size()))) return std::nullopt;
  return KnownMedium{MediaKind::kMp3, start + junk->size()};
}

}  // namespace

std::optional<KnownMedium> MediumOf(const Source& source) {
  Spared spared(source);
  const Source bytes = spared.Bytes();
  const Tags tags = TagsOf(bytes);
  const Source medium = bytes.From(tags.end);
  for (const Question& question : kQuestions) {
    if (tags.any && !question.mayHaveTags) continue;
    if (!question.holds(medium)) continue;
    if (NamesOthers(medium) || spared.IsSpent()) return std::nullopt;
    return KnownMedium{question.kind, tags.end};
  }
  return spared.IsSpent() ? std::nullopt : SoundAfterJunk(medium, tags.end);
}

}  // namespace media
