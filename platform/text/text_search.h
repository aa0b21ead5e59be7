// The one scan that finding, replacing and splitting share.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "platform/text/text.h"

namespace platform {

inline constexpr std::size_t kScanBlock = 16;

// Bit k is set where heads[k] is `head` and tails[k] is `tail`; kScanBlock units of each are read.
// Looking at both ends of what is sought keeps common first letters (a blank before a line break)
// from costing a comparison each.
//
// The bench's rows "rebuild" and "rebuild-line" need the processor's own way from lanes to bits: in
// the vector notation alone, as in workbench/clean_up.cpp, the work takes 1.6 times the
// instructions, as a plain loop still more.
inline std::uint32_t Candidates(const char16_t* heads, const char16_t* tails, char16_t head,
                                char16_t tail) {
#if defined(__SSE2__)
  // The compiler's own vectors: the rooms above see no header of the processor's.
  using Units [[gnu::vector_size(16)]] = short;
  const auto half = [&](std::size_t from) {
    Units h;
    Units t;
    std::memcpy(&h, heads + from, sizeof h);
    std::memcpy(&t, tails + from, sizeof t);
    return (h == static_cast<short>(head)) & (t == static_cast<short>(tail));
  };
  return static_cast<std::uint32_t>(
      __builtin_ia32_pmovmskb128(__builtin_ia32_packsswb128(half(0), half(8))));
#else
  std::uint32_t found = 0;
  for (std::size_t k = 0; k < kScanBlock; ++k) {
    const bool here = heads[k] == head && tails[k] == tail;
    found |= static_cast<std::uint32_t>(here) << k;
  }
  return found;
#endif
}

// Calls onHit(offset) for each occurrence of `find` from `from` on, left to right and without
// overlap, until it returns false. An empty `find` has no hit.
template <typename OnHit>
void ForEachHit(TextView text, TextView find, std::size_t from, OnHit onHit) {
  if (find.empty() || text.size() < find.size()) return;
  const std::size_t end = text.size() - find.size() + 1;
  const char16_t* const heads = text.data();
  const char16_t* const tails = heads + find.size() - 1;
  std::size_t freeFrom = from;  // after the last hit
  const auto goesOn = [&](std::size_t at) {
    if (at < freeFrom) return true;
    if (std::memcmp(heads + at, find.data(), find.size() * sizeof(char16_t)) != 0) return true;
    freeFrom = at + find.size();
    return static_cast<bool>(onHit(at));
  };
  std::size_t at = from;
  for (; at + kScanBlock <= end; at += kScanBlock) {
    std::uint32_t found = Candidates(heads + at, tails + at, find.front(), find.back());
    for (; found != 0; found &= found - 1) {
      if (!goesOn(at + static_cast<std::size_t>(std::countr_zero(found)))) return;
    }
  }
  for (; at < end; ++at) {
    if (heads[at] == find.front() && !goesOn(at)) return;
  }
}

}  // namespace platform
