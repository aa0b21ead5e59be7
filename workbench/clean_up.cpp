#include "workbench/clean_up.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstring>

namespace workbench {

using platform::kCrLf;
using platform::Text;
using platform::TextView;

namespace {

constexpr char16_t kMark = u'\u200F';
constexpr char16_t kDotlessYe = u'\u0649';

bool IsGrowing(char16_t c) { return c == u'!' || c == u'.' || c == u':'; }
bool StartsMarkup(char16_t c) { return c == u'&' || c == u'<'; }

// Eight characters that are looked at together, in the compiler's own vector notation, which needs
// no particular machine: for the bench's row "rep".
constexpr std::ptrdiff_t kLanes = 8;
using Eight [[gnu::vector_size(16)]] = std::uint16_t;
using Halves [[gnu::vector_size(16)]] = std::uint64_t;

Eight Load(const char16_t* at) {
  Eight eight;
  std::memcpy(&eight, at, sizeof eight);
  return eight;
}

// All bits set in the lanes whose character is among `wanted`.
template <char16_t... wanted>
Eight Among(Eight eight) {
  return reinterpret_cast<Eight>(((eight == static_cast<std::uint16_t>(wanted)) | ...));
}

// The first lane with its bits set, kLanes if there is none.
static_assert(std::endian::native == std::endian::little, "the first lane is the lowest one");
std::ptrdiff_t FirstOf(Eight lanes) {
  const auto halves = reinterpret_cast<Halves>(lanes);
  if (halves[0] != 0) return std::countr_zero(halves[0]) / 16;
  return 4 + std::countr_zero(halves[1]) / 16;
}

// What the whole text holds, to be known before it is rewritten.
struct Census {
  std::size_t growing = 0;  // characters that get a mark after them
  bool markup = false;      // something that can start one of the markup pieces
};

Census Count(TextView text) {
  // So short that no lane's count can overflow.
  constexpr std::ptrdiff_t kBlock = 65535 * kLanes;
  Census census;
  const char16_t* at = text.data();
  const char16_t* const end = at + text.size();
  while (end - at >= kLanes) {
    const char16_t* const blockEnd = at + std::min((end - at) / kLanes * kLanes, kBlock);
    Eight growing = {};
    Eight markup = {};
    for (; at != blockEnd; at += kLanes) {
      const Eight eight = Load(at);
      growing -= Among<u'!', u'.', u':'>(eight);
      markup |= Among<u'&', u'<'>(eight);
    }
    for (std::ptrdiff_t lane = 0; lane < kLanes; ++lane) census.growing += growing[lane];
    census.markup |= FirstOf(markup) < kLanes;
  }
  for (; at != end; ++at) {
    census.growing += IsGrowing(*at) ? 1 : 0;
    census.markup |= StartsMarkup(*at);
  }
  return census;
}

struct Piece {
  TextView find;
  TextView with;
};
constexpr std::array<Piece, 3> kMarkup = {
    {{u"&nbsp;", u" "}, {u"<ircMAIN>", u" "}, {u"</ircMAIN>", kCrLf}}};

const char16_t* FindMarkup(const char16_t* at, const char16_t* end) {
  for (; end - at >= kLanes; at += kLanes) {
    const std::ptrdiff_t plain = FirstOf(Among<u'&', u'<'>(Load(at)));
    if (plain < kLanes) return at + plain;
  }
  return std::find_if(at, end, StartsMarkup);
}

// The first three replacements. No piece can arise from what another leaves, so one pass does for
// all three; each makes the text shorter, so it happens in place.
void TakeMarkupOut(Text& text) {
  const char16_t* const end = text.data() + text.size();
  const char16_t* from = FindMarkup(text.data(), end);
  char16_t* to = text.data() + (from - text.data());
  while (from != end) {
    const TextView rest(from, static_cast<std::size_t>(end - from));
    const auto* piece = std::find_if(kMarkup.begin(), kMarkup.end(),
                                     [&](const Piece& p) { return rest.starts_with(p.find); });
    if (piece != kMarkup.end()) {
      to = std::copy(piece->with.begin(), piece->with.end(), to);
      from += piece->find.size();
    } else {
      *to++ = *from++;
    }
    const char16_t* const next = FindMarkup(from, end);
    const auto kept = static_cast<std::size_t>(next - from);
    std::char_traits<char16_t>::move(to, from, kept);
    to += kept;
    from = next;
  }
  text.resize(static_cast<std::size_t>(to - text.data()));
}

// The other seven replacements in one pass. A run of blanks loses one in front of a line break and
// two after one, as long as it has any: that is what the three passes over blanks come to. The
// rest is character by character.
class Rewriting {
 public:
  Rewriting(TextView text, std::size_t growing)
      : from_(text.data()), end_(text.data() + text.size()) {
    result_.reserve(text.size() + growing);
  }

