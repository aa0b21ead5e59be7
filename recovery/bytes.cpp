#include "recovery/bytes.h"

#include "platform/failure.h"
#include "recovery/text_code.h"

namespace recovery {

using platform::Failure;
using platform::TextView;

namespace {

constexpr unsigned kBitsAByte = 7;
constexpr unsigned char kMore = 0x80;
constexpr unsigned kLastShift = 63;

}  // namespace

void AppendNumber(std::string& bytes, std::uint64_t number) {
  for (; number >= kMore; number >>= kBitsAByte) bytes += static_cast<char>(number | kMore);
  bytes += static_cast<char>(number);
}

// The lowest bit of the length says whether the text is folded.
void AppendText(std::string& bytes, TextView text) {
  std::string coded;
  coded.reserve(text.size());
  const bool folded = Fold(coded, text);
  if (!folded) AppendCoded(coded, text);
  AppendNumber(bytes, coded.size() << 1 | (folded ? 1U : 0U));
  bytes += coded;
}

std::uint64_t Reader::Number() {
  std::uint64_t number = 0;
  for (unsigned shift = 0; shift <= kLastShift; shift += kBitsAByte) {
    if (bytes_.empty()) throw Failure(u"A record's number breaks off");
    const auto byte = static_cast<unsigned char>(bytes_.front());
    bytes_.remove_prefix(1);
    number |= static_cast<std::uint64_t>(byte & ~kMore) << shift;
    if ((byte & kMore) == 0) return number;
  }
  throw Failure(u"A record's number is too large");
}

std::ptrdiff_t Reader::Count(std::ptrdiff_t most) {
  const std::uint64_t number = Number();
  if (most < 0 || number > static_cast<std::uint64_t>(most))
    throw Failure(u"A record counts too many");
  return static_cast<std::ptrdiff_t>(number);
}

platform::Text Reader::Text() {
  const std::uint64_t coded = Number();
  const bool folded = (coded & 1) != 0;
  if (coded >> 1 > bytes_.size()) throw Failure(u"A record's text breaks off");
  const std::string_view text = bytes_.substr(0, coded >> 1);
  bytes_.remove_prefix(text.size());
  return folded ? Unfolded(text) : Decoded(text);
}

}  // namespace recovery
