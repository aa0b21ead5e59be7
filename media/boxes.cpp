// MP4 and QuickTime: a tree of boxes, each with its length and a name of four letters. The sound
// and the picture may lie in other files, which the boxes name: such a film isn't known. Source:
// ISO/IEC 14496-12; "QuickTime File Format".
#include <algorithm>
#include <array>
#include <string>

#include "media/bytes.h"
#include "media/kinds.h"

namespace media {
namespace {

constexpr int kMostBoxes = 65'536;
constexpr int kDeepest = 8;
constexpr int kMostReferences = 64;

struct Box {
  std::string name;
  std::uint64_t body;
  std::uint64_t end;
};

template <std::size_t kCount>
bool IsOneOf(std::string_view name, const std::array<std::string_view, kCount>& names) {
  return std::ranges::find(names, name) != names.end();
}

// Boxes that hold boxes, as far as they lead to references.
bool HoldsBoxes(std::string_view name) {
  constexpr std::array<std::string_view, 6> kNames = {"moov", "trak", "mdia",
                                                      "minf", "dinf", "meta"};
  return IsOneOf(name, kNames);
}

// A film made of other films, and one whose description is packed, so that it can't be looked into.
bool IsForbidden(std::string_view name) {
  constexpr std::array<std::string_view, 5> kNames = {"rmra", "rmda", "rdrf", "cmov", "cmvd"};
  return IsOneOf(name, kNames);
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

  bool IsWhole() {
    const std::string head = source_.Read(0, 12);
    const std::uint64_t length = BigEndian(head, 0, 4);
    if (length < 16 || length > 4'096 || !HasWord(head, 4, "ftyp")) return false;
    if (!IsKnownBrand(std::string_view(head).substr(8))) return false;
    return AreGood(0, source_.Size(), 0) && hasTrack_;
  }

 private:
  // False where the length makes no sense.
  bool BoxAt(std::uint64_t at, std::uint64_t end, Box& box) const {
    const std::string head = source_.Read(at, 16);
    if (head.size() < 8) return false;
    std::uint64_t length = BigEndian(head, 0, 4);
    const bool isLong = length == 1;
    if (isLong) length = BigEndian(head, 8, 8);
    if (length == 0) length = end - at;
    const std::uint64_t headLength = isLong ? 16 : 8;
    box = {head.substr(4, 4), at + headLength, at + length};
    return length >= headLength && length <= end - at;
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
    if (IsForbidden(box.name)) return false;
    if (box.name == "dref") return AreReferencesToItself(box);
    if (box.name == "trak") hasTrack_ = true;
    if (!HoldsBoxes(box.name)) return true;
    return AreGood(box.name == "meta" ? BodyOfMeta(box) : box.body, box.end, depth + 1);
  }

  // QuickTime's has no version in front of its boxes.
  std::uint64_t BodyOfMeta(const Box& box) const {
    const bool isBare = HasWord(source_.Read(box.body, 8), 4, "hdlr");
    return isBare ? box.body : std::min(box.body + 4, box.end);
  }

  // Each of the references says that the data lie in this file, and names nothing.
  bool AreReferencesToItself(const Box& box) const {
    const std::uint64_t count = BigEndian(source_.Read(box.body, 8), 4, 4);
    if (count > kMostReferences) return false;
    std::uint64_t at = box.body + 8;
    for (std::uint64_t i = 0; i < count; ++i) {
      Box reference;
      if (!BoxAt(at, box.end, reference) || !IsReferenceToItself(reference)) return false;
      at = reference.end;
    }
    return at == box.end;
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
  bool hasTrack_ = false;
};

}  // namespace

bool IsMp4(const Source& source) { return Film(source).IsWhole(); }

}  // namespace media
