// MP4 and QuickTime: a tree of boxes, each with its length and a name of four letters. The sound
// and the picture may lie in other files, which the boxes name: such a film isn't known. Source:
// ISO/IEC 14496-12; "QuickTime File Format".
#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "media/bytes.h"
#include "media/kinds.h"

namespace media {
namespace {

constexpr int kMostBoxes = 65'536;
constexpr int kDeepest = 8;
constexpr int kMostReferences = 64;
// What describes a film of hours, in however many pieces, is less.
constexpr std::uint64_t kMostDescription = 33'554'432;

struct Box {
  std::string name;
  std::uint64_t start;
  std::uint64_t body;
  std::uint64_t end;
};

template <std::size_t kCount>
bool IsOneOf(std::string_view name, const std::array<std::string_view, kCount>& names) {
  return std::ranges::find(names, name) != names.end();
}

// Boxes that hold boxes, as far as they lead to a track.
bool HoldsBoxes(std::string_view name) {
  constexpr std::array<std::string_view, 6> kNames = {"moov", "trak", "mdia",
                                                      "minf", "dinf", "meta"};
  return IsOneOf(name, kNames);
}

constexpr std::uint32_t Letters(std::string_view name) {
  std::uint32_t letters = 0;
  for (const char letter : name) letters = letters << 8U | static_cast<unsigned char>(letter);
  return letters;
}

enum class Word : std::uint8_t { kAny, kReferences, kForbidden };

// Forbidden is a film made of other films, and one whose description is packed, so that it can't be
// looked into.
Word WordOf(std::uint32_t letters) {
  switch (letters) {
    case Letters("dref"):
      return Word::kReferences;
    case Letters("rmra"):
    case Letters("rmda"):
    case Letters("rdrf"):
    case Letters("cmov"):
    case Letters("cmvd"):
      return Word::kForbidden;
    default:
      return Word::kAny;
  }
}

bool IsKnownBrand(std::string_view brand) {
  constexpr std::array<std::string_view, 18> kBrands = {
      "mp41", "mp42", "avc1", "M4A ", "M4B ", "M4V ", "M4VH", "M4VP", "F4V ",
      "F4A ", "f4v ", "qt  ", "mmp4", "MSNV", "dash", "XAVC", "NDSC", "hvc1"};
  return IsOneOf(brand, kBrands) || brand.starts_with("iso") || brand.starts_with("3gp") ||
         brand.starts_with("3g2");
}

class Film {
 public:
  explicit Film(const Source& source) : source_(source) {}

  bool IsWhole() { return BeginsAsFilm() && ArePiecesGood() && hasTrack_; }

 private:
  // The oldest films have no brand.
  bool BeginsAsFilm() const {
    constexpr std::array<std::string_view, 6> kOldest = {"moov", "mdat", "wide",
                                                         "free", "skip", "pnot"};
    const std::string head = source_.Read(0, 12);
    if (head.size() < 12) return false;
    const std::string_view name = std::string_view(head).substr(4, 4);
    if (name != "ftyp") return IsOneOf(name, kOldest);
    const std::uint64_t length = BigEndian(head, 0, 4);
    return length >= 16 && length <= 4'096 && IsKnownBrand(std::string_view(head).substr(8));
  }

  // False where the length makes no sense.
  bool BoxAt(std::uint64_t at, std::uint64_t end, Box& box) const {
    const std::string head = source_.Read(at, 16);
    if (head.size() < 8) return false;
    std::uint64_t length = BigEndian(head, 0, 4);
    const bool isLong = length == 1;
    if (isLong) length = BigEndian(head, 8, 8);
    if (length == 0) length = end - at;
    const std::uint64_t headLength = isLong ? 16 : 8;
    box = {head.substr(4, 4), at, at + headLength, at + length};
    return length >= headLength && length <= end - at;
  }

  // The boxes that lie in no other.
  bool ArePiecesGood() {
    for (std::uint64_t at = 0; at < source_.Size();) {
      Box box;
      if (++boxes_ > kMostBoxes) return false;
      if (!BoxAt(at, source_.Size(), box)) return IsGoodEnd(at);
      if (!IsGoodPiece(box)) return false;
      at = box.end;
    }
    return true;
  }