  Text Run() {
    while (end_ - from_ >= kLanes) {
      if (to_ > block_.data() + kFull) Flush();
      UpToEight();
    }
    Flush();
    while (from_ != end_) One();
    result_.append(block_.data(), to_);
    return std::move(result_);
  }

 private:
  // Up to eight characters: as far as none of them needs more than its letter looked at.
  void UpToEight() {
    // All eight are written, valid or not; what follows writes over those that aren't.
    const Eight eight = Load(from_);
    const Eight dotted = eight - Among<kDotlessYe>(eight);
    std::memcpy(to_, &dotted, sizeof dotted);
    const std::ptrdiff_t plain = FirstOf(Among<u'!', u'.', u':', u'\r'>(eight));
    from_ += plain;
    to_ += plain;
    if (plain < kLanes) One();
  }

  void One() {
    const char16_t c = *from_++;
    if (c == u'\r' && from_ != end_ && *from_ == u'\n') {
      LineBreak();
    } else {
      *to_++ = WithDots(c);
      if (IsGrowing(c)) *to_++ = kMark;
    }
  }

  // After the CR of a line break.
  void LineBreak() {
    if (to_ != block_.data() && to_[-1] == u' ') --to_;
    to_ = std::copy(kCrLf.begin(), kCrLf.end(), to_);
    ++from_;
    for (int blank = 0; blank < 2 && from_ != end_ && *from_ == u' '; ++blank) ++from_;
  }

  static char16_t WithDots(char16_t c) {
    return static_cast<char16_t>(c + (c == kDotlessYe ? 1 : 0));
  }

  // All but the last character, which a line break can take back.
  void Flush() {
    if (to_ == block_.data()) return;
    --to_;
    result_.append(block_.data(), to_);
    block_[0] = *to_;
    to_ = block_.data() + 1;
  }

  // The text is written by way of a block that stays in the nearest cache: the memory of a string
  // can't be had without being filled first, and that would be a pass of its own.
  static constexpr std::size_t kFull = 4096;

  const char16_t* from_;
  const char16_t* end_;
  Text result_;
  std::array<char16_t, kFull + 4 * kLanes> block_;
  char16_t* to_ = block_.data();
};

}  // namespace

Text Rep(Text text) {
  const Census census = Count(text);
  if (census.markup) TakeMarkupOut(text);
  return Rewriting(text, census.growing).Run();
}

Text DelCrLf(TextView text) { return Text(text); }

Text RemCrLf(TextView text) {
  const Text line = platform::Replace(text, kCrLf, u" ");
  return Text(platform::Trim(platform::Replace(line, u"  ", u" ")));
}

Text BeBor(TextView text, std::int16_t n) {
  const platform::Position blank = platform::InStr(text, u" ", n);
  if (static_cast<platform::Position>(text.size()) <= n) return Text(text);
  return Text(platform::Left(text, blank != 0 ? blank : n)) + u"...";
}

}  // namespace workbench