  // Cut off in the middle of its last piece, or with something after that: a film is played as far
  // as it goes.
  bool IsGoodEnd(std::uint64_t at) {
    const bool isCutFilm = HasWord(source_.Read(at, 8), 4, "mdat");
    return hasTrack_ && (isCutFilm || NamesNothing(Box{"", at, at, source_.Size()}));
  }

  // Among the sounds and pictures themselves nobody looks for boxes.
  bool IsGoodPiece(const Box& box) {
    if (box.name == "mdat") return true;
    if (IsPadding(box.name)) return !HidesDescription(box);
    return NamesNothing(box) && (box.name != "moov" || AreGood(box.body, box.end, 1));
  }

  static bool IsPadding(std::string_view name) { return name == "free" || name == "skip"; }

  // Some players take a description for one, whatever it is called.
  bool HidesDescription(const Box& box) const {
    const std::string first = source_.Read(box.body, 8);
    return HasWord(first, 4, "mvhd") || HasWord(first, 4, "cmov");
  }

  // Players look for references in boxes of many names, wherever these lie, and each of them in
  // others. So it is looked for the words, and what lies around them is no matter.
  bool NamesNothing(const Box& box) {
    constexpr std::uint64_t kPiece = 65'536;
    std::uint32_t letters = 0;
    for (std::uint64_t at = box.start; at < box.end;) {
      const auto length = static_cast<std::size_t>(std::min(box.end - at, kPiece));
      const std::string piece = source_.Read(at, length);
      looked_ += length;
      if (looked_ > kMostDescription || piece.size() < length) return false;
      for (const char letter : piece) {
        letters = letters << 8U | static_cast<unsigned char>(letter);
        ++at;
        const Word word = WordOf(letters);
        if (word == Word::kAny) continue;
        if (word == Word::kForbidden || !AreReferencesToItself(at, box)) return false;
      }
    }
    return true;
  }

  bool AreGood(std::uint64_t at, std::uint64_t end, int depth) {
    while (at < end) {
      Box box;
      if (++boxes_ > kMostBoxes || depth > kDeepest || !BoxAt(at, end, box)) return false;
      if (!IsGood(box, depth)) return false;
      at = box.end;
    }
    return true;
  }

  bool IsGood(const Box& box, int depth) {
    if (box.name == "trak") hasTrack_ = true;
    if (!HoldsBoxes(box.name)) return true;
    return AreGood(box.name == "meta" ? BodyOfMeta(box) : box.body, box.end, depth + 1);
  }

  // QuickTime's has no version in front of its boxes.
  std::uint64_t BodyOfMeta(const Box& box) const {
    const bool isBare = HasWord(source_.Read(box.body, 8), 4, "hdlr");
    return isBare ? box.body : std::min(box.body + 4, box.end);
  }

  // Each of the references says that the data lie in this file, and names nothing. `at` is just
  // after the name of their box.
  bool AreReferencesToItself(std::uint64_t at, const Box& around) const {
    Box box;
    if (at < around.start + 8 || !BoxAt(at - 8, around.end, box)) return false;
    const std::uint64_t count = BigEndian(source_.Read(box.body, 8), 4, 4);
    if (count > kMostReferences) return false;
    std::uint64_t next = box.body + 8;
    for (std::uint64_t i = 0; i < count; ++i) {
      Box reference;
      if (!BoxAt(next, box.end, reference) || !IsReferenceToItself(reference)) return false;
      next = reference.end;
    }
    return next == box.end;
  }

  bool IsReferenceToItself(const Box& box) const {
    constexpr std::array<std::string_view, 2> kNames = {"url ", "alis"};
    const std::string body = source_.Read(box.body, 5);
    const std::uint64_t length = box.end - box.body;
    const bool namesNothing = length == 4 || (length == 5 && body.back() == '\0');
    return IsOneOf(box.name, kNames) && namesNothing && BigEndian(body, 0, 4) == 1;
  }

  const Source& source_;
  int boxes_ = 0;
  std::uint64_t looked_ = 0;  // bytes, for the words
  bool hasTrack_ = false;
};

}  // namespace

bool IsMp4(const Source& source) { return Film(source).IsWhole(); }

}  // namespace media
